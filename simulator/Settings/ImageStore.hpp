// The pictures that are on the screen, by the number that their address carries.
#pragma once

#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>

#include <cstdint>
#include <string_view>
#include <unordered_map>

#include "Settings/JsonText.hpp"

namespace sim {

/// Keeps the pictures of the current screen, and those of the one before, for clients that still draw it. Main thread
/// only.
class ImageStore final {
 public:
  /// Starts a new description. Its pictures are kept from now on, and count as the screen's once it is `accept`ed.
  void beginDescription() { described_.clear(); }

  /// Writes {"url","width","height"} in points; null for nil. Keeps the picture.
  void write(JsonText &out, UIImage *image);

  /// Makes the last description the current screen: pictures that neither it nor the one before shows are let go.
  void accept();

  /// The PNG file of the picture with this number, autoreleased; nil when no such picture is kept or it cannot be read.
  NSData *pngOf(std::string_view number) const;

 private:
  using Images = std::unordered_map<std::uint64_t, objcxx::Retained<UIImage>>;
  Images described_;
  Images current_;
  Images previous_;
};

}  // namespace sim
