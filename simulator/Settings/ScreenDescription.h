// The screen as the automation interface shows it: page, alert, sheet.
#pragma once

#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>

#include <cstdint>
#include <utility>
#include <vector>

#include "base/JsonText.hpp"

@class UITableView;

namespace sim {

class ImageStore;

/// Gives each page, alert and sheet on the screen, and each button in the bar of a page, a number that is unique in the
/// process. Main thread only.
class PageNumbers final {
 public:
  /// The number of `object`; a new one for an object that was not among the current ones.
  std::uint32_t of(NSObject *object);
  /// Objects that are met from now on get higher numbers than `number`.
  void reserve(std::uint32_t number);
  /// Gives `object` a number that was reserved and that no other object has; otherwise nothing happens.
  void assign(NSObject *object, std::uint32_t number);
  /// Between the two, every object that stays is asked for; the others are then forgotten and let go.
  void beginDescription();
  void endDescription();

 private:
  struct Entry {
    objcxx::Retained<NSObject> object;  // Kept, so that no address is met twice.
    std::uint32_t number;
    bool used;
  };
  std::vector<Entry> entries_;
  std::uint32_t next_ = 1;
};

/// The table that a page shows: the first one in its view; nil when it shows none.
UITableView *tableOf(UIViewController *page);

/// Whether the page in front has rows that have come or were loaded anew since it was described.
bool hasUnnamedRows(UINavigationController *navigation);

/// What is in front of the pages: an alert, a sheet, or nil.
UIViewController *presentedOver(UINavigationController *navigation);

/// Writes what `navigation` shows: {"path","page","alert","sheet","menu"}. A page whose code raises is shown without
/// rows, with the exception's name as a footer.
void writeScreen(JsonText &out, UINavigationController *navigation, PageNumbers &numbers, ImageStore &images);

/// Writes where the table of the page in front stands: [x, y] in points; null without one.
void writeContentOffset(JsonText &out, UINavigationController *navigation);

}  // namespace sim
