#import "Settings/stage/StageController.h"

@implementation SIMStageController

- (void)viewDidLoad {
  [super viewDidLoad];
  [[self view] setBackgroundColor:[UIColor systemBackgroundColor]];
}

- (void)viewWillAppear:(BOOL)animated {
  [super viewWillAppear:animated];
  [[self navigationController] setNavigationBarHidden:YES animated:NO];
}

- (void)viewWillDisappear:(BOOL)animated {
  [super viewWillDisappear:animated];
  [[self navigationController] setNavigationBarHidden:NO animated:NO];
}

- (void)showContentView:(UIView *)view {
  for (UIView *shown in [[self view] subviews]) [shown removeFromSuperview];
  if (view) [[self view] addSubview:view];
}

@end
