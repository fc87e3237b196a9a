#include "UIKit/TextLayout.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using namespace sim;

constexpr double kLine = 17 * (0.9521484375 + 0.2412109375);

TextRun run(std::string text, double size = 17) {
  TextRun made;
  made.text = std::move(text);
  made.style.size = size;
  return made;
}

TextLayout layOut(const std::vector<TextRun>& runs, TextLimits limits = {}) { return TextLayout(runs, limits); }

/// Where the line that reaches farthest to the right ends.
double rightmost(const std::vector<TextRun>& runs, double width) {
  const TextLayout layout = layOut(runs, {.width = width});
  double most = 0;
  for (const TextLine& line : layout.lines()) most = std::max(most, line.x + line.width);
  return most;
}

std::string textOf(const TextLine& line) {
  std::string text;
  for (const TextPiece& piece : line.pieces) text += piece.text;
  return text;
}

TEST(TextLayoutTests, OneRunIsMeasuredAsThePlainText) {
  const TextLayout layout = layOut({run("one two three four")}, {.width = 60});
  const TextSize plain = measureText("one two three four", {}, {TextWrap::word, {.width = 60}});
  EXPECT_EQ(int(layout.lines().size()), plain.lines);
  EXPECT_DOUBLE_EQ(layout.width(), plain.width);
  EXPECT_NEAR(layout.height(), plain.lines * kLine, 1e-9);
}

TEST(TextLayoutTests, RunsStandBesideEachOther) {
  const TextLayout layout = layOut({run("big", 34), run("small")});
  ASSERT_EQ(layout.lines().size(), 1u);
  const TextLine& line = layout.lines()[0];
  ASSERT_EQ(line.pieces.size(), 2u);
  EXPECT_EQ(line.pieces[0].run, 0u);
  EXPECT_EQ(line.pieces[1].run, 1u);
  EXPECT_EQ(line.pieces[1].text, "small");
  EXPECT_DOUBLE_EQ(line.pieces[1].x, line.pieces[0].width);
  EXPECT_NEAR(line.height, 2 * kLine, 1e-9) << "as high as the larger";
  EXPECT_NEAR(line.baseline, 34 * 0.9521484375, 1e-9);
}

TEST(TextLayoutTests, RunsOfOneFontComeInPiecesOfTheirOwn) {
  const TextLayout layout = layOut({run("AV"), run("AV")});
  ASSERT_EQ(layout.lines()[0].pieces.size(), 2u);
  const double whole = measureText("AVAV", {}, {}).width;
  EXPECT_NEAR(layout.width(), whole, 1e-6) << "they are kerned as one text";
}

TEST(TextLayoutTests, LinesAreAligned) {
  TextRun text = run("word");
  const double width = layOut({text}).width();
  text.paragraph.align = TextAlign::center;
  EXPECT_NEAR(layOut({text}, {.width = 100}).lines()[0].x, (100 - width) / 2, 0.01);
  text.paragraph.align = TextAlign::right;
  const TextLayout right = layOut({text}, {.width = 100});
  EXPECT_NEAR(right.lines()[0].pieces[0].x, 100 - width, 0.01);
  EXPECT_NEAR(right.width(), width, 0.01) << "as wide as its text";
  EXPECT_EQ(layOut({text}, {.width = 1}).lines()[0].x, 0) << "what is too wide begins at the left";
}

TEST(TextLayoutTests, JustifiedLinesFillTheWidth) {
  TextRun text = run("a few words that need some lines of their own");
  text.paragraph.align = TextAlign::justified;
  const TextLayout layout = layOut({text}, {.width = 120});
  ASSERT_GT(layout.lines().size(), 2u);
  EXPECT_NEAR(layout.lines()[0].width, 120, 1);
  EXPECT_GT(layout.lines()[0].wordSpacing, 0);
  EXPECT_EQ(layout.lines().back().wordSpacing, 0);
}

TEST(TextLayoutTests, ParagraphsHaveSpacesAndIndents) {
  TextRun text = run("one\r\ntwo\xE2\x80\xA9three");
  text.paragraph.spacing = 5;
  text.paragraph.spacingBefore = 3;
  text.paragraph.firstIndent = 20;
  const TextLayout layout = layOut({text}, {.width = 200});
  ASSERT_EQ(layout.lines().size(), 3u);
  EXPECT_EQ(textOf(layout.lines()[1]), "two");
  EXPECT_NEAR(layout.lines()[0].top, 0, 1e-9);
  EXPECT_NEAR(layout.lines()[1].top, kLine + 8, 1e-9);
  EXPECT_NEAR(layout.height(), 3 * kLine + 16, 1e-9) << "neither above the first nor below the last";
  EXPECT_NEAR(layout.lines()[1].x, 20, 1e-9);
}

