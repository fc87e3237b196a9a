// All that the frameworks over UIKit need of it beyond what Apple documents. Bundles never include this.
#pragma once

#import <UIKit/UIImage.h>
#import <UIKit/UITableView.h>

namespace sim {

/// While one lives, the system sets values of views: they do not count as set by anybody, and give way to those of
/// appearance proxies.
class SystemSets final {
 public:
  SystemSets();
  ~SystemSets();
  SystemSets(const SystemSets &) = delete;
  SystemSets &operator=(const SystemSets &) = delete;
};

}  // namespace sim

@interface UITableView (FrameworkSupport)
/// The width of rows, headers and footers, in points.
- (CGFloat)sim_rowWidth;
@end

@interface UITableViewCell (FrameworkSupport)
/// How far the standard views keep from the edges of the content view, in points: 16 until a table view sets it. Not
/// the separator's inset, which a page may set.
- (CGFloat)sim_margin;
@end

@interface UIImage (FrameworkSupport)
/// This image in the shape of an application's icon, `width` points wide. Its pixels are decoded and masked on first
/// use. nil when this image has no size.
- (UIImage *)sim_iconOfWidth:(CGFloat)width;
@end
