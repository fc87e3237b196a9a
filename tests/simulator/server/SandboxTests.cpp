// What a program in the sandbox reaches: the device's paths, and nothing of the host.
#include "server/Sandbox.hpp"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/Files.hpp"

namespace sim {
namespace {

namespace fs = std::filesystem;

class SandboxTest : public ::testing::Test {
 protected:
  SandboxTest() {
    std::string name = (fs::temp_directory_path() / "sandbox-XXXXXX").string();
    folder_ = mkdtemp(name.data());
    for (const char* each : {"device/.simulator", "device/var/jb/usr/bin", "device/var/mobile", "device/Applications",
                             "device/usr/bin", "programs", "host"})
      fs::create_directories(folder_ / each);
    write("host/secret", "secret");
    sandbox_.emplace(device(), device() / ".simulator");
  }
  ~SandboxTest() override { fs::remove_all(folder_); }

  /// Where name spaces are not allowed there is no sandbox, and nothing that could be tried. Where they are, there is.
  bool isPossible() const {
    static const bool isAllowed =
        std::system("bwrap --unshare-all --ro-bind / / --dev /dev --proc /proc true >/dev/null 2>&1") == 0;
    if (isAllowed) EXPECT_EQ(sandbox_->problem(), "");
    return isAllowed;
  }

  fs::path path(const std::string& below) const { return folder_ / below; }
  fs::path device() const { return folder_ / "device"; }
  void write(const std::string& below, const std::string& content) const {
    ASSERT_EQ(writeFileInPlace(path(below), std::as_bytes(std::span(content))), 0);
  }
  std::string read(const std::string& below) const {
    const auto content = readFile(path(below));
    return content ? std::string(content->text()) : "(missing)";
  }

  /// What `script` writes to its standard output in the sandbox, with its status.
  std::string run(const std::string& script) const {
    write("programs/probe", "#!/bin/sh\n" + script);
    fs::permissions(path("programs/probe"), fs::perms::owner_all);
    const auto command = sandbox_->command(path("programs/probe"), {"first argument", "second"});
    std::vector<char*> words{const_cast<char*>(command.program.c_str())};
    for (const std::string& word : command.arguments) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, path("output").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    EXPECT_EQ(posix_spawn(&child, words[0], &actions, nullptr, words.data(), environ), 0);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    waitpid(child, &status, 0);
    return read("output") + "status " + std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : -1);
  }

  std::optional<Sandbox> sandbox_;

