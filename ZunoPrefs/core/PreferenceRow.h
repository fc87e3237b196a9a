// Reading and writing the value of one settings row in a preference file. Both settings pages use it.
#pragma once

#import "core/PreferenceFile.h"

@class PSSpecifier;

namespace zuno {

/// The identifier of the row that shows "presetUserAgent", on either page.
extern NSString *const kUserAgentRow;

/// The row's property `name` if it is a string that is not empty, else nil.
NSString *rowText(PSSpecifier *row, NSString *name);

/// The value that `row` shows: the file's value for the row's "key", else the row's "default", else nil.
///
/// The key "presetUserAgent" is computed: the file's "device" and "iosVersion" joined by a slash, a missing one as the
/// platform formats nil. The value has whatever type the file gives it.
id rowValue(PSSpecifier *row, const PreferenceFile &file);

/// `value` if it is a finite number, else the row's "default" if that is one, else nil: as readers of the files take
/// what is stored for a number or a switch.
NSNumber *numberOrDefault(id value, PSSpecifier *row);

/// Stores `value` under the row's "key" and then, whether or not the file could be written, posts the Darwin
/// notification that the row's "PostNotification" names, if any.
void setRowValue(id value, PSSpecifier *row, const PreferenceFile &file);

/// Whether the value of `row` is one of those that "presetUserAgent" joins.
bool isPartOfUserAgent(PSSpecifier *row);

}  // namespace zuno
