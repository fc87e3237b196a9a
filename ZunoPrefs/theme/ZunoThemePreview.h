#import <Preferences/PreferencesTableCustomView.h>
#import <UIKit/UIKit.h>

#include "theme/Theme.hpp"

/// The switcher in small, above the theme page's rows: drawn from the theme file as it stands, and again whenever this
/// process changes that, the appearance of the system changes, or the screen.
///
/// Lengths of the theme are points of the screen, and shrink with it. One element for assistive technologies, described
/// in words. Main thread only.
@interface ZunoThemePreview : UIView <PreferencesTableCustomView> {
  UIView *_screen;
  UIImageView *_picture;
  UIView *_dimming;
  NSArray *_cards;  // The left one, the right one, and in front of them the middle one.
  UIView *_icon;
  UILabel *_title;
  UILabel *_badge;
  zuno::Look _look;
  std::size_t _photo;  // The stored photo's fingerprint; 0 while none is shown.
}

@end
