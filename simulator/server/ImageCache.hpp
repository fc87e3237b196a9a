// The pictures that pages have asked for lately.
#pragma once

#include "server/Http.hpp"

#include <cstddef>
#include <list>
#include <string>
#include <unordered_map>

namespace sim {

/// Keeps the responses that were used last, up to a number of bytes. Main thread only.
class ImageCache final {
 public:
  explicit ImageCache(std::size_t mostBytes) : mostBytes_(mostBytes) {}

  /// The response, or null. It counts as used.
  const Response* find(const std::string& identifier);

  /// Keeps the response unless it alone is larger than the cache.
  void insert(const std::string& identifier, Response response);

  void clear();

 private:
  struct Entry {
    std::string identifier;
    Response response;
  };

  std::size_t mostBytes_;
  std::size_t bytes_ = 0;
  std::list<Entry> entries_;  // The one used last stands first.
  std::unordered_map<std::string, std::list<Entry>::iterator> places_;
};

}  // namespace sim
