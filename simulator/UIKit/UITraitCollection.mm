#import <UIKit/UIScreen.h>
#import <UIKit/UITraitCollection+Sim.h>

#include <objcxx/Retained.h>

#include <vector>

namespace {

UIUserInterfaceStyle deviceStyle = UIUserInterfaceStyleLight;

std::vector<objcxx::Retained<UITraitCollection>> &overridingTraits() {
  static std::vector<objcxx::Retained<UITraitCollection>> traits;
  return traits;
}

}  // namespace

void SIMSetUserInterfaceStyle(UIUserInterfaceStyle style) {
  deviceStyle = style == UIUserInterfaceStyleDark ? UIUserInterfaceStyleDark : UIUserInterfaceStyleLight;
}

@implementation UITraitCollection

+ (UITraitCollection *)traitCollectionWithUserInterfaceStyle:(UIUserInterfaceStyle)style {
  UITraitCollection *traits = [[[UITraitCollection alloc] init] autorelease];
  traits->_userInterfaceStyle = style;
  return traits;
}

+ (UITraitCollection *)traitCollectionWithUserInterfaceIdiom:(UIUserInterfaceIdiom)idiom {
  UITraitCollection *traits = [[[UITraitCollection alloc] init] autorelease];
  traits->_userInterfaceIdiom = idiom;
  return traits;
}

+ (UITraitCollection *)traitCollectionWithHorizontalSizeClass:(UIUserInterfaceSizeClass)sizeClass {
  UITraitCollection *traits = [[[UITraitCollection alloc] init] autorelease];
  traits->_horizontalSizeClass = sizeClass;
  return traits;
}

+ (UITraitCollection *)traitCollectionWithVerticalSizeClass:(UIUserInterfaceSizeClass)sizeClass {
  UITraitCollection *traits = [[[UITraitCollection alloc] init] autorelease];
  traits->_verticalSizeClass = sizeClass;
  return traits;
}

+ (UITraitCollection *)traitCollectionWithDisplayScale:(CGFloat)scale {
  UITraitCollection *traits = [[[UITraitCollection alloc] init] autorelease];
  traits->_displayScale = scale;
  return traits;
}

+ (UITraitCollection *)traitCollectionWithTraitsFromCollections:(NSArray<UITraitCollection *> *)traitCollections {
  UITraitCollection *all = [[[UITraitCollection alloc] init] autorelease];
  for (UITraitCollection *each in traitCollections) {
    if (each->_userInterfaceStyle != UIUserInterfaceStyleUnspecified)
      all->_userInterfaceStyle = each->_userInterfaceStyle;
    if (each->_userInterfaceIdiom != UIUserInterfaceIdiomUnspecified)
      all->_userInterfaceIdiom = each->_userInterfaceIdiom;
    if (each->_horizontalSizeClass != UIUserInterfaceSizeClassUnspecified) {
      all->_horizontalSizeClass = each->_horizontalSizeClass;
    }
    if (each->_verticalSizeClass != UIUserInterfaceSizeClassUnspecified) {
      all->_verticalSizeClass = each->_verticalSizeClass;
    }
    if (each->_displayScale != 0) all->_displayScale = each->_displayScale;
  }
  return all;
}

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _userInterfaceIdiom = UIUserInterfaceIdiomUnspecified;
  return self;
}

@synthesize userInterfaceStyle = _userInterfaceStyle;
@synthesize userInterfaceIdiom = _userInterfaceIdiom;
@synthesize horizontalSizeClass = _horizontalSizeClass;
@synthesize verticalSizeClass = _verticalSizeClass;
@synthesize displayScale = _displayScale;

- (BOOL)containsTraitsInCollection:(UITraitCollection *)trait {
  return !trait || [[UITraitCollection traitCollectionWithTraitsFromCollections:@[ self, trait ]] isEqual:self];
}

- (BOOL)hasDifferentColorAppearanceComparedToTraitCollection:(UITraitCollection *)other {
  return !other || _userInterfaceStyle != other->_userInterfaceStyle;
}

- (BOOL)isEqual:(id)object {
  if (![object isKindOfClass:[UITraitCollection class]]) return NO;
  const UITraitCollection *other = object;
  return _userInterfaceStyle == other->_userInterfaceStyle && _userInterfaceIdiom == other->_userInterfaceIdiom &&
         _horizontalSizeClass == other->_horizontalSizeClass && _verticalSizeClass == other->_verticalSizeClass &&
         _displayScale == other->_displayScale;
}

- (NSUInteger)hash {
  return NSUInteger(_userInterfaceStyle);
}

- (id)copyWithZone:(NSZone *)zone {
  (void)zone;
  return [self retain];
}

@end

@implementation UITraitCollection (CurrentTraitCollection)

+ (UITraitCollection *)currentTraitCollection {
  return overridingTraits().empty() ? [self sim_deviceTraits] : overridingTraits().back().get();
}

+ (void)setCurrentTraitCollection:(UITraitCollection *)traits {
  if (!traits) return;
  if (overridingTraits().empty()) {
    overridingTraits().push_back(objcxx::share(traits));
    [[NSOperationQueue mainQueue] addOperationWithBlock:^{
      overridingTraits().clear();
    }];
  } else {
    overridingTraits().back() = objcxx::share(traits);
  }
}

- (void)performAsCurrentTraitCollection:(void (^)(void))actions {
  [UITraitCollection sim_performWithTraitCollection:self body:actions];
}

@end

@implementation UITraitCollection (Sim)

+ (UITraitCollection *)sim_deviceTraits {
  UITraitCollection *traits = [self traitCollectionWithUserInterfaceStyle:deviceStyle];
  const BOOL pad = [[UIDevice currentDevice] userInterfaceIdiom] == UIUserInterfaceIdiomPad;
  traits->_userInterfaceIdiom = pad ? UIUserInterfaceIdiomPad : UIUserInterfaceIdiomPhone;
  traits->_horizontalSizeClass = pad ? UIUserInterfaceSizeClassRegular : UIUserInterfaceSizeClassCompact;
  const CGSize screen = [[UIScreen mainScreen] bounds].size;
  const BOOL lies = !pad && screen.width > screen.height;
  traits->_verticalSizeClass = lies ? UIUserInterfaceSizeClassCompact : UIUserInterfaceSizeClassRegular;
  traits->_displayScale = [[UIScreen mainScreen] scale];
  return traits;
}

- (UITraitCollection *)sim_withUserInterfaceStyle:(UIUserInterfaceStyle)style {
  if (style == UIUserInterfaceStyleUnspecified || style == _userInterfaceStyle) return self;
  return [UITraitCollection traitCollectionWithTraitsFromCollections:@[
    self, [UITraitCollection traitCollectionWithUserInterfaceStyle:style]
  ]];
}

+ (void)sim_performWithTraitCollection:(UITraitCollection *)traits body:(void (^)(void))body {
  struct Scope {
    explicit Scope(UITraitCollection *traits) : depth(overridingTraits().size()) {
      overridingTraits().push_back(objcxx::share(traits));
    }
    ~Scope() {
      if (overridingTraits().size() > depth) overridingTraits().resize(depth);
    }
    std::size_t depth;
  } scope(traits);
  body();
}

@end
