#include <Preferences/GroupIndex.hpp>

#include <gtest/gtest.h>

namespace {

using sim::GroupIndex;

// group, row, row, group, group, row
const std::vector<bool> kEntries{true, false, false, true, true, false};

TEST(GroupIndexTest, CountsGroupsAndTheirRows) {
  const GroupIndex index(kEntries);
  EXPECT_EQ(index.groups(), 3u);
  EXPECT_EQ(index.rowsIn(0), 2u);
  EXPECT_EQ(index.rowsIn(1), 0u);
  EXPECT_EQ(index.rowsIn(2), 1u);
  EXPECT_EQ(index.rowsIn(3), 0u);
}

TEST(GroupIndexTest, TranslatesBothWays) {
  const GroupIndex index(kEntries);
  for (std::size_t entry = 0; entry < kEntries.size(); ++entry) {
    const auto place = index.placeOf(entry);
    ASSERT_TRUE(place.has_value());
    EXPECT_EQ(place->row.has_value(), !kEntries[entry]);
    EXPECT_EQ(place->row ? index.indexOf(place->group, *place->row) : index.indexOfGroup(place->group), entry);
  }
}

TEST(GroupIndexTest, KnowsNothingBeyondItsEnds) {
  const GroupIndex index(kEntries);
  EXPECT_FALSE(index.placeOf(6).has_value());
  EXPECT_FALSE(index.placeOf(static_cast<std::size_t>(-1)).has_value());
  EXPECT_FALSE(index.indexOf(0, 2).has_value());
  EXPECT_FALSE(index.indexOf(1, 0).has_value());
  EXPECT_FALSE(index.indexOf(static_cast<std::size_t>(-1), static_cast<std::size_t>(-1)).has_value());
  EXPECT_FALSE(index.indexOfGroup(3).has_value());
  EXPECT_EQ(GroupIndex().groups(), 0u);
  EXPECT_FALSE(GroupIndex().placeOf(0).has_value());
}

TEST(GroupIndexTest, RowsBeforeTheFirstGroupHaveNoPlace) {
  const GroupIndex index(std::vector<bool>{false, true});
  EXPECT_FALSE(index.placeOf(0).has_value());
  EXPECT_TRUE(index.placeOf(1).has_value());
}

}  // namespace
