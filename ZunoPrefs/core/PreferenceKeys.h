// Keys of the main preference file that more than one part of the bundle names.
#pragma once

#import <Foundation/Foundation.h>

namespace zuno {

/// The master switch. While it is off every other key has its default.
extern NSString *const kEnabled;
/// The switcher's pages that are on, by identifier, in order.
extern NSString *const kEnabledWidgets;
/// The favourite apps, by bundle identifier, in order.
extern NSString *const kFavouriteApplications;
/// The music app: an array of one bundle identifier.
extern NSString *const kNowPlayingApplication;
extern NSString *const kHidesSnapshotsOnFavourites;
extern NSString *const kQuickSwitcherShowsFavourites;
extern NSString *const kQuickSwitcherWidth;

}  // namespace zuno
