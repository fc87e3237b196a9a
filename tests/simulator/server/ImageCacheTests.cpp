#include "server/ImageCache.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

sim::Response picture(std::size_t size) {
  return {200, "image/png", std::make_shared<const std::string>(size, 'x'), {}};
}

TEST(ImageCacheTests, GivesBackWhatItKeeps) {
  sim::ImageCache cache(100);
  EXPECT_EQ(cache.find("1"), nullptr);
  cache.insert("1", picture(10));
  ASSERT_NE(cache.find("1"), nullptr);
  EXPECT_EQ(cache.find("1")->body->size(), 10u);
}

TEST(ImageCacheTests, ForgetsWhatWasUsedLongestAgo) {
  sim::ImageCache cache(100);
  cache.insert("1", picture(40));
  cache.insert("2", picture(40));
  EXPECT_NE(cache.find("1"), nullptr);
  cache.insert("3", picture(40));
  EXPECT_NE(cache.find("1"), nullptr);
  EXPECT_EQ(cache.find("2"), nullptr);
  EXPECT_NE(cache.find("3"), nullptr);
}

TEST(ImageCacheTests, KeepsNothingThatIsTooLarge) {
  sim::ImageCache cache(100);
  cache.insert("1", picture(40));
  cache.insert("2", picture(101));
  EXPECT_EQ(cache.find("2"), nullptr);
  EXPECT_NE(cache.find("1"), nullptr);
}

TEST(ImageCacheTests, ClearForgetsEverything) {
  sim::ImageCache cache(100);
  cache.insert("1", picture(100));
  cache.clear();
  EXPECT_EQ(cache.find("1"), nullptr);
  cache.insert("2", picture(100));
  EXPECT_NE(cache.find("2"), nullptr);
}

}  // namespace
