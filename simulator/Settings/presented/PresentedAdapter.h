// One kind of thing that is presented over the pages, as the automation interface shows and works it.
#pragma once

#import <UIKit/UIKit.h>

#include <cstdint>
#include <string_view>

#include "Settings/ElementId.hpp"
#include "Settings/EventResult.hpp"
#include "base/JsonText.hpp"
#import "Settings/JsonValues.h"

namespace sim {

class ImageStore;

/// Where on the screen's description it stands.
enum class PresentedPlace : std::uint8_t { kAlert, kSheet, kMenu };

/// The functions are given controllers of the class `kind` or of its subclasses, and ids of that controller's own;
/// those that are null are what nobody can do with such a thing.
struct PresentedAdapter {
  Class (*kind)() = nullptr;
  PresentedPlace place = PresentedPlace::kSheet;
  /// Writes everything but the anchor. `number` is the controller's, which its ids have as their owner.
  void (*describe)(JsonText &out, UIViewController *presented, std::uint32_t number, ImageStore &images) = nullptr;
  /// `part` is empty for a tap on the whole element.
  EventResult (*tap)(UIViewController *presented, const ElementId &id, std::string_view part) = nullptr;
  /// `isFinished` is whether the finger lifts afterwards.
  EventResult (*set)(UIViewController *presented, const ElementId &id, const Json &value, bool isFinished) = nullptr;
  /// Enters a text that ends with the return key.
  EventResult (*enter)(UIViewController *presented, const ElementId &id, const Json &value) = nullptr;
  EventResult (*paste)(UIViewController *presented, const ElementId &id) = nullptr;
  /// The clear button of a field.
  EventResult (*clear)(UIViewController *presented, const ElementId &id) = nullptr;
  /// Chooses what the description has under this "path".
  EventResult (*pick)(UIViewController *presented, NSString *path) = nullptr;
  /// Chooses the file at `file`, which lies on the computer, under the name `name`.
  EventResult (*pickFile)(UIViewController *presented, NSString *file, NSString *name) = nullptr;
  /// Stores what the element is saved as, autoreleased, at `content`.
  EventResult (*read)(UIViewController *presented, const ElementId &id, NSData **content) = nullptr;
  /// Closes or cancels it.
  EventResult (*dismiss)(UIViewController *presented) = nullptr;
};

}  // namespace sim
