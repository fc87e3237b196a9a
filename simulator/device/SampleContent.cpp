#include "device/SampleContent.hpp"

#include "device/Canvas.hpp"
#include "device/SampleIcons.hpp"
#include "device/SamplePhotos.hpp"

#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <type_traits>

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

struct FreePlist {
  void operator()(void* node) const { plist_free(node); }
};

std::string informationOf(const SampleApp& app) {
  const std::unique_ptr<std::remove_pointer_t<plist_t>, FreePlist> information(plist_new_dict());
  const auto set = [](plist_t dictionary, const char* key, const char* value) {
    plist_dict_set_item(dictionary, key, plist_new_string(value));
  };
  set(information.get(), "CFBundleIdentifier", app.identifier);
  set(information.get(), "CFBundleDisplayName", app.name);
  set(information.get(), "CFBundleName", app.name);
  set(information.get(), "CFBundlePackageType", "APPL");
  set(information.get(), "CFBundleShortVersionString", "1.0");
  const plist_t files = plist_new_array();
  plist_array_append_item(files, plist_new_string("AppIcon60x60"));
  const plist_t primary = plist_new_dict();
  plist_dict_set_item(primary, "CFBundleIconFiles", files);
  const plist_t icons = plist_new_dict();
  plist_dict_set_item(icons, "CFBundlePrimaryIcon", primary);
  plist_dict_set_item(information.get(), "CFBundleIcons", icons);

  char* text = nullptr;
  std::uint32_t length = 0;
  plist_to_xml(information.get(), &text, &length);
  const std::string result(text != nullptr ? text : "", length);
  std::free(text);
  return result;
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
