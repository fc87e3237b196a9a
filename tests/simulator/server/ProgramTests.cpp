// The simulator as its users start it.
#include "support/plain/HttpClient.hpp"
#include "support/plain/Program.hpp"
#include "support/plain/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

namespace {

using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

/// Whether there is such a process that is not a zombie.
bool isRunning(pid_t process) {
  // Between opening and reading the process can go away, which is then an empty line.
  std::ifstream stat("/proc/" + std::to_string(process) + "/stat");
  std::string line;
  return std::getline(stat, line) && line.find(") Z") == std::string::npos;
}

constexpr const char* kSimulator = BUILD_FOLDER "/simulator/simulator";

class ProgramTests : public ::testing::Test {
 protected:
  ProgramTests() {
    test::writeText(folder_.path() / "web/index.html", "<!doctype html>");
    test::writeText(folder_.path() / "tree/var/jb/usr/bin/tool", "tool");
  }

  std::filesystem::path device() const { return folder_.path() / "device"; }

  std::vector<std::string> arguments(const std::vector<std::string>& more = {}) const {
    std::vector<std::string> all{"--device",   device(),
                                 "--web",      folder_.path() / "web",
                                 "--install",  folder_.path() / "tree",
                                 "--sandbox",  "off",
                                 "--settings", std::filesystem::read_symlink("/proc/self/exe")};
    all.insert(all.end(), more.begin(), more.end());
    return all;
  }

  test::ProgramResult run(const std::vector<std::string>& more = {}, uid_t user = 0) const {
    return test::run(kSimulator, arguments(more), user);
  }

  // A line of its own without a line break in it.
  static void expectOneSentence(const std::string& errors) {
    EXPECT_EQ(std::ranges::count(errors, '\n'), 1) << errors;
    EXPECT_THAT(errors, ::testing::EndsWith(".\n"));
  }

  test::TemporaryFolder folder_;
};

std::uint16_t portIn(const std::string& address) {
  return static_cast<std::uint16_t>(std::stoi(address.substr(address.rfind(':') + 1)));
}

TEST_F(ProgramTests, PrintsItsAddressServesAndStopsCleanly) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    test::RunningProgram simulator(kSimulator, arguments());
    const std::string address = simulator.readLine();
    EXPECT_THAT(address, MatchesRegex("http://127\\.0\\.0\\.1:[0-9]+/#t=[0-9a-f]{32}"));
    EXPECT_TRUE(std::filesystem::exists(device() / "var/jb/usr/bin/tool"));
    const std::uint16_t port = portIn(address);
    const std::vector<std::string> headers{"Host: 127.0.0.1:" + std::to_string(port), "Connection: close",
                                           "X-Sim-Token: " + address.substr(address.size() - 32)};
    const auto screen = test::roundTrip(port, test::HttpRequest{"GET", "/api/screen", headers, {}}.bytes());
    ASSERT_EQ(screen.status, 200);
    const pid_t settings = screen.json()["process"].get<pid_t>();

    simulator.signal(signal);
    const auto result = simulator.wait();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "");
    EXPECT_NE(::kill(settings, 0), 0) << "the Settings process is gone";
    EXPECT_FALSE(std::filesystem::exists(device() / ".simulator/lock"));
    EXPECT_FALSE(std::filesystem::exists(device() / ".simulator/backboardd"));
  }
}

