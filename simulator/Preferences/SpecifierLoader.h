// Makes specifiers from property lists. Used by PSListController and by the preference loader.
#pragma once

#import <Foundation/Foundation.h>

@class PSSpecifier;

namespace sim {

/// The dictionary in `<name>.plist` of the bundle; nil with a log line when it is missing or malformed.
NSDictionary *specifierPropertyList(NSString *name, NSBundle *bundle);

/// Specifiers of the list's "items", with `target`; a malformed item is left out with a log line. Texts are looked up
/// in `table` of the bundle. A new array.
NSMutableArray *specifiersOfPropertyList(NSDictionary *list, NSString *table, NSBundle *bundle, id target);

/// One specifier; nil with a log line when the item is malformed.
PSSpecifier *specifierOfItem(id item, NSString *table, NSBundle *bundle, id target);

/// Gives every specifier that has none an identifier (key, then name) and makes identifiers unique by the suffixes
/// ".0", ".1" and so on.
void assignIdentifiers(NSArray *specifiers);

/// The image of a bundle by its file name, with or without extension; nil with a log line when there is none.
id bundleImage(NSString *name, NSBundle *bundle);

/// Where the bundle lies that an item names by "bundlePath" or "bundle"; nil when there is none.
NSString *preferenceBundlePath(NSDictionary *item);

}  // namespace sim
