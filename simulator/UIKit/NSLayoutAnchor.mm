#import <UIKit/NSLayoutAnchor+Sim.h>

#import <UIKit/LayoutState.h>

namespace {

constexpr CGFloat kSystemSpacing = 8;

}  // namespace

@implementation NSLayoutAnchor

- (instancetype)sim_initWithItem:(id)item attribute:(NSLayoutAttribute)attribute {
  if (!(self = [super init])) return nil;
  _item = [item retain];
  _attribute = attribute;
  return self;
}

- (void)dealloc {
  [_item release];
  [super dealloc];
}

- (BOOL)isEqual:(id)other {
  if (![other isKindOfClass:[NSLayoutAnchor class]]) return NO;
  NSLayoutAnchor *anchor = other;
  return anchor->_item == _item && anchor->_attribute == _attribute;
}

- (NSUInteger)hash {
  return [_item hash] * 31 + static_cast<NSUInteger>(_attribute);
}

- (NSString *)description {
  return [NSString stringWithFormat:@"<%@:%p of %@>", [self class], self, _item];
}

- (NSLayoutConstraint *)sim_relate:(NSLayoutRelation)relation
                                to:(NSLayoutAnchor *)anchor
                        multiplier:(CGFloat)multiplier
                          constant:(CGFloat)constant {
  if (!anchor) [NSException raise:NSInvalidArgumentException format:@"An anchor must not be nil."];
  return [NSLayoutConstraint constraintWithItem:_item
                                      attribute:_attribute
                                      relatedBy:relation
                                         toItem:anchor->_item
                                      attribute:anchor->_attribute
                                     multiplier:multiplier
                                       constant:constant];
}

- (NSLayoutConstraint *)sim_relate:(NSLayoutRelation)relation toConstant:(CGFloat)constant {
  return [NSLayoutConstraint constraintWithItem:_item
                                      attribute:_attribute
                                      relatedBy:relation
                                         toItem:nil
                                      attribute:NSLayoutAttributeNotAnAttribute
                                     multiplier:1
                                       constant:constant];
}

- (NSLayoutConstraint *)constraintEqualToAnchor:(NSLayoutAnchor *)anchor {
  return [self sim_relate:NSLayoutRelationEqual to:anchor multiplier:1 constant:0];
}

- (NSLayoutConstraint *)constraintGreaterThanOrEqualToAnchor:(NSLayoutAnchor *)anchor {
  return [self sim_relate:NSLayoutRelationGreaterThanOrEqual to:anchor multiplier:1 constant:0];
}

- (NSLayoutConstraint *)constraintLessThanOrEqualToAnchor:(NSLayoutAnchor *)anchor {
  return [self sim_relate:NSLayoutRelationLessThanOrEqual to:anchor multiplier:1 constant:0];
}

- (NSLayoutConstraint *)constraintEqualToAnchor:(NSLayoutAnchor *)anchor constant:(CGFloat)c {
  return [self sim_relate:NSLayoutRelationEqual to:anchor multiplier:1 constant:c];
}

- (NSLayoutConstraint *)constraintGreaterThanOrEqualToAnchor:(NSLayoutAnchor *)anchor constant:(CGFloat)c {
  return [self sim_relate:NSLayoutRelationGreaterThanOrEqual to:anchor multiplier:1 constant:c];
}

- (NSLayoutConstraint *)constraintLessThanOrEqualToAnchor:(NSLayoutAnchor *)anchor constant:(CGFloat)c {
  return [self sim_relate:NSLayoutRelationLessThanOrEqual to:anchor multiplier:1 constant:c];
}

@end

@implementation NSLayoutXAxisAnchor

- (NSLayoutConstraint *)constraintEqualToSystemSpacingAfterAnchor:(NSLayoutXAxisAnchor *)anchor
                                                       multiplier:(CGFloat)multiplier {
  return [self constraintEqualToAnchor:anchor constant:kSystemSpacing * multiplier];
}

- (NSLayoutConstraint *)constraintGreaterThanOrEqualToSystemSpacingAfterAnchor:(NSLayoutXAxisAnchor *)anchor
                                                                    multiplier:(CGFloat)multiplier {
  return [self constraintGreaterThanOrEqualToAnchor:anchor constant:kSystemSpacing * multiplier];
}

- (NSLayoutConstraint *)constraintLessThanOrEqualToSystemSpacingAfterAnchor:(NSLayoutXAxisAnchor *)anchor
                                                                 multiplier:(CGFloat)multiplier {
  return [self constraintLessThanOrEqualToAnchor:anchor constant:kSystemSpacing * multiplier];
}

