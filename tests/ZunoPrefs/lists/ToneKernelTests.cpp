// The dark count of every variant that this processor runs, against the definition in floating point.
#include "lists/ToneKernel.hpp"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "lists/ToneKernelVariants.hpp"

namespace zuno {
namespace {

using Bytes = std::span<const std::uint8_t>;

/// The definition: fused double precision in this order, rounded to single precision, compared with 150.
bool isDarkByDefinition(double b0, double b1, double b2) {
  double luminance = b1 * 0.587;
  luminance = std::fma(b0, 0.299, luminance);
  luminance = std::fma(b2, 0.114, luminance);
  return static_cast<float>(luminance) < 150.0f;
}

/// The definition's walk, with zeros for the missing bytes of the last group.
std::int32_t countByDefinition(Bytes bytes) {
  std::int32_t count = 0;
  const auto byteAt = [&](std::size_t i) { return i < bytes.size() ? bytes[i] : std::uint8_t{0}; };
  for (std::size_t i = 0; i < bytes.size(); i += 4) {
    count += isDarkByDefinition(byteAt(i), byteAt(i + 1), byteAt(i + 2));
  }
  return count;
}

/// Readable pages between two that fault when they are touched.
class GuardedPages final {
 public:
  GuardedPages() {
    memory_ = static_cast<std::uint8_t*>(mmap(nullptr, 3 * page_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    if (memory_ == MAP_FAILED || mprotect(begin(), page_, PROT_READ | PROT_WRITE) != 0) std::abort();
  }
  ~GuardedPages() { munmap(memory_, 3 * page_); }
  GuardedPages(const GuardedPages&) = delete;
  GuardedPages& operator=(const GuardedPages&) = delete;

  std::uint8_t* begin() const { return memory_ + page_; }
  std::uint8_t* end() const { return begin() + page_; }

 private:
  std::size_t page_ = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  std::uint8_t* memory_ = nullptr;
};

class ToneVariantTest : public ::testing::TestWithParam<detail::ToneVariant> {
 protected:
  std::int32_t count(Bytes bytes) const { return GetParam().count(bytes); }
};

// A block holds six colours, the j-th of them 2^j times, and one white group: the binary digits of its count tell which
// of the six were dark, so that two wrong answers cannot make up for each other.
TEST_P(ToneVariantTest, AgreesWithTheDefinitionForEveryColour) {
  constexpr std::uint32_t kColours = 1u << 24;
  constexpr std::uint32_t kPerBlock = 6;
  constexpr std::uint32_t kWhite = 0xffffffff;
  std::uint32_t block[64];

  for (std::uint32_t first = 0; first < kColours; first += kPerBlock) {
    std::int32_t expected = 0;
    std::uint32_t* group = std::fill_n(block, 1, kWhite);
    for (std::uint32_t j = 0; j < kPerBlock; ++j) {
      const std::uint32_t colour = std::min(first + j, kColours - 1);
      const std::uint32_t fourthByte = colour * 2654435761u >> 24;
      const std::uint8_t bytes[4] = {static_cast<std::uint8_t>(colour), static_cast<std::uint8_t>(colour >> 8),
                                     static_cast<std::uint8_t>(colour >> 16), static_cast<std::uint8_t>(fourthByte)};
      std::uint32_t packed;
      std::memcpy(&packed, bytes, sizeof packed);
      group = std::fill_n(group, 1u << j, packed);
      expected |= isDarkByDefinition(bytes[0], bytes[1], bytes[2]) << j;
    }
    ASSERT_EQ(count(Bytes(reinterpret_cast<const std::uint8_t*>(block), sizeof block)), expected)
        << "colours from b0 + 256 × b1 + 65536 × b2 = " << first;
  }
}

TEST_P(ToneVariantTest, AgreesWithTheDefinitionForEveryLengthAndAlignment) {
  std::mt19937 random(20240229);
  std::vector<std::uint8_t> buffer(1024);
  std::generate(buffer.begin(), buffer.end(), [&] { return static_cast<std::uint8_t>(random()); });
  const std::size_t toBoundary = -reinterpret_cast<std::uintptr_t>(buffer.data()) % 64;

  for (std::size_t alignment = 0; alignment < 64; ++alignment) {
    for (std::size_t length = 0; length <= 600; ++length) {
      const Bytes bytes(buffer.data() + toBoundary + alignment, length);
      ASSERT_EQ(count(bytes), countByDefinition(bytes)) << "alignment " << alignment << ", length " << length;
    }
  }
}

TEST_P(ToneVariantTest, ReadsNothingOutsideTheBuffer) {
  std::mt19937 random(7);
  const GuardedPages pages;
  std::generate(pages.begin(), pages.end(), [&] { return static_cast<std::uint8_t>(random()); });

  for (std::size_t length = 0; length <= 700; ++length) {
    const Bytes atTheEnd(pages.end() - length, length);
    ASSERT_EQ(count(atTheEnd), countByDefinition(atTheEnd)) << "length " << length;
    const Bytes atTheStart(pages.begin(), length);
    ASSERT_EQ(count(atTheStart), countByDefinition(atTheStart)) << "length " << length;
  }
}

// One bright byte somewhere in a dark buffer: a group that is skipped, or counted twice, shows.
TEST_P(ToneVariantTest, CountsEachGroupOnce) {
  std::vector<std::uint8_t> buffer(4 * 300, 0);
  for (std::size_t group = 0; group < 300; ++group) {
    std::fill_n(buffer.begin() + 4 * group, 3, std::uint8_t{255});
    EXPECT_EQ(count(buffer), 299) << "group " << group;
    std::fill_n(buffer.begin() + 4 * group, 3, std::uint8_t{0});
  }
}

TEST_P(ToneVariantTest, CountsMoreGroupsThanANarrowCounterHolds) {
  constexpr std::int32_t kGroups = (1 << 22) + 5;
  std::vector<std::uint8_t> black(std::size_t{4} * kGroups, 0);
  EXPECT_EQ(count(black), kGroups);
  std::vector<std::uint8_t> white(std::size_t{4} * kGroups, 255);
  EXPECT_EQ(count(white), 0);
}

TEST_P(ToneVariantTest, TheFirstColourThatIsNotDarkIsGrey150) {
  EXPECT_EQ(count(std::vector<std::uint8_t>(4 * 64, 150)), 0);
  EXPECT_EQ(count(std::vector<std::uint8_t>(4 * 64, 149)), 64);
}

TEST_P(ToneVariantTest, MissingBytesOfTheLastGroupCountAsZero) {
  const auto countOf = [this](std::vector<std::uint8_t> bytes) { return count(bytes); };
  EXPECT_EQ(countOf({255}), 1);
  EXPECT_EQ(countOf({1, 255}), 1);
  EXPECT_EQ(countOf({2, 255}), 0);
  EXPECT_EQ(countOf({149, 149, 149}), 1);
  EXPECT_EQ(countOf({150, 150, 150}), 0);
  EXPECT_EQ(countOf({255, 255, 255, 255, 0}), 1);
}

TEST_P(ToneVariantTest, AnEmptyBufferHasNoGroups) {
  EXPECT_EQ(count(Bytes()), 0);
  EXPECT_EQ(count(Bytes(static_cast<const std::uint8_t*>(nullptr), 0)), 0);
  const std::uint8_t byte = 0;
  EXPECT_EQ(count(Bytes(&byte, 0)), 0);
}

INSTANTIATE_TEST_SUITE_P(Running, ToneVariantTest,
                         ::testing::ValuesIn(std::vector<detail::ToneVariant>(detail::toneVariants().begin(),
                                                                              detail::toneVariants().end())),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(ToneKernelTest, EndsTheListWithPortableCode) { EXPECT_STREQ(detail::toneVariants().back().name, "portable"); }

#if defined(__x86_64__)

/// Whether the first processor has the feature, as the system says.
bool hasFeature(const std::string& name) {
  std::ifstream file("/proc/cpuinfo");
  for (std::string line; std::getline(file, line);) {
    if (line.rfind("flags", 0) == 0) return (line + " ").find(" " + name + " ") != std::string::npos;
  }
  return false;
}

TEST(ToneKernelTest, UsesTheWidestVectorsOfTheProcessorAndHasAllNarrowerOnes) {
  std::vector<std::string> wanted{"sse2", "portable"};
  if (hasFeature("avx2")) {
    wanted.insert(wanted.begin(), "avx2");
    const char* const needed[] = {"avx512f", "avx512bw", "avx512_vnni", "popcnt"};
    if (std::all_of(std::begin(needed), std::end(needed), hasFeature)) wanted.insert(wanted.begin(), "avx512");
  }
  std::vector<std::string> names;
  for (const auto& variant : detail::toneVariants()) names.emplace_back(variant.name);
  EXPECT_EQ(names, wanted);
}

#elif defined(__aarch64__)

TEST(ToneKernelTest, UsesTheVectorsOfTheProcessor) { EXPECT_STREQ(detail::toneVariants().front().name, "neon"); }

#endif

TEST(ToneKernelTest, CountsAsTheDefinitionDoes) {
  std::mt19937 random(42);
  std::vector<std::uint8_t> buffer(180 * 180 * 4 + 3);
  std::generate(buffer.begin(), buffer.end(), [&] { return static_cast<std::uint8_t>(random()); });
  EXPECT_EQ(countDarkGroups(buffer), countByDefinition(buffer));
  EXPECT_EQ(countDarkGroups({}), 0);
}

}  // namespace
}  // namespace zuno
