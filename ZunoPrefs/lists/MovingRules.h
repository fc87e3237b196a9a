// How rows move between the enabled and the disabled section of a list editor, by drag and by tap.
#pragma once

#import <Foundation/Foundation.h>

namespace zuno {

/// The section numbers of a list editor.
constexpr NSInteger kEnabledSection = 0;
constexpr NSInteger kDisabledSection = 1;

/// Where the two editors differ.
struct MovePolicy {
  /// Whether a tap that enables a record evicts the last enabled one when the section is full. A drag always does.
  bool tapEvicts = true;
  /// Whether an evicted record goes to the end of the disabled section; otherwise it leaves both sections.
  bool evictedIsDisabled = true;
};

/// The rules, applied to the two sections of an editor, each a list of records in display order. They change only the
/// lists; showing and saving them is the caller's. A row that does not exist changes nothing. Main thread only.
class MovingRules final {
 public:
  /// The enabled section is full with this many records.
  static constexpr NSUInteger kLimit = 4;

  explicit MovingRules(MovePolicy policy = {}) : policy_(policy) {}

  /// The record at `from` was dropped at `to`, both as the table counts them (`to` in the list without the record).
  /// Within a section it takes the new place. Into an empty section it is appended whatever the drop row. Into a full
  /// enabled section the last enabled record is evicted first, and the drop row is then cut to the section's end.
  void drag(NSIndexPath *from, NSIndexPath *to, NSMutableArray *enabled, NSMutableArray *disabled) const;

  /// The record at `row` was tapped: it goes to the end of the other section. Returns false when there is no such
  /// record (a placeholder was tapped) and nothing changed.
  bool tap(NSIndexPath *row, NSMutableArray *enabled, NSMutableArray *disabled) const;

 private:
  void evictLast(NSMutableArray *enabled, NSMutableArray *disabled) const;

  MovePolicy policy_;
};

}  // namespace zuno
