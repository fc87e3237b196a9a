#import <UIKit/UIKit.h>

/// The name of the tweak over a line of text, for the top of the first page.
@interface LanternHeaderView : UIView

- (instancetype)initWithTitle:(NSString *)title subtitle:(NSString *)subtitle;

@end
