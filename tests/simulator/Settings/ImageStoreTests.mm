// The pictures of a screen: their addresses, their sizes, and how long they can be had.
#import <UIKit/UIKit.h>

#import "Settings/ImageStore.h"

#include "simulator/Settings/SessionTest.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace {

TEST_F(SessionTest, PicturesAreKeptWhileTheScreenChangesQuickly) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  UIImageView *view = [[[UIImageView alloc] initWithFrame:CGRectMake(0, 0, 10, 10)] autorelease];
  page->sectionView = objcxx::share<UIView>(view);
  std::vector<std::string> identifiers;
  for (int turn = 0; turn < 5; ++turn) {
    [view setImage:picture(10 + turn)];
    [[page tableView] reloadData];
    EXPECT_TRUE(session().refresh());
    const Json image = this->page()["sections"][0]["headerView"]["image"];
    EXPECT_EQ(image["width"], 10 + turn);
    identifiers.push_back(identifierOf(image));
    for (int idle = 0; idle < 3; ++idle) EXPECT_FALSE(session().refresh());
    for (const std::string &each : identifiers) EXPECT_GT([session().pngOf(each) length], 0u) << each;
  }
  for (const std::string unknown : {"", "x", "-1", "1x", " 1", "1-", "99999999", "99999999999999999999999"}) {
    EXPECT_FALSE(session().pngOf(unknown)) << unknown;
    EXPECT_FALSE(session().pngOf(identifiers.back() + unknown + "-")) << unknown;
  }
}

/// Screens that show one picture each, at times that the test chooses.
class ImageStoreTest : public SessionTest {
 protected:
  using Clock = sim::ImageStore::Clock;

  /// Shows `image` alone; nil for no picture. Returns its identifier.
  std::string show(UIImage *image, Clock::duration at) {
    sim::JsonText text;
    store_.beginDescription();
    store_.write(text, image, [image size]);
    store_.accept(start_ + at);
    return image ? identifierOf(Json::parse(text.text())) : std::string();
  }
  bool has(const std::string &identifier) const { return [store_.pngOf(identifier) length] > 0; }

  static constexpr Clock::duration kMoment = std::chrono::milliseconds(1);
  static constexpr Clock::duration kKept = sim::ImageStore::kKeptFor;

 private:
  const Clock::time_point start_ = Clock::now();
  sim::ImageStore store_{1};
};

TEST_F(ImageStoreTest, aPictureThatWentIsKeptForAWhileAndThenLetGo) {
  UIImage *image = picture(10);
  const std::string first = show(image, kMoment);
  show(nil, 2 * kMoment);
  EXPECT_TRUE(has(first));
  show(picture(11), 2 * kMoment + kKept);
  EXPECT_TRUE(has(first)) << "it went just so long ago";
  show(picture(12), 3 * kMoment + kKept);
  EXPECT_FALSE(has(first));
}

TEST_F(ImageStoreTest, aPictureThatStaysOrComesBackIsNotLetGo) {
  UIImage *image = picture(10);
  const std::string first = show(image, kMoment);
  show(image, 2 * kKept);
  EXPECT_TRUE(has(first)) << "it is on the screen";
  show(nil, 3 * kKept);
  show(image, 3 * kKept + kMoment);
  show(nil, 4 * kKept + kMoment);
  show(picture(11), 4 * kKept + 2 * kMoment);
  EXPECT_TRUE(has(first)) << "it went again a moment ago";
}

TEST_F(ImageStoreTest, largePicturesAreLetGoEarlierButNotTheOnesThatWentLast) {
  const int side = 3000;  // 36 million bytes, of which one may be kept.
  const std::string first = show(picture(side), kMoment);
  const std::string second = show(picture(side), 2 * kMoment);
  EXPECT_TRUE(has(first));
  const std::string third = show(picture(side), 3 * kMoment);
  EXPECT_FALSE(has(first));
  EXPECT_TRUE(has(second));
  EXPECT_TRUE(has(third));
  const std::string larger = show(picture(side * 3 / 2), 4 * kMoment);
  show(nil, 5 * kMoment);
  EXPECT_TRUE(has(larger));
  EXPECT_FALSE(has(third)) << "there is no room beside the larger one";
}

TEST_F(SessionTest, PicturesOfDifferentRunsHaveDifferentAddresses) {
  UIImage *image = picture(10);
  std::vector<std::string> addresses;
  for (const std::uint64_t revision : {1, 2, 12}) {
    ListPage *list = [[[ListPage alloc] initWithTitle:@"List" sections:@[ @[ @"a" ] ]] autorelease];
    list->sectionView = objcxx::share<UIView>([[[UIImageView alloc] initWithImage:image] autorelease]);
    start(list, revision);
    addresses.push_back(page()["sections"][0]["headerView"]["image"]["url"]);
  }
  EXPECT_NE(addresses[0], addresses[1]);
  EXPECT_NE(addresses[1], addresses[2]);
  EXPECT_NE(addresses[0], addresses[2]);
}

TEST_F(SessionTest, NoMorePixelsAreSentThanArePlacedOnTheScreen) {
  UIImageView *view = [[[UIImageView alloc] initWithImage:picture(1000)] autorelease];
  [view setFrame:CGRectMake(0, 0, 50, 20)];
  UIView *header = [[[UIView alloc] initWithFrame:CGRectMake(0, 0, 100, 40)] autorelease];
  [header addSubview:view];
  ListPage *list = [[[ListPage alloc] initWithTitle:@"List" sections:@[ @[ @"a" ] ]] autorelease];
  list->sectionView = objcxx::share(header);
  start(list);
  const auto image = [&] { return page()["sections"][0]["headerView"]["views"][0]["image"]; };
  const Json small = image();
  EXPECT_EQ(small["width"], 1000) << "in points, whatever is sent";
  // The wider side of the frame, at three pixels a point: the picture may have to fill it.
  EXPECT_EQ(sizeOf(session().pngOf(identifierOf(small))), "150x150");

  [view setFrame:CGRectMake(0, 0, 100, 20)];
  EXPECT_TRUE(session().refresh());
  const Json larger = image();
  EXPECT_NE(larger["url"], small["url"]);
  EXPECT_EQ(sizeOf(session().pngOf(identifierOf(larger))), "300x300");
  EXPECT_EQ(sizeOf(session().pngOf(identifierOf(small))), "150x150") << "the screen before";

  [view setFrame:CGRectZero];
  session().refresh();
  EXPECT_EQ(sizeOf(session().pngOf(identifierOf(image()))), "1000x1000");
}

}  // namespace
