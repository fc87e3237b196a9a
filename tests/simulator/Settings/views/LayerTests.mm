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
                  {"shadow",
                   {{"color", "#000000ff"}, {"x", 1}, {"y", 2}, {"opacity", 0.5}, {"radius", 6}, {"path", nullptr}}},
                  {"contents", nullptr},
                  {"gradient", nullptr},
                  {"shape", nullptr},
                  {"mask", nullptr}}));
}

TEST_F(LayerTest, SublayersAndSubviewsAreDescribedAsTheyAreDrawn) {
  const auto box = view(40, 20);
  const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 10, 10)]);
  [box.get() addSubview:label.get()];
  EXPECT_EQ(describedView(box.get())["views"].size(), 1u);
  CALayer *behind = [CALayer layer], *before = [CALayer layer];
  [behind setFrame:CGRectMake(1, 2, 3, 4)];
  [behind setBackgroundColor:[[UIColor redColor] CGColor]];
  [behind setName:@"behind"];
  [behind setOpacity:0.5];
  [[box.get() layer] insertSublayer:behind atIndex:0];
  [[box.get() layer] addSublayer:before];
  const auto kinds = [&] {
    std::string text;
    const Json described = describedView(box.get());
    for (const Json &child : described["views"]) text += std::string(child["type"]) + " ";
    return text;
  };
  EXPECT_EQ(kinds(), "layer label layer ");
  const Json first = describedView(box.get())["views"][0];
  EXPECT_EQ(first["frame"], Json({1, 2, 3, 4}));
  EXPECT_EQ(first["backgroundColor"], "#ff0000ff");
  EXPECT_EQ(first["name"], "behind");
  EXPECT_EQ(first["alpha"], 0.5);
  EXPECT_TRUE(first["layer"].is_null());
  [[label.get() layer] setZPosition:1];
  EXPECT_EQ(kinds(), "layer layer label ");
}

TEST_F(LayerTest, SubviewsAreOrderedByTheirLayersAlone) {
  const auto box = view(40, 20);
  const auto label = objcxx::adopt([[UILabel alloc] init]), other = objcxx::adopt([[UILabel alloc] init]);
  [label.get() setText:@"first"];
  [other.get() setText:@"second"];
  [box.get() addSubview:label.get()];
  [box.get() addSubview:other.get()];
  [[label.get() layer] setZPosition:1];
  EXPECT_EQ(describedView(box.get())["views"][1]["text"], "first");
}

TEST_F(LayerTest, ATransformIsDescribedBesideTheFrame) {
  const auto around = view(40, 40);
  const auto box = view(10, 20);
  [around.get() addSubview:box.get()];
  const auto inner = [&] { return describedView(around.get())["views"][0]; };
  EXPECT_TRUE(inner()["transform"].is_null());
  EXPECT_TRUE(inner()["boundsOrigin"].is_null());
  [box.get() setTransform:CGAffineTransformMakeScale(2, 1)];
  EXPECT_EQ(inner()["frame"], Json({-5, 0, 20, 20}));
  EXPECT_EQ(inner()["transform"]["rect"], Json({0, 0, 10, 20}));
  EXPECT_EQ(inner()["transform"]["anchor"], Json({0.5, 0.5}));
  EXPECT_EQ(inner()["transform"]["matrix"], Json({2, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}));
  [box.get() setBounds:CGRectMake(3, 4, 10, 20)];
  EXPECT_EQ(inner()["boundsOrigin"], Json({3, 4}));
}

TEST_F(LayerTest, GradientsAndShapesAreDescribed) {
  const auto box = view(40, 20);
  CAGradientLayer *gradient = [CAGradientLayer layer];
  [[box.get() layer] addSublayer:gradient];
  [gradient
      setColors:[NSArray arrayWithObjects:(id)[[UIColor redColor] CGColor], (id)[[UIColor blueColor] CGColor], nil]];
  CAShapeLayer *shape = [CAShapeLayer layer];
  [[box.get() layer] addSublayer:shape];
  [shape setPath:[[UIBezierPath bezierPathWithRect:CGRectMake(0, 0, 8, 8)] CGPath]];
  [shape setStrokeColor:[[UIColor redColor] CGColor]];
  [shape setStrokeEnd:0.25];
  [shape setLineCap:kCALineCapRound];
  const Json views = describedView(box.get())["views"];
  EXPECT_EQ(views[0]["layer"]["gradient"],
            Json({{"type", "axial"},
                  {"start", {0.5, 0}},
                  {"end", {0.5, 1}},
                  {"stops", {{{"place", 0}, {"color", "#ff0000ff"}}, {{"place", 1}, {"color", "#0000ffff"}}}}}));
  const Json described = views[1]["layer"]["shape"];
  EXPECT_EQ(described["path"], "M0 0L8 0L8 8L0 8Z");
  EXPECT_EQ(described["strokedPath"], "M0 0L8 0");
  EXPECT_EQ(described["fillColor"], "#000000ff");
  EXPECT_EQ(described["lineCap"], "round");
  EXPECT_EQ(described["evenOdd"], false);
}

TEST_F(LayerTest, ContentsAndMasksArePicturesThatStayThoseOfOneLook) {
  const auto around = view(40, 40);  // A table gives its header its own width.
  const auto box = view(40, 20);
  [around.get() addSubview:box.get()];
  [[box.get() layer] setContents:(id)[picture(10) CGImage]];
  [[box.get() layer] setContentsGravity:kCAGravityTop];
  CALayer *mask = [CALayer layer];
  [mask setFrame:CGRectMake(0, 0, 20, 20)];
  [mask setBackgroundColor:[[UIColor blackColor] CGColor]];
  [[box.get() layer] setMask:mask];
  const auto layerNow = [&] { return describedView(around.get())["views"][0]["layer"]; };
  const Json first = layerNow();
  EXPECT_EQ(first["contents"]["contentMode"], "bottom");
  EXPECT_EQ(sizeOf(session().pngOf(identifierOf(first["contents"]["image"]))), "10x10");
  EXPECT_EQ(sizeOf(session().pngOf(identifierOf(first["mask"]))), "120x60") << "of three pixels a point";
  EXPECT_EQ(layerNow()["contents"]["image"]["url"], first["contents"]["image"]["url"]);
  EXPECT_EQ(layerNow()["mask"]["url"], first["mask"]["url"]);
  [mask setFrame:CGRectMake(0, 0, 30, 20)];
  EXPECT_NE(layerNow()["mask"]["url"], first["mask"]["url"]);
}

TEST_F(LayerTest, WhatAnAnimationLeftOnTheScreenIsDescribed) {
  const auto box = view(40, 20);
  CABasicAnimation *animation = [CABasicAnimation animationWithKeyPath:@"opacity"];
  [animation setToValue:[NSNumber numberWithDouble:0.25]];
  [animation setFillMode:kCAFillModeForwards];
  [animation setRemovedOnCompletion:NO];
  [[box.get() layer] addAnimation:animation forKey:@"fade"];
  EXPECT_EQ(describedView(box.get())["alpha"], 0.25);
  [[box.get() layer] removeAnimationForKey:@"fade"];
  EXPECT_EQ(describedView(box.get())["alpha"], 1);
}

}  // namespace
