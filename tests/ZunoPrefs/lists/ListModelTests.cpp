// How the records of a list editor are shared out and move, over lists of the test's own.
#include "lists/ListModel.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

using zuno::ListPolicy;
using zuno::Place;

/// A list of texts. The first letter of one is its identifier; one that begins with "-" has none.
class Texts {
 public:
  using Record = std::string;
  using Identifier = char;
  using IdentifierHash = std::hash<char>;

  Texts() = default;
  explicit Texts(std::vector<Record> records) : records_(std::make_shared<std::vector<Record>>(std::move(records))) {}
  static Texts made() { return Texts(std::vector<Record>()); }

  explicit operator bool() const { return records_ != nullptr; }
  std::size_t size() const { return records_ ? records_->size() : 0; }
  Record at(std::size_t row) const { return records_->at(row); }
  std::optional<Identifier> identifierAt(std::size_t row) const {
    const char first = at(row).front();
    return first == '-' ? std::nullopt : std::optional(first);
  }
  void insert(const Record& record, std::size_t row) {
    if (records_) records_->insert(records_->begin() + static_cast<std::ptrdiff_t>(row), record);
  }
  Record take(std::size_t row) {
    Record record = at(row);
    records_->erase(records_->begin() + static_cast<std::ptrdiff_t>(row));
    return record;
  }
  void removeEqual(const Record& record) { std::erase(*records_, record); }

  std::string joined() const {
    std::string text;
    for (std::size_t row = 0; row < size(); ++row) text += (row > 0 ? " " : "") + at(row);
    return text;
  }

 private:
  std::shared_ptr<std::vector<Record>> records_;
};

using Model = zuno::ListModel<Texts>;
using Strings = std::vector<std::string>;

class ListModelTest : public ::testing::Test {
 protected:
  static Model modelOf(Strings enabled, Strings disabled, ListPolicy policy = {}) {
    Model model(policy);
    model.enabled = Texts(std::move(enabled));
    model.disabled = Texts(std::move(disabled));
    return model;
  }
  /// Both sections, with a bar between.
  static std::string shown(const Model& model) { return model.enabled.joined() + " | " + model.disabled.joined(); }
  static std::string dragged(Model model, Place from, Place to) {
    model.drag(from, to);
    return shown(model);
  }
  static std::string tapped(Model model, Place place, bool isRow = true) {
    EXPECT_EQ(model.tap(place), isRow);
    return shown(model);
  }
  static std::string loaded(ListPolicy policy, std::string_view stored, Strings all) {
    Model model(policy);
    model.load({stored.begin(), stored.end()}, Texts(std::move(all)));
    return shown(model);
  }
};

constexpr ListPolicy kEvicting{.tapEvicts = true, .evictedIsDisabled = true};

TEST_F(ListModelTest, NothingIsKnownAtFirst) {
  const Model model{ListPolicy{}};
  for (long section : {0, 1, 2}) EXPECT_EQ(model.rows(section), 0) << section;
  EXPECT_FALSE(model.canEdit(0));
  EXPECT_FALSE(model.canEdit(1));
  EXPECT_TRUE(model.enabledIdentifiers().empty());
}

TEST_F(ListModelTest, AnEmptySectionHasOneRowThatCannotBeEdited) {
  const Model model = modelOf({}, {});
  for (long section : {0, 1}) {
    EXPECT_EQ(model.rows(section), 1) << section;
    EXPECT_FALSE(model.canEdit(section)) << section;
  }
  EXPECT_EQ(model.rows(2), 1);
  EXPECT_TRUE(model.canEdit(2)) << "no placeholder of its own";
  EXPECT_TRUE(model.canEdit(-1));
}

TEST_F(ListModelTest, SectionsAreAsLongAsTheirLists) {
  const Model model = modelOf({"a", "b", "c"}, {"d", "e"});
  EXPECT_EQ(model.rows(0), 3);
  EXPECT_EQ(model.rows(1), 2);
  EXPECT_EQ(model.rows(5), 2) << "any other is like the disabled one";
  EXPECT_TRUE(model.canEdit(0));
  EXPECT_TRUE(model.canEdit(1));
}

TEST_F(ListModelTest, WithoutTheEnabledNothingIsShown) {
  Model model = modelOf({"a"}, {"b"});
  model.enabled = Texts();
  EXPECT_EQ(model.rows(0), 0);
  EXPECT_EQ(model.rows(1), 0);
}

