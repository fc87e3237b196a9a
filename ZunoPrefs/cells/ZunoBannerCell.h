#import <Preferences/PSTableCell.h>
#import <Preferences/PreferencesTableCustomView.h>
#import <UIKit/UIKit.h>

/// The banner above the root page's rows: the large icon, the product's name, the developer.
///
/// It is always as wide as its superview. Main thread only.
@interface ZunoBannerCell : PSTableCell <PreferencesTableCustomView> {
  UILabel *mainTitleLabel;
  UILabel *subTitleLabel;
  UILabel *subSubTitleLabel;    // For a third line; not made.
  UIImage *unmaskedImage;       // A second copy of the icon, kept as it is.
  NSString *prevRadiusRequest;  // For the last rounding request; not set.
  NSString *prevScaleRequest;   // For the last rounding request; not set.
  UIImageView *_bannerView;
}

@property(nonatomic, strong) UIImageView *bannerView;

/// `image` with corners of `radius` points cut off, at the main screen's scale; the very same image for a radius of 0.
- (UIImage *)roundedRectImageFromImage:(UIImage *)image withRadius:(CGFloat)radius;

@end
