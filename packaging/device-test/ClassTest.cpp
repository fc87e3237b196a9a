// The classes of the slice, and two of their methods.
#include "Image.hpp"
#include "ObjectiveC.hpp"
#include "Tests.hpp"

namespace device_test {
namespace {

constexpr const char* kDefaults =
    "{Enabled: 1, EnabledWidgets: [com.norvik.Zunowidgets.siri, KRBFavouritesView, KRBMusicView], "
    "NotificationBadges: 1, OnActivationMode: 1, QuickSwitcherEnabled: 0, ShowSwitcherWithSnapshots: 0, "
    "defaultNowPlayingBundleIdentifier: [com.apple.Music], hideSnapshotsOnFavourites: 0, pullToKillEnabled: 0, "
    "quickSwitcherDefaultToFavourites: 0, quickSwitcherWidthModifier: -20.0}";

void expect(const Image& image, const char* selector, const std::string& expected) {
  const auto found = describedResult(image, "KRBPreferenceManager", selector);
  if (found != expected) fail(std::string(selector) + " answers " + found);
}

}  // namespace

std::string testClasses(const Image& image) {
  registerClasses(image);
  expect(image, "kCurrentVersion", "2");
  expect(image, "defaultPrefs", kDefaults);
  return "every class, method and constant string is signed as the runtime expects; two methods were called";
}

}  // namespace device_test
