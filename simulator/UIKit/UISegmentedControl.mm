#import <Foundation/NotCarried.h>
#import <UIKit/NSAttributedString+UIKit.h>
#import <UIKit/NSText+Sim.h>
#import <UIKit/UIControl+Sim.h>
#import <UIKit/UIFont+Sim.h>
#import <UIKit/UISegmentedControl+Sim.h>

#include <objcxx/Retained.h>

#include <algorithm>
#include <map>
#include <vector>

namespace sim {

struct Segment {
  objcxx::Retained<NSString> title;
  objcxx::Retained<UIImage> image;
  bool enabled = true;
};

struct UISegmentedControlState {
  std::vector<Segment> segments;
  NSInteger selected = UISegmentedControlNoSegment;
  bool momentary = false;
  objcxx::Retained<UIColor> selectedTint;
  std::map<UIControlState, objcxx::Retained<NSDictionary>> titleAttributes;
};

}  // namespace sim

namespace {

constexpr CGFloat kControlHeight = 32;
constexpr CGFloat kTitleSize = 13;
constexpr CGFloat kSegmentPadding = 10;

sim::Segment titled(NSString *title) { return {objcxx::adopt((NSString *)[title copy]), {}, true}; }
sim::Segment pictured(UIImage *image) { return {{}, objcxx::share(image), true}; }

}  // namespace

@implementation UISegmentedControl

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  _segmentState = std::make_unique<sim::UISegmentedControlState>();
  return self;
}

- (instancetype)initWithItems:(NSArray *)items {
  if (!(self = [self initWithFrame:CGRectZero])) return nil;
  for (id item in items) {
    if ([item isKindOfClass:[NSString class]]) {
      _segmentState->segments.push_back(titled(item));
    } else if ([item isKindOfClass:[UIImage class]]) {
      _segmentState->segments.push_back(pictured(item));
    } else {
      [self release];
      [NSException raise:NSInvalidArgumentException format:@"A segment is a string or an image."];
    }
  }
  return self;
}

- (CGSize)sizeThatFits:(CGSize)size {
  return CGSizeMake(size.width, kControlHeight);
}

/// All segments are as wide as the widest wants to be.
- (CGSize)intrinsicContentSize {
  const auto style = sim::textStyle([self sim_titleFontForState:UIControlStateNormal]);
  double widest = 0;
  for (const sim::Segment &segment : _segmentState->segments) {
    const double width = segment.image ? [segment.image.get() size].width
                                       : sim::measureText(sim::utf8(segment.title.get() ?: @""), style, {}).width;
    widest = std::max(widest, sim::ceiledToPixel(width) + 2 * kSegmentPadding);
  }
  return CGSizeMake(widest * static_cast<double>(_segmentState->segments.size()), kControlHeight);
}

- (NSUInteger)numberOfSegments {
  return _segmentState->segments.size();
}

- (NSInteger)selectedSegmentIndex {
  return _segmentState->selected;
}

- (void)setSelectedSegmentIndex:(NSInteger)index {
  if (index >= NSInteger([self numberOfSegments])) {
    [NSException raise:NSRangeException
                format:@"There is no segment %ld of %lu.", long(index), (unsigned long)[self numberOfSegments]];
  }
  _segmentState->selected = std::max<NSInteger>(index, UISegmentedControlNoSegment);
}

- (BOOL)isMomentary {
  return _segmentState->momentary;
}

- (void)setMomentary:(BOOL)momentary {
  _segmentState->momentary = momentary;
}

- (UIColor *)selectedSegmentTintColor {
  return _segmentState->selectedTint.get();
}

- (void)setSelectedSegmentTintColor:(UIColor *)color {
  _segmentState->selectedTint = objcxx::share(color);
}

- (void)setTitleTextAttributes:(NSDictionary *)attributes forState:(UIControlState)state {
  for (NSString *name in attributes) {
    if ([name isEqualToString:NSFontAttributeName] || [name isEqualToString:NSForegroundColorAttributeName]) continue;
    sim::notCarried([@"UISegmentedControl.titleTextAttributes " stringByAppendingString:name],
                    @"Titles of segments have a font and a colour.");
  }
  if (attributes) {
    _segmentState->titleAttributes[state] = objcxx::adopt((NSDictionary *)[attributes copy]);
  } else {
    _segmentState->titleAttributes.erase(state);
  }
  [self invalidateIntrinsicContentSize];
}

- (NSDictionary *)titleTextAttributesForState:(UIControlState)state {
  const auto found = _segmentState->titleAttributes.find(state);
  return found == _segmentState->titleAttributes.end() ? nil : found->second.get();
}