TEST_F(ProgramTests, TheSettingsProcessEndsWithASimulatorThatIsKilled) {
  test::RunningProgram simulator(kSimulator, arguments());
  const std::string address = simulator.readLine();
  const std::vector<std::string> headers{"Host: 127.0.0.1:" + std::to_string(portIn(address)), "Connection: close",
                                         "X-Sim-Token: " + address.substr(address.size() - 32)};
  const auto screen = test::roundTrip(portIn(address), test::HttpRequest{"GET", "/api/screen", headers, {}}.bytes());
  const pid_t settings = screen.json()["process"].get<pid_t>();
  simulator.signal(SIGKILL);
  simulator.wait();
  // Its new parent reaps it.
  for (int i = 0; i < 3000 && isRunning(settings); ++i) ::usleep(10'000);
  EXPECT_FALSE(isRunning(settings));
  EXPECT_EQ(test::RunningProgram(kSimulator, arguments()).readLine().substr(0, 17), "http://127.0.0.1:")
      << "the folder can be used again";
}

TEST_F(ProgramTests, TakesThePortThatItIsGiven) {
  test::RunningProgram first(kSimulator, arguments());
  const std::uint16_t port = portIn(first.readLine());
  first.signal(SIGTERM);
  first.wait();
  test::RunningProgram second(kSimulator, arguments({"--port", std::to_string(port)}));
  EXPECT_EQ(portIn(second.readLine()), port);
}

TEST_F(ProgramTests, SaysThatThePortIsInUse) {
  test::RunningProgram first(kSimulator, arguments());
  const std::string port = std::to_string(portIn(first.readLine()));
  const test::TemporaryFolder other;
  const auto second = run({"--device", other.path() / "device", "--port", port});
  EXPECT_EQ(second.status, 1);
  EXPECT_EQ(second.output, "");
  expectOneSentence(second.errors);
  EXPECT_THAT(second.errors, StartsWith("Port " + port + " is in use"));
}

TEST_F(ProgramTests, SaysThatTheFolderIsInUse) {
  test::RunningProgram first(kSimulator, arguments());
  const std::string address = first.readLine();
  const auto second = run();
  EXPECT_EQ(second.status, 1);
  expectOneSentence(second.errors);
  EXPECT_THAT(second.errors, HasSubstr("in use by process " + std::to_string(first.identifier()) + " at " +
                                       address.substr(0, address.find('#'))));
  EXPECT_EQ(second.errors.find(address.substr(address.find('#'))), std::string::npos)
      << "the token stays with its owner";
}

TEST_F(ProgramTests, SaysThatAFileStandsInTheFoldersPlace) {
  test::writeText(device(), "x");
  const auto result = run();
  EXPECT_EQ(result.status, 1);
  expectOneSentence(result.errors);
  EXPECT_THAT(result.errors, HasSubstr("it is a file"));
}

// The superuser may write everywhere, so these run as somebody else when they are started by it.
constexpr uid_t kNobody = 65534;

class ReadOnlyProgramTests : public ProgramTests {
 protected:
  ReadOnlyProgramTests() { std::filesystem::permissions(folder_.path(), std::filesystem::perms(0755)); }
  uid_t user() const { return ::geteuid() == 0 ? kNobody : 0; }

  // The build may lie where nobody else looks.
  bool canRun() const { return test::run("/usr/bin/test", {"-x", kSimulator}, user()).status == 0; }
};

TEST_F(ReadOnlyProgramTests, SaysThatTheFolderCannotBeMade) {
  ASSERT_TRUE(canRun());
  std::filesystem::create_directories(folder_.path() / "closed");
  std::filesystem::permissions(folder_.path() / "closed", std::filesystem::perms(0555));
  const auto result = run({"--device", folder_.path() / "closed/device"}, user());
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, "");
  expectOneSentence(result.errors);
  EXPECT_THAT(result.errors, HasSubstr("closed/device: Permission denied"));
}

TEST_F(ReadOnlyProgramTests, SaysThatTheFolderIsReadOnly) {
  ASSERT_TRUE(canRun());
  {
    test::RunningProgram first(kSimulator, arguments());
    first.readLine();
    first.signal(SIGTERM);
    first.wait();
  }
  std::filesystem::permissions(device() / ".simulator", std::filesystem::perms(0555));
  const auto result = run({}, user());
  EXPECT_EQ(result.status, 1);
  expectOneSentence(result.errors);
  EXPECT_THAT(result.errors, HasSubstr(".simulator/lock: Permission denied"));
}

TEST_F(ProgramTests, SaysThatThereIsNoPage) {
  const auto result = run({"--web", folder_.path() / "nothing"});
  EXPECT_EQ(result.status, 1);
  expectOneSentence(result.errors);
}

