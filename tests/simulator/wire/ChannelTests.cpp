#include "wire/Channel.hpp"

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <unistd.h>

#include <string>
#include <thread>
#include <vector>

namespace {

using sim::wire::Channel;
using sim::wire::Message;

struct Pair {
  Pair() { ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends); }
  int ends[2];
};

class ChannelTests : public ::testing::Test {
 protected:
  std::vector<Message> receive(std::size_t count) {
    std::vector<Message> messages;
    while (messages.size() < count && there_.receive(messages)) {
    }
    return messages;
  }

  Pair pair_;
  Channel here_{sim::Descriptor(pair_.ends[0])};
  Channel there_{sim::Descriptor(pair_.ends[1])};
};

TEST_F(ChannelTests, BringsHeadersAndPayloadsInTheirOrder) {
  const std::string picture("\n{\0}\n", 5);
  ASSERT_TRUE(here_.send({{{"reply", 1}}, picture}));
  ASSERT_TRUE(here_.send({{{"post", "log"}, {"line", "a\nb"}}, {}}));
  const auto messages = receive(2);
  ASSERT_EQ(messages.size(), 2u);
  EXPECT_EQ(messages[0].header, (nlohmann::json{{"reply", 1}, {"length", 5}}));
  EXPECT_EQ(messages[0].payload, picture);
  EXPECT_EQ(messages[1].header["line"], "a\nb");
  EXPECT_EQ(messages[1].payload, std::nullopt);
}

TEST_F(ChannelTests, AnEmptyPayloadIsOne) {
  ASSERT_TRUE(here_.send({{{"number", 1}}, ""}));
  here_.queue({{{"number", 2}}, ""});
  ASSERT_TRUE(here_.flush());
  const auto messages = receive(2);
  ASSERT_EQ(messages.size(), 2u);
  EXPECT_EQ(messages[0].payload, "");
  EXPECT_EQ(messages[1].payload, "");
}

TEST_F(ChannelTests, AMessageThatEndsInTheMiddleIsNone) {
  for (const std::string& part : {std::string("{\"verb\":\"scr"), std::string("{\"length\":5}\nabcd")}) {
    Pair pair;
    Channel reader(sim::Descriptor(pair.ends[1]));
    ASSERT_EQ(::send(pair.ends[0], part.data(), part.size(), 0), static_cast<ssize_t>(part.size()));
    ::close(pair.ends[0]);
    std::vector<Message> messages;
    EXPECT_TRUE(reader.receive(messages)) << "the rest may still come";
    EXPECT_FALSE(reader.receive(messages));
    EXPECT_TRUE(messages.empty()) << part;
  }
}

TEST_F(ChannelTests, AMessageMayArriveByteByByte) {
  const std::string bytes = "{\"a\":1,\"length\":3}\nx\ny{\"b\":2}\n";
  std::vector<Message> messages;
  for (const char byte : bytes) {
    ASSERT_EQ(::send(here_.descriptor(), &byte, 1, 0), 1);
    ASSERT_TRUE(there_.receive(messages));
  }
  ASSERT_EQ(messages.size(), 2u);
  EXPECT_EQ(messages[0].header["a"], 1);
  EXPECT_EQ(messages[0].payload, "x\ny");
  EXPECT_EQ(messages[1].header, (nlohmann::json{{"b", 2}}));
}

TEST_F(ChannelTests, AHeaderWithoutAnEndIsRefused) {
  std::thread writer([&] { here_.send({{{"line", std::string(3 << 20, 'x')}}, {}}); });
  std::vector<Message> messages;
  while (there_.receive(messages)) {
  }
  EXPECT_TRUE(messages.empty());
  ::shutdown(there_.descriptor(), SHUT_RDWR);
  writer.join();
}

TEST_F(ChannelTests, BringsPayloadsThatArriveInPieces) {
  const std::string large(3 << 20, 'x');
  std::thread writer([&] { here_.send({{{"reply", 7}}, large}); });
  const auto messages = receive(1);
  writer.join();
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].payload, large);
}

TEST_F(ChannelTests, QueueNeverWaitsAndFlushSendsTheRestLater) {
  const std::string large(3 << 20, 'y');
  here_.queue({{{"verb", "event"}}, large});
  ASSERT_TRUE(here_.flush());
  EXPECT_TRUE(here_.hasQueued()) << "the socket's buffer is smaller than this";
  std::vector<Message> messages;
  while (messages.empty()) {
    ASSERT_TRUE(there_.receive(messages));
    ASSERT_TRUE(here_.flush());
  }
  EXPECT_FALSE(here_.hasQueued());
  EXPECT_EQ(messages[0].payload, large);
}

TEST_F(ChannelTests, WhatIsQueuedBehindAHalfSentMessageComesAfterIt) {
  const std::string large(3 << 20, 'y');
  here_.queue({{{"number", 1}}, large});
  ASSERT_TRUE(here_.flush());
  here_.queue({{{"number", 2}}, large});
  here_.queue({{{"number", 3}}, {}});
  std::vector<Message> messages;
  while (messages.size() < 3) {
    ASSERT_TRUE(here_.flush());
    ASSERT_TRUE(there_.receive(messages));
  }
  EXPECT_FALSE(here_.hasQueued());
  EXPECT_EQ(messages[0].payload, large);
  EXPECT_EQ(messages[1].payload, large);
  EXPECT_EQ(messages[2].header, (nlohmann::json{{"number", 3}}));
}

TEST_F(ChannelTests, SendAndFlushTellThatThePeerIsGone) {
  {
    const Channel gone(sim::Descriptor(::dup(pair_.ends[1])));
  }
  ::shutdown(pair_.ends[1], SHUT_RDWR);
  here_.queue({{{"verb", "screen"}}, {}});
  EXPECT_FALSE(here_.flush());
  EXPECT_FALSE(here_.send({{{"verb", "screen"}}, "payload"}));
}

TEST_F(ChannelTests, RefusesWhatIsNoMessage) {
  const std::string deep = "{\"a\":" + std::string(100, '[') + std::string(100, ']') + "}\n";
  for (const std::string& line :
       {std::string("nonsense\n"), std::string("[1]\n"), std::string("{\"length\":-1}\n"),
        std::string("{\"length\":1.5}\n"), std::string("{\"length\":\"5\"}\n"), std::string("{\"length\":null}\n"),
        std::string("{\"length\":99999999999999}\n"), deep}) {
    Pair pair;
    Channel reader(sim::Descriptor(pair.ends[1]));
    ASSERT_EQ(::send(pair.ends[0], line.data(), line.size(), 0), static_cast<ssize_t>(line.size()));
    std::vector<Message> messages;
    EXPECT_FALSE(reader.receive(messages)) << line;
    EXPECT_TRUE(messages.empty());
    ::close(pair.ends[0]);
  }
}

TEST_F(ChannelTests, SendsTextsThatAreNoUtf8) {
  ASSERT_TRUE(here_.send({{{"line", "a\xFFz"}}, {}}));
  const auto messages = receive(1);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].header["line"], "a\uFFFDz");
}

}  // namespace
