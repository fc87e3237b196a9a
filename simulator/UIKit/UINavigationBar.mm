#import <UIKit/UINavigationBar+Sim.h>

#import <UIKit/NSAttributedString+UIKit.h>
#import <UIKit/UIAppearance+Sim.h>
#import <UIKit/UIBarAppearance+Sim.h>
#import <UIKit/UIBarButtonItem.h>
#import <UIKit/UIImage.h>
#import <UIKit/UINavigationBarAppearance.h>
#import <UIKit/UINavigationItem.h>
#import <UIKit/UITraitCollection+Sim.h>
#include <objcxx/Retained.h>

#include <algorithm>
#include <map>
#include <utility>

namespace sim {
struct NavigationBarState {
  UIBarStyle barStyle = UIBarStyleDefault;
  BOOL translucent = YES;
  BOOL prefersLargeTitles = NO;
  objcxx::Retained<UIColor> barTintColor;
  objcxx::Retained<NSDictionary> titleTextAttributes;
  objcxx::Retained<NSDictionary> largeTitleTextAttributes;
  std::map<std::pair<UIBarPosition, UIBarMetrics>, objcxx::Retained<UIImage>> backgroundImages;
  objcxx::Retained<UIImage> shadowImage;
  objcxx::Retained<UINavigationBarAppearance> standardAppearance;  // May be one that counts as none: it is offered.
  objcxx::Retained<UINavigationBarAppearance> compactAppearance;
  objcxx::Retained<UINavigationBarAppearance> scrollEdgeAppearance;
  objcxx::Retained<NSArray> items;
  objcxx::Retained<NSArray> shownViews;   // Of its items, in the bar.
  objcxx::Retained<NSArray> fittedViews;  // Of those the ones whose size the bar says.
};
}  // namespace sim

namespace {

objcxx::Retained<UINavigationBarAppearance> copied(UINavigationBarAppearance *look) {
  return objcxx::adopt((UINavigationBarAppearance *)[look copy]);
}

/// `attributes`, white where they leave the colour open.
NSDictionary *whiteUnlessColored(NSDictionary *attributes) {
  NSMutableDictionary *all = [NSMutableDictionary dictionaryWithObject:[UIColor whiteColor]
                                                                forKey:NSForegroundColorAttributeName];
  if (attributes) [all addEntriesFromDictionary:attributes];
  return all;
}

}  // namespace

@implementation UINavigationBar

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;

  _navigationBarState = std::make_unique<sim::NavigationBarState>();
  return self;
}

- (UIBarStyle)barStyle {
  return _navigationBarState->barStyle;
}

- (void)setBarStyle:(UIBarStyle)barStyle {
  _navigationBarState->barStyle = barStyle;
}

- (BOOL)isTranslucent {
  return _navigationBarState->translucent;
}

- (void)setTranslucent:(BOOL)translucent {
  _navigationBarState->translucent = translucent;
  [[self superview] setNeedsLayout];  // The page below may begin elsewhere.
}

- (BOOL)prefersLargeTitles {
  return _navigationBarState->prefersLargeTitles;
}

- (void)setPrefersLargeTitles:(BOOL)prefersLargeTitles {
  _navigationBarState->prefersLargeTitles = prefersLargeTitles;
  [[self superview] setNeedsLayout];
}

- (UIColor *)barTintColor {
  return _navigationBarState->barTintColor.get();
}

- (void)setBarTintColor:(UIColor *)color {
  _navigationBarState->barTintColor = objcxx::share(color);
}

- (NSDictionary *)titleTextAttributes {
  return _navigationBarState->titleTextAttributes.get();
}

- (void)setTitleTextAttributes:(NSDictionary *)attributes {
  _navigationBarState->titleTextAttributes = objcxx::adopt((NSDictionary *)[attributes copy]);
}

- (NSDictionary *)largeTitleTextAttributes {
  return _navigationBarState->largeTitleTextAttributes.get();
}

