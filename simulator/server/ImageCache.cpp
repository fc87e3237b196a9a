#include "server/ImageCache.hpp"

#include <utility>

namespace sim {

const Response* ImageCache::find(const std::string& identifier) {
  const auto place = places_.find(identifier);
  if (place == places_.end()) return nullptr;
  entries_.splice(entries_.begin(), entries_, place->second);
  return &entries_.front().response;
}

void ImageCache::insert(const std::string& identifier, Response response) {
  if (response.body->size() > mostBytes_ || places_.contains(identifier)) return;
  bytes_ += response.body->size();
  entries_.push_front({identifier, std::move(response)});
  places_[identifier] = entries_.begin();
  while (bytes_ > mostBytes_) {
    bytes_ -= entries_.back().response.body->size();
    places_.erase(entries_.back().identifier);
    entries_.pop_back();
  }
}

void ImageCache::clear() {
  bytes_ = 0;
  entries_.clear();
  places_.clear();
}

}  // namespace sim
