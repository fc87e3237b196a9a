#import <Zuno/ZunoWidgetProtocol.h>

/// A page with a short note. Its "Preferences" resource describes the settings that the widget offers.
@interface NoteWidget : NSObject <ZunoWidgetProtocol> {
 @private
  UIView *_contentView;
  BOOL _isActivePage;
}
@end
