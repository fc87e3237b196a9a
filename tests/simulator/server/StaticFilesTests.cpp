#include "server/StaticFiles.hpp"

#include "base/Failure.hpp"
#include "support/plain/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

using test::writeText;

class StaticFilesTests : public ::testing::Test {
 protected:
  test::TemporaryFolder folder_;
  sim::StaticFiles files_;
};

TEST_F(StaticFilesTests, KnowsEveryFileOfThePageByItsType) {
  const std::pair<const char*, const char*> expected[] = {{"index.html", "text/html; charset=utf-8"},
                                                          {"app.js", "text/javascript; charset=utf-8"},
                                                          {"a/b/c.mjs", "text/javascript; charset=utf-8"},
                                                          {"styles/page.css", "text/css; charset=utf-8"},
                                                          {"icon.svg", "image/svg+xml"},
                                                          {"picture.png", "image/png"},
                                                          {"data.json", "application/json"},
                                                          {"unknown.xyz", "application/octet-stream"}};
  for (const auto& [name, type] : expected) writeText(folder_.path() / name, name);
  files_.addPage(folder_.path());
  for (const auto& [name, type] : expected) {
    const sim::Response* file = files_.find(std::string("/") + name);
    ASSERT_NE(file, nullptr) << name;
    EXPECT_EQ(file->type, type);
    EXPECT_EQ(*file->body, name);
  }
  EXPECT_EQ(*files_.find("/")->body, "index.html");
}

TEST_F(StaticFilesTests, LeavesHiddenFilesAndFoldersOut) {
  writeText(folder_.path() / "index.html", "");
  writeText(folder_.path() / ".secret", "");
  writeText(folder_.path() / ".git/config", "");
  files_.addPage(folder_.path());
  EXPECT_EQ(files_.find("/.secret"), nullptr);
  EXPECT_EQ(files_.find("/.git/config"), nullptr);
}

TEST_F(StaticFilesTests, WhatChangesLaterDoesNotCount) {
  writeText(folder_.path() / "index.html", "before");
  files_.addPage(folder_.path());
  writeText(folder_.path() / "index.html", "after");
  writeText(folder_.path() / "new.html", "");
  EXPECT_EQ(*files_.find("/")->body, "before");
  EXPECT_EQ(files_.find("/new.html"), nullptr);
}

TEST_F(StaticFilesTests, APageWithoutIndexOrFolderIsAFailure) {
  EXPECT_THROW(files_.addPage(folder_.path()), sim::Failure);
  EXPECT_THROW(files_.addPage(folder_.path() / "nothing"), sim::Failure);
}

TEST_F(StaticFilesTests, AMissingFileIsSaid) {
  EXPECT_FALSE(files_.addFile("/x", folder_.path() / "x"));
  EXPECT_EQ(files_.find("/x"), nullptr);
}

}  // namespace
