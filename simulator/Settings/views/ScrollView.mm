#import "Settings/JsonValues.h"
#import "Settings/views/ViewAdapter.h"

namespace sim {
namespace {

void writeInsets(JsonText &out, UIEdgeInsets inset) {
  out.beginArray();
  for (const CGFloat side : {inset.top, inset.left, inset.bottom, inset.right}) out.number(side);
  out.endArray();
}

void describe(JsonText &out, UIView *described, ImageStore &) {
  UIScrollView *view = (UIScrollView *)described;
  out.name("scrolls").flag([view isScrollEnabled]);
  writePair(out.name("contentSize"), [view contentSize].width, [view contentSize].height);
  writeInsets(out.name("contentInset"), [view contentInset]);
  writeInsets(out.name("adjustedContentInset"), [view adjustedContentInset]);
  if ([view isPagingEnabled]) out.name("paging").flag(true);
}

}  // namespace

extern const ViewAdapter kScrollView{
    .kind = [] { return [UIScrollView class]; }, .type = "scroll", .describe = describe};

}  // namespace sim
