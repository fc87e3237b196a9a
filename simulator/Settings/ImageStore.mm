#import "Settings/ImageStore.hpp"

#import <UIKit/UIImage+Sim.h>

#include <charconv>
#include <string>
#include <utility>

namespace sim {
namespace {

/// Pixels of the longer side of what is sent to the browser; no phone shows more.
constexpr NSUInteger kLongestSide = 2532;

}  // namespace

void ImageStore::write(JsonText &out, UIImage *image) {
  if (!image) return out.null();
  const auto number = static_cast<std::uint64_t>([image sim_number]);
  described_.insert_or_assign(number, objcxx::share(image));
  out.beginObject();
  out.name("url").string("/images/" + std::to_string(number));
  out.name("width").number([image size].width);
  out.name("height").number([image size].height);
  out.endObject();
}

void ImageStore::accept() {
  previous_ = std::exchange(current_, std::exchange(described_, {}));
}

NSData *ImageStore::pngOf(std::string_view number) const {
  std::uint64_t wanted = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), wanted);
  if (error != std::errc() || end != number.data() + number.size()) return nil;
  for (const Images *images : {&current_, &previous_}) {
    const auto found = images->find(wanted);
    if (found != images->end()) return [found->second.get() sim_PNGDataWithLongestSide:kLongestSide];
  }
  return nil;
}

}  // namespace sim
