// Which applications are chosen: an array of bundle identifiers under one key of a preference file.
#pragma once

#import <Foundation/Foundation.h>

#import <objcxx/Retained.h>

namespace sim {

/// Reads the file at every question and keeps everything in it that is not its own. Main thread only.
class AppSelection final {
 public:
  AppSelection() = default;
  /// `identifier` names the preference file.
  AppSelection(NSString *identifier, NSString *key);

  /// The stored array as it is; a bare string counts as an array of one, anything else as an empty one.
  NSArray *stored() const;

  /// Chooses the application, or drops it when it was chosen. At most `limit` strings are kept, 0 is no limit; with 1
  /// the new choice replaces the old one, otherwise chosen applications that are not in `installed` make room first. NO
  /// when the limit refuses the choice or the file cannot be written.
  bool toggle(NSString *application, NSInteger limit, NSSet *installed) const;

 private:
  objcxx::Retained<NSString> file_;
  objcxx::Retained<NSString> key_;
};

}  // namespace sim
