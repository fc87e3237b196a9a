#include "server/ChildProcess.hpp"

#include <gtest/gtest.h>
#include <poll.h>

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
