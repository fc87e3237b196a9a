#import "NoteWidget.h"

@implementation NoteWidget

@synthesize isActivePage = _isActivePage;

- (void)dealloc {
  [_contentView release];
  [super dealloc];
}

- (void)setupWithFrame:(CGRect)frame {
  _contentView = [[UIView alloc] initWithFrame:frame];
  UILabel *note = [[[UILabel alloc] initWithFrame:CGRectInset([_contentView bounds], 20, 20)] autorelease];
  [note setAutoresizingMask:UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight];
  [note setNumberOfLines:0];
  [note setText:@"Swipe up to see your apps, and sideways for the next page."];
  [_contentView addSubview:note];
}

- (id)contentView {
  return _contentView;
}

- (void)viewDidDisappear {
}

@end
