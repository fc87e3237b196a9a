// How long it takes to look up one key of a theme file of 20 MB, most of it a photo, by a scan and by a full parse with
// libplist. Each look-up opens the file again, as each row of a page does; "read" only opens it and reads every byte.
// All are measured in one run, their repetitions shuffled, so that other load on the machine falls on all alike.
// The claims are the scan's speed divided by the alternative's.
#include "core/PropertyListScan.hpp"

#include <benchmark/benchmark.h>
#include <plist/plist.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "Claims.hpp"
#include "MedianReporter.hpp"
#include "core/PropertyListScanFile.hpp"

namespace {

constexpr std::size_t kPhotoSize = std::size_t{20} << 20;
constexpr std::size_t kRows = 25;

std::array<std::string, kRows> makeKeys() {
  std::array<std::string, kRows> keys;
  for (std::size_t i = 0; i < kRows; ++i) keys[i] = "row " + std::to_string(i);
  keys[kRows / 2] = "backgroundImage";
  return keys;
}

const std::array<std::string, kRows> kKeys = makeKeys();

/// Base64 text in lines of 64 characters, of which no two are equal.
std::string photo() {
  constexpr const char* kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  constexpr std::size_t kLine = 64;
  std::minstd_rand random(1);
  std::string text;
  text.reserve(kPhotoSize + kLine + 2);
  while (text.size() < kPhotoSize) {
    for (std::size_t i = 0; i < kLine; ++i) text += kAlphabet[random() >> 8 & 63];
    text += "\r\n";
  }
  return text;
}

using Node = std::unique_ptr<void, decltype(&plist_free)>;

Node theme() {
  Node root(plist_new_dict(), plist_free);
  for (std::size_t i = 0; i < kRows; ++i) {
    plist_t value = nullptr;
    if (kKeys[i] == "backgroundImage") {
      value = plist_new_string(photo().c_str());
    } else if (i % 4 == 0) {
      value = plist_new_bool(1);
    } else if (i % 4 == 1) {
      value = plist_new_string("#ff8000");
    } else if (i % 4 == 2) {
      value = plist_new_real(0.3);
    } else {
      value = plist_new_uint(i);
    }
    plist_dict_set_item(root.get(), kKeys[i].c_str(), value);
  }
  return root;
}

using Write = decltype(plist_to_xml);

void writeTo(const std::string& path, plist_t root, Write* write) {
  char* text = nullptr;
  std::uint32_t size = 0;
  write(root, &text, &size);
  std::ofstream(path, std::ios::binary).write(text, size);
  std::free(text);
}

bool lookUpByScan(const std::string& path, const std::string& key) {
  const zuno::FileBytes file(path.c_str());
  const auto scan = zuno::scanPropertyList(file.bytes(), key);
  return scan.outcome == zuno::PropertyListScan::Outcome::kFound;
}

bool lookUpWithLibplist(const std::string& path, const std::string& key) {
  const zuno::FileBytes file(path.c_str());
  plist_t root = nullptr;
  const auto* bytes = reinterpret_cast<const char*>(file.bytes().data());
  const auto size = static_cast<std::uint32_t>(file.bytes().size());
  if (plist_is_binary(bytes, size)) plist_from_bin(bytes, size, &root);
  else plist_from_xml(bytes, size, &root);
  const Node owner(root, plist_free);
  return root && plist_dict_get_item(root, key.c_str());
}

bool readEveryByte(const std::string& path, const std::string&) {
  const zuno::FileBytes file(path.c_str());
  const std::size_t words = file.bytes().size() / sizeof(std::uint64_t);
  std::uint64_t sum = 0;
  for (std::size_t i = 0; i < words; ++i) {
    std::uint64_t word;
    std::memcpy(&word, file.bytes().data() + i * sizeof word, sizeof word);
    sum ^= word;
  }
  benchmark::DoNotOptimize(sum);
  return !file.bytes().empty();
}

using LookUp = bool(const std::string& path, const std::string& key);

void measure(benchmark::State& state, LookUp* lookUp, const std::string& path) {
  std::size_t row = 0;
  for (auto _ : state) {
    if (!lookUp(path, kKeys[row++ % kRows])) state.SkipWithError("a key was not found");
  }
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

  std::string folder = (std::filesystem::temp_directory_path() / "bench-XXXXXX").string();
  if (!mkdtemp(folder.data())) return 1;
  const struct {
    std::string name;
    std::string path;
    Write* write;
    double timesLibplist, timesRead;  ///< How fast the scan is claimed to be, as multiples of the alternatives' speed.
  } files[] = {{"property_list_scan XML 20 MB", folder + "/xml.plist", plist_to_xml, 5, 0.5},
               {"property_list_scan binary 20 MB", folder + "/binary.plist", plist_to_bin, 1.5, 0.5}};
  {
    const Node root = theme();
    for (const auto& file : files) writeTo(file.path, root.get(), file.write);
  }

  for (const auto& file : files) {
    const auto add = [&](const char* alternative, LookUp* lookUp) {
      benchmark::RegisterBenchmark((file.name + "/" + alternative).c_str(), measure, lookUp, file.path)
          ->Unit(benchmark::kMillisecond);
    };
    add("scan", lookUpByScan);
    add("libplist", lookUpWithLibplist);
    add("read", readEveryByte);
  }
  MedianReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  std::filesystem::remove_all(folder);

  bench::Claims claims;
  for (const auto& file : files) {
    const auto scan = reporter.median(file.name + "/scan");
    if (!scan) continue;
    std::printf("%s: %.2f ms for a key, %.0f ms for the %zu rows of a page\n", file.name.c_str(), *scan, *scan * kRows,
                kRows);
    const auto claim = [&](const std::string& alternative, double times) {
      const auto other = reporter.median(file.name + "/" + alternative);
      if (other) claims.ratio(file.name, "scan/" + alternative, *other, *scan, bench::atLeast(times));
    };
    claim("libplist", file.timesLibplist);
    claim("read", file.timesRead);
  }
  return claims.report(std::cout);
}
