#import <UIKit/NSLayoutConstraint.h>

#import "LayoutProblem.h"

#import <UIKit/LayoutState.h>
#import <UIKit/NSLayoutAnchor+Sim.h>
#import <UIKit/NSLayoutConstraint+Sim.h>

#include <algorithm>
#include <cmath>

namespace {

/// Attributes of one kind can be related to each other.
enum class Kind { kNone, kHorizontal, kReading, kVertical, kSize };

Kind kindOf(NSLayoutAttribute attribute) {
  switch (attribute) {
    case NSLayoutAttributeLeft:
    case NSLayoutAttributeRight:
    case NSLayoutAttributeLeftMargin:
    case NSLayoutAttributeRightMargin:
    case NSLayoutAttributeCenterX:
    case NSLayoutAttributeCenterXWithinMargins: return Kind::kHorizontal;
    case NSLayoutAttributeLeading:
    case NSLayoutAttributeTrailing:
    case NSLayoutAttributeLeadingMargin:
    case NSLayoutAttributeTrailingMargin: return Kind::kReading;
    case NSLayoutAttributeTop:
    case NSLayoutAttributeBottom:
    case NSLayoutAttributeTopMargin:
    case NSLayoutAttributeBottomMargin:
    case NSLayoutAttributeCenterY:
    case NSLayoutAttributeCenterYWithinMargins:
    case NSLayoutAttributeFirstBaseline:
    case NSLayoutAttributeLastBaseline: return Kind::kVertical;
    case NSLayoutAttributeWidth:
    case NSLayoutAttributeHeight: return Kind::kSize;
    default: return Kind::kNone;
  }
}

bool isCenterX(NSLayoutAttribute attribute) {
  return attribute == NSLayoutAttributeCenterX || attribute == NSLayoutAttributeCenterXWithinMargins;
}

/// Left and leading are not the same everywhere, and cannot be mixed; a centre goes with both.
bool canBeRelated(NSLayoutAttribute one, NSLayoutAttribute other) {
  const Kind kind = kindOf(one);
  const Kind otherKind = kindOf(other);
  if (kind == otherKind) return true;
  return (kind == Kind::kReading && isCenterX(other)) || (otherKind == Kind::kReading && isCenterX(one));
}

void refuse(NSString *reason) { [NSException raise:NSInvalidArgumentException format:@"%@", reason]; }

sim::LayoutItem *itemOf(id object) {
  if (!object) return nullptr;
  if ([object isKindOfClass:[UIView class]]) return &[(UIView *)object sim_layout].item;
  if ([object isKindOfClass:[UILayoutGuide class]]) return &[(UILayoutGuide *)object sim_state].item;
  refuse([NSString
      stringWithFormat:@"Constraint items must each be a view or a layout guide, and %@ is neither.", object]);
  return nullptr;
}

id objectOf(const sim::LayoutItem *item) {
  if (!item) return nil;
  return item->view ? (id)item->view : (id)item->guide;
}

UIView *nearestCommonAncestor(UIView *one, UIView *other) {
  for (; one; one = [one superview]) {
    if ([other isDescendantOfView:one]) return one;
  }
  return nil;
}

/// Whether the constraint says where the view of `item` lies, or how large it is, rather than what is in it.
bool places(const sim::LayoutItem &item, const sim::LayoutConstraintState &state) {
  return item.view && (item.view != state.ancestor || !state.second);
}

constexpr const char *kAttributeNames[] = {"notAnAttribute",
                                           "left",
                                           "right",
                                           "top",
                                           "bottom",
                                           "leading",
                                           "trailing",
                                           "width",
                                           "height",
                                           "centerX",
                                           "centerY",
                                           "lastBaseline",
                                           "firstBaseline",
                                           "leftMargin",
                                           "rightMargin",
                                           "topMargin",
                                           "bottomMargin",
                                           "leadingMargin",
                                           "trailingMargin",
                                           "centerXWithinMargins",
                                           "centerYWithinMargins"};

NSString *nameOf(const sim::LayoutItem *item, NSLayoutAttribute attribute) {
  id object = objectOf(item);
  NSString *name = item && item->view ? [item->view accessibilityIdentifier] : [(UILayoutGuide *)object identifier];
  NSString *shown = [name length] > 0 ? [NSString stringWithFormat:@" '%@'", name] : @"";
  return [NSString stringWithFormat:@"%@:%p%@.%s", [object class], object, shown, kAttributeNames[attribute]];
}

NSString *signOf(NSLayoutRelation relation) {
  if (relation == NSLayoutRelationEqual) return @"==";
  return relation == NSLayoutRelationLessThanOrEqual ? @"<=" : @">=";
}

}  // namespace

@implementation NSLayoutConstraint

