// The stage, from the request to its process and back: what becomes of it when a widget raises, crashes or hangs.
#include "server/WidgetStage.hpp"

#include "support/plain/RunningSimulator.hpp"
#include "support/plain/TemporaryFolder.hpp"
#include "support/plain/Waiting.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <future>
#include <string>

namespace {

using namespace std::chrono_literals;
using nlohmann::json;
using ::testing::HasSubstr;

class WidgetStageTests : public ::testing::Test {
 protected:
  void install(const std::string& names) { test::writeText(device_ / "fake/widgets", names); }
  json stage() const { return simulator_.device()["stage"]; }
  test::HttpResponse act(const json& action) const { return simulator_.send("POST", "/api/stage", action); }
  test::HttpResponse show(const std::string& name) const {
    return act({{"type", "show"}, {"widget", "/widgets/" + name}});
  }
  static json stateOf(const json& stage, const std::string& name) {
    for (const json& widget : stage["widgets"])
      if (widget["path"] == "/widgets/" + name) return widget["state"];
    return nullptr;
  }
  void reload() { EXPECT_EQ(simulator_.send("POST", "/api/reload", json::object()).status, 200); }
  bool waitUntilToldSteps(std::size_t count) const {
    return test::waitUntil([&] { return stage()["calls"].size() == count + 1 && stage()["busy"] == false; });
  }
  long starts() const { return std::ranges::count(test::readText(device_ / "fake/stage-starts"), '\n'); }

