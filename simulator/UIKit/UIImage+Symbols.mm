// Symbols: the system's own images, drawn by their names in the size and weight of the text that they go with.
#import "UIImageState.h"

#import <UIKit/SymbolDrawings.hpp>
#import <UIKit/SymbolNames.hpp>
#import <UIKit/UIImageConfiguration+Sim.h>
#import <UIKit/UIImageSymbolConfiguration+Sim.h>
#import <UIKit/UIScreen.h>

#include <map>
#include <mutex>
#include <string>
#include <tuple>

namespace {

/// Ems by which the lines of the nine weights, from ultralight to black, are wider than those of the regular one, on
/// either side.
constexpr double kSpreads[] = {-0.030, -0.022, -0.0115, 0, 0.007, 0.0145, 0.023, 0.0335, 0.0445};

struct DrawnSymbol {
  objcxx::Retained<NSObject> bitmap;  ///< A CGImageRef.
  NSUInteger number = 0;              ///< Of the images that show just this.
};

/// The drawing, the pixels of its em, its spread.
using SymbolKey = std::tuple<std::string, double, double>;

/// Symbols that are kept: more than any page shows.
constexpr std::size_t kSymbolsKept = 256;

/// Without a bitmap when there is no such drawing or it cannot be drawn.
DrawnSymbol drawnSymbol(const SymbolKey &key) {
  static std::mutex mutex;
  static auto &kept = *new std::map<SymbolKey, DrawnSymbol>;
  const std::lock_guard lock(mutex);
  if (const auto found = kept.find(key); found != kept.end()) return found->second;
  const auto &[name, em, spread] = key;
  const auto drawing = sim::symbolDrawing(name);
  const sim::BitmapPtr bitmap = drawing ? sim::drawSymbol(*drawing, {em, spread}) : nullptr;
  if (!bitmap) return {};
  if (kept.size() >= kSymbolsKept) kept.clear();
  const auto first = objcxx::adopt([[UIImage alloc] init]);
  return kept[key] = {objcxx::adopt((NSObject *)sim::createImage(sim::sourceOf(bitmap))), [first.get() sim_number]};
}

UIImageSymbolConfiguration *symbolConfiguration(UIImageConfiguration *configuration) {
  return [[UIImageSymbolConfiguration unspecifiedConfiguration] configurationByApplyingConfiguration:configuration];
}

}  // namespace

@interface UIImage (DrawnSymbols)
/// What `state` says, its symbol drawn as `configuration` says. nil when it cannot be drawn.
+ (UIImage *)sim_symbolWithState:(sim::UIImageState)state configuration:(UIImageSymbolConfiguration *)configuration;
@end

@implementation UIImage (DrawnSymbols)

+ (UIImage *)sim_symbolWithState:(sim::UIImageState)state configuration:(UIImageSymbolConfiguration *)configuration {
  const CGFloat wanted = [[configuration traitCollection] displayScale];
  state.scale = wanted > 0 ? wanted : [[UIScreen mainScreen] scale];
  state.configuration = objcxx::share<UIImageConfiguration>(configuration);
  const double spread = kSpreads[[configuration sim_weight] - UIImageSymbolWeightUltraLight];
  const DrawnSymbol drawn = drawnSymbol(
      {sim::symbolDrawingName([state.symbol.get() UTF8String]), [configuration sim_em] * state.scale, spread});
  state.bitmap = drawn.bitmap;
  UIImage *image = [[[UIImage alloc] sim_initWithState:state] autorelease];
  // The same pixels are the same picture.
  if (image && !state.tint) image->_state->number = drawn.number;
  return image;
}

@end

@implementation UIImage (Symbols)

+ (UIImage *)systemImageNamed:(NSString *)name {
  return [self systemImageNamed:name withConfiguration:nil];
}

+ (UIImage *)systemImageNamed:(NSString *)name withConfiguration:(UIImageConfiguration *)configuration {
  if ([name length] == 0) return nil;
  sim::UIImageState state;
  state.symbol = objcxx::adopt<NSString>([name copy]);
  return [self sim_symbolWithState:state configuration:symbolConfiguration(configuration)];
}

+ (UIImage *)systemImageNamed:(NSString *)name compatibleWithTraitCollection:(UITraitCollection *)traitCollection {
  UIImageConfiguration *unspecified = [UIImageConfiguration sim_unspecified];
  return [self systemImageNamed:name withConfiguration:[unspecified configurationWithTraitCollection:traitCollection]];
}

- (BOOL)isSymbolImage {
  return bool(_state->symbol);
}

- (UIImageConfiguration *)configuration {
  return _state->configuration.get();
}

- (UIImageSymbolConfiguration *)symbolConfiguration {
  return [self isSymbolImage] ? (UIImageSymbolConfiguration *)_state->configuration.get() : nil;
}

- (UIImage *)imageWithConfiguration:(UIImageConfiguration *)configuration {
  if (![self isSymbolImage]) {
    sim::UIImageState state = *_state;
    state.configuration = objcxx::share(configuration);
    return [[[UIImage alloc] sim_initWithState:state] autorelease];
  }
  const bool isOfSymbols = [configuration isKindOfClass:[UIImageSymbolConfiguration class]];
  UIImageSymbolConfiguration *wanted =
      isOfSymbols ? (UIImageSymbolConfiguration *)configuration
                  : [[self symbolConfiguration] configurationByApplyingConfiguration:configuration];
  return [UIImage sim_symbolWithState:*_state configuration:wanted];
}

- (UIImage *)imageByApplyingSymbolConfiguration:(UIImageSymbolConfiguration *)configuration {
  if (![self isSymbolImage]) return [[self retain] autorelease];
  return [self imageWithConfiguration:[[self symbolConfiguration] configurationByApplyingConfiguration:configuration]];
}

@end

@implementation UIImage (SimSymbols)

- (UIImage *)sim_imageWithPreferredSymbolConfiguration:(UIImageSymbolConfiguration *)preferred {
  if (![self isSymbolImage] || !preferred) return self;
  UIImage *image =
      [self imageWithConfiguration:[preferred configurationByApplyingConfiguration:[self symbolConfiguration]]];
  return image ? image : self;
}

- (BOOL)sim_isTemplate {
  const UIImageRenderingMode mode = [self renderingMode];
  return mode == UIImageRenderingModeAlwaysTemplate || (mode == UIImageRenderingModeAutomatic && [self isSymbolImage]);
}

@end
