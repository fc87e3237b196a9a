// The model of a list editor over the platform's arrays and the preference file.
#pragma once

#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>

#include <cstddef>
#include <optional>

#include "lists/ListModel.hpp"

namespace zuno {

/// A text that tells one record from another.
struct RecordIdentifier {
  objcxx::Retained<NSString> text;

  bool operator==(const RecordIdentifier &other) const { return [text.get() isEqualToString:other.text.get()]; }
};

/// A handle on an array of records: objects with a `bundleIdentifier`.
class RecordArray final {
 public:
  using Record = objcxx::Retained<NSObject>;
  using Identifier = RecordIdentifier;
  struct IdentifierHash {
    std::size_t operator()(const Identifier &identifier) const { return [identifier.text.get() hash]; }
  };

  RecordArray() = default;
  /// Shares `array`, which may be nil.
  explicit RecordArray(NSMutableArray *array) : array_(objcxx::share(array)) {}
  static RecordArray made() { return RecordArray([NSMutableArray array]); }

  NSMutableArray *array() const { return array_.get(); }
  explicit operator bool() const { return static_cast<bool>(array_); }
  std::size_t size() const { return [array_.get() count]; }
  Record at(std::size_t row) const { return objcxx::share((NSObject *)[array_.get() objectAtIndex:row]); }
  /// Nothing for a record that has no identifier, or one that is no string.
  std::optional<Identifier> identifierAt(std::size_t row) const;

  void insert(const Record &record, std::size_t row) { [array_.get() insertObject:record.get() atIndex:row]; }
  Record take(std::size_t row);
  /// Removes every record that is equal to this one.
  void removeEqual(const Record &record) { [array_.get() removeObject:record.get()]; }

 private:
  objcxx::Retained<NSMutableArray> array_;
};

/// What makes an editor the editor of one list.
struct ListKind {
  NSString *key;            ///< Of the stored list, an array of identifiers.
  bool needsFile;           ///< Without a preference file nothing is enabled, whatever the defaults say.
  NSString *enabledEmpty;   ///< The placeholder of the empty enabled section.
  NSString *disabledEmpty;  ///< The placeholder of the empty disabled section.
  void (*show)(id record, UITableViewCell *cell);
  ListPolicy policy;
};

/// Both lists of an editor, and what it shows and stores of them. Main thread only.
class EditorModel : public ListModel<RecordArray> {
 public:
  /// `kind` outlives the model.
  explicit EditorModel(const ListKind &kind) : ListModel(kind.policy), kind_(kind) {}

  /// Fills both lists with `records`, as the preference in force says. Without a list stored nothing is enabled;
  /// entries of it that are no strings are passed over. `domain` names the file of `ListKind::needsFile`.
  void load(NSArray *records, NSString *domain);
  /// Stores the enabled list in the domain's file. One that exists but holds no dictionary is left alone.
  void save(NSString *domain) const;

  /// A cell for the row, dequeued or made with the subtitle style: the placeholder in an empty section, else the
  /// record.
  UITableViewCell *cell(UITableView *table, NSIndexPath *path) const;

 private:
  const ListKind &kind_;
};

/// The row that a path names.
inline Place placeOf(NSIndexPath *path) { return {[path section], [path row]}; }

/// What the table of every editor says over a section.
NSString *sectionTitle(NSInteger section);

/// Puts the table into editing mode, with rows that can be tapped all the same.
void prepareForEditing(UITableView *table);

}  // namespace zuno
