// Which drawing is a symbol's, and how drawings become pixels.
#include <UIKit/SymbolDrawings.hpp>
#include <UIKit/SymbolNames.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace {

using sim::symbolDrawing;
using sim::symbolDrawingName;

TEST(SymbolNames, WordsAreJoinedAsTheDrawingsHaveThem) {
  EXPECT_EQ(symbolDrawingName("gear"), "gear");
  EXPECT_EQ(symbolDrawingName("star.fill"), "star_fill");
  EXPECT_EQ(symbolDrawingName("slider.horizontal.3"), "slider_horizontal_3");
}

TEST(SymbolNames, WhatIsCalledDifferentlyIsFoundWithAllThatBeginsWithIt) {
  EXPECT_EQ(symbolDrawingName("questionmark"), "question");
  EXPECT_EQ(symbolDrawingName("questionmark.circle.fill"), "question_circle_fill");
  EXPECT_EQ(symbolDrawingName("questionmarks"), "questionmarks") << "whole words only";
  EXPECT_EQ(symbolDrawingName("iphone.landscape"), "device_phone_landscape") << "the longest beginning counts";
  EXPECT_EQ(symbolDrawingName("bell.badge.fill"), "bell_fill");
  EXPECT_EQ(symbolDrawingName("bell"), "bell") << "a shared drawing keeps its own name";
}

TEST(SymbolNames, TheDrawingsOwnNamesAreNoSymbols) {
  for (const char* name : {"search", "search.circle", "logo.github", "square.arrow.up", "money.dollar.circle", "menu",
                           "star_fill", "question"})
    EXPECT_EQ(symbolDrawingName(name), "") << name;
}

TEST(SymbolNames, CommonSymbolsHaveADrawing) {
  for (const char* name : {"airplane",
                           "arrow.clockwise",
                           "arrow.left.and.right",
                           "arrow.triangle.2.circlepath",
                           "arrow.up.and.down",
                           "bell.badge",
                           "bolt.fill",
                           "bookmark",
                           "camera.fill",
                           "cart",
                           "checkmark",
                           "checkmark.circle.fill",
                           "chevron.down",
                           "chevron.forward",
                           "chevron.right",
                           "circle.lefthalf.filled",
                           "clock",
                           "cloud.sun.rain.fill",
                           "creditcard",
                           "doc.on.doc",
                           "doc.text.magnifyingglass",
                           "dollarsign.circle",
                           "drop.fill",
                           "ellipsis.bubble",
                           "ellipsis.circle",
                           "envelope",
                           "exclamationmark.triangle.fill",
                           "eye.slash",
                           "flame",
                           "folder",
                           "gear",
                           "gearshape",
                           "gearshape.fill",
                           "globe",
                           "hammer",
                           "hand.raised.fill",
                           "heart.fill",
                           "house",
                           "icloud",
                           "icloud.and.arrow.down",
                           "infinity",
                           "info.circle",
                           "iphone",
                           "ipad",
                           "line.3.horizontal",
                           "link",
                           "list.bullet",
                           "location",
                           "lock.fill",
                           "magnifyingglass",
                           "magnifyingglass.circle.fill",
                           "mappin.and.ellipse",
                           "mic",
                           "minus.circle",
                           "moon.fill",
                           "music.note",
                           "paintbrush",
                           "paintbrush.pointed.fill",
                           "paperplane",
                           "pencil",
                           "person.crop.circle",
                           "phone",
                           "photo",
                           "play.fill",
                           "plus",
                           "plus.magnifyingglass",
                           "power",
                           "questionmark.circle",
                           "rectangle.stack",
                           "shield",
                           "slider.horizontal.3",
                           "sparkles",
                           "speaker.wave.2.fill",
                           "square.and.arrow.down",
                           "square.and.arrow.up",
                           "square.and.arrow.up.on.square",
                           "square.and.pencil",
                           "square.grid.2x2",
                           "star",
                           "sun.max",
                           "tablecells.fill",
                           "tag",
                           "textformat.size",
                           "timer",
                           "trash",
                           "tray",
                           "video.fill",
                           "wand.and.stars",
                           "wifi",
                           "wrench.and.screwdriver.fill",
                           "xmark",
                           "xmark.bin",
                           "xmark.circle"}) {
    const auto drawing = symbolDrawing(symbolDrawingName(name));
    ASSERT_TRUE(drawing) << name;
    const auto box = drawing->outline.outlineBox();
    ASSERT_TRUE(box) << name;
    EXPECT_GE(box->left, -1) << name;
    EXPECT_GE(box->top, -1) << name;
    EXPECT_LE(box->left + box->width, 57) << name;
    EXPECT_LE(box->top + box->height, 57) << name;
  }
  EXPECT_FALSE(symbolDrawing("no_such_drawing"));
  EXPECT_FALSE(symbolDrawing(""));
}

