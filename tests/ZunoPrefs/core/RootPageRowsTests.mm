// Which rows the root page shows, for every combination of the values that decide.
#include <functional>
#include <set>
#include <string>

#include "ZunoPrefs/core/RootPageTest.h"

namespace {

const std::set<std::string> kFavouritesRows{"SelectFavourites", "quickSwitcherDefaultToFavourites",
                                            "hideSnapshotsOnFavourites"};
const std::set<std::string> kQuickSwitcherRows{"quickSwitcherDefaultToFavourites", "quickSwitcherWidthModifier",
                                               "quickSwitcherGestureModifierLabel"};

/// Values for `key` in the file; NSNull leaves the key out.
struct Stored {
  NSString *key;
  NSArray *values;
};

class RootPageRowsTest : public RootPageTest {
 protected:
  static std::string text(id value) { return value ? [[value description] UTF8String] : ""; }
  /// What tells a row of the page, or the dictionary of one in the property list, from the others.
  static std::string named(id key, id label, id footer) { return text(key) + "|" + text(label) + "|" + text(footer); }

  /// The rows of the built bundle's property list without those keyed as in `hidden`, in order.
  static std::vector<std::string> listed(const std::set<std::string> &hidden) {
    NSString *file = [[bundle() bundlePath] stringByAppendingPathComponent:@"Root.plist"];
    std::vector<std::string> rows;
    for (NSDictionary *item in [[NSDictionary dictionaryWithContentsOfFile:file] objectForKey:@"items"]) {
      NSString *key = [item objectForKey:@"key"];
      if (hidden.count(text(key))) continue;
      rows.push_back(named(key, [item objectForKey:@"label"], [item objectForKey:@"footerText"]));
    }
    return rows;
  }
  static std::vector<std::string> shown(ZunoprefsRootListController *page) {
    std::vector<std::string> rows;
    for (PSSpecifier *row in [page specifiers]) {
      rows.push_back(
          named([row propertyForKey:@"key"], [row propertyForKey:@"label"], [row propertyForKey:@"footerText"]));
    }
    return rows;
  }

  /// Calls `check` for every combination of one value each, after the file has been written with them.
  void forEachFile(const std::vector<Stored> &all, const std::function<void(NSDictionary *)> &check) {
    NSMutableDictionary *contents = [NSMutableDictionary dictionary];
    for (NSString *undecisive in @[ @"QuickSwitcherEnabled", @"hideSnapshotsOnFavourites", @"pullToKillEnabled" ]) {
      [contents setObject:@1 forKey:undecisive];
    }
    combine(all, 0, contents, check);
  }

 private:
  void combine(const std::vector<Stored> &all, std::size_t from, NSMutableDictionary *contents,
               const std::function<void(NSDictionary *)> &check) {
    if (from == all.size()) {
      writePreferences(kMainFile, contents);
      return check(contents);
    }
    for (id value in all[from].values) {
      [contents setObject:value forKey:all[from].key];
      if (value == [NSNull null]) [contents removeObjectForKey:all[from].key];
      combine(all, from + 1, contents, check);
    }
  }
};

TEST_F(RootPageRowsTest, OnlyTheRowsOfFeaturesThatAreOffAreMissing) {
  NSNull *absent = [NSNull null];
  NSArray *other = @[ @"com.norvik.Zunowidgets.siri", @"KRBMusicView" ];
  NSArray *favourites = @[ @"KRBMusicView", @"KRBFavouritesView" ];
  ASSERT_GT(listed({}).size(), 20u);
  int files = 0;
  forEachFile(
      {
          {@"Enabled", @[ absent, @1, @0 ]},
          {@"EnabledWidgets", @[ absent, @[], other, favourites ]},
          {@"quickSwitcher", @[ absent, @0, @1, @(YES) ]},
      },
      [&](NSDictionary *contents) {
        ++files;
        NSNumber *enabled = [contents objectForKey:@"Enabled"];
        const bool isOff = enabled && ![enabled boolValue];
        NSArray *widgets = isOff ? nil : [contents objectForKey:@"EnabledWidgets"];
        std::set<std::string> hidden;
        if (widgets && ![widgets containsObject:@"KRBFavouritesView"]) hidden = kFavouritesRows;
        if (isOff || [[contents objectForKey:@"quickSwitcher"] intValue] == 0) {
          hidden.insert(kQuickSwitcherRows.begin(), kQuickSwitcherRows.end());
        }
        EXPECT_EQ(shown(newPage()), listed(hidden)) << text(contents);
      });
  EXPECT_EQ(files, 3 * 4 * 4);
}

TEST_F(RootPageRowsTest, WithoutAReadableFileOnlyTheQuickSwitcherRowsAreMissing) {
  EXPECT_EQ(shown(newPage()), listed(kQuickSwitcherRows));
  write(kMainFile, "damaged");
  EXPECT_EQ(shown(newPage()), listed(kQuickSwitcherRows));
}

TEST_F(RootPageRowsTest, ValuesOfTheWrongTypeCountAsNoListAndAsZero) {
  std::set<std::string> all = kFavouritesRows;
  all.insert(kQuickSwitcherRows.begin(), kQuickSwitcherRows.end());
  writePreferences(kMainFile, @{@"EnabledWidgets" : @"KRBFavouritesView", @"quickSwitcher" : @[ @1 ]});
  EXPECT_EQ(shown(newPage()), listed(all));
  writePreferences(kMainFile, @{@"quickSwitcher" : @"1"});
  EXPECT_EQ(shown(newPage()), listed({})) << "a text that holds a number is one";
}

TEST_F(RootPageRowsTest, TheMasterSwitchAndTheEditorsRowsTellWhatTheMasterSwitchDoesToTheLists) {
  NSMutableDictionary *footers = [NSMutableDictionary dictionary];
  NSString *footer = nil;
  for (PSSpecifier *row in [newPage() specifiers]) {
    if ([row cellType] == PSGroupCell) footer = [row propertyForKey:@"footerText"];
    if (footer && [row propertyForKey:@"key"]) [footers setObject:footer forKey:[row propertyForKey:@"key"]];
  }
  EXPECT_OBJC_EQ([footers objectForKey:@"Enabled"],
                 @"While Zuno is off, the switcher uses its factory settings. Your choices are kept, and so are the "
                 @"lists of widgets and favourite apps unless you change them meanwhile.");
  NSString *editors = [footers objectForKey:@"EnabledWidgets"];
  EXPECT_OBJC_EQ([footers objectForKey:@"SelectFavourites"], editors);
  EXPECT_TRUE([editors hasSuffix:@"While Zuno is off, the lists of widgets and favourite apps show the factory "
                                 @"settings, and a change replaces your own list."]);
}

}  // namespace
