#include <UIKit/VisualFormat.hpp>

#include <gtest/gtest.h>

using sim::parseVisualFormat;
using sim::VisualFormat;
using sim::VisualFormatError;

namespace {

VisualFormat parsed(std::string_view text) {
  auto result = parseVisualFormat(text);
  if (const auto* error = std::get_if<VisualFormatError>(&result)) {
    ADD_FAILURE() << text << ": " << error->reason << " at " << error->position;
    return {};
  }
  return std::get<VisualFormat>(std::move(result));
}

/// "position reason", or "" for a text that parses.
std::string errorOf(std::string_view text) {
  const auto result = parseVisualFormat(text);
  const auto* error = std::get_if<VisualFormatError>(&result);
  return error ? std::to_string(error->position) + " " + error->reason : "";
}

}  // namespace

TEST(VisualFormatTest, ReadsARowOfViews) {
  const VisualFormat format = parsed("H:|-[name(>=80@750,<=wide)]-8-[_value2]|");
  EXPECT_FALSE(format.isVertical);
  ASSERT_EQ(format.views.size(), 4u);
  EXPECT_EQ(format.views[0].name, "");
  EXPECT_EQ(format.views[1].name, "name");
  EXPECT_EQ(format.views[2].name, "_value2");
  ASSERT_EQ(format.views[1].sizes.size(), 2u);
  EXPECT_EQ(format.views[1].sizes[0].relation, 1);
  EXPECT_EQ(std::get<double>(format.views[1].sizes[0].value), 80);
  EXPECT_EQ(std::get<double>(format.views[1].sizes[0].priority), 750);
  EXPECT_EQ(format.views[1].sizes[1].relation, -1);
  EXPECT_EQ(std::get<std::string>(format.views[1].sizes[1].value), "wide");
  EXPECT_EQ(std::get<double>(format.views[1].sizes[1].priority), 1000);
  ASSERT_EQ(format.gaps.size(), 3u);
  EXPECT_TRUE(format.gaps[0].isStandard);
  EXPECT_EQ(std::get<double>(format.gaps[1].distances.at(0).value), 8);
  EXPECT_FALSE(format.gaps[2].isStandard);
  EXPECT_TRUE(format.gaps[2].distances.empty());
}

TEST(VisualFormatTest, ReadsColumnsDistancesAndPriorities) {
  const VisualFormat format = parsed(" V:[a]-(>=gap@high,==4.5@20)-[b]--8-[c]-gap@1-| ");
  EXPECT_TRUE(format.isVertical);
  ASSERT_EQ(format.gaps.at(0).distances.size(), 2u);
  EXPECT_EQ(std::get<std::string>(format.gaps[0].distances[0].value), "gap");
  EXPECT_EQ(std::get<std::string>(format.gaps[0].distances[0].priority), "high");
  EXPECT_EQ(std::get<double>(format.gaps[0].distances[1].value), 4.5);
  EXPECT_EQ(std::get<double>(format.gaps.at(1).distances.at(0).value), -8);
  EXPECT_EQ(std::get<double>(format.gaps.at(2).distances.at(0).priority), 1);
  EXPECT_EQ(parsed("[a][b]").gaps.at(0).distances.size(), 0u);
}

TEST(VisualFormatTest, SaysWhereATextIsWrong) {
  EXPECT_EQ(errorOf(""), "0 Expected a view, in brackets, or the superview, '|'");
  EXPECT_EQ(errorOf("|"), "1 Expected a view in the format");
  EXPECT_EQ(errorOf("H:[a"), "4 Expected a ']' after the view");
  EXPECT_EQ(errorOf("[]"), "1 Expected the name of a view");
  EXPECT_EQ(errorOf("[2a]"), "1 Expected the name of a view");
  EXPECT_EQ(errorOf("[a(]"), "3 Expected a number or a name");
  EXPECT_EQ(errorOf("[a(5]"), "4 Expected a ',' or a ')'");
  EXPECT_EQ(errorOf("[a(5@)]"), "5 Expected a priority after '@'");
  EXPECT_EQ(errorOf("[a]-8[b]"), "5 Expected a '-' after the distance");
  EXPECT_EQ(errorOf("[a]-"), "4 Expected a distance, a view or the superview after '-'");
  EXPECT_EQ(errorOf("[a]--[b]"), "4 Expected a distance, a view or the superview after '-'");
  EXPECT_EQ(errorOf("[a]-inf-[b]"), "") << "A metric may have that name.";
  EXPECT_EQ(errorOf("[a]--inf-[b]"), "4 Expected a distance, a view or the superview after '-'");
  EXPECT_EQ(errorOf("[a] [b]"), "3 Expected a view, in brackets, or the superview, '|'");
  EXPECT_EQ(errorOf("[a]|[b]"), "4 Expected the end of the format after the superview");
}
