// How image views are described.
#include "simulator/Settings/SessionTest.h"

/// An image view of an app's own.
@interface OwnImageView : UIImageView
@end

@implementation OwnImageView
@end

namespace {

class ImageViewTest : public SessionTest {};

TEST_F(ImageViewTest, aTemplateHasTheTintOfItsViewWhichComesFromAbove) {
  const auto parent = view(40, 40);
  [parent.get() setTintColor:[UIColor redColor]];
  const auto images = objcxx::adopt([[UIImageView alloc] initWithImage:picture(10)]);
  [parent.get() addSubview:images.get()];
  const auto tint = [&] { return describedView(parent.get())["views"][0]["image"]["tint"]; };
  EXPECT_TRUE(tint().is_null());
  [images.get() setImage:[picture(10) imageWithRenderingMode:UIImageRenderingModeAlwaysTemplate]];
  EXPECT_EQ(tint(), "#ff0000ff");
  [images.get() setTintColor:[UIColor greenColor]];
  EXPECT_EQ(tint(), "#00ff00ff");
  [images.get() setImage:[picture(10) imageWithRenderingMode:UIImageRenderingModeAlwaysOriginal]];
  EXPECT_TRUE(tint().is_null());
}

TEST_F(ImageViewTest, aSymbolHasTheTintOfItsViewUnlessItIsToBeOriginal) {
  UIImage *star = [UIImage systemImageNamed:@"star.fill"];
  const auto images = objcxx::adopt([[UIImageView alloc] initWithImage:star]);
  [images.get() setTintColor:[UIColor greenColor]];
  const auto image = [&] { return describedView(images.get())["image"]; };
  EXPECT_EQ(image()["tint"], "#00ff00ff");
  const double width = image()["width"];
  [images.get() setPreferredSymbolConfiguration:[UIImageSymbolConfiguration configurationWithPointSize:51]];
  EXPECT_NEAR(image()["width"].get<double>(), 3 * width, 1.5);
  [images.get() setImage:[star imageWithTintColor:[UIColor redColor] renderingMode:UIImageRenderingModeAlwaysOriginal]];
  EXPECT_TRUE(image()["tint"].is_null());
}

TEST_F(ImageViewTest, anImageViewShowsItsHighlightedImageWhileItIsHighlighted) {
  UIImage *plain = picture(10), *other = picture(20);
  const auto images = objcxx::adopt([[UIImageView alloc] initWithImage:plain highlightedImage:other]);
  EXPECT_EQ(describedView(images.get())["image"]["width"], 10);
  [images.get() setHighlighted:YES];
  EXPECT_EQ(describedView(images.get())["image"]["width"], 20);
  [images.get() setHighlightedImage:nil];
  EXPECT_EQ(describedView(images.get())["image"]["width"], 10);
}

TEST_F(ImageViewTest, ThePictureLiesInTheViewAsItsContentModeSays) {
  const std::pair<UIViewContentMode, const char *> names[] = {
      {UIViewContentModeScaleToFill, "scaleToFill"},
      {UIViewContentModeScaleAspectFit, "scaleAspectFit"},
      {UIViewContentModeScaleAspectFill, "scaleAspectFill"},
      {UIViewContentModeRedraw, "scaleToFill"},
      {UIViewContentModeCenter, "center"},
      {UIViewContentModeTop, "top"},
      {UIViewContentModeBottom, "bottom"},
      {UIViewContentModeLeft, "left"},
      {UIViewContentModeRight, "right"},
      {UIViewContentModeTopLeft, "topLeft"},
      {UIViewContentModeTopRight, "topRight"},
      {UIViewContentModeBottomLeft, "bottomLeft"},
      {UIViewContentModeBottomRight, "bottomRight"},
  };
  const auto images = objcxx::adopt([[UIImageView alloc] initWithImage:picture(10)]);
  for (const auto &[mode, name] : names) {
    [images.get() setContentMode:mode];
    EXPECT_EQ(describedView(images.get())["contentMode"], name);
  }
}

TEST_F(ImageViewTest, APictureThatIsNotScaledIsSentAsLargeAsItIs) {
  const auto around = view(100, 20);  // A table gives its header its own width.
  const auto images = objcxx::adopt([[UIImageView alloc] initWithImage:picture(600)]);
  [images.get() setFrame:CGRectMake(0, 0, 50, 20)];
  [around.get() addSubview:images.get()];
  const auto sent = [&] {
    const sim::Json described = describedView(around.get());  // Starts the session.
    return sizeOf(session().pngOf(identifierOf(described["views"][0]["image"])));
  };
  const std::string scaled = sent();
  EXPECT_EQ(scaled, "150x150");
  [images.get() setContentMode:UIViewContentModeScaleAspectFill];
  EXPECT_EQ(sent(), scaled);
  [images.get() setContentMode:UIViewContentModeTopLeft];
  EXPECT_EQ(sent(), "600x600");
}

TEST_F(ImageViewTest, AnImageViewOfAnAppsOwnIsOneToo) {
  const auto images = objcxx::adopt([[OwnImageView alloc] initWithFrame:CGRectMake(0, 0, 10, 10)]);
  EXPECT_EQ(describedView(images.get())["type"], "image");
  EXPECT_TRUE(describedView(images.get())["image"].is_null());
}

}  // namespace
