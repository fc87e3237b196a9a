#include "server/EventLoop.hpp"

#include <gtest/gtest.h>

#include <poll.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>

namespace {

using namespace std::chrono_literals;

class EventLoopTests : public ::testing::Test {
 protected:
  EventLoopTests() { [[maybe_unused]] const int made = ::pipe(ends_); }
  ~EventLoopTests() override {
    ::close(ends_[0]);
    ::close(ends_[1]);
  }
  void fill() const { [[maybe_unused]] const auto written = ::write(ends_[1], "x", 1); }

  sim::EventLoop loop_;
  int ends_[2];
};

TEST_F(EventLoopTests, RunsWhatOtherThreadsPostInTheirOrder) {
  std::string order;
  std::thread other([&] {
    for (const char c : {'a', 'b', 'c'}) loop_.post([&order, c] { order += c; });
    loop_.stop();
  });
  loop_.run();
  other.join();
  EXPECT_EQ(order, "abc");
}

TEST_F(EventLoopTests, RunsTimersByTheirTime) {
  std::string order;
  loop_.after(30ms, [&] { order += 'c'; });
  loop_.after(10ms, [&] { order += 'a'; });
  loop_.after(20ms, [&] { order += 'b'; });
  loop_.after(40ms, [&] { loop_.stop(); });
  loop_.run();
  EXPECT_EQ(order, "abc");
}

TEST_F(EventLoopTests, ACancelledTimerNeverRuns) {
  bool ran = false;
  const auto timer = loop_.after(5ms, [&] { ran = true; });
  loop_.cancel(timer);
  loop_.cancel(timer);
  loop_.after(20ms, [&] { loop_.stop(); });
  loop_.run();
  EXPECT_FALSE(ran);
}

TEST_F(EventLoopTests, TellsOfReadyDescriptorsUntilTheyAreNoLongerWatched) {
  int calls = 0;
  loop_.watch(ends_[0], POLLIN, [&] {
    if (++calls < 3) return;
    loop_.unwatch(ends_[0]);
    loop_.after(20ms, [&] { loop_.stop(); });
  });
  fill();
  loop_.run();
  EXPECT_EQ(calls, 3);
}

TEST_F(EventLoopTests, AWatchThatReplacedAnotherIsNotTakenForIt) {
  int others[2];
  ASSERT_EQ(::pipe(others), 0);
  int wrong = 0;
  // Whichever is called first replaces the other, whose descriptor was ready too.
  const auto replace = [&](int other) {
    loop_.watch(other, POLLOUT, [&] { ++wrong; });
    loop_.stop();
  };
  fill();
  [[maybe_unused]] const auto written = ::write(others[1], "x", 1);
  loop_.watch(ends_[0], POLLIN, [&] { replace(others[0]); });
  loop_.watch(others[0], POLLIN, [&] { replace(ends_[0]); });
  loop_.run();
  EXPECT_EQ(wrong, 0);
  ::close(others[0]);
  ::close(others[1]);
}

}  // namespace
