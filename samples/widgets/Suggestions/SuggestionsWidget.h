#import <Zuno/ZunoWidgetProtocol.h>

/// A page with suggestions for the moment of the day. It is the widget of the default list.
@interface SuggestionsWidget : NSObject <ZunoWidgetProtocol> {
 @private
  UIView *_contentView;
  BOOL _isActivePage;
}
@end