+ (instancetype)constraintWithItem:(id)view1
                         attribute:(NSLayoutAttribute)attr1
                         relatedBy:(NSLayoutRelation)relation
                            toItem:(id)view2
                         attribute:(NSLayoutAttribute)attr2
                        multiplier:(CGFloat)multiplier
                          constant:(CGFloat)c {
  sim::LayoutItem *first = itemOf(view1);
  sim::LayoutItem *second = itemOf(view2);
  if (!first) refuse(@"A constraint needs a first item.");
  if (attr1 < NSLayoutAttributeLeft || attr1 > NSLayoutAttributeCenterYWithinMargins ||
      attr2 < NSLayoutAttributeNotAnAttribute || attr2 > NSLayoutAttributeCenterYWithinMargins) {
    refuse([NSString stringWithFormat:@"%ld and %ld are not both layout attributes.", long(attr1), long(attr2)]);
  }
  if (second ? attr2 == NSLayoutAttributeNotAnAttribute
             : attr2 != NSLayoutAttributeNotAnAttribute && kindOf(attr1) != Kind::kSize) {
    refuse(@"A second item and a second attribute are needed, or neither of them.");
  }
  if (!second && kindOf(attr1) != Kind::kSize) {
    refuse(@"A constraint cannot be made that sets a location equal to a constant. Location attributes must be "
           @"specified in pairs.");
  }
  if (second && !canBeRelated(attr1, attr2)) {
    refuse([NSString stringWithFormat:@"Invalid pairing of layout attributes: %s and %s.", kAttributeNames[attr1],
                                      kAttributeNames[attr2]]);
  }
  if (!std::isfinite(multiplier) || !std::isfinite(c)) refuse(@"Multiplier or constant is not finite.");
  if (second && multiplier == 0 && kindOf(attr1) != Kind::kSize) {
    refuse(@"A multiplier of 0 or a nil second item together with a location for the first attribute creates an "
           @"illegal constraint of a location equal to a constant. Location attributes must be specified in pairs.");
  }
  NSLayoutConstraint *made = objcxx::adopt([[self alloc] init]).autoreleased();
  sim::LayoutConstraintState &state = *made->_constraintState;
  state.first = first;
  state.second = second;
  state.firstAttribute = attr1;
  state.secondAttribute = second ? attr2 : NSLayoutAttributeNotAnAttribute;
  state.relation = relation;
  state.multiplier = multiplier;
  state.constant = c;
  first->mentions.push_back(made);
  if (second && second != first) second->mentions.push_back(made);
  return made;
}

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _constraintState = std::make_unique<sim::LayoutConstraintState>();
  return self;
}

- (void)dealloc {
  for (sim::LayoutItem *item : {_constraintState->first, _constraintState->second}) {
    if (item) std::erase(item->mentions, self);
  }
  [super dealloc];
}

- (sim::LayoutConstraintState &)sim_state {
  return *_constraintState;
}

- (UILayoutPriority)priority {
  return _constraintState->priority;
}

- (void)setPriority:(UILayoutPriority)priority {
  sim::LayoutConstraintState &state = *_constraintState;
  if (!(priority > 0) || priority > UILayoutPriorityRequired) {
    [NSException raise:NSInternalInconsistencyException
                format:@"It's illegal to set priority:%f. Priorities must be greater than 0 and less or equal to 1000.",
                       double(priority)];
  }
  const bool isRequired = state.priority == UILayoutPriorityRequired;
  if (state.holder && isRequired != (priority == UILayoutPriorityRequired)) {
    [NSException raise:NSInternalInconsistencyException
                format:@"Mutating a priority from required to not on an installed constraint (or vice-versa) is not "
                       @"supported. You passed priority %g and the existing priority was %g.",
                       double(priority), double(state.priority)];
  }
  if (state.priority == priority) return;
  state.priority = priority;
  [self sim_changed];
}

- (BOOL)shouldBeArchived {
  return _constraintState->shouldBeArchived;
}

- (void)setShouldBeArchived:(BOOL)archived {
  _constraintState->shouldBeArchived = archived;
}

- (id)firstItem {
  return objectOf(_constraintState->first);
}

- (id)secondItem {
  return objectOf(_constraintState->second);
}

- (NSLayoutAttribute)firstAttribute {
  return _constraintState->firstAttribute;
}

- (NSLayoutAttribute)secondAttribute {
  return _constraintState->secondAttribute;
}

- (NSLayoutAnchor *)firstAnchor {
  id item = [self firstItem];
  return item ? sim::anchorOf(item, _constraintState->firstAttribute) : nil;
}

- (NSLayoutAnchor *)secondAnchor {
  id item = [self secondItem];
  return item ? sim::anchorOf(item, _constraintState->secondAttribute) : nil;
}

- (NSLayoutRelation)relation {
  return _constraintState->relation;
}

- (CGFloat)multiplier {
  return _constraintState->multiplier;
}

