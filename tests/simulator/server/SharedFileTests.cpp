// Files that go out, by the address that a share sheet gives them.
#include "support/plain/RunningSimulator.hpp"
#include "support/plain/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

class SharedFileTests : public ::testing::Test {
 protected:
  test::TemporaryFolder folder_;
  test::RunningSimulator simulator_{folder_.path() / "device"};
};

TEST_F(SharedFileTests, AFileIsGivenToBeSaved) {
  const auto response = simulator_.get("/shared/1000");
  EXPECT_EQ(response.status, 200);
  EXPECT_EQ(response.header("Content-Type"), "application/octet-stream");
  EXPECT_EQ(response.header("Content-Disposition"), "attachment");
  EXPECT_EQ(response.header("Cache-Control"), "no-store");
  EXPECT_EQ(response.body, std::string(1000, 'x'));
}

TEST_F(SharedFileTests, AFileMayBeEmptyOrLarge) {
  EXPECT_EQ(simulator_.get("/shared/0").status, 200);
  EXPECT_EQ(simulator_.get("/shared/0").body, "");
  EXPECT_EQ(simulator_.get("/shared/60000000").body.size(), 60'000'000u);
}

TEST_F(SharedFileTests, WhatIsNotSharedIsNotFound) {
  const auto response = simulator_.get("/shared/none");
  EXPECT_EQ(response.status, 404);
  EXPECT_EQ(response.header("Content-Disposition"), "");
  EXPECT_EQ(simulator_.get("/shared/").status, 404);
  EXPECT_EQ(simulator_.get("/shared").status, 404);
}

TEST_F(SharedFileTests, NothingGoesOutAsWhatABrowserRuns) {
  const auto response = simulator_.get("/shared/page");
  EXPECT_EQ(response.header("Content-Type"), "application/octet-stream");
  EXPECT_EQ(response.header("Content-Disposition"), "attachment");
  EXPECT_EQ(response.header("X-Content-Type-Options"), "nosniff");
}

}  // namespace
