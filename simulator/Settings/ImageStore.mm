#import "Settings/ImageStore.h"

#import <UIKit/UIImage+Sim.h>

#import "Settings/JsonValues.h"

#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace sim {
namespace {

/// Pixels of the longer side of what is sent to the browser; no phone shows more.
constexpr NSUInteger kLongestSide = 2532;

/// Points of a thumbnail's side: a third of a phone's width.
constexpr CGFloat kThumbnailSide = 130;

NSUInteger pixelsOf(CGFloat points) {
  const CGFloat pixels = std::ceil(points * [[UIScreen mainScreen] scale]);
  return pixels >= 1 && pixels < kLongestSide ? static_cast<NSUInteger>(pixels) : kLongestSide;
}

/// The longer side, in pixels, of a picture of `size` points that covers `shown` points of the screen.
NSUInteger longestSideOf(CGSize size, CGSize shown) {
  if (size.width <= 0 || size.height <= 0) return kLongestSide;
  const CGFloat factor = std::max(shown.width / size.width, shown.height / size.height);
  return pixelsOf(std::max(size.width, size.height) * factor);
}

/// Of the pixels; none for nil, as a thumbnail is read only when it is asked for.
std::size_t bytesOf(UIImage *image) {
  const CGSize pixels = [image sim_pixelSize];
  return image ? static_cast<std::size_t>(pixels.width * pixels.height) * 4 : 0;
}

}  // namespace

void ImageStore::add(JsonText &out, std::string identifier, CGSize size, UIColor *tint, Picture picture) {
  out.beginObject();
  out.name("url").string("/images/" + identifier);
  out.name("width").number(size.width);
  out.name("height").number(size.height);
  writeColor(out.name("tint"), tint);
  out.endObject();
  described_.insert_or_assign(std::move(identifier), std::move(picture));
}

void ImageStore::write(JsonText &out, UIImage *image, CGSize shown, UIColor *tint) {
  if (!image) return out.null();
  const NSUInteger longestSide = longestSideOf([image size], shown);
  const CGSize pixels = [image sim_pixelSize];
  std::string identifier = prefix_ + std::to_string([image sim_number]);
  if (std::max(pixels.width, pixels.height) > longestSide) identifier += '-' + std::to_string(longestSide);
  add(out, std::move(identifier), [image size], tint, { objcxx::share(image), {}, longestSide });
}

void ImageStore::writeThumbnail(JsonText &out, NSString *path) {
  struct stat status;
  if (::stat([path fileSystemRepresentation], &status) != 0 || !S_ISREG(status.st_mode)) return out.null();
  const NSUInteger side = pixelsOf(kThumbnailSide);
  std::string identifier = prefix_ + "photo";
  for (const auto part : {static_cast<long long>(status.st_ino), static_cast<long long>(status.st_mtim.tv_sec),
                          static_cast<long long>(status.st_mtim.tv_nsec), static_cast<long long>(status.st_size),
                          static_cast<long long>(side)}) {
    identifier += '-' + std::to_string(part);
  }
  add(out, std::move(identifier), CGSizeMake(kThumbnailSide, kThumbnailSide), nil, {{}, objcxx::share(path), side});
}

void ImageStore::accept(Clock::time_point now) {
  Gone gone;
  gone.at = now;
  for (auto &[identifier, picture] : std::exchange(current_, std::exchange(described_, {}))) {
    if (current_.contains(identifier)) continue;
    gone.bytes += bytesOf(picture.image.get());
    gone.pictures.emplace(identifier, picture);
  }
  goneBytes_ += gone.bytes;
  if (!gone.pictures.empty()) gone_.push_back(std::move(gone));
  letGoOfOld(now);
}

void ImageStore::letGoOfOld(Clock::time_point now) {
  const auto isOld = [&](const Gone &gone) {
    return now - gone.at > kKeptFor || (goneBytes_ > kMostBytes && gone_.size() > 1);
  };
  while (!gone_.empty() && isOld(gone_.front())) {
    goneBytes_ -= gone_.front().bytes;
    gone_.pop_front();
  }
}

const ImageStore::Picture *ImageStore::find(const std::string &identifier) const {
  if (const auto found = current_.find(identifier); found != current_.end()) return &found->second;
  for (const Gone &gone : gone_) {
    if (const auto found = gone.pictures.find(identifier); found != gone.pictures.end()) return &found->second;
  }
  return nullptr;
}

NSData *ImageStore::pngOf(std::string_view identifier) const {
  const Picture *picture = find(std::string(identifier));
  if (!picture) return nil;
  return picture->file ? [UIImage sim_PNGThumbnailOfFile:picture->file.get() side:picture->longestSide]
                       : [picture->image.get() sim_PNGDataWithLongestSide:picture->longestSide];
}

}  // namespace sim
