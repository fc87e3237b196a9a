#import "Preferences/FooterText.h"

#import <UIKit/FrameworkSupport.h>
#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/RowLook.h>
#import <UIKit/UIKit.h>

#include <cmath>

namespace sim {
namespace {

constexpr CGFloat kSide = 16;
constexpr CGFloat kTop = 7;
constexpr CGFloat kBottom = 8;

}  // namespace

UILabel *footerLabel() {
  UILabel *label = [[[UILabel alloc] initWithFrame:CGRectZero] autorelease];
  const SystemSets system;
  [label setFont:[UIFont systemFontOfSize:13]];
  [label setTextColor:[UIColor secondaryLabelColor]];
  [label setNumberOfLines:0];
  return label;
}

CGRect footerLabelFrame(CGSize size) {
  return CGRectMake(kSide, kTop, std::fmax(size.width - 2 * kSide, 0), std::fmax(size.height - kTop - kBottom, 0));
}

CGFloat footerHeight(UILabel *label, CGFloat width) {
  const CGSize room = CGSizeMake(std::fmax(width - 2 * kSide, 0), 0);
  return kTop + std::ceil([label sizeThatFits:room].height) + kBottom;
}

}  // namespace sim

@implementation SIMAlignedFooterView

- (id)initWithSpecifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithFrame:CGRectZero])) return nil;

  _label = [sim::footerLabel() retain];
  [_label setText:[specifier sim_stringForKey:PSFooterTextGroupKey]];
  [_label setTextAlignment:sim::alignmentFrom([specifier propertyForKey:PSFooterAlignmentGroupKey])];
  [self addSubview:_label];
  return self;
}

- (void)dealloc {
  [_label release];
  [super dealloc];
}

- (CGFloat)preferredHeightForWidth:(CGFloat)width {
  return sim::footerHeight(_label, width);
}

- (void)layoutSubviews {
  [super layoutSubviews];
  [_label setFrame:sim::footerLabelFrame([self bounds].size)];
}

@end
