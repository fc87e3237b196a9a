// Constraints out of the visual format language.
#import <UIKit/NSLayoutConstraint.h>

#include "VisualFormat.hpp"

#import <UIKit/NSText+Sim.h>
#import <UIKit/UILayoutGuide.h>
#import <UIKit/UIView.h>

#include <cstdarg>
#include <vector>

namespace {

constexpr CGFloat kSystemSpacing = 8;

/// Makes the constraints of one format.
class Reader final {
 public:
  Reader(NSString *format, NSLayoutFormatOptions options, NSDictionary *metrics, NSDictionary *views)
      : format_(format), options_(options), metrics_(metrics), views_(views) {}

  NSArray *constraints() {
    const auto parsed = sim::parseVisualFormat(sim::utf8(format_));
    if (const auto *error = std::get_if<sim::VisualFormatError>(&parsed)) refuse(*error);
    const auto &format = std::get<sim::VisualFormat>(parsed);
    isVertical_ = format.isVertical;
    for (const sim::VisualView &view : format.views) items_.push_back(view.name.empty() ? nil : itemNamed(view.name));
    for (id item : items_) {
      if (item && !superview_) superview_ = containerOf(item);
    }
    for (std::size_t at = 0; at < format.views.size(); ++at) {
      for (const sim::VisualPredicate &size : format.views[at].sizes) addSize(items_[at], size);
    }
    for (std::size_t at = 0; at < format.gaps.size(); ++at) addGap(items_[at], items_[at + 1], format.gaps[at]);
    align();
    return made_;
  }

 private:
  [[noreturn]] void refuse(NSString *reason) const {
    [NSException raise:NSInvalidArgumentException
                format:@"Unable to parse constraint format: %@ in \"%@\".", reason, format_];
    __builtin_unreachable();
  }

  [[noreturn]] void refuse(const sim::VisualFormatError &error) const {
    refuse([NSString stringWithFormat:@"%s at position %lu", error.reason.c_str(), (unsigned long)error.position]);
  }

  static NSString *text(const std::string &name) { return [NSString stringWithUTF8String:name.c_str()]; }

  id itemNamed(const std::string &name) const {
    id item = [views_ objectForKey:text(name)];
    if (![item isKindOfClass:[UIView class]] && ![item isKindOfClass:[UILayoutGuide class]]) {
      refuse([NSString stringWithFormat:@"%s is not a key in the views dictionary", name.c_str()]);
    }
    return item;
  }

  static UIView *containerOf(id item) {
    return [item isKindOfClass:[UIView class]] ? [(UIView *)item superview] : [(UILayoutGuide *)item owningView];
  }

  double numberOf(const std::variant<double, std::string> &value) const {
    if (const double *number = std::get_if<double>(&value)) return *number;
    const std::string &name = std::get<std::string>(value);
    id metric = [metrics_ objectForKey:text(name)];
    if (![metric isKindOfClass:[NSNumber class]]) {
      refuse([NSString stringWithFormat:@"%s is not a key in the metrics dictionary", name.c_str()]);
    }
    return [metric doubleValue];
  }

  void add(id one, NSLayoutAttribute attribute, int relation, id other, NSLayoutAttribute otherAttribute,
           double constant, const std::variant<double, std::string> &priority = 1000.0) {
    NSLayoutConstraint *made = [NSLayoutConstraint constraintWithItem:one
                                                            attribute:attribute
                                                            relatedBy:static_cast<NSLayoutRelation>(relation)
                                                               toItem:other
                                                            attribute:otherAttribute
                                                           multiplier:1
                                                             constant:constant];
    [made setPriority:static_cast<UILayoutPriority>(numberOf(priority))];
    [made_ addObject:made];
  }

  void addSize(id item, const sim::VisualPredicate &size) {
    if (!item) refuse(@"the superview has no size here");
    const NSLayoutAttribute attribute = isVertical_ ? NSLayoutAttributeHeight : NSLayoutAttributeWidth;
    const std::string *name = std::get_if<std::string>(&size.value);
    if (name && [views_ objectForKey:text(*name)]) {
      add(item, attribute, size.relation, itemNamed(*name), attribute, 0, size.priority);
    } else {
      add(item, attribute, size.relation, nil, NSLayoutAttributeNotAnAttribute, numberOf(size.value), size.priority);
    }
  }

  NSLayoutAttribute startAttribute(bool ofMargin) const {
    if (isVertical_) return ofMargin ? NSLayoutAttributeTopMargin : NSLayoutAttributeTop;
    if (isInReadingOrder()) return ofMargin ? NSLayoutAttributeLeadingMargin : NSLayoutAttributeLeading;
    if (isRightToLeft()) return ofMargin ? NSLayoutAttributeRightMargin : NSLayoutAttributeRight;
    return ofMargin ? NSLayoutAttributeLeftMargin : NSLayoutAttributeLeft;
  }

