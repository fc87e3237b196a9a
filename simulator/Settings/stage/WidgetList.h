// The widgets of the device, as the bundle that loads them has them.
#pragma once

#import <Foundation/Foundation.h>
#import <objcxx/Retained.h>

#include <functional>
#include <string>
#include <vector>

#import "Settings/stage/WidgetContract.h"

/// What the loader keeps of each widget that it has loaded.
@protocol SIMWidgetHolder <NSObject>
- (NSBundle *)bundle;
- (NSString *)bundleIdentifier;
- (NSString *)displayName;
- (NSString *)className;
- (NSString *)preferencesFile;
- (id<SIMStagedWidget>)widget;
@end

namespace sim {

/// One entry of the widgets folder.
struct ListedWidget {
  objcxx::Retained<NSString> path;                     ///< Of the bundle, on this computer.
  objcxx::Retained<NSObject<SIMWidgetHolder>> holder;  ///< Empty when the loader has refused the bundle.
  std::string reason;                                  ///< Then: why, as a sentence.
};

/// Is told that the code of the bundle at `path`, on this computer, is about to run, and what it is `doing`.
using WidgetWatcher = std::function<void(NSString *path, const char *doing)>;

/// Has the widgets loaded by the class ZunoWidgetLoader, whose bundle is loaded first when it is not, and stores them
/// in the order of the folder. False when the device has no such class. What is raised by a widget that is made comes
/// through: the loader has then given up. Main thread.
bool loadWidgets(std::vector<ListedWidget> &widgets, const WidgetWatcher &watch);

/// `path`, on this computer, as the device has it.
std::string devicePathOf(NSString *path);

/// Writes the widgets as the automation interface shows them.
void writeWidgets(JsonText &out, const std::vector<ListedWidget> &widgets);

}  // namespace sim
