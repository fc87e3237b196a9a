// A view that shows an image.
#pragma once

#import <UIKit/UIImage.h>
#import <UIKit/UIView.h>

namespace sim {
struct UIImageViewState;
}

@interface UIImageView : UIView {
 @private
  std::unique_ptr<sim::UIImageViewState> _imageViewState;
}
/// Takes the image's size. User interaction is off.
- (instancetype)initWithImage:(UIImage *)image;
- (instancetype)initWithImage:(UIImage *)image highlightedImage:(UIImage *)highlightedImage;
@property(nonatomic, retain) UIImage *image;
@property(nonatomic, retain) UIImage *highlightedImage;
@property(nonatomic, getter=isHighlighted) BOOL highlighted;
@end
