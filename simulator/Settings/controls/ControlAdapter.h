// One kind of control, as the automation interface shows and works it.
#pragma once

#import <UIKit/UIKit.h>

#include <string_view>

#include "base/JsonText.hpp"
#import "Settings/JsonValues.h"

namespace sim {

class ImageStore;

/// The functions are given controls of the class `kind` or of its subclasses; those that are null are what nobody can
/// do with such a control. Those that work it return nullptr, or why nothing was done.
struct ControlAdapter {
  Class (*kind)() = nullptr;
  /// The name in descriptions.
  std::string_view (*type)(UIView *control) = nullptr;
  /// Writes what goes with the type: its limits and its look.
  void (*describe)(JsonText &out, UIView *control, ImageStore &images) = nullptr;
  /// Writes what it is set to under the name "value". False, with nothing written, when it has no value now.
  bool (*writeValue)(JsonText &out, UIView *control) = nullptr;
  /// Sets it as a person does. `isFinished` is whether the finger lifts afterwards; only a control that `isDragged` is
  /// told of one that stays.
  const char *(*set)(UIView *control, const Json &value, bool isFinished) = nullptr;
  /// Enters a text as a person does who ends with the return key.
  const char *(*enter)(UIView *control, const Json &value) = nullptr;
  /// Adds the pasteboard's string, of which there is one, to its text.
  const char *(*paste)(UIView *control) = nullptr;
  /// Presses its clear button.
  const char *(*clear)(UIView *control) = nullptr;
  bool isDragged = false;
};

/// Why a control that is disabled does nothing.
constexpr const char *kUnreachable = "This control is disabled.";

}  // namespace sim