TEST_F(ListModelTest, ListsAreSharedWithWhoeverHoldsThem) {
  Model model = modelOf({"a", "b"}, {"c"});
  const Texts enabled = model.enabled;
  model.tap({0, 0});
  EXPECT_EQ(enabled.joined(), "b");
  model.load({}, Texts({"a"}));
  EXPECT_EQ(enabled.joined(), "b") << "loading makes new ones";
}

TEST_F(ListModelTest, ADragWithinASectionTakesTheNewPlace) {
  EXPECT_EQ(dragged(modelOf({"a", "b", "c"}, {"d"}), {0, 0}, {0, 2}), "b c a | d");
  EXPECT_EQ(dragged(modelOf({"a", "b", "c"}, {"d"}), {0, 2}, {0, 0}), "c a b | d");
  EXPECT_EQ(dragged(modelOf({"a"}, {"b", "c", "d"}), {1, 0}, {1, 1}), "a | c b d");
  EXPECT_EQ(dragged(modelOf({"a"}, {}), {0, 0}, {0, 0}), "a | ");
  EXPECT_EQ(dragged(modelOf({"a", "b", "c", "d"}, {"e"}, kEvicting), {0, 3}, {0, 0}), "d a b c | e");
  EXPECT_EQ(dragged(modelOf({"a", "b", "c", "d", "e"}, {}, kEvicting), {0, 0}, {0, 4}), "b c d e a | ")
      << "more than four stay where they are";
}

TEST_F(ListModelTest, ADragAcrossInsertsWhereItWasDropped) {
  EXPECT_EQ(dragged(modelOf({"a", "b"}, {"c", "d"}), {0, 0}, {1, 1}), "b | c a d");
  EXPECT_EQ(dragged(modelOf({"a", "b"}, {"c", "d"}), {1, 1}, {0, 0}), "d a b | c");
  EXPECT_EQ(dragged(modelOf({"a", "b"}, {"c", "d"}), {1, 1}, {0, 2}), "a b d | c");
  EXPECT_EQ(dragged(modelOf({"a", "b", "c", "d", "e"}, {"f"}, kEvicting), {0, 0}, {1, 0}), "b c d e | a f")
      << "only the enabled section is ever full";
}

TEST_F(ListModelTest, ADragIntoAnEmptySectionAppends) {
  EXPECT_EQ(dragged(modelOf({"a", "b"}, {}), {0, 0}, {1, 7}), "b | a");
  EXPECT_EQ(dragged(modelOf({}, {"a", "b"}), {1, 1}, {0, 1}), "b | a");
}

TEST_F(ListModelTest, AFullSectionEvictsItsLastBeforeItTakesAnother) {
  const auto full = [](bool evictedIsDisabled) {
    return modelOf({"a", "b", "c", "d"}, {"e", "f"}, {.evictedIsDisabled = evictedIsDisabled});
  };
  EXPECT_EQ(dragged(full(true), {1, 0}, {0, 1}), "a e b c | f d");
  EXPECT_EQ(dragged(full(false), {1, 0}, {0, 1}), "a e b c | f") << "it leaves both sections";
  EXPECT_EQ(dragged(full(true), {1, 1}, {0, 4}), "a b c f | e d") << "the row is cut after the eviction";
  EXPECT_EQ(dragged(modelOf({"a", "b", "c"}, {"d"}, kEvicting), {1, 0}, {0, 1}), "a d b c | ") << "three are not full";
  EXPECT_EQ(dragged(modelOf({"a", "b", "c", "d", "e"}, {"f"}, kEvicting), {1, 0}, {0, 0}), "f a b c d | e")
      << "one is evicted, not as many as are too many";
}

TEST_F(ListModelTest, EqualRecordsAreEvictedTogether) {
  EXPECT_EQ(dragged(modelOf({"d", "a", "b", "d"}, {"e"}, kEvicting), {1, 0}, {0, 1}), "a e b | d");
}

