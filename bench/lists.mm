// How the time that the two list editors need grows with the number of apps and widgets. The claims are the ratios of
// the medians for twice as much: about 2 means that the time is linear, about 4 that it is quadratic.
#import <Foundation/SIMDevice.h>
#import <NorvikAppList/NorvikAppList.h>
#import <UIKit/UIKit.h>
#import <dispatch/MainQueue+Sim.h>
#import <objcxx/Retained.h>

#import "Settings/Session.h"
#include "Claims.hpp"
#include "lists_device.h"
#include "median.hpp"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// What both editors answer.
@protocol ListEditor <NSObject>
- (instancetype)initWithIdentifier:(NSString *)identifier;
- (NSMutableArray *)menuItems;
- (NSMutableArray *)menuItemsDisabled;
- (void)loadLists;
- (void)saveLists;
@end

namespace {

using Editor = UITableViewController<ListEditor>;
using bench::bundleClass;
using bench::DeviceFolder;
using bench::median;
using bench::require;

constexpr int kRepetitions = 7;

/// Milliseconds by name of what was measured.
using Times = std::map<std::string, std::vector<double>>;

template <typename Body>
void measure(Times &times, const std::string &name, Body body) {
  @autoreleasepool {
    const auto start = std::chrono::steady_clock::now();
    body();
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    times[name].push_back(taken.count());
  }
}

/// A new editor with its lists loaded.
objcxx::Retained<Editor> openEditor(NSString *className) {
  auto editor = objcxx::adopt([(Editor *)[bundleClass(className) alloc] initWithIdentifier:bench::kDomain]);
  SIMDrainMainQueue();
  return editor;
}

NSIndexPath *at(NSInteger section, NSUInteger row) {
  return [NSIndexPath indexPathForRow:static_cast<NSInteger>(row) inSection:section];
}

/// Moves a row from the middle of the disabled ones by a tap, by a drag, and writes the list.
void change(Editor *editor, Times &times, const std::string &prefix) {
  UITableView *table = [editor tableView];
  const NSUInteger middle = [[editor menuItemsDisabled] count] / 2;
  measure(times, prefix + "tap", [&] { [editor tableView:table didSelectRowAtIndexPath:at(1, middle)]; });
  measure(times, prefix + "drag",
          [&] { [editor tableView:table moveRowAtIndexPath:at(1, middle) toIndexPath:at(0, 0)]; });
  measure(times, prefix + "save", [&] { [editor saveLists]; });
}

/// One event on the page that shows the editor, with the whole screen as the answer.
void changeByEvent(Editor *editor, Times &times, std::size_t count) {
  sim::Session session(editor, 1);
  for (int repetition = 0; repetition < kRepetitions; ++repetition) {
    const auto screen = sim::Json::parse(session.screen(), nullptr, false);
    const std::string row = screen["page"]["sections"][1]["rows"][count / 2]["id"];
    measure(times, "tap event", [&] {
      const sim::Json tap{{"type", "tap"}, {"id", row}};
      const sim::wire::Reply reply = session.perform(sim::wire::Event{tap.dump()});
      require(
          reply.outcome == sim::wire::Outcome::done && session.revision() == static_cast<std::uint64_t>(repetition) + 2,
          "an event was refused");
    });
    measure(times, "description", [&] { require(!session.refresh(), "the screen changed by itself"); });
  }
  std::printf("lists: a screen of %zu rows is %.1f MB\n", count, static_cast<double>(session.screen().size()) / 1e6);
}

Times measureApps(int count) {
  NSString *const key = @"FavouriteApplications";
  Times times;
  DeviceFolder device;
  NSArray *identifiers = device.addApps(count);
  NSArray *four = [identifiers subarrayWithRange:NSMakeRange([identifiers count] - 4, 4)];

  for (int repetition = 0; repetition < kRepetitions; ++repetition) {
    measure(times, "delivery", [&] {
      __block NSUInteger delivered = 0;
      [[[[NorvikAppList alloc] init] autorelease] getAppList:^(NSArray *apps) {
        delivered = [apps count];
      }];
      SIMDrainMainQueue();
      require(delivered == [identifiers count], "apps are missing");
    });
    device.setPreference(key, nil);
    objcxx::Retained<Editor> editor;
    measure(times, "opening", [&] { editor = openEditor(@"ZunoFavouritesPicker"); });
    require([[editor.get() menuItemsDisabled] count] == [identifiers count], "the lists are not loaded");
    change(editor.get(), times, "");
    require([[editor.get() menuItems] count] == 2, "the changes were not made");

    device.setPreference(key, four);
    measure(times, "loading 4", [&] { [editor.get() loadLists]; });
    device.setPreference(key, identifiers);
    measure(times, "loading all", [&] { [editor.get() loadLists]; });
    require([[editor.get() menuItems] count] == 4, "the stored list was not loaded");
  }
  device.setPreference(key, nil);
  changeByEvent(openEditor(@"ZunoFavouritesPicker").get(), times, [identifiers count]);
  return times;
}

Times measureWidgets(int count) {
  Times times;
  for (int repetition = 0; repetition < kRepetitions; ++repetition) {
    @autoreleasepool {
      DeviceFolder device;  // Bundles that this process has not met.
      device.addWidgets(count, BUILD_FOLDER "/device-root/var/jb/Library/Zuno/Widgets/NoteWidget.bundle/NoteWidget",
                        @"NoteWidget");
      objcxx::Retained<Editor> editor;
      measure(times, "widgets opening", [&] { editor = openEditor(@"ZunoWidgetsPicker"); });
      require([[editor.get() menuItemsDisabled] count] >= static_cast<NSUInteger>(count), "widgets are missing");
      change(editor.get(), times, "widgets ");
    }
  }
  return times;
}

void report(const Times &many, const Times &few, int manyCount, int fewCount) {
  for (const auto &[name, times] : few) {
    std::printf("  %-20s %6d: %10.3f ms %6d: %10.3f ms\n", name.c_str(), fewCount, median(times), manyCount,
                median(many.at(name)));
  }
}

void claim(bench::Claims &claims, const Times &many, const Times &few, int manyCount, int fewCount) {
  const std::string kind = std::to_string(manyCount) + "/" + std::to_string(fewCount);
  for (const auto &[name, times] : few) {
    claims.ratio("lists " + name, kind, median(many.at(name)), median(times), bench::atMost(bench::kLinear));
  }
}

}  // namespace

int main() {
  // The loader's log lines; what this program has to say goes to standard output.
  if (!std::freopen("/dev/null", "w", stderr)) return 1;
  SIMStartFoundation();
  @autoreleasepool {
    const Times fewApps = measureApps(10000);
    const Times manyApps = measureApps(20000);
    const Times fewWidgets = measureWidgets(200);
    const Times manyWidgets = measureWidgets(400);
    report(manyApps, fewApps, 20000, 10000);
    report(manyWidgets, fewWidgets, 400, 200);
    bench::Claims claims;
    claim(claims, manyApps, fewApps, 20000, 10000);
    claim(claims, manyWidgets, fewWidgets, 400, 200);
    return claims.report(std::cout);
  }
}
