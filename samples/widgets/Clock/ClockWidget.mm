#import "ClockWidget.h"

@implementation ClockWidget

@synthesize isActivePage = _isActivePage;

- (void)dealloc {
  [_contentView release];
  [_timeLabel release];
  [super dealloc];
}

- (void)setupWithFrame:(CGRect)frame {
  _contentView = [[UIView alloc] initWithFrame:frame];
  _timeLabel = [[UILabel alloc] initWithFrame:[_contentView bounds]];
  [_timeLabel setAutoresizingMask:UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight];
  [_timeLabel setTextAlignment:NSTextAlignmentCenter];
  [_timeLabel setFont:[UIFont systemFontOfSize:64]];
  [_contentView addSubview:_timeLabel];
  [self showTime];
}

- (id)contentView {
  return _contentView;
}

- (void)viewDidAppear {
  [self showTime];
}

- (void)viewDidDisappear {
}

- (void)showTime {
  NSDateFormatter *format = [[[NSDateFormatter alloc] init] autorelease];
  [format setDateFormat:@"HH:mm"];
  [_timeLabel setText:[format stringFromDate:[NSDate date]]];
}

@end
