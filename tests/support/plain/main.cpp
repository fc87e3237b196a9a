// Entry point of the test programs without Objective-C. The same program plays the Settings process.
#include "support/plain/FakeSettings.hpp"

#include <gtest/gtest.h>

#include <signal.h>

int main(int count, char** arguments) {
  if (test::isSettingsCommand(count, arguments)) return test::runFakeSettings(count, arguments);
  ::signal(SIGPIPE, SIG_IGN);
  ::testing::InitGoogleTest(&count, arguments);
  return RUN_ALL_TESTS();
}
