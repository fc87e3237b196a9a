// Files that are damaged, or whose headers claim what no picture can be: they give no pixels, and take no memory.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>

#include "CoreGraphics/ImageDecoder.hpp"
#include "CoreGraphics/ImageHeader.hpp"
#include "CoreGraphics/Thumbnail.hpp"
#include "support/images/TestImages.hpp"

namespace {

using namespace test_images;

void put(File& file, std::size_t offset, std::size_t count, std::uint32_t number, bool bigEndian) {
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t place = bigEndian ? count - 1 - i : i;
    file.at(offset + place) = std::uint8_t(number >> 8 * i);
  }
}

std::size_t placeOf(const File& file, std::string_view text, std::size_t from = 0) {
  const auto found = std::search(file.begin() + std::ptrdiff_t(from), file.end(), text.begin(), text.end(),
                                 [](std::uint8_t byte, char letter) { return byte == std::uint8_t(letter); });
  return std::size_t(found - file.begin());
}

File jpegOfSize(std::uint32_t width, std::uint32_t height) {
  File file = encoded(*marked(20, 12), "jpeg");
  const std::size_t frame = placeOf(file, "\xFF\xC0");
  put(file, frame + 5, 2, height, true);
  put(file, frame + 7, 2, width, true);
  return file;
}

File gifOfSize(std::uint32_t width, std::uint32_t height) {
  File file = gif();
  const std::size_t picture = placeOf(file, ",");
  for (const std::size_t offset : {std::size_t(6), picture + 5}) {
    put(file, offset, 2, width, false);
    put(file, offset + 2, 2, height, false);
  }
  return file;
}

File tiffOfSize(std::uint32_t width, std::uint32_t height) {
  File file = encoded(*marked(20, 12), "tiff");
  const bool bigEndian = file[0] == 'M';
  std::size_t directory = 0;
  for (std::size_t i = 0; i < 4; ++i) directory |= std::size_t(file[4 + i]) << 8 * (bigEndian ? 3 - i : i);
  // The first two entries of a directory are the sizes; their type becomes the 4-byte number.
  for (const auto& [entry, side] : {std::pair{directory + 2, width}, {directory + 14, height}}) {
    put(file, entry + 2, 2, 4, bigEndian);
    put(file, entry + 8, 4, side, bigEndian);
  }
  return file;
}

