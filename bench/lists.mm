// How the time that the two list editors need grows with the number of apps and widgets, and that of knowing rows again
// with the number of rows. The claims are the ratios of the medians for twice as much: about 2 means that the time is
// linear, about 4 that it is quadratic.
#import <Foundation/SIMDevice.h>
#import <NorvikAppList/NorvikAppList.h>
#import <Preferences/Preferences.h>
#import <UIKit/RowNumbers.hpp>
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

/// A page of `count` rows with identifiers, made anew whenever it is loaded anew, then in the opposite order.
@interface TurningPage : PSListController {
 @public
  int count;
  BOOL isTurned;
}
@end

@implementation TurningPage

- (NSArray *)specifiers {
  if (_specifiers) return _specifiers;
  NSMutableArray *made = [NSMutableArray arrayWithCapacity:static_cast<NSUInteger>(count)];
  for (int row = 0; row < count; ++row) {
    NSString *name = [NSString stringWithFormat:@"Row %d", isTurned ? count - 1 - row : row];
    PSSpecifier *specifier = [PSSpecifier preferenceSpecifierNamed:name
                                                            target:self
                                                               set:NULL
                                                               get:NULL
                                                            detail:Nil
                                                              cell:PSStaticTextCell
                                                              edit:Nil];
    [specifier setIdentifier:name];
    [made addObject:specifier];
  }
  _specifiers = [made copy];
  return _specifiers;
}

@end

namespace {

using Editor = UITableViewController<ListEditor>;
using bench::bundleClass;
using bench::DeviceFolder;
using bench::median;
using bench::require;

constexpr int kRepetitions = 7;

/// For the ratio of the times for ten times as many rows: twice as much as linear, because the texts of many rows no
/// longer fit into the caches. Quadratic time would be 100.
constexpr double kIdentity = 20;

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

/// A page loads all of its rows anew, which the screen then knows again.
Times measureReload(int count) {
  Times times;
  auto page = objcxx::adopt([[TurningPage alloc] init]);
  page.get()->count = count;
  sim::Session session(page.get(), 1);
  const auto idOf = [&](std::size_t row) -> std::string {
    return sim::Json::parse(session.screen(), nullptr, false)["page"]["sections"][0]["rows"][row]["id"];
  };
  for (int repetition = 0; repetition < kRepetitions; ++repetition) {
    const std::string first = idOf(0);
    page.get()->isTurned = !page.get()->isTurned;
    measure(times, "reload", [&] {
      [page.get() reloadSpecifiers];
      require(session.refresh(), "the rows were not turned");
    });
    require(idOf(static_cast<std::size_t>(count) - 1) == first, "a row was not known again");
  }
  return times;
}

/// The same without all else: the rows' numbers, by what they show.
Times measureIdentity(int count) {
  Times times;
  sim::RowNumbers numbers;
  std::uint32_t next = 1;
  bool isTurned = false;
  const auto reload = [&] {
    numbers.reload({count});
    for (int row = 0; row < count; ++row) {
      const std::string text = "Row " + std::to_string(isTurned ? count - 1 - row : row);
      numbers.know({0, row}, {nullptr, "UITableViewCell\n" + text, text});
    }
    numbers.settle(next);
  };
  reload();
  for (int repetition = 0; repetition < kRepetitions; ++repetition) {
    isTurned = !isTurned;
    measure(times, "identity", reload);
    require(numbers.at({0, 0}) == static_cast<std::uint32_t>(isTurned ? count : 1), "a row was not known again");
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
    const Times fewRows = measureReload(10000);
    const Times manyRows = measureReload(20000);
    const Times fewNumbers = measureIdentity(1000);
    const Times manyNumbers = measureIdentity(10000);
    report(manyApps, fewApps, 20000, 10000);
    report(manyWidgets, fewWidgets, 400, 200);
    report(manyRows, fewRows, 20000, 10000);
    report(manyNumbers, fewNumbers, 10000, 1000);
    bench::Claims claims;
    claim(claims, manyApps, fewApps, 20000, 10000);
    claim(claims, manyWidgets, fewWidgets, 400, 200);
    claim(claims, manyRows, fewRows, 20000, 10000);
    claims.ratio("lists identity", "10000/1000", median(manyNumbers.at("identity")), median(fewNumbers.at("identity")),
                 bench::atMost(kIdentity));
    return claims.report(std::cout);
  }
}
