// The names of the pages that can stand beside the switcher, without loading any.
#pragma once

#import <Foundation/Foundation.h>

namespace zuno {

/// The identifiers of the two pages of the switcher itself.
extern NSString *const kMusicPage;
extern NSString *const kFavouritesPage;

/// New holders (`ZunoWidgetHolder`) of the two pages of the switcher itself, which have an identifier and a name only.
/// Autoreleased.
NSArray *builtInPages();

/// The names of the built-in pages and of the widgets installed, by identifier; a widget without a name has its
/// identifier for one. Of two with the same identifier the first in the order of the editor counts. Reads the Info
/// lists in the widgets folder and loads no code, so that a widget counts also when its code could not be loaded.
/// Autoreleased.
NSDictionary *namesOfWidgets();

}  // namespace zuno
