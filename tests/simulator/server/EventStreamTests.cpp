#include "server/EventStreams.hpp"

#include "support/plain/RunningSimulator.hpp"
#include "support/plain/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace {

using sim::eventIdentifier;
using sim::parseEventIdentifier;

class EventStreamTests : public ::testing::Test {
 protected:
  std::filesystem::path device() const { return folder_.path() / "device"; }

  void open(test::HttpConnection& stream, const std::string& lastEventId = {}) const {
    test::HttpRequest request{"GET", "/api/stream", simulator_.pageHeaders(), {}};
    std::erase(request.headers, "Connection: close");
    if (!lastEventId.empty()) request.headers.push_back("Last-Event-ID: " + lastEventId);
    stream.send(request.bytes());
  }

  test::TemporaryFolder folder_;
  test::RunningSimulator simulator_{device()};
};

TEST_F(EventStreamTests, TellsTheStateAtOnce) {
  test::HttpConnection stream(simulator_.port());
  open(stream);
  EXPECT_TRUE(stream.waitFor("Content-Type: text/event-stream"));
  EXPECT_TRUE(stream.waitFor("event: screen\ndata: {\"revision\":1}\n\n"));
  EXPECT_TRUE(stream.waitFor("event: device\ndata: {\"sequence\":"));
}

TEST_F(EventStreamTests, TellsEveryPageWhatChanges) {
  test::HttpConnection first(simulator_.port());
  test::HttpConnection second(simulator_.port());
  open(first);
  open(second);
  simulator_.tap("notify:com.example.changed");
  for (test::HttpConnection* stream : {&first, &second}) {
    EXPECT_TRUE(stream->waitFor("data: {\"revision\":2}\n\n"));
    EXPECT_TRUE(stream->waitFor("data: {\"sequence\":1}\n\n"));
  }
}

TEST_F(EventStreamTests, TellsAChangeThatNoRequestCaused) {
  test::HttpConnection stream(simulator_.port());
  open(stream);
  simulator_.tap("change");
  EXPECT_TRUE(stream.waitFor("data: {\"revision\":2}\n\n"));
}

TEST_F(EventStreamTests, TellsARespring) {
  test::HttpConnection stream(simulator_.port());
  open(stream);
  simulator_.tap("killall");  // A notification, then the respring.
  EXPECT_TRUE(stream.waitFor("data: {\"sequence\":2}\n\n"));
  EXPECT_TRUE(stream.waitFor("data: {\"revision\":2}\n\n"));
}

TEST_F(EventStreamTests, TellsAFileThatAnotherProgramWrote) {
  test::HttpConnection stream(simulator_.port());
  open(stream);
  ASSERT_TRUE(stream.waitFor("data: {\"sequence\":0}\n\n"));
  stream.forget();
  test::writeText(device() / "var/mobile/Library/Preferences/com.example.plist", "x");
  EXPECT_TRUE(stream.waitFor("event: device\n"));
}

TEST_F(EventStreamTests, AClientThatComesBackHearsOnlyWhatIsNew) {
  simulator_.tap("log:x");
  test::HttpConnection stream(simulator_.port());
  open(stream, "2.0");
  EXPECT_TRUE(stream.waitFor("event: device\ndata: {\"sequence\":1}\n\n"));
  EXPECT_EQ(stream.received().find("event: screen"), std::string::npos);
  EXPECT_TRUE(stream.waitFor("id: 2.1\n"));
}

TEST_F(EventStreamTests, ManyChangesAreToldToTheLast) {
  test::HttpConnection stream(simulator_.port());
  open(stream);
  for (int i = 0; i < 50; ++i) simulator_.tap("log:x");
  EXPECT_TRUE(stream.waitFor("data: {\"revision\":51}\n\n"));
  EXPECT_TRUE(stream.waitFor("data: {\"sequence\":50}\n\n"));
}

TEST(EventStreamEndTests, TheEndOfTheSimulatorEndsTheStream) {
  const test::TemporaryFolder folder;
  std::optional<test::RunningSimulator> simulator(folder.path() / "device");
  test::HttpConnection stream(simulator->port());
  test::HttpRequest request{"GET", "/api/stream", simulator->pageHeaders(), {}};
  stream.send(request.bytes());
  ASSERT_TRUE(stream.waitFor("event: device"));
  simulator.reset();
  stream.waitForEnd();
}

TEST(EventIdentifierTests, ReadsWhatItWrites) {
  EXPECT_EQ(eventIdentifier({3, 14}), "3.14");
  EXPECT_EQ(parseEventIdentifier("3.14"), (sim::StreamState{3, 14}));
  for (const char* text : {"", ".", "3", "3.", ".3", "3.x", "3.4 ", "-1.2", "99999999999999999999.1", "a.b"})
    EXPECT_EQ(parseEventIdentifier(text), std::nullopt) << text;
}

}  // namespace
