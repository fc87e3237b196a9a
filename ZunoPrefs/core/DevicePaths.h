// Every absolute device path of the bundle, and the one place that knows on which platform it runs.
//
// On a device a path is itself. In the Settings simulator the device is a folder, and the path lies below it.
#pragma once

#import <Foundation/Foundation.h>

#if !defined(__APPLE__)
#import <Foundation/SIMDevice.h>
#endif

namespace zuno {

/// Where `path`, an absolute path as on a device, is reached by this process. Autoreleased.
inline NSString *devicePath(NSString *path) {
#if defined(__APPLE__)
  return path;
#else
  return SIMDevicePath(path);
#endif
}

/// The folder of the preference files.
inline NSString *preferencesFolder() { return devicePath(@"/var/jb/var/mobile/Library/Preferences"); }
/// This settings bundle, as installed.
inline NSString *settingsBundleFolder() { return devicePath(@"/var/jb/Library/PreferenceBundles/ZunoPrefs.bundle"); }
/// The saved presets.
inline NSString *presetsFolder() { return devicePath(@"/var/jb/Library/Zuno/Presets"); }
/// The installed widget bundles.
inline NSString *widgetsFolder() { return devicePath(@"/var/jb/Library/Zuno/Widgets"); }
/// The package tool of the rootless layout, and the system's.
inline NSString *rootlessPackageTool() { return devicePath(@"/var/jb/usr/bin/dpkg-query"); }
inline NSString *systemPackageTool() { return devicePath(@"/usr/bin/dpkg-query"); }
/// The tool that ends a process by name.
inline NSString *killallTool() { return devicePath(@"/var/jb/usr/bin/killall"); }

}  // namespace zuno
