#import "Settings/views/ViewAdapter.h"

namespace sim {
namespace {

void describe(JsonText &out, UIView *described, ImageStore &) {
  UIScrollView *view = (UIScrollView *)described;
  out.name("scrolls").flag([view isScrollEnabled]);
  out.name("contentSize").beginArray();
  out.number([view contentSize].width);
  out.number([view contentSize].height);
  out.endArray();
  const UIEdgeInsets inset = [view contentInset];
  out.name("contentInset").beginArray();
  for (const CGFloat side : {inset.top, inset.left, inset.bottom, inset.right}) out.number(side);
  out.endArray();
}

}  // namespace

extern const ViewAdapter kScrollView{
    .kind = [] { return [UIScrollView class]; }, .type = "scroll", .describe = describe};

}  // namespace sim
