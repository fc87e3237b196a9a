// Image views as they are drawn.
#pragma once

#import <UIKit/UIImageView.h>

@interface UIImageView (Sim)
/// The image that the view is as large as, a symbol as it is configured here.
- (UIImage *)sim_image;
/// The same, or the highlighted image while the view is highlighted and there is one.
- (UIImage *)sim_shownImage;
@end
