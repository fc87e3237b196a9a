// The keeper of the Settings process: what happens when the process is slow, hangs, ends or cannot be started.
#include "server/SettingsProcess.hpp"

#include "support/plain/RunningSimulator.hpp"
#include "support/plain/TemporaryFolder.hpp"
#include "support/plain/Waiting.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <signal.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <fstream>
#include <string>
#include <thread>

namespace {

using namespace std::chrono_literals;
using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::Not;
using Patience = sim::SettingsProcess::Patience;

class SettingsProcessTests : public ::testing::Test {
 protected:
  std::filesystem::path device() const { return folder_.path() / "device"; }
  std::string starts() const { return test::readText(device() / "fake/starts"); }
  long startCount() const { return std::ranges::count(starts(), '\n'); }

  static std::string logOf(const test::RunningSimulator& simulator) { return simulator.device()["log"].dump(); }
  static pid_t processOf(const test::RunningSimulator& simulator) {
    // A process that has just been started, or a busy machine, may take longer than a test's patience.
    json screen;
    test::waitUntil([&] {
      screen = simulator.get("/api/screen").json();
      return screen.contains("process");
    });
    return screen.value("process", 0);
  }

  test::TemporaryFolder folder_;
};

TEST_F(SettingsProcessTests, ACrashIsAnsweredLoggedAndMended) {
  const test::RunningSimulator simulator(device());
  const auto response = simulator.tap("crash");
  EXPECT_EQ(response.status, 500);
  EXPECT_THAT(response.json()["error"].get<std::string>(), HasSubstr("Settings was ended by signal 6"));
  EXPECT_EQ(simulator.get("/api/screen").json()["revision"], 2) << "the revision goes on growing";
  EXPECT_THAT(logOf(simulator), HasSubstr("signal 6"));
  EXPECT_EQ(starts(), "1\n2\n");
  EXPECT_EQ(simulator.device()["resprings"], 0);
}

TEST_F(SettingsProcessTests, AnExitIsAnsweredLoggedAndMended) {
  const test::RunningSimulator simulator(device());
  EXPECT_THAT(simulator.tap("exit").json()["error"].get<std::string>(), HasSubstr("exited with status 3"));
  EXPECT_EQ(simulator.get("/api/screen").status, 200);
}

TEST_F(SettingsProcessTests, AProcessThatSpeaksNonsenseIsReplaced) {
  const test::RunningSimulator simulator(device(), {.close = 100ms});
  EXPECT_EQ(simulator.tap("garbage").status, 500);
  EXPECT_EQ(simulator.get("/api/screen").status, 200);
  EXPECT_EQ(startCount(), 2);
}

TEST_F(SettingsProcessTests, AFreshProcessIsToldThePasteboardAndTheAppearance) {
  const test::RunningSimulator simulator(device());
  simulator.tap("copy:kept");
  simulator.send("PUT", "/api/device/appearance", {{"style", "dark"}});
  simulator.tap("crash");
  const json screen = simulator.get("/api/screen").json();
  EXPECT_EQ(screen["pasteboard"], "kept");
  EXPECT_EQ(screen["appearance"], "dark");
}

TEST_F(SettingsProcessTests, AReloadStartsAfreshWithTheSamePagesAndIsNoRespring) {
  const test::RunningSimulator simulator(device());
  const pid_t old = processOf(simulator);
  simulator.tap("notify:a");
  const auto response = simulator.send("POST", "/api/reload", json::object());
  EXPECT_EQ(response.status, 200);
  EXPECT_EQ(response.json()["reopened"], "place 1");
  EXPECT_NE(response.json()["process"], old);
  EXPECT_EQ(startCount(), 2);
  EXPECT_EQ(simulator.device()["resprings"], 0);
}

TEST_F(SettingsProcessTests, WhatAReloadInterruptsIsAnsweredAfterThePagesAreOpen) {
  const test::RunningSimulator simulator(device(), {.place = 100ms});
  simulator.tap("notify:a");
  EXPECT_EQ(simulator.send("POST", "/api/reload", json::object()).json()["reopened"], "place 1");
  std::atomic<bool> asked = false;
  std::thread hung([&] {
    asked = true;
    EXPECT_EQ(simulator.tap("hang").json()["reopened"], "place 1") << "the screen of the fresh process";
  });
  test::waitUntil([&] { return asked.load(); });
  std::this_thread::sleep_for(100ms);
  EXPECT_EQ(simulator.send("POST", "/api/reload", json::object()).status, 200);
  hung.join();
}

TEST_F(SettingsProcessTests, APlaceThatWasNotReachedIsTriedAgainUntilSomebodyTouchesTheDevice) {
  const test::RunningSimulator simulator(device());
  simulator.tap("notify:a");
  std::ofstream(device() / "fake/crash-at-reopen") << "";
  EXPECT_EQ(simulator.send("POST", "/api/reload", json::object()).status, 500);
  EXPECT_EQ(simulator.get("/api/screen").json()["reopened"], nullptr) << "the first page";
  std::filesystem::remove(device() / "fake/crash-at-reopen");
  EXPECT_EQ(simulator.send("POST", "/api/reload", json::object()).json()["reopened"], "place 1");
  simulator.tap("notify:b");
  simulator.tap("notify:c");
  EXPECT_EQ(simulator.send("POST", "/api/reload", json::object()).json()["reopened"], "place 2");
}

TEST_F(SettingsProcessTests, AProcessThatDoesNotSayWhereItIsIsReplacedSoon) {
  const test::RunningSimulator simulator(device(), {.place = 100ms});
  simulator.tap("notify:a");
  EXPECT_EQ(simulator.send("POST", "/api/reload", json::object()).json()["reopened"], "place 1");
  std::ofstream(device() / "fake/hang-at-place") << "";
  simulator.tap("notify:a");
  EXPECT_EQ(simulator.send("POST", "/api/reload", json::object()).json()["reopened"], "place 1") << "the last known";
}

TEST_F(SettingsProcessTests, PicturesOfAnEarlierProcessAreForgotten) {
  const test::RunningSimulator simulator(device());
  EXPECT_EQ(simulator.get("/images/3").body, "picture 3");
  simulator.tap("crash");
  const pid_t process = processOf(simulator);
  ASSERT_EQ(::kill(process, SIGSTOP), 0);
  std::atomic<int> status = 0;
  std::thread asking([&] { status = simulator.get("/images/3").status; });
  std::this_thread::sleep_for(200ms);
  EXPECT_EQ(status, 0) << "the picture comes from the fresh process, which is stopped";
  ::kill(process, SIGCONT);
  asking.join();
  EXPECT_EQ(status, 200);
}

TEST_F(SettingsProcessTests, ALateAnswerIsATimeoutAndTheProcessStays) {
  const test::RunningSimulator simulator(device(), {.answer = 300ms});
  const pid_t process = processOf(simulator);
  const auto response = simulator.tap("slow:1000");
  EXPECT_EQ(response.status, 504);
  EXPECT_TRUE(response.json()["error"].is_string());
  EXPECT_TRUE(test::waitUntil([&] { return simulator.get("/api/screen").status == 200; }));
  EXPECT_EQ(processOf(simulator), process);
}

TEST_F(SettingsProcessTests, AProcessThatAnswersOneAfterTheOtherIsNotHung) {
  const test::RunningSimulator simulator(device(), {.hung = 1'000ms});
  const pid_t process = processOf(simulator);
  std::thread other([&] { EXPECT_EQ(simulator.tap("slow:700").status, 200); });
  EXPECT_EQ(simulator.tap("slow:700").status, 200);
  other.join();
  EXPECT_EQ(processOf(simulator), process);
}

TEST_F(SettingsProcessTests, WhoAsksAHungProcessAgainAndAgainKeepsItNotAlive) {
  const test::RunningSimulator simulator(device(), {.answer = 50ms, .hung = 500ms});
  simulator.get("/api/screen");
  EXPECT_EQ(simulator.tap("hang").status, 504);
  EXPECT_TRUE(test::waitUntil([&] {
    simulator.tap("log:x");
    return startCount() == 2;
  }));
}

TEST_F(SettingsProcessTests, AProcessThatIsSlowToTakeARequestGetsAllOfIt) {
  const test::RunningSimulator simulator(device(), {.answer = 10'000ms});
  const pid_t process = processOf(simulator);
  ASSERT_EQ(::kill(process, SIGSTOP), 0);
  std::atomic<bool> asked = false;
  int status = 0;
  std::thread asking([&] {
    asked = true;
    status = simulator.tap(std::string(600'000, 'x')).status;
  });
  test::waitUntil([&] { return asked.load(); });
  std::this_thread::sleep_for(
      200ms);  // More than the channel holds is on its way, or the test shows less than it might.
  ::kill(process, SIGCONT);
  asking.join();
  EXPECT_EQ(status, 404) << "there is no such element";
}

TEST_F(SettingsProcessTests, AHungProcessIsKilledAndReplaced) {
  const test::RunningSimulator simulator(device(), {.answer = 200ms, .hung = 800ms});
  const pid_t process = processOf(simulator);
  EXPECT_EQ(simulator.tap("hang").status, 504);
  EXPECT_TRUE(test::waitUntil([&] { return startCount() == 2; }));
  EXPECT_TRUE(test::waitUntil([&] { return simulator.get("/api/screen").status == 200; }));
  EXPECT_NE(processOf(simulator), process);
  EXPECT_THAT(logOf(simulator), HasSubstr("was killed"));
}

TEST_F(SettingsProcessTests, AProcessThatTakesNothingStopsNobody) {
  const test::RunningSimulator simulator(device(), {.answer = 300ms, .hung = 6'000ms});
  const pid_t process = processOf(simulator);
  ASSERT_EQ(::kill(process, SIGSTOP), 0);
  // More than the channel holds.
  for (int i = 0; i < 4; ++i) EXPECT_EQ(simulator.tap(std::string(600'000, 'x')).status, 504);
  EXPECT_EQ(simulator.get("/api/device").status, 200);
  EXPECT_TRUE(test::waitUntil([&] { return startCount() == 2; }));
}

TEST_F(SettingsProcessTests, AProcessThatDoesNotStartIsTriedAgainAndTheScreenSaysSo) {
  test::writeText(device() / "fake/exit-at-start", "");
  const test::RunningSimulator simulator(device(), {.firstPause = 50ms, .longestPause = 100ms});
  ASSERT_TRUE(test::waitUntil([&] { return startCount() >= 5; }));
  json screen;
  ASSERT_TRUE(test::waitUntil([&] {
    screen = simulator.get("/api/screen").json();
    return screen.contains("page");
  }));
  EXPECT_EQ(screen["path"], json::array({"Settings"}));
  EXPECT_EQ(screen["page"]["sections"][0]["header"], "Settings could not be started");
  EXPECT_EQ(screen["page"]["sections"][0]["footer"], "Settings exited with status 7.");
  EXPECT_THAT(logOf(simulator), HasSubstr("started again in 50 ms"));
  EXPECT_THAT(logOf(simulator), HasSubstr("started again in 100 ms"));
  EXPECT_THAT(logOf(simulator), Not(HasSubstr("started again in 200 ms"))) << "the longest pause";

  std::filesystem::remove(device() / "fake/exit-at-start");
  EXPECT_TRUE(test::waitUntil([&] { return simulator.get("/api/screen").json().contains("process"); }));
  EXPECT_GT(simulator.get("/api/screen").json()["revision"], screen["revision"]);
}

TEST_F(SettingsProcessTests, EventsAreRefusedWhileThereIsNoProcess) {
  test::writeText(device() / "fake/exit-at-start", "");
  const test::RunningSimulator simulator(device(), {.firstPause = 60'000ms, .longestPause = 60'000ms});
  ASSERT_TRUE(test::waitUntil([&] { return startCount() == 2; }));
  ASSERT_TRUE(test::waitUntil([&] { return simulator.tap("log:x").status == 503; }));
  EXPECT_EQ(simulator.tap("log:x").json()["error"], "Settings exited with status 7.");
  EXPECT_EQ(starts(), "1\n2\n");
  EXPECT_EQ(simulator.get("/api/screen").json()["revision"], 3) << "it is another screen than the second's";
}

TEST_F(SettingsProcessTests, OnlyProcessesThatEndSoonAfterTheirStartAreWaitedFor) {
  const test::RunningSimulator simulator(device(), {.shortLife = 0ms});
  for (int i = 0; i < 4; ++i) EXPECT_EQ(simulator.tap("crash").status, 500);
  EXPECT_TRUE(test::waitUntil([&] { return startCount() == 5; }));
  EXPECT_THAT(logOf(simulator), Not(HasSubstr("started again in")));
}

TEST_F(SettingsProcessTests, ARespringForgetsEarlierCrashes) {
  const test::RunningSimulator simulator(device(), {.shortLife = 60'000ms});
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(simulator.tap("crash").status, 500);
    EXPECT_EQ(simulator.tap("killall").status, 200);
  }
  EXPECT_THAT(logOf(simulator), Not(HasSubstr("started again in")));
}

TEST_F(SettingsProcessTests, WhatIsKnownOfTheEndOfOneProcessIsNotHeldAgainstTheNext) {
  const test::RunningSimulator simulator(device(), {.close = 200ms});
  simulator.tap("exit");
  const pid_t process = processOf(simulator);
  EXPECT_EQ(simulator.tap("slow:500").status, 200);
  EXPECT_EQ(processOf(simulator), process);
}

TEST_F(SettingsProcessTests, WhatAProcessLeavesHalfWrittenGoesWithIt) {
  const test::RunningSimulator simulator(device());
  simulator.get("/api/screen");
  const auto left = device() / "var/mobile/.simulator-write-abcdef";
  test::writeText(left, "half");
  simulator.tap("killall");
  EXPECT_FALSE(std::filesystem::exists(left));
}

TEST_F(SettingsProcessTests, RequestsWaitForASlowStart) {
  test::writeText(device() / "fake/slow-start", "700");
  const test::RunningSimulator simulator(device(), {.answer = 200ms});
  EXPECT_EQ(simulator.get("/api/screen").status, 200);
  EXPECT_EQ(simulator.tap("killall").status, 200) << "the fresh process has not answered yet either";
}

TEST_F(SettingsProcessTests, KillallMakesARespring) {
  const test::RunningSimulator simulator(device());
  simulator.tap("copy:kept");
  const pid_t process = processOf(simulator);
  // The process waits for its end without answering; the tap is answered by the fresh one.
  const auto response = simulator.tap("killall");
  EXPECT_EQ(response.status, 200);
  EXPECT_NE(response.json()["process"], process);
  EXPECT_EQ(response.json()["pasteboard"], "kept");
  EXPECT_GT(response.json()["revision"], 2);
  EXPECT_EQ(simulator.device()["resprings"], 1);
  EXPECT_EQ(startCount(), 2);
  EXPECT_NE(::kill(process, 0), 0) << "the old process is gone and reaped";
}

TEST_F(SettingsProcessTests, KillallOfSettingsStartsItAfreshWithoutARespring) {
  const test::RunningSimulator simulator(device());
  const pid_t process = processOf(simulator);
  const auto response = simulator.tap("quit");
  EXPECT_EQ(response.status, 200);
  EXPECT_NE(response.json()["process"], process);
  EXPECT_EQ(simulator.device()["resprings"], 0);
  EXPECT_NE(logOf(simulator).find("Settings was ended by killall"), std::string::npos);
}

TEST_F(SettingsProcessTests, WhatWasPostedBeforeARespringIsNotLost) {
  const test::RunningSimulator simulator(device());
  for (int i = 1; i <= 20; ++i) {
    simulator.tap("killall");
    ASSERT_EQ(simulator.device()["notifications"].size(), static_cast<std::size_t>(i));
  }
}

TEST_F(SettingsProcessTests, ManyResprings) {
  const test::RunningSimulator simulator(device());
  for (int i = 1; i <= 10; ++i) {
    EXPECT_EQ(simulator.tap("killall").status, 200);
    EXPECT_EQ(simulator.device()["resprings"], i);
  }
  EXPECT_EQ(logOf(simulator), "[]") << "a respring is no failure";
}

TEST_F(SettingsProcessTests, NothingOfItStaysBehind) {
  pid_t process = 0;
  {
    const test::RunningSimulator simulator(device());
    process = processOf(simulator);
    ASSERT_EQ(::kill(process, 0), 0);
  }
  EXPECT_NE(::kill(process, 0), 0);
}

TEST_F(SettingsProcessTests, AHungProcessDoesNotHoldUpTheEnd) {
  pid_t process = 0;
  const auto begin = std::chrono::steady_clock::now();
  {
    const test::RunningSimulator simulator(device(), {.answer = 100ms, .stop = 100ms});
    process = processOf(simulator);
    simulator.tap("hang");
  }
  EXPECT_NE(::kill(process, 0), 0);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 10s);
}

/// A keeper alone, whose loop nobody runs.
class SettingsKeeperTests : public SettingsProcessTests {
 protected:
  sim::SettingsProcess::Listener listener() {
    return {.greeting = [] { return std::vector<sim::wire::Call>(); },
            .posted = [](auto) {},
            .logged = [this](const std::string& line) { log_ += line; },
            .revisionChanged = [] {},
            .started = [] {}};
  }

  sim::EventLoop loop_;
  std::string log_;
};

TEST_F(SettingsKeeperTests, AProgramThatIsNotThereIsTold) {
  sim::SettingsProcess keeper(loop_, {"/missing/settings", device(), {}}, listener());
  keeper.start();
  EXPECT_FALSE(keeper.isRunning());
  EXPECT_THAT(log_,
              HasSubstr("Settings could not be started: Cannot start /missing/settings: No such file or directory. "
                        "It is started again."));
  EXPECT_EQ(keeper.failure(),
            "Settings could not be started: Cannot start /missing/settings: No such file or directory.");
}

TEST_F(SettingsKeeperTests, WhatWasAskedWhenTheSimulatorStopsIsAnswered) {
  sim::SettingsProcess keeper(loop_, {std::filesystem::read_symlink("/proc/self/exe"), device(), {}}, listener());
  keeper.start();
  int status = 0;
  keeper.request(sim::wire::Screen{}, [&](const sim::Response& response) { status = response.status; });
  keeper.stop();
  EXPECT_EQ(status, 503);
}

TEST_F(SettingsProcessTests, NoDescriptorsLeakOverManyResprings) {
  const auto openDescriptors = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), std::filesystem::directory_iterator());
  };
  const test::RunningSimulator simulator(device());
  simulator.tap("killall");
  const auto before = openDescriptors();
  for (int i = 0; i < 10; ++i) simulator.tap("killall");
  EXPECT_TRUE(test::waitUntil([&] { return openDescriptors() <= before; }));
}

}  // namespace
