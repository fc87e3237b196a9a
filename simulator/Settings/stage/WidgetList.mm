#import "Settings/stage/WidgetList.h"

#import <Foundation/SIMDevice.h>
#import <Foundation/SIMLog.h>
#import <UIKit/NSText+Sim.h>

#import "Settings/JsonValues.h"

#include <objc/runtime.h>

#include <mutex>
#include <optional>

@protocol SIMWidgetLoader <NSObject>
+ (id<SIMWidgetLoader>)sharedInstance;
- (void)loadWidgets;
- (NSArray *)loadedWidgets;
@end

namespace sim {
namespace {

NSString *const kLoaderBundle = @"/var/jb/Library/PreferenceBundles/ZunoPrefs.bundle";
constexpr const char *kLoaderClass = "ZunoWidgetLoader";

Class loaderClass() {
  if (Class known = objc_lookUpClass(kLoaderClass)) return known;
  [[NSBundle bundleWithPath:SIMDevicePath(kLoaderBundle)] load];
  return objc_lookUpClass(kLoaderClass);
}

/// What follows `beginning` in `line`; nil when it begins otherwise.
NSString *after(NSString *beginning, NSString *line) {
  return [line hasPrefix:beginning] ? [line substringFromIndex:[beginning length]] : nil;
}

/// An entry of the folder as the loader's lines in the log tell of it.
struct Told {
  enum class Fate { open, outOfDate, notLoaded, noWidget, loaded };
  objcxx::Retained<NSString> path;
  Fate fate = Fate::open;
  std::string detail;  // Why its code was not loaded.
};

/// Listens to the log while it lives, and passes every line on.
class Listener final {
 public:
  explicit Listener(const WidgetWatcher &watch) : watch_(watch) {
    next_ = SIMCurrentLogHandler(&nextContext_);
    SIMSetLogHandler([](NSString *line, void *self) { static_cast<Listener *>(self)->hear(line); }, this);
  }
  ~Listener() { SIMSetLogHandler(next_, nextContext_); }
  Listener(const Listener &) = delete;
  Listener &operator=(const Listener &) = delete;

  std::vector<Told> all() {
    const std::lock_guard lock(mutex_);
    return all_;
  }

 private:
  /// Any thread.
  void hear(NSString *line) {
    if (next_) next_(line, nextContext_);
    const std::lock_guard lock(mutex_);
    if (NSString *path = after(@"[ZunoWidgetLoader] Loading: ", line)) {
      all_.push_back({.path = objcxx::share(path), .detail = {}});
      return watch_(path, "being loaded");
    }
    if (all_.empty() || all_.back().fate != Told::Fate::open) return;
    Told &told = all_.back();
    NSString *path = told.path.get();
    NSString *problem = [NSString stringWithFormat:@"[Foundation] The code of %@ was not loaded: ", path];
    if ([line isEqualToString:[@"[ZunoWidgetLoader] Widget out of date! " stringByAppendingString:path]]) {
      told.fate = Told::Fate::outOfDate;
    } else if ([line isEqualToString:[@"[ZunoWidgetLoader] Failed to load bundle: " stringByAppendingString:path]]) {
      told.fate = Told::Fate::notLoaded;
    } else if (after(@"[ZunoWidgetLoader] Widget class does not conform to protocol: ", line)) {
      told.fate = Told::Fate::noWidget;
    } else if (after(@"[ZunoWidgetLoader]: Loaded widget: ", line)) {
      told.fate = Told::Fate::loaded;
    } else if (after(@"[ZunoWidgetLoader]: ", line)) {
      watch_(path, "being made, with -init");
    } else if (NSString *why = after(problem, line)) {
      told.detail = utf8(why);
    }
  }

  const WidgetWatcher &watch_;
  SIMLogHandler next_ = nullptr;
  void *nextContext_ = nullptr;
  std::mutex mutex_;  // Guards what follows.
  std::vector<Told> all_;
};

std::string quoted(NSString *text) { return "“" + utf8(text) + "”"; }

std::string classProblem(NSString *path) {
  id name = [[[NSBundle bundleWithPath:path] infoDictionary] objectForKey:@"ZunoWidgetClass"];
  if (![name isKindOfClass:[NSString class]]) return "Its Info.plist names no ZunoWidgetClass.";
  if (!objc_lookUpClass([name UTF8String])) return "No class is called " + quoted(name) + ", its ZunoWidgetClass.";
  return "The class " + quoted(name) + " does not adopt ZunoWidgetProtocol.";
}

/// Why the loader has left the bundle out.
std::string reasonOf(const Told &told) {
  NSString *path = told.path.get();
  switch (told.fate) {
    case Told::Fate::outOfDate:
      if ([[[NSBundle bundleWithPath:path] infoDictionary] count] == 0) return "It is no bundle: it has no Info.plist.";
      return "It is out of date: its ZunoWidgetsVersion is missing, 0 or negative.";
    case Told::Fate::notLoaded: return "Its code was not loaded" + (told.detail.empty() ? "." : ": " + told.detail);
    case Told::Fate::noWidget: return classProblem(path);
    default: return "The loader does not say why.";
  }
}

NSString *infoText(NSString *path, NSString *key) {
  id text = [[[NSBundle bundleWithPath:path] infoDictionary] objectForKey:key];
  return [text isKindOfClass:[NSString class]] ? text : nil;
}

}  // namespace

std::string devicePathOf(NSString *path) {
  NSString *folder = [SIMDeviceFolder() stringByAppendingString:@"/"];
  return utf8([path hasPrefix:folder] ? [path substringFromIndex:[folder length] - 1] : path);
}

bool loadWidgets(std::vector<ListedWidget> &widgets, const WidgetWatcher &watch) {
  Class<SIMWidgetLoader> kind = loaderClass();
  if (!kind) return false;
  Listener listener(watch);
  id<SIMWidgetLoader> loader = [kind sharedInstance];
  [loader loadWidgets];

  NSArray *holders = [loader loadedWidgets];
  NSUInteger next = 0;
  for (const Told &told : listener.all()) {
    ListedWidget widget{.path = told.path, .holder = {}, .reason = {}};
    if (told.fate == Told::Fate::loaded && next < [holders count]) {
      widget.holder = objcxx::share((NSObject<SIMWidgetHolder> *)[holders objectAtIndex:next++]);
    } else {
      widget.reason = reasonOf(told);
    }
    widgets.push_back(std::move(widget));
  }
  return true;
}

void writeWidgets(JsonText &out, const std::vector<ListedWidget> &widgets) {
  out.beginArray();
  for (const ListedWidget &each : widgets) {
    NSObject<SIMWidgetHolder> *holder = each.holder.get();
    NSString *path = each.path.get();
    out.beginObject();
    out.name("path").string(devicePathOf(path));
    out.name("state").string(holder ? "loaded" : "refused");
    out.name("reason");
    if (holder) out.null();
    else out.string(each.reason);
    writeText(out.name("identifier"), holder ? [holder bundleIdentifier] : infoText(path, @"CFBundleIdentifier"));
    writeText(out.name("displayName"), holder ? [holder displayName] : infoText(path, @"CFBundleDisplayName"));
    writeText(out.name("className"), holder ? [holder className] : infoText(path, @"ZunoWidgetClass"));
    out.name("hasPreferences").flag([holder preferencesFile] != nil);
    writeMethods(out.name("methods"), [holder widget]);
    out.endObject();
  }
  out.endArray();
}

}  // namespace sim
