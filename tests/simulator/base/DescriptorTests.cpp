// What an open file stands for: its name, no other's, and no link to it.
#include "base/Descriptor.hpp"

#include "support/plain/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <fcntl.h>

namespace {

TEST(DescriptorTests, AnOpenFileIsAtItsNameAlone) {
  const test::TemporaryFolder folder;
  const auto path = [&](const char* name) { return (folder.path() / name).string(); };
  test::writeText(path("file"), "one");
  test::writeText(path("other"), "two");
  std::filesystem::create_symlink("file", path("link"));
  const sim::Descriptor file(::open(path("file").c_str(), O_RDONLY | O_CLOEXEC));
  EXPECT_TRUE(sim::isAt(path("file"), file));
  EXPECT_FALSE(sim::isAt(path("other"), file));
  EXPECT_FALSE(sim::isAt(path("link"), file));
  EXPECT_FALSE(sim::isAt(path("missing"), file));
  std::filesystem::rename(path("other"), path("file"));
  EXPECT_FALSE(sim::isAt(path("file"), file)) << "another stands there now";
  EXPECT_FALSE(sim::isAt(path("file"), sim::Descriptor()));
}

}  // namespace
