// What the theme page costs with a large background image, and where the time goes: opening it with a theme file of 20
// MB, picking a photo of 12 megapixels, and drawing its preview anew with such a photo stored. "goal" is the time that
// a person does not notice.
#import <Foundation/SIMDevice.h>
#import <UIKit/UIImage+Sim.h>
#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>
#include <png.h>

#import "CoreGraphics/CGImage+Sim.h"
#import "CoreGraphics/ImageEncoder.hpp"
#import "Settings/Session.h"
#import "core/PreferenceFile.h"
#import "theme/BackgroundImage.h"
#import "theme/ThemeChange.h"
#import "theme/ThemeFile.h"

#include <malloc.h>

#include "Claims.hpp"
#include "lists_device.h"
#include "median.hpp"
#include "noisy_photo.hpp"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <iostream>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

using bench::bundleClass;
using bench::require;

constexpr int kRepetitions = 5;
constexpr double kPageGoal = 100, kPickGoal = 2000, kPreviewGoal = 50;  // Milliseconds.

/// Milliseconds of one run of something.
struct Cost {
  double processor = 0;
  double elapsed = 0;
};

/// By name of what was measured.
std::map<std::string, std::vector<Cost>> costs;
/// In the order of the first measurement.
std::vector<std::string> names;

template <typename Body>
void measure(const std::string &name, Body body) {
  @autoreleasepool {
    const auto start = std::chrono::steady_clock::now();
    const std::clock_t processorStart = std::clock();
    body();
    const double processor = static_cast<double>(std::clock() - processorStart) * 1e3 / CLOCKS_PER_SEC;
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;
    if (!costs.contains(name)) names.push_back(name);
    costs[name].push_back({processor, elapsed.count()});
  }
}

double median(const std::string &name, double Cost::*kind = &Cost::processor) {
  std::vector<double> values;
  for (const Cost &cost : costs.at(name)) values.push_back(cost.*kind);
  return bench::median(std::move(values));
}

/// Settings with an empty first page.
class Settings final {
 public:
  Settings() : root_(objcxx::adopt([[UIViewController alloc] init])), session_(root_.get(), 1) {}

  /// Opens the theme page as a row of another page does.
  void openThemePage() {
    UIViewController *page = [[[bundleClass(@"ZunoCustomiseRootListController") alloc] init] autorelease];
    [[root_.get() navigationController] pushViewController:page animated:YES];
    session_.refresh();
  }

  sim::Session &session() { return session_; }
  const std::string &screen() const { return session_.screen(); }

 private:
  objcxx::Retained<UIViewController> root_;
  sim::Session session_;
};

bool isDone(sim::Session &session, const sim::Json &event) {
  return session.perform(sim::wire::Event{event.dump()}).outcome == sim::wire::Outcome::done;
}

zuno::PreferenceFile themeFile() { return zuno::PreferenceFile::ofDomain(zuno::kThemeDomain); }

double megabytes(NSString *path) {
  return static_cast<double>([[[NSFileManager defaultManager] attributesOfItemAtPath:path error:nullptr] fileSize]) /
         1e6;
}

UIImage *imageOf(const sim::BitmapPtr &bitmap) {
  const CGImageRef pixels = sim::createImage(sim::sourceOf(bitmap));
  UIImage *image = [UIImage imageWithCGImage:pixels];
  CGImageRelease(pixels);
  return image;
}

/// The values of `row.name` in a screen, in the order of the rows.
std::vector<sim::Json> inRows(const std::string &screen, const char *name) {
  std::vector<sim::Json> values;
  const sim::Json parsed = sim::Json::parse(screen, nullptr, false);
  for (const auto &section : parsed["page"]["sections"]) {
    for (const auto &row : section["rows"]) values.push_back(row[name]);
  }
  return values;
}

/// The identifier at the end of a picture's address.
std::string identifierOf(const sim::Json &image) {
  require(image.is_object(), "a picture is missing");
  const std::string url = image.value("url", "");
  return url.substr(url.rfind('/') + 1);
}

/// The identifier of the row that a photo is chosen with: the picture of the one that is stored, or a button.
std::string photoRow(const std::string &screen) {
  const auto labels = inRows(screen, "label");
  const sim::Json choosing[] = {"Background Image", "Choose Photo…"};
  const auto found = std::find_first_of(labels.begin(), labels.end(), std::begin(choosing), std::end(choosing));
  require(found != labels.end(), "the page lacks a row");
  return inRows(screen, "id")[static_cast<std::size_t>(found - labels.begin())].get<std::string>();
}

/// The identifier of the first picture on a screen; "" when it shows none.
std::string pictureOn(const std::string &screen) {
  for (const auto &image : inRows(screen, "image")) {
    if (image.is_object()) return identifierOf(image);
  }
  return "";
}

