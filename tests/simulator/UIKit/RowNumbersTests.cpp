#include <UIKit/RowNumbers.hpp>

#include <gtest/gtest.h>

using sim::RowIndex;
using sim::RowNumbers;
using sim::RowTraits;
using sim::TableUpdate;

namespace {

/// A table whose rows are known by what they show, under a name, or as "label:rest".
class RowNumbersTest : public testing::Test {
 protected:
  using Rows = std::vector<std::vector<std::string>>;

  /// Everything is loaded anew as `rows`.
  void reload(const Rows& rows) {
    rows_ = rows;
    numbers_.reload(counts());
  }
  /// The numbers of all rows, once they are settled: "1 2 | 3".
  std::string settled() {
    describe();
    numbers_.settle(next_);
    EXPECT_TRUE(numbers_.isSettled());
    std::string text;
    for (std::size_t section = 0; section < rows_.size(); ++section) {
      if (section > 0) text += " |";
      for (std::size_t row = 0; row < rows_[section].size(); ++row) {
        const RowIndex index{static_cast<long>(section), static_cast<long>(row)};
        const std::uint32_t number = numbers_.at(index);
        EXPECT_EQ(numbers_.find(number), index);
        text += (text.empty() ? "" : " ") + std::to_string(number);
      }
    }
    return text;
  }
  std::string reloaded(const Rows& rows) {
    reload(rows);
    return settled();
  }
  /// The table becomes `rows` by `update`.
  std::string updated(const TableUpdate& update, const Rows& rows) {
    const auto before = counts();
    rows_ = rows;
    const auto outcome = update.resolve(before, counts());
    EXPECT_EQ(outcome.error, "");
    numbers_.follow(outcome, counts());
    return settled();
  }
  void describe() {
    for (std::size_t section = 0; section < rows_.size(); ++section) {
      for (std::size_t row = 0; row < rows_[section].size(); ++row) {
        numbers_.know({static_cast<long>(section), static_cast<long>(row)}, traits(rows_[section][row]));
      }
    }
  }
  std::vector<long> counts() const {
    std::vector<long> counts;
    for (const auto& section : rows_) counts.push_back(static_cast<long>(section.size()));
    return counts;
  }

  RowNumbers numbers_;
  std::uint32_t next_ = 1;

 private:
  static RowTraits traits(const std::string& row) {
    const auto colon = row.find(':');
    return {nullptr, row, colon == row.npos ? "" : row.substr(0, colon)};
  }

  Rows rows_;
};

}  // namespace

TEST_F(RowNumbersTest, RowsAreNumberedInOrderAndKeepTheirNumbers) {
  EXPECT_EQ(reloaded({{"a", "b"}, {}, {"c"}}), "1 2 | | 3");
  EXPECT_EQ(settled(), "1 2 | | 3");
  EXPECT_EQ(numbers_.find(0), std::nullopt);
  EXPECT_EQ(numbers_.find(4), std::nullopt);
}

TEST_F(RowNumbersTest, NumbersFollowInsertionsDeletionsAndMoves) {
  reloaded({{"a", "b", "c"}, {"d"}});
  TableUpdate update;
  update.insertRow({0, 0});
  update.deleteRow({0, 1});
  update.moveRow({0, 2}, {1, 1});
  EXPECT_EQ(updated(update, {{"new", "a"}, {"d", "c"}}), "5 1 | 4 3");
  EXPECT_EQ(numbers_.find(2), std::nullopt);
}

TEST_F(RowNumbersTest, NumbersFollowMovedSections) {
  reloaded({{"a"}, {"b", "c"}});
  TableUpdate update;
  update.moveSection(1, 0);
  EXPECT_EQ(updated(update, {{"b", "c"}, {"a"}}), "2 3 | 1");
}

TEST_F(RowNumbersTest, AReloadedRowKeepsItsNumberWhateverItShows) {
  reloaded({{"a", "b"}});
  TableUpdate update;
  update.reloadRow({0, 0});
  EXPECT_EQ(updated(update, {{"another", "b"}}), "1 2");
}

TEST_F(RowNumbersTest, RowsOfAReloadedSectionAreKnownAgain) {
  reloaded({{"a", "b"}, {"a"}});
  TableUpdate update;
  update.reloadSection(0);
  EXPECT_EQ(updated(update, {{"b", "new", "a"}, {"a"}}), "2 4 1 | 3");
}

TEST_F(RowNumbersTest, ARowDeletedFromAReloadedSectionIsGone) {
  reloaded({{"a", "b"}});
  TableUpdate update;
  update.reloadSection(0);
  update.deleteRow({0, 0});
  EXPECT_EQ(updated(update, {{"b", "a"}}), "2 3");
}

TEST_F(RowNumbersTest, ADeletedRowIsNotTheInsertedOneThatIsLikeIt) {
  reloaded({{"a", "b"}});
  TableUpdate update;
  update.deleteRow({0, 0});
  update.insertRow({0, 1});
  EXPECT_EQ(updated(update, {{"b", "a"}}), "2 3");
  EXPECT_EQ(reloaded({{"a", "b"}}), "3 2");
}