- (id)sim_titleAttribute:(NSAttributedStringKey)name forState:(UIControlState)state {
  return [[self titleTextAttributesForState:state] objectForKey:name]
             ?: [[self titleTextAttributesForState:UIControlStateNormal] objectForKey:name];
}

- (void)sim_insert:(const sim::Segment &)segment atIndex:(NSUInteger)index {
  auto &segments = _segmentState->segments;
  const auto place = std::min<NSUInteger>(index, segments.size());
  segments.insert(segments.begin() + std::ptrdiff_t(place), segment);
  if (_segmentState->selected >= NSInteger(place)) ++_segmentState->selected;
  [self invalidateIntrinsicContentSize];
}

- (void)insertSegmentWithTitle:(NSString *)title atIndex:(NSUInteger)index animated:(BOOL)animated {
  (void)animated;
  [self sim_insert:titled(title) atIndex:index];
}

- (void)insertSegmentWithImage:(UIImage *)image atIndex:(NSUInteger)index animated:(BOOL)animated {
  (void)animated;
  [self sim_insert:pictured(image) atIndex:index];
}

// The segment at `index`, the last one past the end; null without segments.
- (sim::Segment *)sim_segmentAtIndex:(NSUInteger)index {
  auto &segments = _segmentState->segments;
  return segments.empty() ? nullptr : &segments[std::min<NSUInteger>(index, segments.size() - 1)];
}

- (void)removeSegmentAtIndex:(NSUInteger)index animated:(BOOL)animated {
  (void)animated;
  const sim::Segment *segment = [self sim_segmentAtIndex:index];
  if (!segment) return;
  const auto place = segment - _segmentState->segments.data();
  _segmentState->segments.erase(_segmentState->segments.begin() + place);
  [self invalidateIntrinsicContentSize];
  if (_segmentState->selected == place) _segmentState->selected = UISegmentedControlNoSegment;
  else if (_segmentState->selected > place) --_segmentState->selected;
}

- (void)removeAllSegments {
  _segmentState->segments.clear();
  [self invalidateIntrinsicContentSize];
  _segmentState->selected = UISegmentedControlNoSegment;
}

- (void)setTitle:(NSString *)title forSegmentAtIndex:(NSUInteger)index {
  sim::Segment *segment = [self sim_segmentAtIndex:index];
  if (!segment) return;
  segment->title = objcxx::adopt((NSString *)[title copy]);
  segment->image = nullptr;
  [self invalidateIntrinsicContentSize];
}

- (NSString *)titleForSegmentAtIndex:(NSUInteger)index {
  const sim::Segment *segment = [self sim_segmentAtIndex:index];
  return segment ? segment->title.get() : nil;
}

- (void)setImage:(UIImage *)image forSegmentAtIndex:(NSUInteger)index {
  sim::Segment *segment = [self sim_segmentAtIndex:index];
  if (!segment) return;
  segment->image = objcxx::share(image);
  segment->title = nullptr;
  [self invalidateIntrinsicContentSize];
}

- (UIImage *)imageForSegmentAtIndex:(NSUInteger)index {
  const sim::Segment *segment = [self sim_segmentAtIndex:index];
  return segment ? segment->image.get() : nil;
}

- (void)setEnabled:(BOOL)enabled forSegmentAtIndex:(NSUInteger)index {
  if (sim::Segment *segment = [self sim_segmentAtIndex:index]) segment->enabled = enabled;
}

- (BOOL)isEnabledForSegmentAtIndex:(NSUInteger)index {
  const sim::Segment *segment = [self sim_segmentAtIndex:index];
  return segment && segment->enabled;
}

@end

@implementation UISegmentedControl (Sim)

- (UIFont *)sim_titleFontForState:(UIControlState)state {
  return [self sim_titleAttribute:NSFontAttributeName forState:state]
             ?: [UIFont systemFontOfSize:kTitleSize weight:UIFontWeightMedium];
}

- (UIColor *)sim_titleColorForState:(UIControlState)state {
  return [self sim_titleAttribute:NSForegroundColorAttributeName forState:state];
}

- (BOOL)sim_selectByUser:(NSInteger)index {
  if (index < 0 || index >= NSInteger([self numberOfSegments])) return NO;
  if (![self sim_acceptsUser] || ![self isEnabledForSegmentAtIndex:NSUInteger(index)]) return NO;
  if (index == [self selectedSegmentIndex] && ![self isMomentary]) return NO;
  const auto kept = objcxx::share(self);
  [self setSelectedSegmentIndex:index];
  [self sendActionsForControlEvents:UIControlEventValueChanged];
  if ([self isMomentary]) [self setSelectedSegmentIndex:UISegmentedControlNoSegment];
  return YES;
}

@end