void openPages(const std::string &kind, bool hasPicture) {
  for (int repetition = 0; repetition < kRepetitions; ++repetition) {
    Settings settings;
    measure(kind, [&] { settings.openThemePage(); });
    const std::string picture = pictureOn(settings.screen());
    require(picture.empty() != hasPicture, "the page's picture is not what the theme file holds");
    measure(kind + ", described again", [&] { require(!settings.session().refresh(), "the page changed by itself"); });
    if (!hasPicture) continue;
    measure(kind + ", its picture",
            [&] { require([settings.session().pngOf(picture) length] > 0, "there is no picture"); });
  }
}

/// Parses the whole theme file as often as the page has rows.
void parseEveryRow() {
  Settings settings;
  settings.openThemePage();
  const std::size_t rows = inRows(settings.screen(), "key").size();
  measure("reading every row by a full parse", [&] {
    for (std::size_t row = 0; row < rows; ++row) require(themeFile().contents(), "the theme file cannot be read");
  });
}

void measurePages() {
  openPages("page without a theme file", false);
  NSString *text = zuno::encodeImage(imageOf(bench::noisyPhoto(3780, 2835)));
  themeFile().setValue(text, @"backgroundImage");
  require(themeFile().value(@"backgroundImage") != nil, "the theme file cannot be written");
  std::printf("theme: the theme file is %.1f MB\n", megabytes(themeFile().path()));
  openPages("page with the theme file", true);
  parseEveryRow();
}

void measureSteps(NSData *jpeg) {
  UIImage *pixels = nil;
  for (int repetition = 0; repetition < kRepetitions; ++repetition) {
    NSData *png = nil;
    NSString *text = nil;
    measure("step: decoding the JPEG", [&] {
      const auto source = sim::sourceOf([[UIImage imageWithData:jpeg] CGImage]);
      pixels = [imageOf(source->bitmap()) retain];
    });
    measure("step: encoding the PNG", [&] { png = [UIImagePNGRepresentation(pixels) retain]; });
    measure("step: base64",
            [&] { text = [[png base64EncodedStringWithOptions:NSDataBase64Encoding64CharacterLineLength] retain]; });
    measure("step: writing the theme file", [&] { themeFile().setValue(text, @"backgroundImage"); });
    measure("step: reading one row", [&] { require(!themeFile().value(@"spacing"), "there is a value"); });
    measure("step: decoding the stored text", [&] { require(zuno::storedBackgroundImage(), "there is no image"); });
    [pixels release];
    [png release];
    [text release];
  }
}

/// libpng as it comes.
std::size_t encodeWithDefaults(const sim::Bitmap &bitmap) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(bitmap.width());
  image.height = static_cast<png_uint_32>(bitmap.height());
  image.format = PNG_FORMAT_RGBA;
  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
  std::vector<std::uint8_t> file(size);
  require(png_image_write_to_memory(&image, file.data(), &size, 0, bitmap.bytes().data(), 0, nullptr), "no PNG");
  return size;
}

void measureEncoders(const sim::BitmapPtr &photo) {
  std::size_t ours = 0, defaults = 0;
  measure("encoder: ours", [&] { ours = sim::encodePng(photo).size(); });
  measure("encoder: defaults", [&] { defaults = encodeWithDefaults(*photo); });
  std::printf("theme: the photo as PNG is %.1f MB, by default settings %.1f MB\n", static_cast<double>(ours) / 1e6,
              static_cast<double>(defaults) / 1e6);
}

void measurePick(NSData *jpeg) {
  NSString *folder = SIMDevicePath(@"/var/mobile/Media/DCIM/100APPLE");
  [[NSFileManager defaultManager] createDirectoryAtPath:folder
                            withIntermediateDirectories:YES
                                             attributes:nil
                                                  error:nullptr];
  require([jpeg writeToFile:[folder stringByAppendingPathComponent:@"IMG_0001.JPG"] atomically:NO], "no photo library");
  for (int repetition = 0; repetition < kRepetitions; ++repetition) {
    @autoreleasepool {
      Settings settings;
      settings.openThemePage();
      sim::Session &session = settings.session();
      const sim::Json tap{{"type", "tap"}, {"id", photoRow(session.screen())}};
      measure("photo sheet", [&] { require(isDone(session, tap), "the sheet does not open"); });
      const sim::Json screen = sim::Json::parse(session.screen(), nullptr, false);
      const std::string thumbnail = identifierOf(screen["sheet"]["items"][0]["image"]);
      measure("photo sheet, its thumbnail",
              [&] { require([session.pngOf(thumbnail) length] > 0, "there is no thumbnail"); });
      const sim::Json pick{{"type", "pick"}, {"path", "100APPLE/IMG_0001.JPG"}};
      measure("pick to page", [&] {
        require(isDone(session, pick), "the photo is refused");
        require([session.pngOf(pictureOn(session.screen())) length] > 0, "the page does not show the photo");
      });
    }
  }
}

/// Bytes that this process has allocated.
std::size_t allocated() {
  const auto state = mallinfo2();
  return state.uordblks + state.hblkhd;
}

