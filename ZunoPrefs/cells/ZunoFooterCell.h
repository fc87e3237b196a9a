#import <Preferences/PSTableCell.h>
#import <Preferences/PreferencesTableCustomView.h>
#import <UIKit/UIKit.h>

/// The line below the root page's rows: the developer, the year, the package version.
///
/// It is always as wide as its superview. Main thread only.
@interface ZunoFooterCell : PSTableCell <PreferencesTableCustomView> {
  UILabel *mainTitleLabel;
}
@end
