// What the theme file's values mean, and that the table of its keys, the documentation and the page's rows agree.
#import <Foundation/Foundation.h>

#include "theme/Theme.hpp"

#include <cmath>
#include <fstream>
#include <limits>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/objc/ObjCTest.h"

namespace {

using zuno::Appearance;
using zuno::Colour;
using zuno::Look;
using zuno::Theme;
using zuno::ThemeValue;

using Values = std::map<std::string, ThemeValue, std::less<>>;

Theme themeOf(const Values &values) {
  return zuno::themeFrom([&](std::string_view key) {
    const auto found = values.find(key);
    return found == values.end() ? ThemeValue() : found->second;
  });
}

const Theme &defaults() {
  static const Theme theme = themeOf({});
  return theme;
}

TEST(ThemeTests, AFileWithoutValuesHasTheDefaults) {
  EXPECT_FALSE(defaults().enabled);
  EXPECT_FALSE(defaults().useCustom);
  EXPECT_EQ(defaults().blurRadius, 12);
  EXPECT_EQ(defaults().dimming, 25);
  EXPECT_EQ(defaults().cornerRadius, 20);
  EXPECT_EQ(defaults().spacing, 16);
  EXPECT_EQ(defaults().appearance, Appearance::kSystem);
  EXPECT_FALSE(defaults().backgroundColour || defaults().titleColour || defaults().badgeColour);
}

TEST(ThemeTests, ValuesOfTheRightTypeAreTaken) {
  const Theme theme = themeOf({{"enabled", 1.0},
                               {"useCustom", 1.0},
                               {"blurRadius", 0.0},
                               {"dimming", 99.5},
                               {"cornerRadius", 60.0},
                               {"spacing", 1.25},
                               {"appearance", 2.0},
                               {"backgroundColour", "102030"},
                               {"titleColour", "fFfFfF80"},
                               {"badgeColour", "00FF00"}});
  EXPECT_TRUE(theme.enabled && theme.useCustom);
  EXPECT_EQ(theme.blurRadius, 0);
  EXPECT_EQ(theme.dimming, 99.5);
  EXPECT_EQ(theme.cornerRadius, 60);
  EXPECT_EQ(theme.spacing, 1.25);
  EXPECT_EQ(theme.appearance, Appearance::kDark);
  EXPECT_EQ(theme.backgroundColour, (Colour{16 / 255.0, 32 / 255.0, 48 / 255.0, 1}));
  EXPECT_EQ(theme.titleColour, (Colour{1, 1, 1, 128 / 255.0}));
  EXPECT_EQ(theme.badgeColour, (Colour{0, 1, 0, 1}));
}

TEST(ThemeTests, ValuesOfAnotherTypeAndNoNumbersCountAsTheDefault) {
  const ThemeValue odd[] = {std::monostate(),
                            "12",
                            "",
                            std::numeric_limits<double>::quiet_NaN(),
                            std::numeric_limits<double>::infinity(),
                            -std::numeric_limits<double>::infinity()};
  for (const char *key : {"enabled", "useCustom", "blurRadius", "dimming", "cornerRadius", "spacing", "appearance"}) {
    for (const ThemeValue &value : odd) EXPECT_EQ(themeOf({{key, value}}), defaults()) << key << " " << value.index();
  }
  for (const char *key : {"backgroundColour", "titleColour", "badgeColour"}) {
    for (const ThemeValue &value : {ThemeValue(), ThemeValue(7.0), ThemeValue("12345"), ThemeValue("#102030"),
                                    ThemeValue("red"), ThemeValue("")}) {
      EXPECT_EQ(themeOf({{key, value}}), defaults()) << key;
    }
  }
}

TEST(ThemeTests, NumbersOutOfRangeBecomeTheNearerEnd) {
  for (const auto &[key, initial, least, most, member] : zuno::kThemeNumbers) {
    EXPECT_EQ(themeOf({{std::string(key), least - 1}}).*member, least) << key;
    EXPECT_EQ(themeOf({{std::string(key), -1e300}}).*member, least) << key;
    EXPECT_EQ(themeOf({{std::string(key), most + 1e-9}}).*member, most) << key;
    EXPECT_EQ(themeOf({{std::string(key), 1e300}}).*member, most) << key;
  }
  for (const double number : {-1.0, 3.0, 0.5, 1e20}) EXPECT_EQ(themeOf({{"appearance", number}}), defaults()) << number;
  EXPECT_TRUE(themeOf({{"enabled", -0.5}}).enabled) << "a switch is on for every number but 0";
}

TEST(LookTests, EachSwitchLetsItsPartOfTheThemeThrough) {
  Theme theme = themeOf({{"blurRadius", 30.0},
                         {"dimming", 50.0},
                         {"cornerRadius", 5.0},
                         {"spacing", 40.0},
                         {"appearance", 2.0},
                         {"backgroundColour", "102030"},
                         {"titleColour", "405060"},
                         {"badgeColour", "708090"}});
  Look system;
  system.cornerRadius = 20;
  system.spacing = 16;
  EXPECT_EQ(zuno::lookOf(theme), system);
  theme.useCustom = true;
  EXPECT_EQ(zuno::lookOf(theme), system) << "of a theme that is off";

  theme.enabled = true;
  theme.useCustom = false;
  Look pictured = system;
  pictured.hasPicture = true;
  pictured.blurRadius = 30;
  pictured.dimming = 50;
  EXPECT_EQ(zuno::lookOf(theme), pictured);
  theme.useCustom = true;
  const Look whole{
      true, 30, 50, 5, 40, Appearance::kDark, theme.backgroundColour, theme.titleColour, theme.badgeColour};
  EXPECT_EQ(zuno::lookOf(theme), whole);
}

std::string text(double number) {
  std::ostringstream out;
  out << number;
  return out.str();
}

/// What the documentation says of each key of the theme file, as "default; range".
std::map<std::string, std::string> documented() {
  std::ifstream file(SOURCE_FOLDER "/docs/preferences.md");
  std::map<std::string, std::string> result;
  bool isTheme = false;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("## ")) isTheme = line.starts_with("## com.norvik.Zunoprefs.theme.plist");
    if (!isTheme || !line.starts_with("| `")) continue;
    std::vector<std::string> cells;
    std::istringstream parts(line.substr(2));
    for (std::string cell; std::getline(parts, cell, '|');) {
      const auto first = cell.find_first_not_of(' '), last = cell.find_last_not_of(' ');
      cells.push_back(first == cell.npos ? "" : cell.substr(first, last - first + 1));
    }
    if (cells.size() < 5) continue;  // A table of another kind.
    std::istringstream names(cells.at(0));
    for (std::string name; std::getline(names, name, '`');) {
      if (std::isalpha(static_cast<unsigned char>(name.front()))) result[name] = cells.at(3) + "; " + cells.at(4);
    }
  }
  return result;
}

