// Reading and writing a preference file: a property-list dictionary, read whole and written whole.
#pragma once

#import <Foundation/Foundation.h>

#import <objcxx/Retained.h>

#include <cstddef>
#include <functional>
#include <span>
#include <string_view>

namespace zuno {

/// The preference domain of everything but the theme; names the main preference file.
extern NSString *const kMainDomain;
/// The preference domain of the theme page.
extern NSString *const kThemeDomain;

/// What a write does with a file that exists but is no property-list dictionary.
enum class Damaged {
  kSetAside,    ///< It counts as empty; its content stays beside the new file as "<name>.damaged".
  kLeaveAlone,  ///< Nothing is written.
};

/// One preference file. Holds only the path: every call looks at the file again, because other processes and other
/// pages write it too. Main thread only.
class PreferenceFile final {
 public:
  /// The file "<preferences folder>/<domain>.plist".
  static PreferenceFile ofDomain(NSString *domain);

  NSString *path() const { return path_.get(); }
  /// Whether anything lies at the path, readable or not.
  bool exists() const;

  /// The whole dictionary, autoreleased; nil when the file is missing or is no property-list dictionary.
  NSDictionary *contents() const;

  /// What the dictionary holds for `key`, autoreleased; nil without a file, without the key or for a nil key. As if the
  /// whole file were read, but quick for texts, numbers and truth values beside a photo of many megabytes.
  id value(NSString *key) const;
  /// Whether the dictionary holds something for `key`; as quick as `value`, and makes no object of what it finds.
  bool contains(NSString *key) const;

  /// What the dictionary holds for each of `keys` (UTF-8), by key, autoreleased: as `value` gives it, in one pass.
  NSDictionary *values(std::span<const std::string_view> keys) const;

  /// Calls `use` with the text that the dictionary holds for `key`, in UTF-8, lent until it returns; not where it holds
  /// none. A photo of many megabytes is mostly not copied.
  void withText(NSString *key, const std::function<void(std::string_view)> &use) const;

  /// Tells one text from another without giving it: the same number for the same text under `key`, most likely another
  /// for another; 0 where the file holds no text for it. Quick for a photo of many megabytes.
  std::size_t fingerprint(NSString *key) const;

  /// Sets `key` to `value` (a property-list object) in the current contents and writes the whole file atomically.
  /// A nil value or key changes nothing. Where the file cannot be written, the old one stands as it was.
  void setValue(id value, NSString *key, Damaged damaged = Damaged::kSetAside) const;

  /// Takes `key` out of the current contents and writes the whole file atomically. Writes nothing when the file does
  /// not hold the key or is no property-list dictionary. Where the file cannot be written, the old one stands as it
  /// was.
  void removeValue(NSString *key) const;

 private:
  explicit PreferenceFile(NSString *path) : path_(objcxx::adopt((NSString *)[path copy])) {}
  /// Gives the file, which could not be read, a second name, and returns that; nil when there was nothing to keep.
  NSString *setAside() const;

  objcxx::Retained<NSString> path_;
};

}  // namespace zuno