@end

@implementation NSLayoutYAxisAnchor

- (NSLayoutConstraint *)constraintEqualToSystemSpacingBelowAnchor:(NSLayoutYAxisAnchor *)anchor
                                                       multiplier:(CGFloat)multiplier {
  return [self constraintEqualToAnchor:anchor constant:kSystemSpacing * multiplier];
}

- (NSLayoutConstraint *)constraintGreaterThanOrEqualToSystemSpacingBelowAnchor:(NSLayoutYAxisAnchor *)anchor
                                                                    multiplier:(CGFloat)multiplier {
  return [self constraintGreaterThanOrEqualToAnchor:anchor constant:kSystemSpacing * multiplier];
}

- (NSLayoutConstraint *)constraintLessThanOrEqualToSystemSpacingBelowAnchor:(NSLayoutYAxisAnchor *)anchor
                                                                 multiplier:(CGFloat)multiplier {
  return [self constraintLessThanOrEqualToAnchor:anchor constant:kSystemSpacing * multiplier];
}

@end

@implementation NSLayoutDimension

- (NSLayoutConstraint *)constraintEqualToConstant:(CGFloat)c {
  return [self sim_relate:NSLayoutRelationEqual toConstant:c];
}

- (NSLayoutConstraint *)constraintGreaterThanOrEqualToConstant:(CGFloat)c {
  return [self sim_relate:NSLayoutRelationGreaterThanOrEqual toConstant:c];
}

- (NSLayoutConstraint *)constraintLessThanOrEqualToConstant:(CGFloat)c {
  return [self sim_relate:NSLayoutRelationLessThanOrEqual toConstant:c];
}

- (NSLayoutConstraint *)constraintEqualToAnchor:(NSLayoutDimension *)anchor multiplier:(CGFloat)m {
  return [self sim_relate:NSLayoutRelationEqual to:anchor multiplier:m constant:0];
}

- (NSLayoutConstraint *)constraintGreaterThanOrEqualToAnchor:(NSLayoutDimension *)anchor multiplier:(CGFloat)m {
  return [self sim_relate:NSLayoutRelationGreaterThanOrEqual to:anchor multiplier:m constant:0];
}

- (NSLayoutConstraint *)constraintLessThanOrEqualToAnchor:(NSLayoutDimension *)anchor multiplier:(CGFloat)m {
  return [self sim_relate:NSLayoutRelationLessThanOrEqual to:anchor multiplier:m constant:0];
}

- (NSLayoutConstraint *)constraintEqualToAnchor:(NSLayoutDimension *)anchor multiplier:(CGFloat)m constant:(CGFloat)c {
  return [self sim_relate:NSLayoutRelationEqual to:anchor multiplier:m constant:c];
}

- (NSLayoutConstraint *)constraintGreaterThanOrEqualToAnchor:(NSLayoutDimension *)anchor
                                                  multiplier:(CGFloat)m
                                                    constant:(CGFloat)c {
  return [self sim_relate:NSLayoutRelationGreaterThanOrEqual to:anchor multiplier:m constant:c];
}

- (NSLayoutConstraint *)constraintLessThanOrEqualToAnchor:(NSLayoutDimension *)anchor
                                               multiplier:(CGFloat)m
                                                 constant:(CGFloat)c {
  return [self sim_relate:NSLayoutRelationLessThanOrEqual to:anchor multiplier:m constant:c];
}

@end

namespace sim {

NSLayoutAnchor *anchorOf(id item, NSLayoutAttribute attribute) {
  Class kind = [NSLayoutYAxisAnchor class];
  switch (attribute) {
    case NSLayoutAttributeLeft:
    case NSLayoutAttributeRight:
    case NSLayoutAttributeLeading:
    case NSLayoutAttributeTrailing:
    case NSLayoutAttributeCenterX:
    case NSLayoutAttributeLeftMargin:
    case NSLayoutAttributeRightMargin:
    case NSLayoutAttributeLeadingMargin:
    case NSLayoutAttributeTrailingMargin:
    case NSLayoutAttributeCenterXWithinMargins: kind = [NSLayoutXAxisAnchor class]; break;
    case NSLayoutAttributeWidth:
    case NSLayoutAttributeHeight: kind = [NSLayoutDimension class]; break;
    default: break;
  }
  return [[[kind alloc] sim_initWithItem:item attribute:attribute] autorelease];
}

}  // namespace sim
