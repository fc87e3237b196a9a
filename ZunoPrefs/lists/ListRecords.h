// Turning stored identifiers into the records of a list editor's sections and back. Linear in the number of records.
#pragma once

#import <Foundation/Foundation.h>

/// What a list editor needs of a record: its identity.
@protocol ZunoListRecord <NSObject>
- (NSString *)bundleIdentifier;
@end

namespace zuno {

/// The records that `stored` names, in stored order, at most `limit`. For each identifier every record that has it is
/// taken, in the order of `records`; identifiers of no record, and entries that are no strings, are passed over. A
/// `stored` that is no array names nothing. Autoreleased, new.
NSMutableArray *recordsNamed(id stored, NSArray *records, NSUInteger limit = NSUIntegerMax);

/// The records, in order, whose identifier is neither that of a record of `enabled` nor that of an earlier one.
/// Autoreleased, new.
NSMutableArray *recordsNotIn(NSArray *enabled, NSArray *records);

/// The identifiers of the records, in order; records without one cannot be stored and are left out. Autoreleased.
NSArray *identifiersOf(NSArray *records);

}  // namespace zuno
