// One kind of view, as the automation interface shows it.
#pragma once

#import <UIKit/UIKit.h>

#include <string_view>

#include "base/JsonText.hpp"

namespace sim {

class ImageStore;

struct ViewAdapter {
  Class (*kind)() = nullptr;
  /// The name in descriptions.
  std::string_view type;
  /// Writes what such a view adds to what every view has. The view is of the class `kind` or of a subclass.
  void (*describe)(JsonText &out, UIView *view, ImageStore &images) = nullptr;
};

}  // namespace sim
