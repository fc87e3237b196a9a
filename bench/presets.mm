// How the processor time to open the presets screen grows with the number of presets. The claims are the ratios of the
// medians for twice as many: about 2 means that the time is linear, about 4 that it is quadratic.
#import <Foundation/SIMDevice.h>
#import <UIKit/UIKit.h>
#import <dispatch/MainQueue+Sim.h>
#import <objcxx/Retained.h>

#import "Settings/Session.h"
#include "Claims.hpp"
#include "lists_device.h"
#include "median.hpp"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <string>
#include <vector>

/// What this program asks of the presets screen.
@protocol PresetsPage <NSObject>
- (NSArray *)presetsArray;
- (void)loadPresets;
@end

namespace {

using Page = UITableViewController<PresetsPage>;
using bench::bundleClass;
using bench::median;
using bench::require;

constexpr int kFew = 10000, kMany = 20000;
constexpr int kRepetitions = 7;

/// Processor milliseconds by name of what was measured.
using Times = std::map<std::string, std::vector<double>>;

template <typename Body>
void measure(Times &times, const std::string &name, Body body) {
  @autoreleasepool {
    const std::clock_t start = std::clock();
    body();
    times[name].push_back(static_cast<double>(std::clock() - start) * 1e3 / CLOCKS_PER_SEC);
  }
}

void addPresets(int count) {
  const std::filesystem::path folder = [SIMDevicePath(@"/var/jb/Library/Zuno/Presets") fileSystemRepresentation];
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  for (int number = 0; number < count; ++number) {
    std::ofstream file(folder / ("Preset " + std::to_string(number) + ".plist"));
    file << R"(<plist version="1.0"><dict><key>ZunoPresetVersion</key><integer>1</integer></dict></plist>)";
    require(file.good(), "a preset cannot be written");
  }
}

Times measurePresets(int count) {
  Times times;
  bench::DeviceFolder device;
  addPresets(count);
  for (int repetition = 0; repetition < kRepetitions; ++repetition) {
    @autoreleasepool {
      objcxx::Retained<Page> page;
      measure(times, "open", [&] {
        page = objcxx::adopt([(Page *)[bundleClass(@"ZunoPresets") alloc] init]);
        (void)[page.get() view];
        [[page.get() tableView] layoutIfNeeded];
        SIMDrainMainQueue();
      });
      require([[page.get() presetsArray] count] == static_cast<NSUInteger>(count), "presets are missing");
      measure(times, "reload", [&] { [page.get() loadPresets]; });
    }
  }
  objcxx::Retained<Page> page = objcxx::adopt([(Page *)[bundleClass(@"ZunoPresets") alloc] init]);
  sim::Session session(page.get(), 1);
  for (int repetition = 0; repetition < kRepetitions; ++repetition) {
    measure(times, "describe", [&] { require(!session.refresh(), "the screen changed by itself"); });
  }
  std::printf("presets: a screen of %d presets is %.1f MB\n", count,
              static_cast<double>(session.screen().size()) / 1e6);
  return times;
}

}  // namespace

int main() {
  // Log lines; what this program has to say goes to standard output.
  if (!std::freopen("/dev/null", "w", stderr)) return 1;
  SIMStartFoundation();
  @autoreleasepool {
    const Times few = measurePresets(kFew);
    const Times many = measurePresets(kMany);
    for (const auto &[name, times] : few) {
      std::printf("  %-10s %6d: %10.3f ms %6d: %10.3f ms\n", name.c_str(), kFew, median(times), kMany,
                  median(many.at(name)));
    }
    bench::Claims claims;
    const std::string kind = std::to_string(kMany) + "/" + std::to_string(kFew);
    for (const auto &[name, times] : few) {
      claims.ratio("presets " + name, kind, median(many.at(name)), median(times), bench::atMost(bench::kLinear));
    }
    return claims.report(std::cout);
  }
}
