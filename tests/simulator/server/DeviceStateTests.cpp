#include "server/DeviceState.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

class DeviceStateTests : public ::testing::Test {
 protected:
  int changes_ = 0;
  sim::DeviceState state_{[this] { ++changes_; }};
};

TEST_F(DeviceStateTests, EveryChangeIsToldAndCounted) {
  state_.addNotification("a");
  state_.addRespring();
  state_.addOpenedUrl("b");
  state_.addLogLine("c");
  state_.setPasteboard("d");
  state_.setAppearance("dark");
  state_.setDisplay(sim::kTabletDisplay);
  state_.filesChanged();
  EXPECT_EQ(changes_, 8);
  EXPECT_EQ(state_.sequence(), 8u);
  EXPECT_EQ(state_.json()["sequence"], 8);
}

TEST_F(DeviceStateTests, AnEqualPasteboardIsNoChange) {
  state_.setPasteboard("a");
  state_.setPasteboard("a");
  state_.setPasteboard(std::nullopt);
  state_.setPasteboard(std::nullopt);
  EXPECT_EQ(changes_, 2);
}

TEST_F(DeviceStateTests, AFailedBuildStandsUntilItSucceeds) {
  state_.setBuild({"Kite", "Kite was not built.", {{"a.m", 3, 5, "what"}, {{}, {}, {}, "no symbol"}}});
  state_.setBuild({"Bite", "Bite was not built.", {}});
  EXPECT_EQ(state_.json()["builds"], nlohmann::json::parse(R"([
    {"name": "Bite", "sentence": "Bite was not built.", "errors": []},
    {"name": "Kite", "sentence": "Kite was not built.", "errors": [
      {"file": "a.m", "line": 3, "column": 5, "message": "what"},
      {"file": null, "line": null, "column": null, "message": "no symbol"}]}])"));
  state_.setBuild({"Kite", "Again.", {}});
  EXPECT_EQ(state_.json()["builds"][1]["sentence"], "Again.");
  EXPECT_EQ(changes_, 3);
  state_.setBuild({"Kite", {}, {}});
  state_.setBuild({"Other", {}, {}});
  EXPECT_EQ(changes_, 4) << "one that had not failed changes nothing";
  EXPECT_EQ(state_.json()["builds"].size(), 1u);
}

TEST_F(DeviceStateTests, FewBuildsAndErrorsAreKept) {
  const std::vector<sim::Build::Error> errors(sim::DeviceState::kMostErrors + 1, {{}, {}, {}, "error"});
  for (std::size_t i = 0; i <= sim::DeviceState::kMostBuilds; ++i)
    state_.setBuild({"build " + std::to_string(i), "failed", errors});
  EXPECT_EQ(state_.json()["builds"].size(), sim::DeviceState::kMostBuilds);
  EXPECT_EQ(state_.json()["builds"][0]["errors"].size(), sim::DeviceState::kMostErrors);
}

TEST_F(DeviceStateTests, AnEqualDisplayIsNoChange) {
  state_.setDisplay(sim::kPhoneDisplay);
  EXPECT_EQ(changes_, 0);
  state_.setDisplay(sim::kTabletDisplay);
  state_.setDisplay(sim::kTabletDisplay);
  EXPECT_EQ(changes_, 1);
}

TEST_F(DeviceStateTests, OnlyTheNewestAreKept) {
  for (int i = 1; i <= 3'000; ++i) {
    state_.addLogLine(std::to_string(i));
    state_.addNotification(std::to_string(i));
    state_.addOpenedUrl(std::to_string(i));
  }
  const auto json = state_.json();
  EXPECT_EQ(json["log"].size(), 2'000u);
  EXPECT_EQ(json["log"].front(), "1001");
  EXPECT_EQ(json["log"].back(), "3000");
  EXPECT_EQ(json["notifications"].size(), 1'000u);
  EXPECT_EQ(json["notifications"].front()["sequence"], 2'001);
  EXPECT_EQ(json["openedURLs"].size(), 1'000u);
}

TEST_F(DeviceStateTests, ALongLineIsCutBetweenCharacters) {
  std::string line = "x";
  while (line.size() < 10'000) line += "\u00E4";
  state_.addLogLine(line);
  const std::string kept = state_.json()["log"][0];
  EXPECT_EQ(kept, line.substr(0, 8'191) + "\u2026");
}

TEST_F(DeviceStateTests, OfALongPasteboardTheBeginningIsShownAndAllIsKept) {
  std::string text = "x";
  while (text.size() < 100'000) text += "\u00E4\U0001F600";
  state_.setPasteboard(text);
  EXPECT_EQ(state_.pasteboard(), text);
  // 1 + 6 n bytes for 1 + 3 n units.
  EXPECT_EQ(state_.json()["pasteboardLength"], 1 + (text.size() - 1) / 6 * 3);
  const std::string shown = state_.json()["pasteboard"];
  EXPECT_TRUE(shown == text.substr(0, 65'535)) << "no character is cut in two; got " << shown.size() << " bytes";
  state_.setPasteboard("\U0001F600");
  EXPECT_EQ(state_.json()["pasteboardLength"], 2);
  EXPECT_EQ(state_.json()["pasteboard"], "\U0001F600");
  state_.setPasteboard(std::nullopt);
  EXPECT_EQ(state_.json()["pasteboardLength"], nullptr);
}

}  // namespace