TEST_F(ProgramTests, SaysThatThereIsNothingToInstall) {
  const auto result = run({"--install", folder_.path() / "nothing"});
  EXPECT_EQ(result.status, 1);
  expectOneSentence(result.errors);
}

TEST_F(ProgramTests, AFullDiskIsSaidAndLeavesNoHalfFile) {
  test::writeText(folder_.path() / "tree/var/mobile/Media/DCIM/100APPLE/IMG_0001.PNG", std::string(64 << 10, 'x'));
  // A limit on the size of files stands for the disk's end: no write passes it.
  const std::string command = "ulimit -f 16; trap '' XFSZ; exec \"$0\" \"$@\"";
  std::vector<std::string> all{"-c", command, kSimulator};
  const auto rest = arguments();
  all.insert(all.end(), rest.begin(), rest.end());
  const auto result = test::run("/bin/bash", all);
  EXPECT_EQ(result.status, 1);
  expectOneSentence(result.errors);
  EXPECT_THAT(result.errors, HasSubstr("File too large"));
  for (const auto& item : std::filesystem::recursive_directory_iterator(device() / "var/mobile/Media"))
    EXPECT_FALSE(item.is_regular_file()) << item.path();
}

TEST_F(ProgramTests, AnUploadThatFillsTheDiskIsSaidAndLeavesNothing) {
  const std::string command = "ulimit -f 4096; trap '' XFSZ; exec \"$0\" \"$@\"";
  std::vector<std::string> all{"-c", command, kSimulator};
  const auto rest = arguments();
  all.insert(all.end(), rest.begin(), rest.end());
  test::RunningProgram simulator("/bin/bash", all);
  const std::string address = simulator.readLine();
  const std::string body(6 << 20, 'x');
  const std::vector<std::string> headers{"Host: 127.0.0.1:" + std::to_string(portIn(address)), "Connection: close",
                                         "X-Sim-Token: " + address.substr(address.size() - 32),
                                         "Content-Type: image/png", "Content-Length: " + std::to_string(body.size())};
  const auto response =
      test::roundTrip(portIn(address), test::HttpRequest{"PUT", "/api/photos", headers, body}.bytes());
  EXPECT_EQ(response.status, 507);
  EXPECT_EQ(response.json()["error"], "There is no room left for the file on the disk of this computer.");
  EXPECT_TRUE(std::filesystem::is_empty(device() / ".simulator/uploads"));
}

TEST_F(ProgramTests, WithoutSettingsItServesAndSaysWhy) {
  test::RunningProgram simulator(kSimulator, arguments({"--settings", folder_.path() / "nothing"}));
  const std::string address = simulator.readLine();
  const std::vector<std::string> headers{"Host: 127.0.0.1:" + std::to_string(portIn(address)), "Connection: close",
                                         "X-Sim-Token: " + address.substr(address.size() - 32)};
  const auto screen = test::roundTrip(portIn(address), test::HttpRequest{"GET", "/api/screen", headers, {}}.bytes());
  EXPECT_THAT(screen.body, HasSubstr("nothing: No such file or directory."));
}

TEST_F(ProgramTests, WithoutSettingsASandboxSaysTheSame) {
  test::RunningProgram simulator(kSimulator,
                                 arguments({"--settings", folder_.path() / "nothing", "--sandbox", "auto"}));
  const std::string address = simulator.readLine();
  const std::vector<std::string> headers{"Host: 127.0.0.1:" + std::to_string(portIn(address)), "Connection: close",
                                         "X-Sim-Token: " + address.substr(address.size() - 32)};
  const auto screen = test::roundTrip(portIn(address), test::HttpRequest{"GET", "/api/screen", headers, {}}.bytes());
  EXPECT_THAT(screen.body, HasSubstr("nothing: No such file or directory."));
}

TEST_F(ProgramTests, ExplainsItself) {
  const auto help = test::run(kSimulator, {"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.output, StartsWith("usage: simulator"));
  for (const std::vector<std::string>& wrong : {std::vector<std::string>{"--nothing"}, {"--port", "x"}, {"--device"}}) {
    const auto result = test::run(kSimulator, wrong);
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.errors, HasSubstr("usage: simulator"));
  }
}

}  // namespace
