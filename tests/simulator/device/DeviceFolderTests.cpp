#include "device/DeviceFolder.hpp"

#include "base/Failure.hpp"
#include "support/plain/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <map>
#include <optional>
#include <string>
#include <utility>

namespace {

using sim::DeviceFolder;
using ::testing::HasSubstr;
using ::testing::StartsWith;

template <typename Body>
std::string failureOf(Body body) {
  try {
    body();
  } catch (const sim::Failure& failure) {
    return failure.what();
  }
  return {};
}

class DeviceFolderTests : public ::testing::Test {
 protected:
  std::filesystem::path path() const { return folder_.path() / "device"; }
  std::string openFailure() const {
    return failureOf([this] { DeviceFolder device(path()); });
  }

  test::TemporaryFolder folder_;
};

TEST_F(DeviceFolderTests, AFreshOneHasTheStandardFolders) {
  const DeviceFolder device(folder_.path() / "some/where/device");
  for (const char* folder : {"Applications", "var/mobile/Documents", "var/mobile/Media/DCIM/100APPLE",
                             "var/mobile/Library/Preferences", "var/jb/var/mobile/Library/Preferences",
                             "var/jb/Library/PreferenceBundles", "var/jb/Library/PreferenceLoader/Preferences"})
    EXPECT_TRUE(std::filesystem::is_directory(device.path() / folder)) << folder;
}

TEST_F(DeviceFolderTests, InstallsTheTree) {
  test::writeText(folder_.path() / "tree/var/jb/Library/PreferenceBundles/A.bundle/Info.plist", "x");
  DeviceFolder device(path());
  device.install(folder_.path() / "tree");
  EXPECT_EQ(test::readText(path() / "var/jb/Library/PreferenceBundles/A.bundle/Info.plist"), "x");
}

TEST_F(DeviceFolderTests, PermissionsAreThoseOfAPackageWhoeverBuiltTheTree) {
  const auto tree = folder_.path() / "tree";
  const std::map<std::string, std::pair<unsigned, unsigned>> modes{
      {"a", {0600, 0644}}, {"b", {0700, 0755}}, {"c", {0666, 0644}}, {"d", {0777, 0755}}, {"e", {0444, 0644}}};
  for (const auto& [name, mode] : modes) {
    test::writeText(tree / name, "x");
    std::filesystem::permissions(tree / name, std::filesystem::perms{mode.first});
  }
  DeviceFolder device(path());
  device.install(tree);
  for (const auto& [name, mode] : modes)
    EXPECT_EQ(std::filesystem::status(path() / name).permissions(), std::filesystem::perms{mode.second}) << name;
}

TEST_F(DeviceFolderTests, FollowsATreeThatChanges) {
  const auto file = folder_.path() / "tree/a";
  test::writeText(file, "one");
  DeviceFolder device(path());
  device.install(folder_.path() / "tree");
  test::writeText(file, "two!");
  device.install(folder_.path() / "tree");
  EXPECT_EQ(test::readText(path() / "a"), "two!");
  std::filesystem::remove(file);
  device.install(folder_.path() / "tree");
  EXPECT_FALSE(std::filesystem::exists(path() / "a"));
}

TEST_F(DeviceFolderTests, WithoutATreeWhatIsInstalledStays) {
  test::writeText(folder_.path() / "tree/a", "one");
  DeviceFolder device(path());
  device.install(folder_.path() / "tree");
  device.install({});
  EXPECT_EQ(test::readText(path() / "a"), "one");
}

TEST_F(DeviceFolderTests, AMissingTreeIsAFailure) {
  DeviceFolder device(path());
  EXPECT_THAT(failureOf([&] { device.install(folder_.path() / "nothing"); }), HasSubstr("nothing: No such file"));
}

TEST_F(DeviceFolderTests, AFailureOnTheWayKeepsTheAccountOfWhatWasInstalled) {
  test::writeText(folder_.path() / "tree/a", "one");
  DeviceFolder device(path());
  test::writeText(folder_.path() / "tree/b/c", "two");
  test::writeText(path() / "b", "a file in the folder's place");
  EXPECT_EQ(failureOf([&] { device.install(folder_.path() / "tree"); }),
            "Cannot make " + path().string() + "/b: Not a directory.");
  EXPECT_THAT(test::readText(path() / ".simulator/installed.json"), HasSubstr("\"a\""));
}

TEST_F(DeviceFolderTests, AFileInItsPlaceIsSaid) {
  test::writeText(path(), "x");
  EXPECT_EQ(openFailure(), "The device folder " + path().string() + " cannot be used: it is a file.");
  EXPECT_EQ(test::readText(path()), "x");
}

TEST_F(DeviceFolderTests, AFileOnTheWayIsSaid) {
  test::writeText(folder_.path() / "file", "x");
  EXPECT_THAT(failureOf([this] { DeviceFolder device(folder_.path() / "file/device"); }), HasSubstr("Not a directory"));
}

TEST_F(DeviceFolderTests, AFileInPlaceOfAStandardFolderIsSaid) {
  test::writeText(path() / "Applications", "x");
  EXPECT_EQ(openFailure(), "Cannot make the folder " + path().string() + "/Applications: Not a directory.");
  std::filesystem::remove(path() / "Applications");
  test::writeText(path() / "var", "x");
  EXPECT_THAT(openFailure(), StartsWith("Cannot make the folder " + path().string() + "/var/"));
}

TEST_F(DeviceFolderTests, ASecondSimulatorIsToldWhoHasIt) {
  std::optional<DeviceFolder> first(path());
  const std::string process = std::to_string(::getpid());
  EXPECT_EQ(openFailure(), "The device folder " + path().string() + " is in use by process " + process + ".");
  first->lock().setAddress("http://127.0.0.1:1234/");
  EXPECT_EQ(openFailure(), "The device folder " + path().string() + " is in use by process " + process +
                               " at http://127.0.0.1:1234/.");
  first.reset();
  EXPECT_EQ(openFailure(), "");
}

TEST_F(DeviceFolderTests, LockAndPipeGoWithIt) {
  {
    const DeviceFolder device(path());
  }
  EXPECT_FALSE(std::filesystem::exists(path() / ".simulator/lock"));
  EXPECT_FALSE(std::filesystem::exists(path() / ".simulator/backboardd"));
}

TEST_F(DeviceFolderTests, WhatADeadSimulatorLeftIsTakenOver) {
  test::writeText(path() / ".simulator/lock", "process 1 at http://127.0.0.1:1/\n");
  test::writeText(path() / ".simulator/backboardd", "no pipe");
  const DeviceFolder device(path());
  EXPECT_TRUE(std::filesystem::is_fifo(path() / ".simulator/backboardd"));
}

}  // namespace
