#include "ObjCTest.h"

#import <Foundation/SIMDevice.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <system_error>

@implementation Lifetime

- (instancetype)initWithCounter:(int *)deaths {
  if (!(self = [super init])) return nil;

  _deaths = deaths;
  return self;
}

- (void)dealloc {
  ++*_deaths;
  [super dealloc];
}

@end

namespace testing_support {

void DeviceTest::SetUp() {
  ObjCTest::SetUp();
  std::error_code error;
  auto pattern = (std::filesystem::temp_directory_path(error) / "device-XXXXXX").string();
  ASSERT_NE(mkdtemp(pattern.data()), nullptr);
  SIMSetDeviceFolder([NSString stringWithUTF8String:pattern.c_str()]);
}

void DeviceTest::TearDown() {
  if (NSString *folder = SIMDeviceFolder()) {
    std::error_code error;
    std::filesystem::remove_all([folder UTF8String], error);
    EXPECT_FALSE(error) << error.message();
  }
  SIMSetDeviceFolder(nil);
  ObjCTest::TearDown();
}

NSString *DeviceTest::path(NSString *devicePath) const { return SIMDevicePath(devicePath); }

NSString *DeviceTest::write(NSString *devicePath, std::string_view content) {
  makeFolder([devicePath stringByDeletingLastPathComponent]);
  NSString *place = path(devicePath);
  std::ofstream file([place UTF8String], std::ios::binary | std::ios::trunc);
  file.write(content.data(), static_cast<std::streamsize>(content.size()));
  file.close();
  EXPECT_TRUE(file) << "cannot write " << [place UTF8String];
  return place;
}

NSString *DeviceTest::write(NSString *devicePath, NSData *content) {
  return write(devicePath, std::string_view(static_cast<const char *>([content bytes]), [content length]));
}

NSString *DeviceTest::makeFolder(NSString *devicePath) {
  NSString *place = path(devicePath);
  std::error_code error;
  std::filesystem::create_directories([place UTF8String], error);
  EXPECT_FALSE(error) << error.message();
  return place;
}

std::string DeviceTest::read(NSString *devicePath) const {
  std::ifstream file([path(devicePath) UTF8String], std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool DeviceTest::exists(NSString *devicePath) const {
  std::error_code error;
  return std::filesystem::exists(std::filesystem::symlink_status([path(devicePath) UTF8String], error));
}

std::string DeviceTest::listing(NSString *devicePath) const {
  std::error_code error;
  std::set<std::string> names;
  for (const auto &entry : std::filesystem::directory_iterator([path(devicePath) UTF8String], error)) {
    names.insert(entry.path().filename().string());
  }
  std::string result;
  for (const auto &name : names) result.append(result.empty() ? "" : ",").append(name);
  return result;
}

}  // namespace testing_support
