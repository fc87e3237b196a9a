// How fast the tone test's pixel walk is, next to a plain read of the same buffer and to the definition in floating
// point. All are measured in one run, their repetitions shuffled, so that other load on the machine falls on all alike.
// The claims are the kernel's speed divided by the alternative's. A large picture is read at the speed of the memory,
// which is some 17 times that of the definition: the kernel cannot be faster there. Their bounds are those of x86-64.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iostream>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "Claims.hpp"
#include "MedianReporter.hpp"
#include "lists/ToneKernel.hpp"
#include "lists/ToneKernelVariants.hpp"

namespace {

using Bytes = std::span<const std::uint8_t>;

// The definition without fused multiply-add: it may round differently in the last place of a double, which costs the
// same time.
bool isDarkByDefinition(const std::uint8_t* group) noexcept {
#pragma clang fp contract(off)
  const double luminance = group[1] * 0.587 + group[0] * 0.299 + group[2] * 0.114;
  return static_cast<float>(luminance) < 150.0f;
}

std::int32_t countOneByOne(Bytes bytes) noexcept {
  std::int32_t count = 0;
#pragma clang loop vectorize(disable) interleave(disable)
  for (std::size_t i = 0; i + 2 < bytes.size(); i += 4) count += isDarkByDefinition(&bytes[i]);
  return count;
}

// The same loop, as the compiler vectorises it for the baseline of the processor family.
std::int32_t countAsTheCompilerVectorises(Bytes bytes) noexcept {
  std::int32_t count = 0;
  for (std::size_t i = 0; i + 2 < bytes.size(); i += 4) count += isDarkByDefinition(&bytes[i]);
  return count;
}

// A plain read: every byte loaded once into the widest registers of this processor and used. It works on a pointer
// because clang 19 leaves out the inline functions that only a cloned function calls.
#if defined(__x86_64__)
__attribute__((target_clones("avx512f", "avx2", "default")))
#endif
std::uint64_t
exclusiveOr(const std::uint8_t* data, std::size_t length) noexcept {
  using Wide = std::uint64_t __attribute__((vector_size(64)));
  Wide sums[4] = {};
  const std::uint8_t* const end = data + length / sizeof sums * sizeof sums;
  for (; data != end; data += sizeof sums) {
    Wide lines[4];
    std::memcpy(lines, data, sizeof lines);
    for (std::size_t i = 0; i < 4; ++i) sums[i] ^= lines[i];
  }
  const Wide sum = sums[0] ^ sums[1] ^ sums[2] ^ sums[3];
  std::uint64_t result = 0;
  for (std::size_t i = 0; i < sizeof sum / sizeof result; ++i) result ^= sum[i];
  for (std::size_t i = 0; i < length % sizeof sums; ++i) result ^= data[i];
  return result;
}

std::int32_t readPlainly(Bytes bytes) noexcept {
  return static_cast<std::int32_t>(exclusiveOr(bytes.data(), bytes.size()));
}

void measure(benchmark::State& state, zuno::detail::ToneCount* count, Bytes pixels) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(count(pixels));
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pixels.size()));
}

struct Picture {
  std::string name;
  std::vector<std::uint8_t> pixels;
  double timesRead;        ///< How fast the kernel is claimed to be, as a multiple of the read's speed.
  double timesDefinition;  ///< Of the definition's.
};

Picture randomPicture(std::size_t width, std::size_t height, double timesRead, double timesDefinition) {
  Picture picture{"tone " + std::to_string(width) + "x" + std::to_string(height),
                  std::vector<std::uint8_t>(width * height * 4), timesRead, timesDefinition};
  std::minstd_rand random(1);
  std::generate(picture.pixels.begin(), picture.pixels.end(), [&] { return static_cast<std::uint8_t>(random() >> 8); });
  return picture;
}

void registerAll(const Picture& picture) {
  const auto add = [&](const std::string& alternative, zuno::detail::ToneCount* count) {
    benchmark::RegisterBenchmark((picture.name + "/" + alternative).c_str(), measure, count, Bytes(picture.pixels))
        ->Unit(benchmark::kMicrosecond);
  };
  add("read", readPlainly);
  add("scalar", countOneByOne);
  add("scalar, vectorised by the compiler", countAsTheCompilerVectorises);
  add("kernel", zuno::countDarkGroups);
  for (const auto& variant : zuno::detail::toneVariants()) add(variant.name, variant.count);
}

}  // namespace

int main(int argc, char** argv) {
  std::string defaults[] = {"--benchmark_repetitions=15", "--benchmark_enable_random_interleaving=true",
                            "--benchmark_min_time=0.05"};
  std::vector<char*> arguments{argv[0]};
  for (std::string& option : defaults) arguments.push_back(option.data());
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 1;

  const Picture pictures[] = {randomPicture(180, 180, 0.7, 30), randomPicture(4032, 3024, 0.9, 10)};
  for (const Picture& picture : pictures) registerAll(picture);
  MedianReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);

  bench::Claims claims;
  for (const Picture& picture : pictures) {
    const auto claim = [&](const std::string& alternative, double times) {
      const auto kernel = reporter.median(picture.name + "/kernel");
      const auto other = reporter.median(picture.name + "/" + alternative);
      if (kernel && other) claims.ratio(picture.name, "kernel/" + alternative, *other, *kernel, bench::atLeast(times));
    };
    claim("read", picture.timesRead);
    claim("scalar", picture.timesDefinition);
  }
  return claims.report(std::cout);
}