- (void)setLargeTitleTextAttributes:(NSDictionary *)attributes {
  _navigationBarState->largeTitleTextAttributes = objcxx::adopt((NSDictionary *)[attributes copy]);
}

- (void)setBackgroundImage:(UIImage *)image forBarMetrics:(UIBarMetrics)metrics {
  [self setBackgroundImage:image forBarPosition:UIBarPositionAny barMetrics:metrics];
}

- (UIImage *)backgroundImageForBarMetrics:(UIBarMetrics)metrics {
  return [self backgroundImageForBarPosition:UIBarPositionAny barMetrics:metrics];
}

- (void)setBackgroundImage:(UIImage *)image forBarPosition:(UIBarPosition)position barMetrics:(UIBarMetrics)metrics {
  const std::pair place{position, metrics};
  if (image) {
    _navigationBarState->backgroundImages[place] = objcxx::share(image);
  } else {
    _navigationBarState->backgroundImages.erase(place);
  }
}

- (UIImage *)backgroundImageForBarPosition:(UIBarPosition)position barMetrics:(UIBarMetrics)metrics {
  const auto found = _navigationBarState->backgroundImages.find({position, metrics});
  return found == _navigationBarState->backgroundImages.end() ? nil : found->second.get();
}

- (UIImage *)shadowImage {
  return _navigationBarState->shadowImage.get();
}

- (void)setShadowImage:(UIImage *)image {
  _navigationBarState->shadowImage = objcxx::share(image);
}

- (NSArray *)items {
  return _navigationBarState->items.get();
}

- (void)setItems:(NSArray *)items {
  _navigationBarState->items = objcxx::adopt((NSArray *)[items copy]);
}

- (UINavigationItem *)topItem {
  return [_navigationBarState->items.get() lastObject];
}

- (UINavigationItem *)backItem {
  NSArray *items = _navigationBarState->items.get();
  const NSUInteger count = [items count];
  return count < 2 ? nil : [items objectAtIndex:count - 2];
}

#pragma mark - Looks

- (UINavigationBarAppearance *)standardAppearance {
  auto &place = _navigationBarState->standardAppearance;
  if (!place || [place.get() sim_isOffered]) {
    place = objcxx::share([self sim_olderAppearanceAtScrollEdge:NO]);
    [place.get() setSim_isOffered:YES];
  }
  return [[place.get() retain] autorelease];
}

- (void)setStandardAppearance:(UINavigationBarAppearance *)look {
  _navigationBarState->standardAppearance = copied(look);
}

- (UINavigationBarAppearance *)compactAppearance {
  return _navigationBarState->compactAppearance.get();
}

- (void)setCompactAppearance:(UINavigationBarAppearance *)look {
  _navigationBarState->compactAppearance = copied(look);
}

- (UINavigationBarAppearance *)scrollEdgeAppearance {
  return _navigationBarState->scrollEdgeAppearance.get();
}

- (void)setScrollEdgeAppearance:(UINavigationBarAppearance *)look {
  _navigationBarState->scrollEdgeAppearance = copied(look);
}

- (BOOL)sim_isCompact {
  return [[self traitCollection] verticalSizeClass] == UIUserInterfaceSizeClassCompact;
}

/// The picture for the bar as it is now; nil for none.
- (UIImage *)sim_olderBackgroundImage {
  const BOOL hasPrompt = [[[self topItem] prompt] length] > 0;
  const UIBarMetrics full = hasPrompt ? UIBarMetricsDefaultPrompt : UIBarMetricsDefault;
  const UIBarMetrics compact = hasPrompt ? UIBarMetricsCompactPrompt : UIBarMetricsCompact;
  for (const UIBarMetrics metrics : {[self sim_isCompact] ? compact : full, full, UIBarMetricsDefault}) {
    for (const UIBarPosition position : {UIBarPositionTopAttached, UIBarPositionAny}) {
      if (UIImage *image = [self backgroundImageForBarPosition:position barMetrics:metrics]) return image;
    }
  }
  return nil;
}

