// The values that the rows of a page ask a preference file for one after the other, found in one pass.
#pragma once

#import <Foundation/Foundation.h>

#import <objcxx/Retained.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/FileState.hpp"

namespace zuno {

/// The last pass over a preference file. Every row of a page asks for its own value, and over a file that holds a photo
/// of many megabytes each pass takes milliseconds; so a pass looks up every key that was asked for before, and it
/// answers as long as the file is as it was read. A file that had only just changed when it was read is read again
/// every time (see showsChangesAfter). So a change is always seen. Main thread only.
class PreferenceScan final {
 public:
  /// Texts above this size, in bytes, are not kept: a photo is read from the file when it is wanted.
  static constexpr std::size_t kLargestKept = 4096;
  /// With more keys than this the earlier ones are forgotten.
  static constexpr std::size_t kMostKeys = 64;

  struct Entry {
    enum class Kind {
      kUndecided,  ///< Another way has to tell.
      kAbsent,
      kFound,  ///< `value` is what the file holds.
      kLarge,  ///< The file holds a text that is not kept.
    };
    Kind kind = Kind::kUndecided;
    objcxx::Retained<NSObject> value;
  };

  /// Says which keys (UTF-8) of the file at `path` will be asked for.
  void expect(const std::string &path, std::span<const std::string_view> keys);

  /// What the file at `path` holds for `key` (UTF-8). Lent; lives until the next call.
  const Entry &find(const std::string &path, std::string_view key);

 private:
  void pass();

  std::string path_;
  FileState state_;
  bool counts_ = false;  ///< Whether the pass answers while the state is the same.
  std::vector<std::string> keys_;
  std::vector<Entry> entries_;  ///< As many as keys, in their order.
};

}  // namespace zuno
