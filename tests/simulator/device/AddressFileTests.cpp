#include "device/AddressFile.hpp"

#include "base/Failure.hpp"
#include "support/plain/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <fstream>

namespace {

TEST(AddressFileTests, HoldsTheAddressForItsUserAloneAndGoesWithTheObject) {
  const test::TemporaryFolder folder;
  const auto file = folder.path() / "address";
  std::ofstream(file) << "left behind";
  {
    const sim::AddressFile address(file, "http://127.0.0.1:1/#t=2");
    EXPECT_EQ(test::readText(file), "http://127.0.0.1:1/#t=2\n");
    struct stat status{};
    ASSERT_EQ(::stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
  }
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST(AddressFileTests, AFileThatCannotBeWrittenIsAFailure) {
  const test::TemporaryFolder folder;
  EXPECT_THROW(sim::AddressFile(folder.path() / "none/address", ""), sim::Failure);
}

}  // namespace
