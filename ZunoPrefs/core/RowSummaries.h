// What the rows of the root page that open a list of apps or widgets tell of it: the names of what is chosen there.
#pragma once

#import <Foundation/Foundation.h>

namespace zuno {

/// The names of apps (`NorvikAppRecord`), by bundle identifier. Autoreleased.
NSDictionary *namesOfApps(NSArray *apps);

/// Sets the property "names" of every row that has a "summaryKey" to the names of what the preference in force under
/// that key chooses, in its order: widgets where its "summaryOf" is "widgets", else apps. Returns the rows whose names
/// have changed; autoreleased.
///
/// What is not installed is passed over, as the pages do that choose it. While the names of the apps are not known
/// (`appNames` is nil) rows that would need one are left as they are. Reads the main preference file and the Info lists
/// of the installed widgets, whose code it does not load.
NSArray *summariseRows(NSArray *rows, NSDictionary *appNames);

}  // namespace zuno
