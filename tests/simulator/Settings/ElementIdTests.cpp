#include "Settings/ElementId.hpp"

#include <gtest/gtest.h>

namespace sim {
namespace {

TEST(ElementId, EveryKindSurvivesARoundTrip) {
  for (int kind = 0; kind <= static_cast<int>(ElementKind::kView); ++kind) {
    ElementId id{static_cast<ElementKind>(kind), 7, 0, 0};
    if (id.kind == ElementKind::kRow || id.kind == ElementKind::kSwipe) id.row = 10000;
    const bool isOneOfSeveral = id.kind != ElementKind::kRow && id.kind != ElementKind::kBack &&
                                id.kind != ElementKind::kSheetColor && id.kind != ElementKind::kView;
    if (isOneOfSeveral) id.index = 3;
    EXPECT_EQ(ElementId::parse(id.text()), id) << id.text();
  }
}

TEST(ElementId, AnIdSaysWhatItNames) {
  const auto text = [](ElementKind kind) { return ElementId{kind, 3, 17, 1}.text(); };
  EXPECT_EQ(text(ElementKind::kBack), "back3");
  EXPECT_EQ(text(ElementKind::kButton), "button3.1");
  EXPECT_EQ(text(ElementKind::kRow), "row3.17");
  EXPECT_EQ(text(ElementKind::kSwipe), "swipe3.17.1");
  EXPECT_EQ(text(ElementKind::kAlertAction), "action3.1");
  EXPECT_EQ(text(ElementKind::kAlertField), "field3.1");
  EXPECT_EQ(text(ElementKind::kSheetItem), "item3.1");
  EXPECT_EQ(text(ElementKind::kSheetColor), "color3");
}

TEST(ElementId, RefusesEverythingElse) {
  for (const char* text : {"",
                           "row",
                           "row3",
                           "row3.",
                           "row3.2.1",
                           "row3.2 ",
                           " row3.2",
                           "row-3.2",
                           "row03.2",
                           "row3.02",
                           "row3.99999999999",
                           "back3.0",
                           "back",
                           "button3",
                           "buttons3.0",
                           "swipe3.2",
                           "ROW3.2",
                           "action5.x",
                           "color",
                           "color3.0",
                           "row3,2",
                           "swipe3.2x1",
                           "view",
                           "view3.0"}) {
    EXPECT_FALSE(ElementId::parse(text)) << text;
  }
}

}  // namespace
}  // namespace sim
