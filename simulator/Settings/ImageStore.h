// The pictures that are on the screen, by the identifier that their address carries.
#pragma once

#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/JsonText.hpp"

namespace sim {

/// Keeps the pictures of the current screen, and for a while those of the screens before, for clients that still draw
/// them: a page slides away while many a screen may follow on the next. Main thread only.
class ImageStore final {
 public:
  using Clock = std::chrono::steady_clock;
  /// For how long the pictures of a screen that has gone are kept: several times what a page takes to slide away and a
  /// busy browser to ask for the last of its pictures.
  static constexpr std::chrono::seconds kKeptFor{10};
  /// The most bytes of pixels that are kept so, beside the pictures that went last.
  static constexpr std::size_t kMostBytes = std::size_t{64} << 20;

  /// `run` is a number that no other run of Settings on this simulator has: it makes identifiers differ between runs.
  /// `place` begins them, for a process that has runs of its own.
  explicit ImageStore(std::uint64_t run, std::string_view place = {})
      : place_(place), prefix_(place_ + std::to_string(run) + '-') {}

  /// What begins the identifiers of this process, for those that others make.
  const std::string &place() const { return place_; }

  /// Starts a new description. Its pictures are kept from now on, and count as the screen's once it is `accept`ed.
  void beginDescription() { described_.clear(); }

  /// Writes {"url","width","height","tint"} in points; null for nil. Keeps the picture. `shown` is the size in points
  /// at which it is drawn: no more pixels than that needs are sent. An empty size: as many as the screen has. `tint` is
  /// the colour that the picture's shape is filled with; nil for its own colours.
  void write(JsonText &out, UIImage *image, CGSize shown, UIColor *tint = nil);

  /// Writes the thumbnail of the picture file at `path`, a square; null when there is no such file. Only looks the file
  /// up: it is read and decoded when the thumbnail is asked for. The identifier changes with the file's content.
  void writeThumbnail(JsonText &out, NSString *path);

  /// Makes the last description the current screen, at the time `now`. Pictures that went from the screen long ago are
  /// let go.
  void accept(Clock::time_point now = Clock::now());

  /// The PNG file of the picture with this identifier, autoreleased; nil when no such picture is kept or it cannot be
  /// read.
  NSData *pngOf(std::string_view identifier) const;

 private:
  struct Picture {
    objcxx::Retained<UIImage> image;
    objcxx::Retained<NSString> file;  ///< Of a thumbnail, which has no image yet.
    NSUInteger longestSide = 0;       ///< Pixels.
  };
  using Pictures = std::unordered_map<std::string, Picture>;
  /// What went from the screen at one time.
  struct Gone {
    Pictures pictures;
    std::size_t bytes = 0;
    Clock::time_point at;
  };

  void add(JsonText &out, std::string identifier, CGSize size, UIColor *tint, Picture picture);
  void letGoOfOld(Clock::time_point now);
  const Picture *find(const std::string &identifier) const;

  const std::string place_;
  const std::string prefix_;
  Pictures described_;
  Pictures current_;
  std::deque<Gone> gone_;  // The oldest stand first.
  std::size_t goneBytes_ = 0;
};

}  // namespace sim
