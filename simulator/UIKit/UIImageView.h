// A view that shows an image.
#pragma once

#import <UIKit/UIImage.h>
#import <UIKit/UIImageSymbolConfiguration.h>
#import <UIKit/UIView.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(UIImageViewState);

@interface UIImageView : UIView {
 @private
  SIM_STATE(UIImageViewState, _imageViewState);
}
/// Takes the image's size. User interaction is off.
- (instancetype)initWithImage:(UIImage *)image;
- (instancetype)initWithImage:(UIImage *)image highlightedImage:(UIImage *)highlightedImage;
@property(nonatomic, retain) UIImage *image;
@property(nonatomic, retain) UIImage *highlightedImage;
@property(nonatomic, getter=isHighlighted) BOOL highlighted;
/// Of symbols, for what their own configuration leaves open.
@property(nonatomic, retain) UIImageSymbolConfiguration *preferredSymbolConfiguration;
@end
