// Which rows of the theme page show and which can be used, as the theme file stands.
#pragma once

#import "core/PreferenceFile.h"

@class PSSpecifier;

namespace zuno {

/// Takes out the rows that are of no use: those whose property "shownWhile" is "photo" while there is none
/// (`hasPhoto`), and those with "noPhoto" while there is one.
void removeRowsWithoutUse(NSMutableArray *rows, bool hasPhoto);

/// Disables (property "enabled") every row that depends on a switch which is off.
///
/// The property "dependsOn" of a row, or else of its group, names the key of a switch that stands before it among
/// `rows`. A switch that is disabled itself counts as off. The file's value decides, on for every number but 0; what is
/// missing or no number counts as the "default".
void disableDependentRows(NSArray *rows, const PreferenceFile &file);

}  // namespace zuno
