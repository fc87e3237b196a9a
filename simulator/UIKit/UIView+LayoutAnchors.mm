// The anchors of a view.
#import <UIKit/NSLayoutAnchor+Sim.h>
#import <UIKit/UIView.h>

@implementation UIView (UIViewLayoutConstraintCreation)

- (NSLayoutXAxisAnchor *)leadingAnchor {
  return (NSLayoutXAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeLeading);
}

- (NSLayoutXAxisAnchor *)trailingAnchor {
  return (NSLayoutXAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeTrailing);
}

- (NSLayoutXAxisAnchor *)leftAnchor {
  return (NSLayoutXAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeLeft);
}

- (NSLayoutXAxisAnchor *)rightAnchor {
  return (NSLayoutXAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeRight);
}

- (NSLayoutYAxisAnchor *)topAnchor {
  return (NSLayoutYAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeTop);
}

- (NSLayoutYAxisAnchor *)bottomAnchor {
  return (NSLayoutYAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeBottom);
}

- (NSLayoutDimension *)widthAnchor {
  return (NSLayoutDimension *)sim::anchorOf(self, NSLayoutAttributeWidth);
}

- (NSLayoutDimension *)heightAnchor {
  return (NSLayoutDimension *)sim::anchorOf(self, NSLayoutAttributeHeight);
}

- (NSLayoutXAxisAnchor *)centerXAnchor {
  return (NSLayoutXAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeCenterX);
}

- (NSLayoutYAxisAnchor *)centerYAnchor {
  return (NSLayoutYAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeCenterY);
}

- (NSLayoutYAxisAnchor *)firstBaselineAnchor {
  return (NSLayoutYAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeFirstBaseline);
}

- (NSLayoutYAxisAnchor *)lastBaselineAnchor {
  return (NSLayoutYAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeLastBaseline);
}

@end