TEST(TextLayoutTests, OtherLinesAreIndentedByThemselves) {
  TextRun text = run("one two three four five six seven");
  text.paragraph.indent = 30;
  const TextLayout layout = layOut({text}, {.width = 120});
  ASSERT_GT(layout.lines().size(), 1u);
  EXPECT_NEAR(layout.lines()[0].x, 0, 1e-9);
  EXPECT_NEAR(layout.lines()[1].x, 30, 1e-9);
  EXPECT_LE(rightmost({text}, 120), 120.01);
  text.paragraph.tailIndent = -40;
  EXPECT_LE(rightmost({text}, 160), 120.01);
  text.paragraph.tailIndent = 100;
  EXPECT_LE(rightmost({text}, 160), 100.01);
  EXPECT_GT(rightmost({text}, 160), 60);
}

TEST(TextLayoutTests, LinesAreAsHighAsTheParagraphSays) {
  TextRun text = run("a\nb");
  text.paragraph.lineHeightMultiple = 1.5;
  const TextLayout layout = layOut({text});
  EXPECT_NEAR(layout.height(), 3 * kLine, 1e-9);
  EXPECT_NEAR(layout.lines()[0].baseline, 1.5 * kLine - 17 * 0.2412109375, 1e-9) << "the room is above the text";
  text.paragraph.maximumLineHeight = 18;
  EXPECT_NEAR(layOut({text}).height(), 36, 1e-9);
  text.paragraph.maximumLineHeight = 0;
  text.paragraph.minimumLineHeight = 50;
  text.paragraph.lineSpacing = 4;
  EXPECT_NEAR(layOut({text}).height(), 104, 1e-9);
}

TEST(TextLayoutTests, ALineReachesAsFarAsWhatIsRaised) {
  TextRun raised = run("x", 10);
  raised.baselineOffset = 12;
  const TextLayout layout = layOut({run("word"), raised});
  EXPECT_NEAR(layout.lines()[0].baseline, 12 + 10 * 0.9521484375, 1e-9);
}

TEST(TextLayoutTests, KerningIsBehindEachCharacter) {
  TextRun text = run("abc");
  const double plain = layOut({text}).width();
  text.kern = 4;
  EXPECT_NEAR(layOut({text}).width(), plain + 12, 0.01);
}

TEST(TextLayoutTests, ABoxTakesItsRoom) {
  TextRun box = run("\uFFFC");
  box.box = TextBox{30, 40, 10};
  const TextLayout layout = layOut({run("a"), box, run("b")});
  ASSERT_EQ(layout.lines()[0].pieces.size(), 3u);
  EXPECT_NEAR(layout.lines()[0].pieces[1].width, 30, 0.01);
  EXPECT_NEAR(layout.lines()[0].height, 50, 1e-9);
  EXPECT_NEAR(layout.lines()[0].baseline, 40, 1e-9);
}

TEST(TextLayoutTests, WhatDoesNotFitIsShortened) {
  TextRun text = run("a text that is far too long for so little room");
  text.paragraph.ellipsis = TextEllipsis::end;
  const TextLayout two = layOut({text}, {.width = 100, .lines = 2});
  ASSERT_EQ(two.lines().size(), 2u);
  EXPECT_TRUE(textOf(two.lines()[1]).ends_with("\u2026")) << textOf(two.lines()[1]);
  EXPECT_LE(two.width(), 100.01);
  text.paragraph.wrap = TextWrap::none;
  EXPECT_EQ(layOut({text}, {.width = 100}).lines().size(), 1u);
  text.paragraph.ellipsis = TextEllipsis::start;
  EXPECT_TRUE(textOf(layOut({text}, {.width = 100}).lines()[0]).starts_with("\u2026"));
}

TEST(TextLayoutTests, ParagraphsThatAreLeftOutAreTold) {
  TextRun text = run("first\nsecond\nthird");
  EXPECT_EQ(textOf(layOut({text}, {.width = 200, .lines = 2}).lines()[1]), "second");
  text.paragraph.ellipsis = TextEllipsis::end;
  EXPECT_EQ(textOf(layOut({text}, {.width = 200, .lines = 2}).lines()[1]), "second\u2026");
  EXPECT_EQ(textOf(layOut({text}, {.width = 200, .lines = 3}).lines()[2]), "third");
}

TEST(TextLayoutTests, EmptyLinesCount) {
  const TextLayout layout = layOut({run("a\n", 34), run("\nb", 17), run("\n", 10)});
  ASSERT_EQ(layout.lines().size(), 4u);
  EXPECT_TRUE(layout.lines()[1].pieces.empty());
  EXPECT_NEAR(layout.lines()[1].height, kLine, 1e-9);
  EXPECT_NEAR(layout.lines()[3].height, kLine * 10 / 17, 1e-9) << "as the last character";
  EXPECT_TRUE(layOut({}).lines().empty());
  EXPECT_EQ(layOut({run("")}).height(), 0);
}

TEST(TextLayoutTests, BytesThatAreNoTextAreMeasured) {
  EXPECT_GT(measureText("\xff\xfe", {}, {}).width, 0);
  EXPECT_EQ(measureText("a\nb\nc", {}, {TextWrap::word, {.lines = 2}}).lines, 2);
}

}  // namespace
