// How the open pages were reached, so that a later run of Settings can open them again.
#pragma once

#import <UIKit/UIKit.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#import "Settings/JsonValues.h"
#import "Settings/ScreenDescription.h"

namespace sim {

/// What was touched on each page to open the next one: rows and bar buttons. A page that came in another way, after an
/// alert for instance, ends the trail. Main thread only.
class PageTrail final {
 public:
  /// Does what a finger does, and everything that follows from it, until the screen is described.
  using Perform = std::function<void(const Json& event)>;

  /// Remembers what `event` is about to touch.
  void willPerform(const Json& event, UINavigationController* navigation, PageNumbers& numbers);
  /// The first page that has come since was opened by that.
  void didPerform(UINavigationController* navigation, PageNumbers& numbers);

  /// The open pages as a text for `reopen` of another process.
  std::string place(UINavigationController* navigation, PageNumbers& numbers) const;

  /// Opens the pages of `place` over the first one, by the same touches, as far as it can: what is touched is known by
  /// what it is called, or else by where it was. Pages get the numbers and the scroll positions that they had. False
  /// when `place` is none.
  bool reopen(const Json& place, UINavigationController* navigation, PageNumbers& numbers, const Perform& perform);

 private:
  struct Opened {
    std::uint32_t page;
    Json touch;
  };

  void renumber(UIViewController* page, std::uint32_t number, PageNumbers& numbers);

  std::vector<Opened> opened_;
  std::vector<std::uint32_t> before_;  // The pages at the last `willPerform`.
  Json touch_;                         // What it was about; null for nothing that can be found again.
};

}  // namespace sim
