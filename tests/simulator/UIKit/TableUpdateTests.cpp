#include <UIKit/TableUpdate.hpp>

#include <gtest/gtest.h>

using sim::RowIndex;
using sim::TableUpdate;

namespace {

/// Where each former row of `section` is now; -1 for one that is gone, and with "r" for one to be loaded again.
std::string fates(const TableUpdate::Outcome& outcome, std::size_t section) {
  std::string text;
  for (const TableUpdate::Fate& fate : outcome.rows[section]) {
    if (!text.empty()) text += " ";
    text += fate.index ? std::to_string(fate.index->section) + "." + std::to_string(fate.index->row) : "-";
    if (fate.reloaded) text += "r";
  }
  return text;
}

}  // namespace

TEST(TableUpdateTest, NothingChangesNothing) {
  const auto outcome = TableUpdate().resolve({2, 1}, {2, 1});
  EXPECT_EQ(outcome.error, "");
  EXPECT_EQ(fates(outcome, 0), "0.0 0.1");
  EXPECT_EQ(fates(outcome, 1), "1.0");
}

TEST(TableUpdateTest, DeletionsNameFormerAndInsertionsPresentPlaces) {
  TableUpdate update;
  update.insertRow({0, 0});
  update.deleteRow({0, 1});
  update.insertRow({0, 3});
  const auto outcome = update.resolve({4}, {5});
  EXPECT_EQ(outcome.error, "");
  EXPECT_EQ(fates(outcome, 0), "0.1 - 0.2 0.4");
}

TEST(TableUpdateTest, ARowMovesBetweenSections) {
  TableUpdate update;
  update.moveRow({0, 0}, {1, 1});
  const auto outcome = update.resolve({2, 2}, {1, 3});
  EXPECT_EQ(outcome.error, "");
  EXPECT_EQ(fates(outcome, 0), "1.1 0.0");
  EXPECT_EQ(fates(outcome, 1), "1.0 1.2");
}

TEST(TableUpdateTest, ARowMovesWithinItsSection) {
  TableUpdate update;
  update.moveRow({0, 3}, {0, 0});
  const auto outcome = update.resolve({4}, {4});
  EXPECT_EQ(outcome.error, "");
  EXPECT_EQ(fates(outcome, 0), "0.1 0.2 0.3 0.0");
}

TEST(TableUpdateTest, AReloadedRowStaysButIsLoadedAgain) {
  TableUpdate update;
  update.reloadRow({0, 1});
  update.insertRow({0, 0});
  const auto outcome = update.resolve({2}, {3});
  EXPECT_EQ(outcome.error, "");
  EXPECT_EQ(fates(outcome, 0), "0.1 0.2r");
}

TEST(TableUpdateTest, SectionsComeGoAndMove) {
  TableUpdate update;
  update.deleteSection(0);
  update.insertSection(2);
  update.moveSection(2, 0);
  const auto outcome = update.resolve({1, 2, 3}, {3, 2, 9});
  EXPECT_EQ(outcome.error, "");
  EXPECT_EQ(outcome.sections[0], std::nullopt);
  EXPECT_EQ(outcome.sections[1], 1);
  EXPECT_EQ(outcome.sections[2], 0);
  EXPECT_EQ(fates(outcome, 0), "-");
  EXPECT_EQ(fates(outcome, 1), "1.0 1.1");
  EXPECT_EQ(fates(outcome, 2), "0.0 0.1 0.2");
}

TEST(TableUpdateTest, AReloadedSectionMayHaveAnyNumberOfRows) {
  TableUpdate update;
  update.reloadSection(0);
  const auto outcome = update.resolve({1, 1}, {7, 1});
  EXPECT_EQ(outcome.error, "");
  EXPECT_EQ(outcome.sections[0], std::nullopt);
  EXPECT_EQ(outcome.sections[1], 1);
  EXPECT_EQ(fates(outcome, 0), "-r");
}

TEST(TableUpdateTest, RowsOfADeletedSectionMayBeDeletedToo) {
  TableUpdate update;
  update.deleteSection(0);
  update.deleteRow({0, 0});
  EXPECT_EQ(update.resolve({1, 1}, {1}).error, "");
}

TEST(TableUpdateTest, CountsThatDoNotFitAreAnError) {
  TableUpdate one;
  one.insertRow({0, 0});
  EXPECT_NE(one.resolve({1}, {1}).error, "");
  EXPECT_NE(TableUpdate().resolve({1}, {2}).error, "");
  EXPECT_NE(TableUpdate().resolve({1}, {1, 1}).error, "");
  TableUpdate section;
  section.deleteSection(0);
  EXPECT_NE(section.resolve({1, 1}, {1, 1}).error, "");
}

TEST(TableUpdateTest, PlacesThatAreNotThereAreAnError) {
  const auto error = [](auto change) {
    TableUpdate update;
    change(update);
    return update.resolve({1}, {1}).error;
  };
  EXPECT_NE(error([](TableUpdate& update) { update.deleteRow({0, 1}); }), "");
  EXPECT_NE(error([](TableUpdate& update) { update.deleteRow({1, 0}); }), "");
  EXPECT_NE(error([](TableUpdate& update) { update.deleteRow({-1, -1}); }), "");
  EXPECT_NE(error([](TableUpdate& update) { update.insertRow({0, 1}); }), "");
  EXPECT_NE(error([](TableUpdate& update) { update.insertRow({3, 0}); }), "");
  EXPECT_NE(error([](TableUpdate& update) { update.reloadRow({0, 9}); }), "");
  EXPECT_NE(error([](TableUpdate& update) { update.moveRow({0, 0}, {0, 1}); }), "");
  EXPECT_NE(error([](TableUpdate& update) { update.deleteSection(1); }), "");
  EXPECT_NE(error([](TableUpdate& update) { update.insertSection(1); }), "");
  EXPECT_NE(error([](TableUpdate& update) { update.reloadSection(-1); }), "");
  EXPECT_NE(error([](TableUpdate& update) { update.moveSection(0, 1); }), "");
}

TEST(TableUpdateTest, AChangeTwiceIsAnError) {
  TableUpdate rows;
  rows.deleteRow({0, 0});
  rows.reloadRow({0, 0});
  EXPECT_NE(rows.resolve({2}, {1}).error, "");
  TableUpdate inserted;
  inserted.insertRow({0, 0});
  inserted.insertRow({0, 0});
  EXPECT_NE(inserted.resolve({0}, {2}).error, "");
  TableUpdate sections;
  sections.deleteSection(0);
  sections.deleteSection(0);
  EXPECT_NE(sections.resolve({1, 1}, {}).error, "");
}
