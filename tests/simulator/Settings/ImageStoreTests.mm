// The pictures of a screen: their addresses, their sizes, and how long they can be had.
#import <UIKit/UIKit.h>

#include "simulator/Settings/SessionTest.h"

#include <cstdint>
#include <string>
#include <vector>

namespace {

TEST_F(SessionTest, PicturesAreKeptForTheScreenAndTheOneBefore) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  UIImageView *view = [[[UIImageView alloc] initWithFrame:CGRectMake(0, 0, 10, 10)] autorelease];
  page->sectionView = objcxx::share<UIView>(view);
  std::vector<std::string> identifiers;
  for (int turn = 0; turn < 3; ++turn) {
    [view setImage:picture(10 + turn)];
    [[page tableView] reloadData];
    EXPECT_TRUE(session().refresh());
    const Json image = this->page()["sections"][0]["headerView"]["image"];
    EXPECT_EQ(image["width"], 10 + turn);
    identifiers.push_back(identifierOf(image));
    for (int idle = 0; idle < 3; ++idle) EXPECT_FALSE(session().refresh());
    EXPECT_GT([session().pngOf(identifiers.back()) length], 0u);
    if (turn > 0) {
      EXPECT_GT([session().pngOf(identifiers[identifiers.size() - 2]) length], 0u);
    }
  }
  EXPECT_EQ([session().pngOf(identifiers[0]) length], 0u);
  for (const std::string unknown : {"", "x", "-1", "1x", " 1", "1-", "99999999", "99999999999999999999999"}) {
    EXPECT_FALSE(session().pngOf(unknown)) << unknown;
    EXPECT_FALSE(session().pngOf(identifiers.back() + unknown + "-")) << unknown;
  }
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
