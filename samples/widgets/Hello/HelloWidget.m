#import <Zuno/ZunoWidgetProtocol.h>
@interface HelloWidget : NSObject <ZunoWidgetProtocol>
@property(nonatomic) UILabel *contentView;
@end
@implementation HelloWidget
@synthesize isActivePage;
- (void)setupWithFrame:(CGRect)frame {
  self.contentView = [[UILabel alloc] initWithFrame:frame];
  self.contentView.text = @"Hello";
}
- (void)viewDidDisappear {
}
@end
