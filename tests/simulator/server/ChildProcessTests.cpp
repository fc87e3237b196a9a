#include "server/ChildProcess.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace sim {
namespace {

TEST(ChildProcessTests, FilesThatLackSymbolsAreNotLoaded) {
  ChildProcess child("/bin/sh", [](int descriptor) {
    return std::vector<std::string>{
        "-c",
        "printf '{\"now\": \"%s\", \"path\": \"%s\"}\\n' \"$LD_BIND_NOW\" \"$PATH\" >&" + std::to_string(descriptor)};
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