 private:
  fs::path folder_;
};

TEST_F(SandboxTest, APathOfTheDeviceIsAPath) {
  if (!isPossible()) return;
  write("device/var/mobile/given", "given");
  write("device/usr/bin/own", "own");
  EXPECT_EQ(run("read given < /var/mobile/given || :; echo $given\n"
                "read own < /usr/bin/own || :; echo $own\n"
                "echo 1 > /var/mobile/one && echo 2 > /var/jb/two && echo 3 > /User/three &&\n"
                "echo 4 > /private/var/mobile/four && echo 5 > /Applications/five"),
            "given\nown\nstatus 0");
  EXPECT_EQ(read("device/var/mobile/one"), "1\n");
  EXPECT_EQ(read("device/var/jb/two"), "2\n");
  EXPECT_EQ(read("device/var/mobile/three"), "3\n");
  EXPECT_EQ(read("device/var/mobile/four"), "4\n");
  EXPECT_EQ(read("device/Applications/five"), "5\n");
}

TEST_F(SandboxTest, NoOtherFileOfTheHostIsReadOrWritten) {
  if (!isPossible()) return;
  const std::string secret = path("host/secret").string();
  EXPECT_EQ(run("read line < '" + secret +
                "' && echo read\n"
                "echo 1 > '" +
                secret +
                "' && echo written\n"
                "echo 1 > '" +
                path("host/new").string() +
                "' && echo made\n"
                "for file in /etc/passwd /etc/fonts/new /usr/lib/new /usr/share/new /new /run/simulator/probe; do\n"
                "  echo 1 >> $file && echo $file\n"
                "done\n"
                "for name in /* /tmp/*; do echo $name; done; [ -e /etc/shadow ] && echo shadow"),
            "/Applications\n/User\n/bin\n/dev\n/etc\n/lib\n/lib64\n/private\n/proc\n/run\n/tmp\n/usr\n/var\n/tmp/*\n"
            "status 1");
  EXPECT_EQ(read("host/secret"), "secret");
  EXPECT_FALSE(fs::exists(path("host/new")));
}

TEST_F(SandboxTest, NoProcessOfTheHostIsSeenOrKilled) {
  if (!isPossible()) return;
  EXPECT_EQ(run("kill -0 " + std::to_string(getpid()) +
                " && echo seen\n"
                "for process in /proc/[0-9]*; do echo process; done"),
            "process\nprocess\nstatus 0");
}

TEST_F(SandboxTest, TheTerminalOfTheHostIsAnotherSessions) {
  if (!isPossible()) return;
  EXPECT_EQ(run("read number name state parent group session rest < /proc/self/stat\n"
                "[ $session = 0 ] || echo own"),  // 0: one that is not seen from here.
            "own\nstatus 0");
}

TEST_F(SandboxTest, WhatRunsInItEndsWithIt) {
  if (!isPossible()) return;
  write("programs/probe", "#!/bin/sh\necho up; read line");
  fs::permissions(path("programs/probe"), fs::perms::owner_all);
  int input[2], output[2];
  ASSERT_EQ(pipe2(input, O_CLOEXEC), 0);
  ASSERT_EQ(pipe2(output, O_CLOEXEC), 0);
  const auto command = sandbox_->command(path("programs/probe"), {});
  std::vector<char*> words{const_cast<char*>(command.program.c_str())};
  for (const std::string& word : command.arguments) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, input[0], 0);
  posix_spawn_file_actions_adddup2(&actions, output[1], 1);
  pid_t child = 0;
  ASSERT_EQ(posix_spawn(&child, words[0], &actions, nullptr, words.data(), environ), 0);
  posix_spawn_file_actions_destroy(&actions);
  ::close(output[1]);
  char said[8] = {};
  EXPECT_EQ(::read(output[0], said, 3), 3);
  ::kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  pollfd rest{output[0], POLLIN, 0};
  EXPECT_EQ(::poll(&rest, 1, 10'000), 1);
  EXPECT_EQ(::read(output[0], said, 1), 0) << "nobody is left who could write";
  for (const int end : {input[0], input[1], output[0]}) ::close(end);
}

TEST_F(SandboxTest, ThereIsNoNetwork) {
  if (!isPossible()) return;
  EXPECT_EQ(run("while read name rest; do case $name in *:) echo $name; esac; done < /proc/net/dev"), "lo:\nstatus 0");
}

TEST_F(SandboxTest, TheUserIsTheDevicesAndTheEnvironmentTellsNothing) {
  if (!isPossible()) return;
  setenv("SANDBOX_SECRET", "secret", 1);
  EXPECT_EQ(run("echo \"$SANDBOX_SECRET\" $HOME ~mobile $PWD\n"
                "while read name number rest; do [ $name != Uid: ] || echo $number; done < /proc/self/status"),
            " /var/mobile /var/mobile /var/mobile\n501\nstatus 0");
  unsetenv("SANDBOX_SECRET");
}

TEST_F(SandboxTest, ArgumentsAndTheStatusGoThrough) {
  if (!isPossible()) return;
  EXPECT_EQ(run("echo \"$0|$1|$2|$#\"; exit 7"), "/run/simulator/probe|first argument|second|2\nstatus 7");
  EXPECT_EQ(run("kill -11 $$"), "status 139");
}

TEST_F(SandboxTest, WhatTheDeviceHasAtItsTopComesBeforeTheUsualLinks) {
  if (!isPossible()) return;
  fs::create_directories(path("device/User"));
  fs::create_directories(path("device/private/etc"));
  fs::create_directories(path("device/lib"));
  write("device/User/own", "own");
  EXPECT_EQ(run("read own < /User/own || :; echo $own; for name in /private/*; do echo $name; done"),
            "own\n/private/etc\nstatus 0");
}

TEST_F(SandboxTest, WhyThereIsNoneIsSaidInALine) {
  fs::remove(path("device/.simulator/passwd"));
  EXPECT_THAT(sandbox_->problem(), ::testing::MatchesRegex("bwrap: [^\n]+"));
}

TEST(SandboxWithoutFolder, SaysWhyItsListOfUsersCannotBeWritten) {
  EXPECT_ANY_THROW(Sandbox("/nonexistent", "/nonexistent/own"));
}

}  // namespace
}  // namespace sim
