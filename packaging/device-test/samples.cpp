// Writes the samples of the property-list look-up with the answers of this computer.
//
//   samples FILE
//
// Sound documents bring the answers that they were made with; damaged ones those of the scan that runs here.
#include <fstream>
#include <iostream>

#include "SampleFile.hpp"
#include "ZunoPrefs/core/PropertyListScanSamples.hpp"

namespace {

constexpr int kSound = 600;
constexpr int kDamaged = 4000;

void write(std::ostream& out, std::uint32_t number) {
  out.write(reinterpret_cast<const char*>(&number), sizeof number);
}

void write(std::ostream& out, const std::string& text) {
  write(out, static_cast<std::uint32_t>(text.size()));
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

void write(std::ostream& out, const testing_support::Sample& sample) {
  write(out, sample.document);
  write(out, static_cast<std::uint32_t>(sample.expectations.size()));
  for (const auto& [key, scan] : sample.expectations) {
    write(out, key);
    write(out, device_test::encoded(scan));
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  std::ofstream out(argv[1], std::ios::binary);
  testing_support::Random random(20240229);
  for (int i = 0; i < kSound; ++i) write(out, testing_support::randomSample(random));
  for (int i = 0; i < kDamaged; ++i) {
    auto sample = testing_support::randomSample(random);
    sample.document = testing_support::damaged(std::move(sample.document), random);
    for (auto& [key, scan] : sample.expectations) scan = testing_support::scanGuarded(sample.document, key);
    write(out, sample);
  }
  out.close();
  if (out) return 0;
  std::cerr << argv[1] << " cannot be written\n";
  return 1;
}
