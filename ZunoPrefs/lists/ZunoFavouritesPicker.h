#import <UIKit/UIKit.h>

/// The editor of the favourite apps: at most four enabled, in order, and all other installed apps.
///
/// Every tap and drag is written at once, as bundle identifiers under "FavouriteApplications". Main thread only.
@interface ZunoFavouritesPicker : UITableViewController {
 @private
  NSMutableArray *_menuItems;
  NSMutableArray *_menuItemsDisabled;
  NSString *_prefsIdentifier;
  NSArray *_appList;
}

/// The enabled apps in display order, which is the stored order; nil until the installed apps are known.
@property(nonatomic, strong) NSMutableArray *menuItems;
/// Every other installed app; nil until the installed apps are known.
@property(nonatomic, strong) NSMutableArray *menuItemsDisabled;
/// The preference domain that names the file.
@property(nonatomic, strong) NSString *prefsIdentifier;
/// Every app that the app list library delivered, in its order.
@property(nonatomic, strong) NSArray *appList;

/// Asks for the installed apps at once; until they arrive both sections are empty.
- (instancetype)initWithIdentifier:(NSString *)identifier;
/// Takes the installed apps (objects with `displayName`, `bundleIdentifier` and `icon`) and fills both sections.
- (void)setApps:(NSArray *)apps;

- (void)loadLists;
- (void)saveLists;
/// Every installed app.
- (NSArray *)defaultItems;

/// Whether the image counts as dark; see `zuno::isImageDark`.
- (BOOL)isImageDark:(UIImage *)image;
/// The image with inverted colours; nil unless it was made from a Core Image image.
- (UIImage *)invertImage:(UIImage *)image;

@end