TEST_F(ListModelTest, RowsThatDoNotExistMoveNothing) {
  for (const Place from : {Place{0, 2}, Place{0, -1}, Place{1, 1}, Place{2, 0}, Place{-1, 0}}) {
    EXPECT_EQ(dragged(modelOf({"a", "b"}, {"c"}), from, {0, 0}), "a b | c") << from.section << " " << from.row;
  }
  EXPECT_EQ(dragged(modelOf({"a", "b"}, {"c"}), {0, 0}, {2, 0}), "a b | c");
  EXPECT_EQ(dragged(modelOf({"a", "b"}, {"c"}), {0, 1}, {0, -1}), "b a | c") << "a row before the first is the first";
  EXPECT_EQ(dragged(modelOf({"a", "b"}, {"c"}), {0, 0}, {0, 9}), "b a | c") << "one after the last is the last";
}

TEST_F(ListModelTest, ATapGoesToTheEndOfTheOtherSection) {
  EXPECT_EQ(tapped(modelOf({"a", "b"}, {"c", "d"}), {0, 0}), "b | c d a");
  EXPECT_EQ(tapped(modelOf({"a", "b"}, {"c", "d"}), {1, 0}), "a b c | d");
}

TEST_F(ListModelTest, ATapIntoAFullSectionEvictsAsThePolicySays) {
  const auto full = [](ListPolicy policy) { return modelOf({"a", "b", "c", "d"}, {"e", "f"}, policy); };
  EXPECT_EQ(tapped(full(kEvicting), {1, 0}), "a b c e | f d");
  EXPECT_EQ(tapped(full({.tapEvicts = true}), {1, 0}), "a b c e | f");
  EXPECT_EQ(tapped(full({.evictedIsDisabled = true}), {1, 0}), "a b c d e | f");
  EXPECT_EQ(tapped(full(kEvicting), {0, 0}), "b c d | e f a") << "disabling evicts nothing";
  EXPECT_EQ(tapped(modelOf({"a", "b", "c", "d", "e"}, {}, kEvicting), {0, 0}), "b c d e | a") << "nor from five";
  EXPECT_EQ(tapped(modelOf({"a", "b", "c"}, {"d"}, kEvicting), {1, 0}), "a b c d | ");
}

TEST_F(ListModelTest, ATapOnAPlaceholderChangesNothing) {
  EXPECT_EQ(tapped(modelOf({}, {"a"}), {0, 0}, false), " | a");
  EXPECT_EQ(tapped(modelOf({"a"}, {}), {1, 0}, false), "a | ");
  EXPECT_EQ(tapped(modelOf({"a"}, {"b"}), {0, -1}, false), "a | b");
  EXPECT_EQ(tapped(modelOf({"a"}, {"b"}), {2, 0}), "a | b") << "another section has no placeholder";
}

TEST_F(ListModelTest, LoadingFollowsTheStoredOrderAndTheOrderOfTheRecords) {
  EXPECT_EQ(loaded({}, "ca", {"a", "b", "c", "d"}), "c a | b d");
  EXPECT_EQ(loaded({}, "", {"b", "a"}), " | b a");
  EXPECT_EQ(loaded({}, "xa", {"a"}), "a | ") << "what no record has is passed over";
  EXPECT_EQ(loaded({}, "a", {}), " | ");
}

TEST_F(ListModelTest, LoadingEnablesAsManyAsThePolicySays) {
  EXPECT_EQ(loaded({.loadLimit = 4}, "fedcba", {"a", "b", "c", "d", "e", "f"}), "f e d c | a b");
  EXPECT_EQ(loaded({}, "fedcba", {"a", "b", "c", "d", "e", "f"}), "f e d c b a | ");
  EXPECT_EQ(loaded({.loadLimit = 2}, "ab", {"a1", "a2", "a3", "b"}), "a1 a2 | b")
      << "also in the middle of an identifier";
}

TEST_F(ListModelTest, RecordsOfOneIdentifierAreEnabledTogetherAndDisabledOnce) {
  EXPECT_EQ(loaded({}, "a", {"a1", "b", "a2"}), "a1 a2 | b");
  EXPECT_EQ(loaded({}, "b", {"a1", "b", "a2"}), "b | a1");
  EXPECT_EQ(loaded({}, "aa", {"a", "b"}), "a a | b") << "an identifier that is stored twice counts twice";
}

TEST_F(ListModelTest, RecordsWithoutAnIdentifierAreDisabledAndNotStored) {
  EXPECT_EQ(loaded({}, "a-", {"-1", "a", "-2"}), "a | -1 -2");
  EXPECT_EQ(modelOf({"b", "-1", "a"}, {"c"}).enabledIdentifiers(), (std::vector<char>{'b', 'a'}));
}

}  // namespace
