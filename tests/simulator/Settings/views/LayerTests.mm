// What a layer adds to the look of its view.
#import <QuartzCore/QuartzCore.h>

#include "simulator/Settings/SessionTest.h"

namespace {

class LayerTest : public SessionTest {};

TEST_F(LayerTest, aViewWithoutALayerOfItsOwnHasNone) {
  const Json plain = describedView(view(10, 10).get());
  EXPECT_TRUE(plain["layer"].is_null());
  EXPECT_EQ(plain["clips"], false);
  const auto untouched = view(10, 10);
  (void)[untouched.get() layer];
  EXPECT_TRUE(describedView(untouched.get())["layer"].is_null());
}

TEST_F(LayerTest, aLayersCornersBorderAndShadowAreDescribed) {
  const auto round = view(10, 10);
  CALayer *layer = [round.get() layer];
  [layer setCornerRadius:4];
  [layer setMaskedCorners:kCALayerMinXMinYCorner | kCALayerMaxXMaxYCorner];
  [layer setBorderWidth:2];
  [layer setBorderColor:[[UIColor redColor] CGColor]];
  [layer setMasksToBounds:YES];
  [layer setShadowOpacity:0.5];
  [layer setShadowRadius:6];
  [layer setShadowOffset:CGSizeMake(1, 2)];
  const Json described = describedView(round.get());
  EXPECT_EQ(described["clips"], true);
  EXPECT_EQ(described["layer"],
            Json({{"cornerRadius", 4},
                  {"corners", {"topLeft", "bottomRight"}},
                  {"borderWidth", 2},
                  {"borderColor", "#ff0000ff"},
                  {"shadow", {{"color", "#000000ff"}, {"x", 1}, {"y", 2}, {"opacity", 0.5}, {"radius", 6}}}}));
}

}  // namespace
