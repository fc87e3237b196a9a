#import "lists/EditorModel.h"
#import "lists/ZunoListEditor.h"

namespace zuno {

/// Apps, at most four enabled, under "FavouriteApplications".
struct FavouritesModel final : EditorModel {
  FavouritesModel();
};

}  // namespace zuno

/// The editor of the favourite apps: at most four enabled, in order, and all other installed apps.
@interface ZunoFavouritesPicker : UITableViewController <ZunoListEditor> {
 @private
  zuno::FavouritesModel _model;
  NSString *_prefsIdentifier;
  NSArray *_appList;
}

/// Every app that the app list library delivered, in its order.
@property(nonatomic, strong) NSArray *appList;

/// Asks for the installed apps at once; until they arrive both sections are empty.
- (instancetype)initWithIdentifier:(NSString *)identifier;
/// Takes the installed apps (objects with `displayName`, `bundleIdentifier` and `icon`) and fills both sections.
- (void)setApps:(NSArray *)apps;

@end
