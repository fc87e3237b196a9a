#include "device/SampleContent.hpp"

#include "server/PropertyListJson.hpp"

#include <gtest/gtest.h>

#include <cairo.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <utility>

namespace {

struct Size {
  int width = 0;
  int height = 0;
  bool operator==(const Size&) const = default;
};

Size sizeOf(const std::string& png) {
  struct Reader {
    const std::string& bytes;
    std::size_t at = 0;
  } reader{png};
  const auto read = [](void* context, unsigned char* to, unsigned count) {
    auto& from = *static_cast<Reader*>(context);
    if (count > from.bytes.size() - from.at) return CAIRO_STATUS_READ_ERROR;
    std::memcpy(to, from.bytes.data() + from.at, count);
    from.at += count;
    return CAIRO_STATUS_SUCCESS;
  };
  cairo_surface_t* surface = cairo_image_surface_create_from_png_stream(read, &reader);
  const Size size{cairo_image_surface_get_width(surface), cairo_image_surface_get_height(surface)};
  cairo_surface_destroy(surface);
  return size;
}

std::optional<nlohmann::json> valuesOf(const std::string& propertyList) {
  return sim::propertyListJson(std::as_bytes(std::span(propertyList)));
}

TEST(SampleContentTests, EveryAppHasItsNameAndAnIconOfItsOwn) {
  std::set<std::string> identifiers;
  std::set<std::string> icons;
  std::size_t apps = 0;
  for (const sim::ShippedFile& file : sim::sampleContent()) {
    if (file.path.ends_with("/Info.plist")) {
      ++apps;
      const auto information = valuesOf(file.content());
      ASSERT_TRUE(information) << file.path;
      identifiers.insert((*information)["CFBundleIdentifier"].get<std::string>());
      EXPECT_FALSE((*information)["CFBundleDisplayName"].get<std::string>().empty());
      EXPECT_EQ((*information)["CFBundleIcons"]["CFBundlePrimaryIcon"]["CFBundleIconFiles"][0], "AppIcon60x60");
    } else if (file.path.ends_with("@3x.png")) {
      icons.insert(file.content());
      EXPECT_EQ(sizeOf(file.content()), (Size{180, 180})) << file.path;
    } else if (file.path.ends_with("@2x.png")) {
      EXPECT_EQ(sizeOf(file.content()), (Size{120, 120})) << file.path;
    }
  }
  EXPECT_GE(apps, 12u);
  EXPECT_EQ(identifiers.size(), apps);
  EXPECT_EQ(icons.size(), apps);
}

TEST(SampleContentTests, NamesBeyondAsciiSurvive) {
  const auto files = sim::sampleContent();
  const auto tea = std::ranges::find(files, "Applications/Tea.app/Info.plist", &sim::ShippedFile::path);
  ASSERT_NE(tea, files.end());
  EXPECT_EQ((*valuesOf(tea->content()))["CFBundleDisplayName"],
            "\u038F\u03C1\u03B1 \u03B3\u03B9\u03B1 \u03C4\u03C3\u03AC\u03B9");
}

TEST(SampleContentTests, ThePackageToolAsksThatOfThisComputer) {
  for (const sim::ShippedFile& file : sim::sampleContent()) {
    if (file.path != "usr/bin/dpkg-query") continue;
    EXPECT_EQ(file.mode, 0755u);
    EXPECT_EQ(file.content(), "#!/bin/sh\nexec /usr/bin/dpkg-query \"$@\"\n");
    return;
  }
  FAIL() << "there is no package tool";
}

TEST(SampleContentTests, PhotosHaveTheSizesOfACameraAndAScreen) {
  std::set<std::pair<int, int>> sizes;
  for (const sim::ShippedFile& file : sim::sampleContent()) {
    if (!file.path.starts_with("var/mobile/Media/DCIM/100APPLE/")) continue;
    const Size size = sizeOf(file.content());
    sizes.insert({size.width, size.height});
  }
  EXPECT_EQ(sizes, (std::set<std::pair<int, int>>{{1170, 2532}, {1600, 1200}, {1200, 1600}}));
}

TEST(SampleContentTests, ABuildDrawsTheSameEachTime) {
  const auto files = sim::sampleContent();
  EXPECT_EQ(files.back().content(), files.back().content());
  EXPECT_FALSE(files.back().edition.empty());
}

}  // namespace
