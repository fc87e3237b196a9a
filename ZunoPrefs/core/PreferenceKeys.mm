#import "core/PreferenceKeys.h"

namespace zuno {

NSString *const kEnabled = @"Enabled";
NSString *const kEnabledWidgets = @"EnabledWidgets";
NSString *const kFavouriteApplications = @"FavouriteApplications";
NSString *const kNowPlayingApplication = @"defaultNowPlayingBundleIdentifier";
NSString *const kHidesSnapshotsOnFavourites = @"hideSnapshotsOnFavourites";
NSString *const kQuickSwitcherShowsFavourites = @"quickSwitcherDefaultToFavourites";
NSString *const kQuickSwitcherWidth = @"quickSwitcherWidthModifier";

}  // namespace zuno