/// Stores `value` and measures from then until the preview is drawn.
void measurePreviewAfter(const std::string &name, Settings &settings, id value, NSString *key) {
  @autoreleasepool {
    themeFile().setValue(value, key);
  }
  measure(name, [&] {
    zuno::tellThemeChanged();
    require(settings.session().refresh(), "the preview does not follow");
  });
}

/// Draws the preview after each kind of change, with a photo of 12 megapixels stored. Returns the bytes that the page
/// keeps for it: the difference to the page with a photo of one pixel.
double measurePreview(const sim::BitmapPtr &photo) {
  UIImage *one = imageOf(photo);
  UIImage *other = imageOf(sim::inverted(*photo));
  NSString *texts[] = {zuno::encodeImage(one), zuno::encodeImage(other)};
  NSString *small = zuno::encodeImage(imageOf(bench::noisyPhoto(1, 1)));
  NSString *file = SIMDevicePath(@"/var/jb/var/mobile/Library/Preferences/com.norvik.Zunoprefs.theme.plist");
  [[NSFileManager defaultManager] removeItemAtPath:file error:nullptr];
  themeFile().setValue(@1, @"enabled");
  themeFile().setValue(@1, @"useCustom");
  themeFile().setValue(small, @"backgroundImage");
  Settings settings;
  settings.openThemePage();
  std::size_t before = 0;
  @autoreleasepool {
    zuno::tellThemeChanged();
    settings.session().refresh();
    before = allocated();
  }
  for (int repetition = 0; repetition < kRepetitions; ++repetition) {
    measurePreviewAfter("preview: another photo", settings, texts[repetition % 2], @"backgroundImage");
    measurePreviewAfter("preview: dimming", settings, [NSNumber numberWithInt:repetition], @"dimming");
    measurePreviewAfter("preview: blur", settings, [NSNumber numberWithInt:10 + repetition], @"blurRadius");
    measure("preview step: the whole theme", [&] { require(zuno::storedTheme().enabled, "the theme is off"); });
    measure("preview step: telling the photo",
            [&] { require(themeFile().fingerprint(@"backgroundImage"), "no photo"); });
    NSData *png = nil;
    measure("preview step: base64", [&] {
      png = [zuno::storedImageFile() retain];
      require(png, "no photo");
    });
    measure("preview step: decoding alone",
            [&] { require(sim::sourceOf([[UIImage imageWithData:png] CGImage])->bitmap() != nullptr, "no pixels"); });
    [png release];
  }
  const double kept = static_cast<double>(allocated()) - static_cast<double>(before);
  std::printf("theme: the preview keeps %.2f MB for a photo of %.1f MB of pixels\n", kept / 1e6,
              static_cast<double>(photo->bytes().size()) / 1e6);
  return kept;
}

}  // namespace

int main() {
  // Log lines; what this program has to say goes to standard output.
  if (!std::freopen("/dev/null", "w", stderr)) return 1;
  SIMStartFoundation();
  @autoreleasepool {
    bench::DeviceFolder device;
    measurePages();
    const sim::BitmapPtr photo = bench::noisyPhoto(4032, 3024);
    const auto file = sim::encodeJpeg(photo, 0.9);
    NSData *jpeg = [NSData dataWithBytes:file.data() length:file.size()];
    std::printf("theme: the photo as JPEG is %.1f MB\n", static_cast<double>(file.size()) / 1e6);
    measureSteps(jpeg);
    measureEncoders(photo);
    measurePick(jpeg);
  }
  double kept = 0;
  @autoreleasepool {
    bench::DeviceFolder device;
    kept = measurePreview(bench::noisyPhoto(4032, 3024));
  }
  std::printf("  %-45s %12s %12s\n", "median of 5, ms", "processor", "elapsed");
  for (const auto &name : names) {
    std::printf("  %-45s %12.1f %12.1f\n", name.c_str(), median(name), median(name, &Cost::elapsed));
  }
  const double page = median("page with the theme file");
  bench::Claims claims;
  claims.time("theme page", "page/goal", page, kPageGoal);
  claims.time("theme pick", "pick/goal", median("pick to page"), kPickGoal);
  claims.ratio("theme page, 20 MB", "with/without", page, median("page without a theme file"), bench::atMost(25));
  claims.ratio("theme page, every row", "page/parses", page, median("reading every row by a full parse"),
               bench::atMost(0.25));
  claims.ratio("theme PNG", "ours/defaults", median("encoder: ours"), median("encoder: defaults"), bench::atMost(0.1));
  claims.time("theme preview, a slider", "drawn/goal", median("preview: dimming"), kPreviewGoal);
  claims.time("theme preview, the blur", "drawn/goal", median("preview: blur"), kPreviewGoal);
  claims.ratio("theme preview, another photo", "drawn/decoding", median("preview: another photo"),
               median("preview step: decoding alone"), bench::atMost(1.5));
  const CGSize screen = [[UIScreen mainScreen] nativeBounds].size;
  claims.ratio("theme preview, memory", "kept/screen", std::max(kept, 1.0), screen.width * screen.height * 4,
               bench::atMost(1));
  return claims.report(std::cout);
}