TEST_F(RowNumbersTest, RowsAreKnownAgainInAnotherOrderAndSection) {
  reloaded({{"a", "b", "c"}, {"d"}});
  EXPECT_EQ(reloaded({{"d", "c"}, {"new", "a"}}), "4 3 | 5 1");
  EXPECT_EQ(reloaded({{"a", "b", "c"}, {"d"}}), "1 6 3 | 4") << "a number that is gone does not come back";
}

TEST_F(RowNumbersTest, RowsThatAreAlikeKeepTheirOrder) {
  reloaded({{"a", "x", "a"}, {"a"}});
  EXPECT_EQ(reloaded({{"a"}, {"a", "a"}, {"x"}}), "1 | 3 4 | 2");
  EXPECT_EQ(reloaded({{"a", "a", "a", "a"}}), "1 3 4 5");
  EXPECT_EQ(reloaded({{"a"}}), "1");
}

TEST_F(RowNumbersTest, ALabelTellsARowWhoseOtherTextsHaveChanged) {
  reloaded({{"Size:1", "Colour:red", "Item:1", "Item:2"}});
  EXPECT_EQ(reloaded({{"Colour:blue", "Size:1", "Item:3", "Item:2"}}), "2 1 3 4") << "one is lost, one is new";
  EXPECT_EQ(reloaded({{"Colour:blue", "Size:1", "Item:5", "Item:6"}}), "2 1 5 6") << "which of two it is is unknown";
}

TEST_F(RowNumbersTest, ALabelTellsNothingWhenSeveralRowsHaveIt) {
  reloaded({{"Item:1"}});
  EXPECT_EQ(reloaded({{"Item:2", "Item:3"}}), "2 3") << "which of the two has been the one is unknown";
  EXPECT_EQ(reloaded({{"Item:4"}}), "4") << "and which of two has become the one";
}

TEST_F(RowNumbersTest, TheWholeGoesBeforeTheLabel) {
  reloaded({{"Item:1", "Item:2"}});
  EXPECT_EQ(reloaded({{"Item:0", "Item:1", "Item:2"}}), "3 1 2");
}

TEST_F(RowNumbersTest, TheModelGoesBeforeWhatShows) {
  const auto one = std::make_shared<int>(), other = std::make_shared<int>();
  numbers_.reload({2});
  numbers_.know({0, 0}, {one, "a", ""});
  numbers_.know({0, 1}, {other, "b", ""});
  numbers_.settle(next_);
  numbers_.reload({2});
  numbers_.know({0, 0}, {other, "a", ""});
  numbers_.know({0, 1}, {one, "b", ""});
  numbers_.settle(next_);
  EXPECT_EQ(numbers_.at({0, 0}), 2u);
  EXPECT_EQ(numbers_.at({0, 1}), 1u);
}

TEST_F(RowNumbersTest, RowsOfOneModelKeepTheirOrder) {
  const auto model = std::make_shared<int>();
  numbers_.reload({2});
  numbers_.know({0, 0}, {model, "a", ""});
  numbers_.know({0, 1}, {model, "b", ""});
  numbers_.settle(next_);
  numbers_.reload({2});
  numbers_.know({0, 0}, {model, "c", ""});
  numbers_.know({0, 1}, {model, "d", ""});
  numbers_.settle(next_);
  EXPECT_EQ(numbers_.at({0, 0}), 1u);
  EXPECT_EQ(numbers_.at({0, 1}), 2u);
}

TEST_F(RowNumbersTest, WhatWasKnownOfARowStaysWhenOnlyItsModelIsTold) {
  const auto model = std::make_shared<int>();
  numbers_.reload({1});
  numbers_.know({0, 0}, {model, "a", ""});
  numbers_.know({0, 0}, {model, "", ""});
  numbers_.settle(next_);
  numbers_.reload({1});
  numbers_.know({0, 0}, {std::make_shared<int>(), "a", ""});
  numbers_.settle(next_);
  EXPECT_EQ(numbers_.at({0, 0}), 1u);
  numbers_.know({0, 0}, {model, "", ""});
  numbers_.reload({1});
  numbers_.know({0, 0}, {std::make_shared<int>(), "a", ""});
  numbers_.settle(next_);
  EXPECT_EQ(numbers_.at({0, 0}), 2u) << "it stood for something else in the end";
}

TEST_F(RowNumbersTest, RowsOfWhichNothingIsKnownAreNewAfterAReload) {
  numbers_.reload({2});
  numbers_.settle(next_);
  numbers_.reload({2});
  EXPECT_FALSE(numbers_.isSettled());
  EXPECT_EQ(numbers_.find(1), std::nullopt);
  EXPECT_EQ(numbers_.find(0), std::nullopt) << "no row's number";
  numbers_.settle(next_);
  EXPECT_EQ(numbers_.at({0, 0}), 3u);
}

TEST_F(RowNumbersTest, ASecondReloadBeforeTheNumbersAreSettledLosesNothing) {
  reloaded({{"a", "b"}});
  numbers_.reload({});
  numbers_.reload({1});
  EXPECT_EQ(reloaded({{"b", "a"}}), "2 1");
}
