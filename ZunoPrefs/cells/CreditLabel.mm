#import "cells/CreditLabel.h"

namespace zuno {

UILabel *creditLabel(CGRect frame, UIFont *font, NSString *text) {
  UILabel *label = [[[UILabel alloc] initWithFrame:frame] autorelease];
  [label setNumberOfLines:1];
  [label setFont:font];
  [label setText:text];
  [label setBackgroundColor:[UIColor clearColor]];
  [label setTextAlignment:NSTextAlignmentCenter];
  [label setAutoresizingMask:UIViewAutoresizingFlexibleWidth];
  return label;
}

}  // namespace zuno