/// What the properties say that are older than the looks.
- (UINavigationBarAppearance *)sim_olderAppearanceAtScrollEdge:(BOOL)atEdge {
  const auto &state = *_navigationBarState;
  const bool isBlack = state.barStyle != UIBarStyleDefault;
  UIImage *image = [self sim_olderBackgroundImage];
  UIColor *color = state.barTintColor ? state.barTintColor.get() : isBlack ? [UIColor blackColor] : nil;
  UINavigationBarAppearance *look = [[[UINavigationBarAppearance alloc] init] autorelease];
  if (image) {
    [look setBackgroundEffect:nil];
    [look setBackgroundImage:image];
  } else if (color) {
    [look setBackgroundColor:color];
  } else if (atEdge && state.translucent) {
    [look configureWithTransparentBackground];
  }
  if (state.shadowImage) [look setShadowImage:state.shadowImage.get()];
  NSDictionary *title = state.titleTextAttributes.get();
  NSDictionary *largeTitle = state.largeTitleTextAttributes.get();
  [look setTitleTextAttributes:isBlack ? whiteUnlessColored(title) : title];
  [look setLargeTitleTextAttributes:isBlack ? whiteUnlessColored(largeTitle) : largeTitle];
  return look;
}

@end

@implementation UINavigationBar (Sim)

- (UINavigationBarAppearance *)sim_appearanceForItem:(UINavigationItem *)item atScrollEdge:(BOOL)atEdge {
  const auto &state = *_navigationBarState;
  UINavigationBarAppearance *own = state.standardAppearance.get();
  if ([own sim_isOffered]) own = nil;
  UINavigationBarAppearance *edge = [item scrollEdgeAppearance] ?: state.scrollEdgeAppearance.get();
  if (atEdge && edge) return edge;

  UINavigationBarAppearance *compact = [item compactAppearance] ?: state.compactAppearance.get();
  UINavigationBarAppearance *standard = [item standardAppearance] ?: own;
  UINavigationBarAppearance *look = [self sim_isCompact] && compact ? compact : standard;
  if (!look) return [self sim_olderAppearanceAtScrollEdge:atEdge];
  if (!atEdge) return look;

  UINavigationBarAppearance *clear = [[look copy] autorelease];
  [clear configureWithTransparentBackground];
  return clear;
}

- (void)sim_applyAppearanceToItems:(NSArray *)items {
  if (![self window] || !sim::hasAppearances()) return;
  sim::Containers around = sim::containersOf(self);
  around.insert(around.begin(), self);
  for (UIBarButtonItem *item in items) {
    sim::applyAppearance(item, around, [UITraitCollection sim_deviceTraits]);
  }
}

- (void)sim_showViews:(NSArray *)views {
  const auto former = std::exchange(_navigationBarState->shownViews, objcxx::adopt((NSArray *)[views copy]));
  for (UIView *view in former.get()) {
    const BOOL stays = [views indexOfObjectIdenticalTo:view] != NSNotFound;
    if (!stays && [view superview] == self) [view removeFromSuperview];
  }
  const CGSize room = [self bounds].size;
  NSMutableArray *fitted = [NSMutableArray array];
  for (UIView *view in views) {
    if ([view superview] != self) [self addSubview:view];
    const BOOL isFitted = ![view translatesAutoresizingMaskIntoConstraints] ||
                          CGSizeEqualToSize([view bounds].size, CGSizeZero) ||
                          [_navigationBarState->fittedViews.get() indexOfObjectIdenticalTo:view] != NSNotFound;
    if (!isFitted) continue;
    [fitted addObject:view];
    const CGSize needed = [view systemLayoutSizeFittingSize:UILayoutFittingCompressedSize];
    [view setBounds:CGRectMake(0, 0, std::min(needed.width, room.width), std::min(needed.height, room.height))];
  }
  _navigationBarState->fittedViews = objcxx::adopt((NSArray *)[fitted copy]);
  [self layoutIfNeeded];
}

@end
