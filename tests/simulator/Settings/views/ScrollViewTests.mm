// How scroll views are described.
#include "simulator/Settings/SessionTest.h"

namespace {

class ScrollViewTest : public SessionTest {};

TEST_F(ScrollViewTest, aScrollViewsContentIsDescribed) {
  const auto scroll = objcxx::adopt([[UIScrollView alloc] initWithFrame:CGRectMake(0, 0, 100, 50)]);
  [scroll.get() setContentSize:CGSizeMake(100, 400)];
  [scroll.get() setContentInset:UIEdgeInsetsMake(1, 2, 3, 4)];
  [scroll.get() setScrollEnabled:NO];
  const Json described = describedView(scroll.get());
  EXPECT_EQ(described["type"], "scroll");
  EXPECT_EQ(described["contentSize"], Json({100, 400}));
  EXPECT_EQ(described["contentInset"], Json({1, 2, 3, 4}));
  EXPECT_EQ(described["scrolls"], false);
}

}  // namespace
