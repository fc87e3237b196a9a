#import <Zuno/ZunoWidgetProtocol.h>

/// A page with the time of day.
@interface ClockWidget : NSObject <ZunoWidgetProtocol> {
 @private
  UIView *_contentView;
  UILabel *_timeLabel;
  BOOL _isActivePage;
}
@end