  NSLayoutAttribute endAttribute(bool ofMargin) const {
    if (isVertical_) return ofMargin ? NSLayoutAttributeBottomMargin : NSLayoutAttributeBottom;
    if (isInReadingOrder()) return ofMargin ? NSLayoutAttributeTrailingMargin : NSLayoutAttributeTrailing;
    if (isRightToLeft()) return ofMargin ? NSLayoutAttributeLeftMargin : NSLayoutAttributeLeft;
    return ofMargin ? NSLayoutAttributeRightMargin : NSLayoutAttributeRight;
  }

  bool isInReadingOrder() const { return (options_ & NSLayoutFormatDirectionMask) == 0; }
  bool isRightToLeft() const {
    return !isVertical_ && (options_ & NSLayoutFormatDirectionMask) == NSLayoutFormatDirectionRightToLeft;
  }

  /// Between one item and the next, either of which may be the superview (nil).
  void addGap(id before, id after, const sim::VisualGap &gap) {
    const auto orSuperview = [this](id item) -> id {
      if (!item && !superview_) refuse(@"the views have no superview");
      return item ? item : (id)superview_;
    };
    const bool byMargin = gap.isStandard && (!before || !after);
    const NSLayoutAttribute from = before ? endAttribute(false) : startAttribute(byMargin);
    const NSLayoutAttribute to = after ? startAttribute(false) : endAttribute(byMargin);
    std::vector<sim::VisualPredicate> distances = gap.distances;
    if (distances.empty()) distances.push_back({.value = gap.isStandard && !byMargin ? kSystemSpacing : 0.0});
    for (const sim::VisualPredicate &distance : distances) {
      const double points = numberOf(distance.value);
      if (isRightToLeft()) {
        add(orSuperview(before), from, distance.relation, orSuperview(after), to, points, distance.priority);
      } else {
        add(orSuperview(after), to, distance.relation, orSuperview(before), from, points, distance.priority);
      }
    }
  }

  void align() {
    std::vector<id> items;
    for (id item : items_) {
      if (item) items.push_back(item);
    }
    for (long attribute = NSLayoutAttributeLeft; attribute <= NSLayoutAttributeFirstBaseline; ++attribute) {
      if (!(options_ & NSLayoutFormatAlignmentMask & (NSUInteger(1) << attribute))) continue;
      const auto aligned = static_cast<NSLayoutAttribute>(attribute);
      const bool isAcross =
          isVertical_ == (aligned == NSLayoutAttributeLeft || aligned == NSLayoutAttributeRight ||
                          aligned == NSLayoutAttributeLeading || aligned == NSLayoutAttributeTrailing ||
                          aligned == NSLayoutAttributeCenterX);
      if (!isAcross) refuse(@"the options ask for an alignment along the format's own direction");
      for (std::size_t at = 1; at < items.size(); ++at) add(items[at], aligned, 0, items[at - 1], aligned, 0);
    }
  }

  NSString *format_;
  NSLayoutFormatOptions options_;
  NSDictionary *metrics_;
  NSDictionary *views_;
  bool isVertical_ = false;
  std::vector<id> items_;  ///< nil for the superview.
  UIView *superview_ = nil;
  NSMutableArray *made_ = [NSMutableArray array];
};

}  // namespace

@implementation NSLayoutConstraint (VisualFormat)

+ (NSArray *)constraintsWithVisualFormat:(NSString *)format
                                 options:(NSLayoutFormatOptions)opts
                                 metrics:(NSDictionary *)metrics
                                   views:(NSDictionary *)views {
  if (!format) [NSException raise:NSInvalidArgumentException format:@"There is no constraint format."];
  return Reader(format, opts, metrics, views).constraints();
}

@end

NSDictionary<NSString *, id> *_NSDictionaryOfVariableBindings(NSString *commaSeparatedKeysString, id firstValue, ...) {
  NSMutableDictionary *bindings = [NSMutableDictionary dictionary];
  va_list values;
  va_start(values, firstValue);
  id value = firstValue;
  for (NSString *name in [commaSeparatedKeysString componentsSeparatedByString:@","]) {
    NSString *key = [name stringByTrimmingCharactersInSet:[NSCharacterSet whitespaceAndNewlineCharacterSet]];
    if (!value) {
      va_end(values);
      [NSException raise:NSInvalidArgumentException format:@"The value of %@ is nil.", key];
    }
    [bindings setObject:value forKey:key];
    value = va_arg(values, id);
  }
  va_end(values);
  return bindings;
}