// A canvas of that size, from 1 × 1 on, around a small picture.
File webpOfSize(std::uint32_t width, std::uint32_t height) {
  const File small = encoded(*marked(20, 12), "webp");
  File file(small.begin(), small.begin() + 12);
  const File head = {'V', 'P', '8', 'X', 10, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
  file.insert(file.end(), head.begin(), head.end());
  file.insert(file.end(), small.begin() + std::ptrdiff_t(placeOf(small, "VP8 ")), small.end());
  put(file, 24, 3, width - 1, false);
  put(file, 27, 3, height - 1, false);
  put(file, 4, 4, std::uint32_t(file.size() - 8), false);
  return file;
}

File heifOfSize(std::uint32_t width, std::uint32_t height) {
  File file = heif();
  for (std::size_t box = placeOf(file, "ispe"); box < file.size(); box = placeOf(file, "ispe", box + 4)) {
    put(file, box + 8, 4, width, true);
    put(file, box + 12, 4, height, true);
  }
  return file;
}

struct Format {
  const char* name;
  File (*ofSize)(std::uint32_t width, std::uint32_t height);
  std::uint32_t longest;  ///< The longest side that its header can say, as far as it matters here.
  bool saysZero;
};

constexpr Format kFormats[] = {
    {"png", pngHeader, 1'000'000, true},    {"jpeg", jpegOfSize, 65'500, true},
    {"gif", gifOfSize, 65'535, true},       {"tiff", tiffOfSize, 1'000'000, true},
    {"webp", webpOfSize, 1'000'000, false}, {"heif", heifOfSize, 1'000'000, true},
};

sim::DecodedImage opened(const File& file) { return sim::openImage(std::make_shared<const File>(file)); }

bool hasPixels(const File& file) {
  const auto image = opened(file);
  return image.source && image.source->bitmap();
}

/// The most memory that was in use since the last `forgetPeak`, in bytes.
std::size_t peakMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::stoul(line.substr(6)) * 1024;
  }
  ADD_FAILURE() << "this system does not tell the peak";
  return 0;
}

void forgetPeak() {
  std::ofstream file("/proc/self/clear_refs");
  file << "5" << std::flush;
  EXPECT_TRUE(file.good()) << "this system does not forget the peak";
}

constexpr std::size_t kMegabyte = 1 << 20;

TEST(BadImageTests, AHeaderBeyondTheLimitIsRefusedBeforeAnythingIsAllocated) {
  for (const Format& format : kFormats) {
    const std::uint32_t side = std::min<std::uint32_t>(format.longest, 100'000);
    const File file = format.ofSize(side, side);
    forgetPeak();
    const std::size_t before = peakMemory();
    EXPECT_FALSE(opened(file).source) << format.name;
    EXPECT_FALSE(sim::squareThumbnail(opened(file), 100)) << format.name;
    EXPECT_LT(peakMemory() - before, 16 * kMegabyte) << format.name;
  }
}

// The file must be found bad for its size alone, so that the tests above and below mean what they say.
TEST(BadImageTests, TheSameFilesAreGoodWithTheirOwnSizes) {
  EXPECT_TRUE(hasPixels(jpegOfSize(20, 12)));
  EXPECT_TRUE(hasPixels(gifOfSize(1, 1)));
  EXPECT_TRUE(hasPixels(tiffOfSize(20, 12)));
  EXPECT_TRUE(hasPixels(webpOfSize(20, 12)));
  EXPECT_TRUE(hasPixels(heif()));
}

TEST(BadImageTests, ASideOfNothingIsNoPicture) {
  for (const Format& format : kFormats) {
    if (!format.saysZero) continue;
    for (const auto& [width, height] : {std::pair{0u, 0u}, {0u, 12u}, {20u, 0u}}) {
      EXPECT_FALSE(hasPixels(format.ofSize(width, height))) << format.name << ' ' << width << " × " << height;
    }
  }
}

TEST(BadImageTests, AClaimOfAMillionPixelsInARowNeedsNoMoreMemoryThanThese) {
  for (const Format& format : kFormats) {
    for (const bool stands : {false, true}) {
      const File file = stands ? format.ofSize(1, format.longest) : format.ofSize(format.longest, 1);
      forgetPeak();
      const std::size_t before = peakMemory();
      const auto image = opened(file);
      if (image.source) {
        if (const auto pixels = image.source->bitmap()) {
          EXPECT_EQ(pixels->width(), image.source->width()) << format.name;
          EXPECT_EQ(pixels->height(), image.source->height()) << format.name;
        }
        if (const auto small = image.source->thumbnail(100)) {
          EXPECT_LE(std::max(small->width(), small->height()), 100) << format.name;
        }
      }
      EXPECT_LT(peakMemory() - before, 64 * kMegabyte) << format.name;
    }
  }
}

// The picture within may claim more than the canvas around it.
TEST(BadImageTests, ALargeFrameOnASmallCanvasIsRefused) {
  File file = gif();
  const std::size_t picture = placeOf(file, ",");
  put(file, picture + 5, 2, 65'535, false);
  put(file, picture + 7, 2, 65'535, false);
  forgetPeak();
  const std::size_t before = peakMemory();
  if (const auto image = opened(file); image.source) {
    EXPECT_EQ(image.source->width(), 1);
    EXPECT_EQ(image.source->height(), 1);
  }
  EXPECT_LT(peakMemory() - before, 64 * kMegabyte);
}

TEST(BadImageTests, EveryCutOfEveryFormatIsRefused) {
  const File files[] = {encoded(*marked(20, 12), "png"),  encoded(*marked(20, 12), "jpeg"), gif(),
                        encoded(*marked(20, 12), "tiff"), encoded(*marked(20, 12), "webp"), heif()};
  for (const File& file : files) {
    ASSERT_TRUE(hasPixels(file));
    int taken = 0;
    for (std::size_t length = 0; length < file.size(); ++length) {
      taken += hasPixels(File(file.begin(), file.begin() + std::ptrdiff_t(length))) ? 1 : 0;
    }
    // What may be missing holds no pixels: the last byte of a GIF, tags of a TIFF that have a usual value.
    EXPECT_LE(taken, file[0] == 'G' || file[0] == 'I' ? 2 : 0) << file[0] << file[1] << file[2] << file[3];
  }
}

TEST(BadImageTests, GarbageOfManyMegabytesIsNoPicture) {
  File garbage(20 * kMegabyte);
  std::uint32_t state = 7;
  for (auto& byte : garbage) byte = std::uint8_t((state = state * 1664525 + 1013904223) >> 24);
  EXPECT_FALSE(opened(garbage).source);
  using namespace std::string_view_literals;
  for (const auto head :
       {"\x89PNG\r\n\x1a\n"sv, "\xff\xd8\xff\xe0"sv, "GIF89a"sv, "RIFF\xff\xff\xff\0WEBP"sv, "II*\0\x08\0\0\0"sv,
        "\0\0\0\x18"
        "ftypheic"sv}) {
    std::copy(head.begin(), head.end(), garbage.begin());
    EXPECT_FALSE(hasPixels(garbage)) << head;
  }
}

}  // namespace
