#include <UIKit/TableGeometry.hpp>

#include <gtest/gtest.h>

using sim::RowIndex;
using sim::TableGeometry;

namespace {

TableGeometry twoSections() {
  TableGeometry geometry;
  geometry.reset({2, 0, 3}, 10);
  geometry.setHeader(0, 5);
  geometry.setFooter(0, 1);
  geometry.setHeader(1, 7);
  geometry.setHeader(2, 4);
  return geometry;
}

}  // namespace

TEST(TableGeometryTest, StacksHeadersRowsAndFooters) {
  TableGeometry geometry = twoSections();
  geometry.setMargins(100, 50);
  EXPECT_EQ(geometry.sectionTop(0), 100);
  EXPECT_EQ(geometry.rowTop({0, 1}), 115);
  EXPECT_EQ(geometry.sectionBottom(0), 126);
  EXPECT_EQ(geometry.sectionTop(2), 133);
  EXPECT_EQ(geometry.rowTop({2, 0}), 137);
  EXPECT_EQ(geometry.totalHeight(), 137 + 30 + 50);
}

TEST(TableGeometryTest, AHeightMovesWhatLiesBelow) {
  TableGeometry geometry = twoSections();
  EXPECT_EQ(geometry.rowTop({2, 2}), 57);
  EXPECT_FALSE(geometry.isFinal({0, 0}));
  geometry.setHeight({0, 0}, 30, true);
  EXPECT_TRUE(geometry.isFinal({0, 0}));
  EXPECT_EQ(geometry.rowTop({2, 2}), 77);
}

TEST(TableGeometryTest, FindsTheFirstRowThatEndsBelowAPoint) {
  const TableGeometry geometry = twoSections();
  EXPECT_EQ(geometry.firstRowEndingAfter(-5), (RowIndex{0, 0}));
  EXPECT_EQ(geometry.firstRowEndingAfter(14.9), (RowIndex{0, 0}));
  EXPECT_EQ(geometry.firstRowEndingAfter(15), (RowIndex{0, 1}));
  EXPECT_EQ(geometry.firstRowEndingAfter(25), (RowIndex{2, 0}));
  EXPECT_EQ(geometry.firstRowEndingAfter(66.9), (RowIndex{2, 2}));
  EXPECT_EQ(geometry.firstRowEndingAfter(67), std::nullopt);
}

TEST(TableGeometryTest, WalksOverEmptySections) {
  const TableGeometry geometry = twoSections();
  EXPECT_EQ(geometry.next({0, 0}), (RowIndex{0, 1}));
  EXPECT_EQ(geometry.next({0, 1}), (RowIndex{2, 0}));
  EXPECT_EQ(geometry.next({2, 2}), std::nullopt);
  EXPECT_EQ(geometry.gap({0, 0}, {0, 1}), 0);
  EXPECT_EQ(geometry.gap({0, 1}, {2, 0}), 1 + 7 + 4);
}

TEST(TableGeometryTest, KnowsWhichRowsAreThere) {
  const TableGeometry geometry = twoSections();
  EXPECT_TRUE(geometry.contains({2, 2}));
  EXPECT_FALSE(geometry.contains({2, 3}));
  EXPECT_FALSE(geometry.contains({1, 0}));
  EXPECT_FALSE(geometry.contains({-1, 0}));
  EXPECT_FALSE(geometry.contains({0, -1}));
  EXPECT_FALSE(geometry.contains({3, 0}));
  EXPECT_EQ(geometry.counts(), (std::vector<long>{2, 0, 3}));
}

TEST(TableGeometryTest, AnEmptyTableHasItsMarginsOnly) {
  TableGeometry geometry;
  geometry.setMargins(3, 4);
  EXPECT_EQ(geometry.totalHeight(), 7);
  EXPECT_EQ(geometry.firstRowEndingAfter(0), std::nullopt);
}
