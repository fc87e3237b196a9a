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

+ (UITraitCollection *)currentTraitCollection {
  if (!overridingTraits().empty()) return overridingTraits().back().get();
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

+ (UITraitCollection *)traitCollectionWithUserInterfaceStyle:(UIUserInterfaceStyle)style {
  UITraitCollection *traits = [[[UITraitCollection alloc] init] autorelease];
  traits->_userInterfaceStyle = style;
  return traits;
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

@implementation UITraitCollection (Sim)

+ (void)sim_performWithTraitCollection:(UITraitCollection *)traits body:(void (^)(void))body {
  struct Scope {
    explicit Scope(UITraitCollection *traits) { overridingTraits().push_back(objcxx::share(traits)); }
    ~Scope() { overridingTraits().pop_back(); }
  } scope(traits);
  body();
}

@end
