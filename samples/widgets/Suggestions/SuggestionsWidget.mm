#import "SuggestionsWidget.h"

namespace {

constexpr CGFloat kLineHeight = 44;  // Points.

}  // namespace

@implementation SuggestionsWidget

@synthesize isActivePage = _isActivePage;

- (void)dealloc {
  [_contentView release];
  [super dealloc];
}

- (void)setupWithFrame:(CGRect)frame {
  _contentView = [[UIView alloc] initWithFrame:frame];
  CGFloat top = 0;
  for (NSString *suggestion in @[ @"Continue the last call", @"Directions home", @"Play music" ]) {
    UILabel *line = [[[UILabel alloc] initWithFrame:CGRectMake(0, top, frame.size.width, kLineHeight)] autorelease];
    [line setAutoresizingMask:UIViewAutoresizingFlexibleWidth];
    [line setTextAlignment:NSTextAlignmentCenter];
    [line setText:suggestion];
    [_contentView addSubview:line];
    top += kLineHeight;
  }
}

- (id)contentView {
  return _contentView;
}

- (void)viewDidDisappear {
}

@end