  test::TemporaryFolder folder_;
  const std::filesystem::path device_ = std::filesystem::canonical(folder_.path()) / "device";
  test::RunningSimulator simulator_{device_, {.hung = 1'500ms}};
};

TEST_F(WidgetStageTests, NothingRunsBeforeSomebodyAsks) {
  const json state = stage();
  EXPECT_EQ(state["widgets"], nullptr);
  EXPECT_EQ(state["shown"], nullptr);
  EXPECT_EQ(starts(), 0);
  EXPECT_EQ(simulator_.get("/api/stage/screen").status, 404);
  EXPECT_EQ(simulator_.send("POST", "/api/stage/events", {{"type", "tap"}, {"id", "log:x"}}).status, 404);
  EXPECT_EQ(simulator_.get("/images/stage-1-1").status, 404);
}

TEST_F(WidgetStageTests, AWidgetIsShownAndToldStepByStep) {
  install("good.bundle\nold.bundle\n");
  const json shown = show("good.bundle").json();
  EXPECT_EQ(shown["shown"], "/widgets/good.bundle");
  EXPECT_EQ(stateOf(shown, "old.bundle"), "refused");
  EXPECT_EQ(shown["nextStep"], 0);
  EXPECT_EQ(act({{"type", "step"}}).json()["nextStep"], 2) << "the widget does not implement three";
  const json last = act({{"type", "step"}}).json();
  EXPECT_EQ(last["nextStep"], nullptr);
  EXPECT_EQ(last["isActivePage"], true);
  EXPECT_EQ(act({{"type", "step"}}).status, 422);
  EXPECT_EQ(last["calls"].size(), 3u);
  EXPECT_EQ(last["calls"][2], json({{"number", 3},
                                    {"method", "two:"},
                                    {"argument", true},
                                    {"outcome", "done"},
                                    {"milliseconds", 1.5},
                                    {"detail", nullptr}}));
  EXPECT_EQ(stage(), last) << "what was answered is what the device tells";
}

TEST_F(WidgetStageTests, AReloadShowsTheSameWidgetAtTheSameStep) {
  EXPECT_EQ(simulator_.send("POST", "/api/reload", json::object()).status, 200);
  EXPECT_EQ(starts(), 0) << "nobody had asked for the stage";
  install("good.bundle\n");
  show("good.bundle");
  act({{"type", "step"}});
  act({{"type", "step"}});
  install("good.bundle\nnew.bundle\n");
  EXPECT_EQ(simulator_.send("POST", "/api/reload", json::object()).status, 200);
  EXPECT_TRUE(test::waitUntil([&] { return stage()["calls"].size() == 3 && !stage()["busy"]; }));
  const json state = stage();
  EXPECT_EQ(starts(), 2);
  EXPECT_EQ(state["shown"], "/widgets/good.bundle");
  EXPECT_EQ(state["nextStep"], nullptr);
  EXPECT_EQ(state["isActivePage"], true);
  EXPECT_EQ(state["widgets"].size(), 2u);
}

TEST_F(WidgetStageTests, AReloadInTheMiddleOfAnotherShowsTheSameWidgetToo) {
  install("good.bundle\n");
  show("good.bundle");
  act({{"type", "step"}});
  install("hang.init.bundle\ngood.bundle\n");
  reload();
  EXPECT_TRUE(stage()["busy"]) << "it loads a widget that hangs";
  install("good.bundle\n");
  reload();
  EXPECT_TRUE(waitUntilToldSteps(1));
  EXPECT_EQ(stage()["shown"], "/widgets/good.bundle");
}

TEST_F(WidgetStageTests, AWidgetIsShownAgainWhenItsCodeIsMended) {
  install("good.bundle\n");
  show("good.bundle");
  act({{"type", "step"}});
  install("other.bundle\n");
  reload();
  EXPECT_TRUE(test::waitUntil([&] { return stage()["busy"] == false; }));
  EXPECT_EQ(stage()["shown"], nullptr) << "there is no such widget at the moment";
  install("good.bundle\n");
  reload();
  EXPECT_TRUE(waitUntilToldSteps(1));
  EXPECT_EQ(stage()["shown"], "/widgets/good.bundle");
}

TEST_F(WidgetStageTests, AReloadShowsNoWidgetThatWasClosed) {
  install("good.bundle\n");
  for (const char* last : {"close", "load"}) {
    show("good.bundle");
    act({{"type", last}});
    reload();
    EXPECT_TRUE(test::waitUntil([&] { return stage()["busy"] == false; }));
    EXPECT_EQ(stage()["shown"], nullptr) << last;
  }
}

TEST_F(WidgetStageTests, AWidgetThatIsShownAnewHasBeenToldNothing) {
  install("good.bundle\n");
  show("good.bundle");
  act({{"type", "step"}});
  show("good.bundle");
  reload();
  EXPECT_TRUE(test::waitUntil([&] { return stage()["busy"] == false; }));
  EXPECT_EQ(stage()["nextStep"], 0);
}

TEST_F(WidgetStageTests, TheNewestCallsAreKeptAndCountedForEachWidget) {
  install("good.bundle\n");
  show("good.bundle");
  const std::size_t most = sim::WidgetStage::kMostCalls;
  for (std::size_t call = 0; call < most; ++call) act({{"type", "call"}, {"method", "one"}});
  const json calls = stage()["calls"];
  EXPECT_EQ(calls.size(), most);
  EXPECT_EQ(calls.front()["number"], 2);
  EXPECT_EQ(calls.back()["number"], most + 1);
  EXPECT_EQ(show("good.bundle").json()["calls"][0]["number"], 1);
}

TEST_F(WidgetStageTests, AWidgetThatEndedALoadIsTriedAgainInTheNext) {
  install("crash.init.bundle\n");
  act({{"type", "load"}});
  const long once = starts();
  act({{"type", "load"}});
  EXPECT_EQ(once, 2) << "with it, and then without";
  EXPECT_EQ(starts(), 2 * once);
}

TEST(WidgetStagePatience, IsThatOfTheStageWhereSettingsMayTakeLonger) {
  const test::TemporaryFolder folder;
  const auto device = std::filesystem::canonical(folder.path()) / "device";
  const test::RunningSimulator simulator(device, {.hung = 60s});
  test::writeText(device / "fake/widgets", "hang.setup.bundle\n");
  const json state =
      simulator.send("POST", "/api/stage", {{"type", "show"}, {"widget", "/widgets/hang.setup.bundle"}}).json();
  EXPECT_EQ(state["fault"]["kind"], "hung");
  EXPECT_THAT(state["fault"]["text"], HasSubstr("within 5 s"));
}

TEST_F(WidgetStageTests, ItsScreenAndWhatIsOnItAreItsOwn) {
  install("good.bundle\n");
  const json before = simulator_.get("/api/screen").json();
  show("good.bundle");
  const json screen = simulator_.get("/api/stage/screen").json();
  EXPECT_EQ(screen["stage"], true);
  EXPECT_NE(screen["process"], before["process"]);
  EXPECT_EQ(simulator_.send("POST", "/api/stage/events", {{"type", "tap"}, {"id", "notify:from.stage"}}).status, 200);
  EXPECT_EQ(simulator_.device()["notifications"][0]["name"], "from.stage");
  EXPECT_EQ(simulator_.get("/images/stage-3").body, "picture stage-3");
  EXPECT_EQ(simulator_.get("/shared/stage-3").body, "xxx") << "the item has no such beginning in the process";
  EXPECT_EQ(simulator_.get("/api/screen").json(), before) << "nothing has happened to the phone";
}

TEST_F(WidgetStageTests, ThePasteboardTheAppearanceAndTheDisplayAreShared) {
  install("good.bundle\n");
  simulator_.tap("copy:from the phone");
  show("good.bundle");
  EXPECT_EQ(simulator_.get("/api/stage/screen").json()["pasteboard"], "from the phone");
  simulator_.tap("copy:once more");
  simulator_.send("PUT", "/api/device/appearance", {{"style", "dark"}});
  simulator_.send("PUT", "/api/device/display", {{"kind", "tablet"}});
  json screen = simulator_.get("/api/stage/screen").json();
  EXPECT_EQ(screen["pasteboard"], "once more");
  EXPECT_EQ(screen["appearance"], "dark");
  EXPECT_EQ(screen["display"][0], 820);
  simulator_.send("POST", "/api/stage/events", {{"type", "tap"}, {"id", "copy:from the stage"}});
  EXPECT_EQ(simulator_.get("/api/screen").json()["pasteboard"], "from the stage");
}

TEST_F(WidgetStageTests, ThePanelHearsOfEachChange) {
  install("good.bundle\n");
  const auto sequence = [this] { return simulator_.device()["sequence"].get<std::uint64_t>(); };
  const auto before = sequence();
  show("good.bundle");
  const auto shown = sequence();
  EXPECT_GT(shown, before);
  const auto revision = stage()["revision"].get<std::uint64_t>();
  simulator_.send("POST", "/api/stage/events", {{"type", "tap"}, {"id", "log:x"}});
  EXPECT_GT(stage()["revision"].get<std::uint64_t>(), revision);
  EXPECT_GT(sequence(), shown);
}

TEST_F(WidgetStageTests, WhatIsAskedWronglyIsRefused) {
  install("good.bundle\nold.bundle\n");
  for (const char* type : {"step", "call", "preferences"}) EXPECT_EQ(act({{"type", type}}).status, 422) << type;
  EXPECT_EQ(act({{"type", "dance"}}).status, 400);
  EXPECT_EQ(act(json::array()).status, 400);
  EXPECT_EQ(act({{"type", 1}}).status, 400);
  EXPECT_EQ(act({{"type", "show"}}).status, 400);
  EXPECT_EQ(show("nobody.bundle").status, 404);
  EXPECT_EQ(show("old.bundle").status, 422);
  EXPECT_EQ(stage()["shown"], nullptr);
  EXPECT_EQ(stage()["busy"], false);
  show("good.bundle");
  EXPECT_EQ(act({{"type", "call"}, {"method", "one"}, {"argument", 1}}).status, 400);
  EXPECT_EQ(act({{"type", "call"}, {"method", "three"}}).status, 422);
  EXPECT_EQ(stage()["calls"].back()["method"], "setupWithFrame:");
}

TEST_F(WidgetStageTests, AWidgetThatRaisesIsTakenOff) {
  install("raise.one.bundle\n");
  show("raise.one.bundle");
  const auto response = act({{"type", "step"}});
  EXPECT_EQ(response.status, 200);
  const json state = response.json();
  EXPECT_EQ(state["shown"], nullptr);
  EXPECT_EQ(state["fault"], json({{"widget", "/widgets/raise.one.bundle"},
                                  {"kind", "raised"},
                                  {"text", "It raised TestException: as its name says, in -one."}}));
  EXPECT_EQ(state["calls"].back()["outcome"], "raised");
  EXPECT_EQ(stateOf(state, "raise.one.bundle"), "raised");
  EXPECT_EQ(act({{"type", "step"}}).status, 422);
}

TEST_F(WidgetStageTests, AWidgetThatCrashesTakesNothingAlong) {
  install("crash.one.bundle\n");
  const json before = simulator_.get("/api/screen").json();
  show("crash.one.bundle");
  const json state = act({{"type", "step"}}).json();
  EXPECT_EQ(state["fault"]["kind"], "crashed");
  EXPECT_THAT(state["fault"]["text"].get<std::string>(), HasSubstr("It was ended by signal 6"));
  EXPECT_THAT(state["fault"]["text"].get<std::string>(), HasSubstr(", in -one."));
  EXPECT_EQ(simulator_.get("/api/screen").json(), before);
  EXPECT_EQ(starts(), 1) << "nothing is started again before somebody asks";
  EXPECT_EQ(simulator_.get("/api/stage/screen").status, 404);
}

TEST_F(WidgetStageTests, AWidgetThatHangsIsEndedWhileThePhoneGoesOn) {
  install("hang.one.bundle\ngood.bundle\n");
  show("hang.one.bundle");
  auto hanging = std::async(std::launch::async, [this] { return act({{"type", "step"}}); });
  EXPECT_TRUE(test::waitUntil([this] { return stage()["busy"] == true; }));
  EXPECT_EQ(act({{"type", "step"}}).status, 409) << "it has not answered the first";
  EXPECT_EQ(simulator_.tap("log:meanwhile").status, 200);
  const json state = hanging.get().json();
  EXPECT_EQ(state["fault"]["kind"], "hung");
  EXPECT_THAT(state["fault"]["text"].get<std::string>(), HasSubstr("and was ended, in -one."));
  EXPECT_EQ(state["calls"].back()["outcome"], "hung");
  EXPECT_EQ(show("good.bundle").json()["shown"], "/widgets/good.bundle");
}

TEST_F(WidgetStageTests, AnotherShowEndsAWidgetThatHangs) {
  install("hang.one.bundle\ngood.bundle\n");
  show("hang.one.bundle");
  auto hanging = std::async(std::launch::async, [this] { return act({{"type", "step"}}); });
  EXPECT_TRUE(test::waitUntil([this] { return stage()["busy"] == true; }));
  EXPECT_EQ(show("good.bundle").json()["shown"], "/widgets/good.bundle");
  EXPECT_EQ(hanging.get().status, 503);
  EXPECT_EQ(stage()["fault"], nullptr) << "it was not waited for";
}

TEST_F(WidgetStageTests, AWidgetThatEndsTheSetupIsTold) {
  install("crash.setup.bundle\nraise.setup.bundle\n");
  EXPECT_EQ(show("crash.setup.bundle").json()["fault"]["kind"], "crashed");
  EXPECT_EQ(show("raise.setup.bundle").json()["fault"]["kind"], "raised");
  EXPECT_EQ(stage()["calls"].back()["method"], "setupWithFrame:");
}

TEST_F(WidgetStageTests, WidgetsThatEndTheLoadAreLeftOutOfIt) {
  install("crash.init.bundle\nraise.init.bundle\nhang.init.bundle\ngood.bundle\n");
  const json state = show("good.bundle").json();
  EXPECT_EQ(state["shown"], "/widgets/good.bundle");
  EXPECT_EQ(stateOf(state, "crash.init.bundle"), "crashed");
  EXPECT_EQ(stateOf(state, "raise.init.bundle"), "raised");
  EXPECT_EQ(stateOf(state, "hang.init.bundle"), "hung");
  EXPECT_EQ(starts(), 4);
  EXPECT_EQ(show("raise.init.bundle").status, 422);
  EXPECT_EQ(stage()["fault"]["widget"], "/widgets/raise.init.bundle");
}

TEST_F(WidgetStageTests, EachShowHasAFreshProcessAndTriesAllAnew) {
  install("crash.init.bundle\n");
  EXPECT_EQ(stateOf(act({{"type", "load"}}).json(), "crash.init.bundle"), "crashed");
  install("good.bundle\n");
  EXPECT_EQ(show("good.bundle").json()["widgets"].size(), 1u);
  EXPECT_EQ(starts(), 3);
}

TEST_F(WidgetStageTests, ARespringAndACloseEndIt) {
  install("good.bundle\n");
  show("good.bundle");
  simulator_.tap("killall");
  EXPECT_EQ(stage()["shown"], nullptr);
  show("good.bundle");
  EXPECT_EQ(act({{"type", "close"}}).json()["shown"], nullptr);
  EXPECT_EQ(simulator_.get("/api/stage/screen").status, 404);
  EXPECT_EQ(simulator_.device()["log"], json::array()) << "neither is a failure";
}

}  // namespace
