#import <UIKit/UIKit.h>

/// A picture, the tweak's name and a line that tells what is set, laid out by constraints; a tap calls `onTap`.
@interface TidelineHeaderView : UIView

@property(nonatomic, copy) void (^onTap)(void);
@property(nonatomic, copy) NSString *summary;
@property(nonatomic, strong) UIColor *colour;

@end