TEST(SymbolOutlines, AreReadFromPaths) {
  sim::Path wanted;
  wanted.move({1, 2});
  wanted.line({3.5, -4});
  wanted.line({0, 5e-1});
  wanted.curve({1, 1}, {2, 2}, {3, 3});
  wanted.curve({4, 4}, {5, 5}, {6, 6});
  wanted.close();
  EXPECT_EQ(sim::readOutline("M1,2 L 3.5 -4 0,5e-1 C 1 1 2 2 3 3 4 4 5 5 6 6 Z"), wanted);
  EXPECT_EQ(sim::readOutline(" M 1 2 3.5 -4 0 5e-1C1 1 2 2 3 3 4 4 5 5 6 6z"), wanted);
}

TEST(SymbolOutlines, EndBeforeWhatIsNotUnderstood) {
  sim::Path wanted;
  wanted.move({1, 2});
  for (const char* text : {"M 1 2 q 1 1 2 2", "M 1 2 L 3", "M 1 2 L x 4", "M 1 2 Q 1 1 2 2 L 5 5"})
    EXPECT_EQ(sim::readOutline(text), wanted) << text;
  EXPECT_TRUE(sim::readOutline("").empty());
  EXPECT_TRUE(sim::readOutline("1 2 3").empty());
}

/// The opaque pixels of all.
double shareOfInk(const sim::Bitmap& bitmap) {
  double sum = 0;
  for (int y = 0; y < bitmap.height(); ++y)
    for (int x = 0; x < bitmap.width(); ++x) sum += bitmap.row(y)[4 * x + 3];
  return sum / 255 / bitmap.width() / bitmap.height();
}

sim::SymbolDrawing ring() {
  sim::SymbolDrawing ring;
  ring.evenOdd = true;
  ring.outline.rect({4, 4, 48, 48});
  ring.outline.rect({16, 16, 24, 24});
  return ring;
}

TEST(SymbolPixels, TheDrawingLiesInTheMiddleOfANarrowMargin) {
  const auto bitmap = sim::drawSymbol(ring(), {100, 0});
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap->width(), 118) << "48 units and the margins";
  EXPECT_EQ(bitmap->height(), 112);
  const auto alpha = [&](int x, int y) { return int(bitmap->row(y)[4 * x + 3]); };
  EXPECT_EQ(alpha(3, 56), 0);
  EXPECT_EQ(alpha(114, 56), 0);
  EXPECT_EQ(alpha(20, 56), 255);
  EXPECT_EQ(alpha(97, 56), 255);
  EXPECT_EQ(alpha(59, 56), 0) << "the hole";
  EXPECT_EQ(bitmap->row(56)[4 * 20], 0) << "black";
}

TEST(SymbolPixels, AllLinesGrowOrShrinkWithTheWeight) {
  const auto regular = sim::drawSymbol(ring(), {100, 0});
  const auto bold = sim::drawSymbol(ring(), {100, 0.03});
  const auto light = sim::drawSymbol(ring(), {100, -0.03});
  EXPECT_EQ(bold->width(), 124);
  EXPECT_EQ(bold->height(), 118);
  EXPECT_EQ(light->width(), regular->width());
  EXPECT_EQ(light->height(), regular->height());
  EXPECT_GT(shareOfInk(*bold), shareOfInk(*regular) * 1.1);
  EXPECT_LT(shareOfInk(*light), shareOfInk(*regular) * 0.9);
}

TEST(SymbolPixels, WhatCannotBeDrawnIsNothing) {
  EXPECT_FALSE(sim::drawSymbol({}, {100, 0}));
  EXPECT_FALSE(sim::drawSymbol(ring(), {0, 0}));
  EXPECT_FALSE(sim::drawSymbol(ring(), {1e6, 0}));
  EXPECT_FALSE(sim::drawSymbol(ring(), {1e300, 0}));
}

}  // namespace
