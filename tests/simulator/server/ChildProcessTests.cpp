#include "server/ChildProcess.hpp"

#include "base/Descriptor.hpp"
#include "support/plain/TemporaryFolder.hpp"

#include <gtest/gtest.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

namespace sim {
namespace {

ProgramCommand shell(const std::string& script) { return {"/bin/sh", {"-c", script}}; }

/// How a child that runs `script` has ended.
std::string endOf(const std::string& script) {
  ChildProcess child([&](int) { return shell(script); });
  pollfd end{child.endDescriptor(), POLLIN, 0};
  EXPECT_EQ(::poll(&end, 1, 60'000), 1);
  return child.kill();
}

TEST(ChildProcessTests, TellsHowItHasEndedThroughAnotherProgramToo) {
  EXPECT_EQ(endOf("exit 7"), "exited with status 7");
  EXPECT_EQ(endOf("kill -11 $$"), "was ended by signal 11 (Segmentation fault)");
  EXPECT_EQ(endOf("exit 139"), "was ended by signal 11 (Segmentation fault)");
  EXPECT_EQ(endOf("exit 128"), "exited with status 128");
  EXPECT_EQ(endOf("exit 255"), "exited with status 255");
}

TEST(ChildProcessTests, WhoHoldsTheChannelIsGoneWhenItIsKilled) {
  // The shell's child outlives it by a moment, as what runs in a sandbox does.
  ChildProcess child([](int) { return shell("(trap '' HUP; sleep 0.3) & setsid sleep 0.3 & wait"); });
  child.kill();
  pollfd other{child.channel().descriptor(), 0, 0};
  EXPECT_EQ(::poll(&other, 1, 0), 1);
  EXPECT_TRUE(other.revents & POLLHUP);
}

TEST(ChildProcessTests, WhatItStartedEndsWithIt) {
  ChildProcess child(
      [](int descriptor) { return shell("sleep 600 & printf '{}\\n' >&" + std::to_string(descriptor) + "; wait"); });
  std::vector<wire::Message> messages;
  while (messages.empty() && child.channel().receive(messages)) {
  }
  child.kill();
  pollfd other{child.channel().descriptor(), 0, 0};
  EXPECT_EQ(::poll(&other, 1, 10'000), 1) << "the sleeping one has the other end";
}

TEST(ChildProcessTests, HasNoneOfOurFilesAndNoInput) {
  const Descriptor file(::dup(STDERR_FILENO));
  EXPECT_EQ(endOf("[ -e /proc/self/fd/" + std::to_string(file.get()) + " ] && exit 7"), "exited with status 1");
  EXPECT_EQ(endOf("[ /proc/self/fd/0 -ef /dev/null ] && [ /proc/self/fd/1 -ef /proc/self/fd/2 ] && exit 7"),
            "exited with status 7");
}

TEST(ChildProcessTests, SignalsDoToItWhatTheyDoToAnyProgram) {
  // What a program ignores or blocks is handed down to those that it starts.
  const auto former = ::signal(SIGPIPE, SIG_IGN);
  sigset_t blocked, before;
  ::sigemptyset(&blocked);
  ::sigaddset(&blocked, SIGTERM);
  ::pthread_sigmask(SIG_BLOCK, &blocked, &before);
  EXPECT_EQ(endOf("kill -PIPE $$; exit 7"), "was ended by signal 13 (Broken pipe)");
  EXPECT_EQ(endOf("kill -TERM $$; exit 7"), "was ended by signal 15 (Terminated)");
  ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
  ::signal(SIGPIPE, former);
}

TEST(ChildProcessTests, IsGivenTimeToEndByItself) {
  const test::TemporaryFolder folder;
  const std::string file = folder.path() / "ended";
  ChildProcess child([&](int descriptor) {
    return shell("cat <&" + std::to_string(descriptor) + " >/dev/null; sleep 0.1; : >" + file);
  });
  child.stop(std::chrono::seconds(30));
  EXPECT_TRUE(std::filesystem::exists(file));
}

TEST(ChildProcessTests, FilesThatLackSymbolsAreNotLoaded) {
  ChildProcess child([](int descriptor) {
    return shell("printf '{\"now\": \"%s\", \"path\": \"%s\"}\\n' \"$LD_BIND_NOW\" \"$PATH\" >&" +
                 std::to_string(descriptor));
  });
  std::vector<wire::Message> messages;
  while (messages.empty() && child.channel().receive(messages)) {
  }
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].header.value("now", ""), "1");
  EXPECT_EQ(messages[0].header.value("path", ""), std::getenv("PATH")) << "the rest of the environment is ours";
}

}  // namespace
}  // namespace sim