- (CGFloat)constant {
  return _constraintState->constant;
}

- (void)setConstant:(CGFloat)constant {
  if (!std::isfinite(constant)) refuse(@"A constraint's constant is not finite.");
  if (_constraintState->constant == constant) return;
  _constraintState->constant = constant;
  [self sim_changed];
}

- (NSString *)identifier {
  return _constraintState->identifier.get();
}

- (void)setIdentifier:(NSString *)identifier {
  _constraintState->identifier = objcxx::adopt((NSString *)[identifier copy]);
}

- (void)sim_changed {
  if (!_constraintState->holder) return;
  for (sim::LayoutItem *item : {_constraintState->first, _constraintState->second}) {
    if (item) sim::layoutInputsChanged(*item);
  }
}

- (NSString *)description {
  const sim::LayoutConstraintState &state = *_constraintState;
  NSMutableString *text = [NSMutableString stringWithFormat:@"<%@:%p", [self class], self];
  if ([state.identifier.get() length] > 0) [text appendFormat:@" '%@'", state.identifier.get()];
  if (!state.first) return [text stringByAppendingString:@" of views that are gone>"];
  [text appendFormat:@" %@ %@ ", nameOf(state.first, state.firstAttribute), signOf(state.relation)];
  if (state.second) {
    if (state.multiplier != 1) [text appendFormat:@"%g*", double(state.multiplier)];
    [text appendString:nameOf(state.second, state.secondAttribute)];
    if (state.constant != 0) {
      [text appendFormat:@" %@ %g", state.constant > 0 ? @"+" : @"-", std::abs(double(state.constant))];
    }
  } else {
    [text appendFormat:@"%g", double(state.constant)];
  }
  if (state.priority != UILayoutPriorityRequired) [text appendFormat:@" @%g", double(state.priority)];
  [text appendFormat:@"   (%@)>", state.holder ? @"active" : @"inactive"];
  return text;
}

#pragma mark - Activation

- (BOOL)isActive {
  return _constraintState->holder != nil;
}

- (void)setActive:(BOOL)active {
  if (active == [self isActive]) return;
  [self sim_moveToHolder:active ? [self sim_requiredAncestor] : nil];
}

/// The nearest view that both items are in. Raises NSGenericException without one.
- (UIView *)sim_requiredAncestor {
  const sim::LayoutConstraintState &state = *_constraintState;
  UIView *one = state.first ? state.first->host() : nil;
  UIView *other = state.second ? state.second->host() : one;
  UIView *ancestor = nearestCommonAncestor(one, other);
  if (!ancestor) {
    [NSException raise:NSGenericException
                format:@"Unable to activate constraint with items %@ and %@ because they have no common ancestor. Does "
                       @"the constraint reference items in different view hierarchies? That's illegal.",
                       [self firstItem], [self secondItem]];
  }
  return ancestor;
}

/// nil for none.
- (void)sim_moveToHolder:(UIView *)holder {
  if (holder) [self sim_joinView:holder];
  else [self sim_leave];
}

/// Makes `holder`, a view in which both items are, hold the constraint.
- (void)sim_joinView:(UIView *)holder {
  sim::LayoutConstraintState &state = *_constraintState;
  static unsigned long lastOrder = 0;
  UIView *one = state.first->host();
  state.holder = holder;
  state.ancestor = nearestCommonAncestor(one, state.second ? state.second->host() : one);
  state.order = ++lastOrder;
  [holder sim_layout].constraints.push_back(objcxx::share(self));
  [self sim_countPlaced:1];
  [self sim_changed];
}

- (void)sim_leave {
  const auto kept = objcxx::share(self);
  [self sim_changed];
  std::erase_if([_constraintState->holder sim_layout].constraints,
                [self](const auto &held) { return held.get() == self; });
  [self sim_leaveHolder];
}

- (void)sim_leaveHolder {
  [self sim_countPlaced:-1];
  _constraintState->holder = _constraintState->ancestor = nil;
}

- (void)sim_countPlaced:(int)change {
  const sim::LayoutConstraintState &state = *_constraintState;
  for (const sim::LayoutItem *item : {state.first, state.second != state.first ? state.second : nullptr}) {
    UIView *host = item ? item->host() : nil;
    if (!host) continue;
    sim::ViewLayout &layout = [host sim_layout];
    layout.activeConstraints += static_cast<std::size_t>(change);
    if (places(*item, state)) layout.placingConstraints += static_cast<std::size_t>(change);
  }
}

+ (void)activateConstraints:(NSArray *)constraints {
  for (NSLayoutConstraint *constraint in constraints) [constraint setActive:YES];
}

+ (void)deactivateConstraints:(NSArray *)constraints {
  for (NSLayoutConstraint *constraint in constraints) [constraint setActive:NO];
}

@end
