#import <UIKit/UIImage+Sim.h>
#import <UIKit/UIImageView+Sim.h>
#import <UIKit/UIViewLayout.h>

#include <objcxx/Retained.h>

namespace sim {

struct UIImageViewState {
  objcxx::Retained<UIImage> image;
  objcxx::Retained<UIImage> highlightedImage;
  objcxx::Retained<UIImageSymbolConfiguration> preferredSymbolConfiguration;
  bool highlighted = false;
};

}  // namespace sim

@implementation UIImageView

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  _imageViewState = std::make_unique<sim::UIImageViewState>();
  [self setUserInteractionEnabled:NO];
  return self;
}

- (instancetype)initWithImage:(UIImage *)image {
  return [self initWithImage:image highlightedImage:nil];
}

- (instancetype)initWithImage:(UIImage *)image highlightedImage:(UIImage *)highlightedImage {
  if (!(self = [self initWithFrame:{CGPointZero, [image size]}])) return nil;
  _imageViewState->image = objcxx::share(image);
  _imageViewState->highlightedImage = objcxx::share(highlightedImage);
  return self;
}

- (UIImage *)image {
  return _imageViewState->image.get();
}

- (void)setImage:(UIImage *)image {
  _imageViewState->image = objcxx::share(image);
  [self setNeedsLayout];
  [self invalidateIntrinsicContentSize];
}

- (UIImage *)highlightedImage {
  return _imageViewState->highlightedImage.get();
}

- (void)setHighlightedImage:(UIImage *)image {
  _imageViewState->highlightedImage = objcxx::share(image);
}

- (BOOL)isHighlighted {
  return _imageViewState->highlighted;
}

- (void)setHighlighted:(BOOL)highlighted {
  _imageViewState->highlighted = highlighted;
}

- (UIImageSymbolConfiguration *)preferredSymbolConfiguration {
  return _imageViewState->preferredSymbolConfiguration.get();
}

- (void)setPreferredSymbolConfiguration:(UIImageSymbolConfiguration *)configuration {
  _imageViewState->preferredSymbolConfiguration = objcxx::share(configuration);
  [self setNeedsLayout];
  [self invalidateIntrinsicContentSize];
}

- (UIImage *)sim_image {
  return [[self image] sim_imageWithPreferredSymbolConfiguration:[self preferredSymbolConfiguration]];
}

- (UIImage *)sim_shownImage {
  if (![self isHighlighted] || ![self highlightedImage]) return [self sim_image];
  return [[self highlightedImage] sim_imageWithPreferredSymbolConfiguration:[self preferredSymbolConfiguration]];
}

- (CGSize)sizeThatFits:(CGSize)size {
  return [self image] ? [[self sim_image] size] : [super sizeThatFits:size];
}

- (UILayoutPriority)sim_defaultHuggingForAxis:(UILayoutConstraintAxis)axis {
  (void)axis;
  return UILayoutPriorityDefaultLow + 1;
}

- (CGSize)intrinsicContentSize {
  return [self image] ? [[self sim_image] size] : [super intrinsicContentSize];
}

@end
