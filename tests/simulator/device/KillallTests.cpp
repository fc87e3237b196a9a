// The installed program, run the way a bundle runs it.
#include "device/ProcessPipe.hpp"
#include "support/plain/Program.hpp"
#include "support/plain/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <string>
#include <vector>

namespace {

class KillallTests : public ::testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::create_directories(program().parent_path());
    std::filesystem::create_directories(pipe().parent_path());
    std::filesystem::copy_file(BUILD_FOLDER "/device-root/var/jb/usr/bin/killall", program());
  }

  std::filesystem::path program() const { return folder_.path() / "var/jb/usr/bin/killall"; }
  std::filesystem::path pipe() const { return folder_.path() / ".simulator/backboardd"; }

  test::ProgramResult killall(std::vector<std::string> arguments) const {
    return test::runWithoutEnvironment(program(), "killall", std::move(arguments));
  }

  test::TemporaryFolder folder_;
};

TEST_F(KillallTests, KillsBackboardd) {
  sim::ProcessPipe backboardd(pipe());
  const auto result = killall({"-9", "backboardd"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(backboardd.takeRequests(), (sim::KillRequests{.userInterface = 1}));
  EXPECT_EQ(backboardd.takeRequests(), (sim::KillRequests{.userInterface = 0}));
}

TEST_F(KillallTests, EveryCallIsARequestOfItsOwn) {
  sim::ProcessPipe backboardd(pipe());
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"backboardd"}, {"-KILL", "backboardd"}, {"-SIGTERM", "backboardd"}})
    EXPECT_EQ(killall(arguments).status, 0);
  EXPECT_EQ(backboardd.takeRequests(), (sim::KillRequests{.userInterface = 3}));
}

TEST_F(KillallTests, EndsSettingsAlone) {
  sim::ProcessPipe backboardd(pipe());
  EXPECT_EQ(killall({"-9", "Preferences"}).status, 0);
  EXPECT_EQ(killall({"SpringBoard", "Preferences"}).status, 0);
  EXPECT_EQ(backboardd.takeRequests(), (sim::KillRequests{.userInterface = 1, .settings = 2}));
  EXPECT_EQ(backboardd.takeRequests(), sim::KillRequests());
}

TEST_F(KillallTests, WithoutASimulatorThereIsNoSuchProcess) {
  const auto result = killall({"-9", "backboardd"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.errors, "backboardd: no process found\n");
}

TEST_F(KillallTests, ThePipeOfASimulatorThatDiedIsNoProcess) {
  ASSERT_EQ(::mkfifo(pipe().c_str(), 0600), 0);
  const auto result = killall({"-9", "backboardd"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.errors, "backboardd: no process found\n");
}

TEST_F(KillallTests, KillsSpringBoardWhichIsTheSame) {
  sim::ProcessPipe backboardd(pipe());
  EXPECT_EQ(killall({"SpringBoard"}).status, 0);
  EXPECT_EQ(backboardd.takeRequests(), (sim::KillRequests{.userInterface = 1}));
}

TEST_F(KillallTests, NobodyNoticesTheEndOfTheKeeperOfPreferences) {
  EXPECT_EQ(killall({"-9", "cfprefsd"}).status, 1) << "There is no simulator.";
  sim::ProcessPipe backboardd(pipe());
  EXPECT_EQ(killall({"-9", "cfprefsd"}).status, 0);
  EXPECT_EQ(backboardd.takeRequests(), (sim::KillRequests{.userInterface = 0}));
}

TEST_F(KillallTests, ReloadingSpringBoardIsKillingIt) {
  const auto sbreload = program().parent_path() / "sbreload";
  std::filesystem::copy_file(BUILD_FOLDER "/device-root/var/jb/usr/bin/sbreload", sbreload);
  EXPECT_EQ(test::runWithoutEnvironment(sbreload, "sbreload", {}).status, 1) << "There is no simulator.";
  sim::ProcessPipe backboardd(pipe());
  EXPECT_EQ(test::runWithoutEnvironment(sbreload, "sbreload", {}).status, 0);
  EXPECT_EQ(backboardd.takeRequests(), (sim::KillRequests{.userInterface = 1}));
}

TEST_F(KillallTests, KnowsNoOtherProcess) {
  sim::ProcessPipe backboardd(pipe());
  const auto result = killall({"-9", "mediaserverd", "backboardd"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.errors, "mediaserverd: no process found\n");
  EXPECT_EQ(backboardd.takeRequests(), (sim::KillRequests{.userInterface = 1}));
}

TEST_F(KillallTests, RefusesUnknownSignals) {
  sim::ProcessPipe backboardd(pipe());
  for (const std::string signal : {"-STOP", "-99", "-", "--help", "-9x"}) {
    const auto result = killall({signal, "backboardd"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, signal.substr(1) + ": unknown signal\n");
  }
  EXPECT_EQ(backboardd.takeRequests(), (sim::KillRequests{.userInterface = 0}));
}

TEST_F(KillallTests, WithoutANameItSaysHowItIsUsed) {
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{}, {"-9"}}) {
    const auto result = killall(arguments);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "usage: killall [-SIGNAL] NAME...\n");
  }
}

TEST_F(KillallTests, OutsideOfADeviceFolderItKnowsNoProcess) {
  const auto elsewhere = folder_.path() / "killall";
  std::filesystem::copy_file(program(), elsewhere);
  const auto result = test::runWithoutEnvironment(elsewhere, "killall", {"-9", "backboardd"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.errors, "backboardd: no process found\n");
}

TEST_F(KillallTests, ThePipeGoesWithTheSimulator) {
  {
    const sim::ProcessPipe backboardd(pipe());
  }
  EXPECT_FALSE(std::filesystem::exists(pipe()));
}

}  // namespace
