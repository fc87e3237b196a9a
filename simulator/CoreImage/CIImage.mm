#import <CoreGraphics/CGImage+Sim.h>
#import <CoreGraphics/ImageDecoder.hpp>
#import <CoreImage/CIImage+Sim.h>
#import <UIKit/UIImage.h>

#include <algorithm>
#include <cmath>

namespace sim {

struct CIImageState {
  RecipePtr recipe;
  BitmapPtr rendered;  ///< Kept once it has been asked for.
};

}  // namespace sim

@implementation CIImage

+ (CIImage *)imageWithCGImage:(CGImageRef)image {
  return [[[self alloc] initWithCGImage:image] autorelease];
}

+ (CIImage *)imageWithData:(NSData *)data {
  return [[[self alloc] initWithData:data] autorelease];
}

- (instancetype)sim_initWithRecipe:(const sim::RecipePtr &)recipe {
  if (!(self = [super init])) return nil;
  if (!recipe) {
    [self release];
    return nil;
  }
  _state = std::make_unique<sim::CIImageState>();
  _state->recipe = recipe;
  return self;
}

+ (CIImage *)sim_imageWithRecipe:(const sim::RecipePtr &)recipe {
  return [[[CIImage alloc] sim_initWithRecipe:recipe] autorelease];
}

- (instancetype)initWithCGImage:(CGImageRef)image {
  return [self sim_initWithRecipe:sim::recipeOf(sim::sourceOf(image))];
}

- (instancetype)initWithData:(NSData *)data {
  return [self sim_initWithRecipe:sim::recipeOf(sim::openImage(sim::sharedBytes(data)).source)];
}

- (instancetype)initWithImage:(UIImage *)image {
  CIImage *recipe = [image CIImage];
  if (!recipe) return [self initWithCGImage:[image CGImage]];
  return [self sim_initWithRecipe:recipe->_state->recipe];
}

- (id)copyWithZone:(NSZone *)zone {
  (void)zone;
  return [self retain];
}

- (CGRect)extent {
  const sim::PixelArea area = _state->recipe->extent();
  if (area == sim::kEverywhere) return CGRectInfinite;
  if (area.isEmpty()) return CGRectNull;
  return CGRectMake(CGFloat(area.left), CGFloat(area.bottom), CGFloat(area.width), CGFloat(area.height));
}

- (CIImage *)imageByClampingToExtent {
  return [CIImage sim_imageWithRecipe:sim::clampedRecipe(_state->recipe)];
}

- (CIImage *)imageByCroppingToRect:(CGRect)rect {
  return [CIImage sim_imageWithRecipe:sim::croppedRecipe(_state->recipe, sim::areaOf(rect))];
}

- (CIImage *)sim_colorInverted {
  return [CIImage sim_imageWithRecipe:sim::invertedRecipe(_state->recipe)];
}

- (CIImage *)sim_blurredBySigma:(double)sigma {
  return [CIImage sim_imageWithRecipe:sim::blurredRecipe(_state->recipe, sigma)];
}

- (sim::RecipePtr *)sim_recipe {
  return &_state->recipe;
}

- (sim::BitmapPtr *)sim_rendered {
  if (!_state->rendered) _state->rendered = _state->recipe->render(_state->recipe->extent());
  return &_state->rendered;
}

@end

namespace sim {

BitmapPtr render(CIImage *image) { return image ? *[image sim_rendered] : nullptr; }

BitmapPtr render(CIImage *image, const PixelArea &area) {
  return image ? (*[image sim_recipe])->render(area) : nullptr;
}

PixelArea areaOf(CGRect rect) {
  if (!(rect.size.width > 0 && rect.size.height > 0)) return {};
  const auto whole = [](double value) {
    const double end = double(kEverywhere.right());
    return std::int64_t(std::clamp(value, -end, end));
  };
  const std::int64_t left = whole(std::floor(CGRectGetMinX(rect))), bottom = whole(std::floor(CGRectGetMinY(rect)));
  return {left, bottom, whole(std::ceil(CGRectGetMaxX(rect))) - left, whole(std::ceil(CGRectGetMaxY(rect))) - bottom};
}

}  // namespace sim