/// The rows of the page by their keys.
NSDictionary *rows() {
  NSMutableDictionary *result = [NSMutableDictionary dictionary];
  NSDictionary *page =
      [NSDictionary dictionaryWithContentsOfFile:@SOURCE_FOLDER "/ZunoPrefs/Resources/Customise.plist"];
  for (NSDictionary *row in [page objectForKey:@"items"]) {
    if (NSString *key = [row objectForKey:@"key"]) [result setObject:row forKey:key];
  }
  return result;
}

class ThemeTableTests : public ObjCTest {
 protected:
  static NSDictionary *row(std::string_view key) {
    return [rows() objectForKey:[NSString stringWithUTF8String:std::string(key).c_str()]];
  }
};

TEST_F(ThemeTableTests, TheDocumentationSaysWhatTheTableSays) {
  const auto said = documented();
  for (const auto &[key, initial, member] : zuno::kThemeSwitches) {
    EXPECT_EQ(said.at(std::string(key)), initial ? "1; " : "0; ") << key;
  }
  for (const auto &[key, initial, least, most, member] : zuno::kThemeNumbers) {
    EXPECT_EQ(said.at(std::string(key)), text(initial) + "; " + text(least) + " to " + text(most)) << key;
  }
  for (const auto &[key, member] : zuno::kThemeColours) {
    EXPECT_EQ(said.at(std::string(key)).substr(0, 4), "none") << key;
  }
  EXPECT_EQ(said.at(std::string(zuno::kThemeAppearance)), "0; 0 system, 1 light, 2 dark");
  const std::set<std::string> others = {"backgroundImage", "device", "iosVersion", "ZunoPresetVersion"};
  EXPECT_EQ(said.size(),
            others.size() + zuno::kThemeSwitches.size() + zuno::kThemeNumbers.size() + zuno::kThemeColours.size() + 1)
      << "a key that the table lacks";
}

TEST_F(ThemeTableTests, ThePagesRowsSayWhatTheTableSays) {
  for (const auto &[key, initial, member] : zuno::kThemeSwitches) {
    ASSERT_NE(row(key), nil) << key;
    EXPECT_EQ([[row(key) objectForKey:@"default"] intValue], initial ? 1 : 0) << key;
  }
  for (const auto &[key, initial, least, most, member] : zuno::kThemeNumbers) {
    ASSERT_NE(row(key), nil) << key;
    EXPECT_EQ([[row(key) objectForKey:@"default"] doubleValue], initial) << key;
    EXPECT_EQ([[row(key) objectForKey:@"min"] doubleValue], least) << key;
    EXPECT_EQ([[row(key) objectForKey:@"max"] doubleValue], most) << key;
  }
  for (const auto &[key, member] : zuno::kThemeColours) {
    ASSERT_NE(row(key), nil) << key;
    EXPECT_EQ([row(key) objectForKey:@"default"], nil) << key;
  }
  NSDictionary *appearance = row(zuno::kThemeAppearance);
  EXPECT_EQ([[appearance objectForKey:@"default"] intValue], static_cast<int>(zuno::kInitialAppearance));
  EXPECT_TRUE([[[appearance objectForKey:@"validValues"] description] isEqualToString:[(@[ @0, @1, @2 ]) description]]);
}

}  // namespace
