#include "device/SampleContent.hpp"

#include "base/XMLPropertyListWriter.hpp"
#include "device/Canvas.hpp"
#include "device/SampleIcons.hpp"
#include "device/SamplePhotos.hpp"

#include <string>
#include <utility>

namespace sim {
namespace {

struct SampleApp {
  const char* folder;  // Below "Applications".
  const char* identifier;
  const char* name;
  DrawIcon drawIcon;
};

constexpr SampleApp kApps[] = {
    {"Music.app", "com.apple.Music", "Music", &drawMusicIcon},
    {"Camera.app", "com.apple.camera", "Camera", &drawCameraIcon},
    {"MobileSlideShow.app", "com.apple.mobileslideshow", "Photos", &drawPhotosIcon},
    {"Maps.app", "com.apple.Maps", "Maps", &drawMapsIcon},
    {"MobileNotes.app", "com.apple.mobilenotes", "Notes", &drawNotesIcon},
    {"MobileMail.app", "com.apple.mobilemail", "Mail", &drawMailIcon},
    {"MobileTimer.app", "com.apple.mobiletimer", "Clock", &drawClockIcon},
    {"Weather.app", "com.apple.weather", "Weather", &drawWeatherIcon},
    {"MobileCal.app", "com.apple.mobilecal", "Calendar", &drawCalendarIcon},
    {"MobileSMS.app", "com.apple.MobileSMS", "Messages", &drawMessagesIcon},
    {"Files.app", "com.apple.DocumentsApp", "Files", &drawFilesIcon},
    {"Preferences.app", "com.apple.Preferences", "Settings", &drawSettingsIcon},
    {"Record.app", "org.example.record", "Record Player", &drawRecordIcon},
    {"Reader.app", "org.example.reader", "The Complete Reader for Very Long Evenings", &drawBookIcon},
    {"Overview.app", "org.example.overview", "\u00DCberblick", &drawOverviewIcon},
    {"Tea.app", "org.example.tea", "\u038F\u03C1\u03B1 \u03B3\u03B9\u03B1 \u03C4\u03C3\u03AC\u03B9", &drawTeaIcon},
};

std::string informationOf(const SampleApp& app) {
  XMLPropertyListWriter list;
  const auto set = [&list](const char* key, const char* value) {
    list.key(key);
    list.string(value);
  };
  list.beginDictionary(0);
  set("CFBundleIdentifier", app.identifier);
  set("CFBundleDisplayName", app.name);
  set("CFBundleName", app.name);
  set("CFBundlePackageType", "APPL");
  set("CFBundleShortVersionString", "1.0");
  list.key("CFBundleIcons");
  list.beginDictionary(0);
  list.key("CFBundlePrimaryIcon");
  list.beginDictionary(0);
  list.key("CFBundleIconFiles");
  list.beginArray(0);
  list.string("AppIcon60x60");
  list.endArray();
  list.endDictionary();
  list.endDictionary();
  list.endDictionary();
  return std::move(list).finished();
}

std::string iconOf(const SampleApp& app, int scale) {
  return drawnPng(60 * scale, 60 * scale, [&app, scale](cairo_t* context) {
    cairo_scale(context, scale, scale);
    app.drawIcon(context);
  });
}

// The device's package database is this computer's.
constexpr const char* kPackageTool = "#!/bin/sh\nexec /usr/bin/dpkg-query \"$@\"\n";

}  // namespace

std::vector<ShippedFile> sampleContent() {
  const std::string ofThisBuild = editionOf("/proc/self/exe");  // Every build may draw differently.
  std::vector<ShippedFile> files;
  for (const SampleApp& app : kApps) {
    const std::string folder = std::string("Applications/") + app.folder;
    files.push_back({folder + "/Info.plist", ofThisBuild, 0644, [&app] { return informationOf(app); }});
    files.push_back({folder + "/AppIcon60x60@2x.png", ofThisBuild, 0644, [&app] { return iconOf(app, 2); }});
    files.push_back({folder + "/AppIcon60x60@3x.png", ofThisBuild, 0644, [&app] { return iconOf(app, 3); }});
  }
  for (const SamplePhoto& photo : samplePhotos())
    files.push_back({"var/mobile/Media/DCIM/100APPLE/" + photo.fileName, ofThisBuild, 0644, photo.png});
  files.push_back({"usr/bin/dpkg-query", ofThisBuild, 0755, [] { return std::string(kPackageTool); }});
  return files;
}

}  // namespace sim
