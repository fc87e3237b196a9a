#import <Foundation/Foundation.h>

@class ZunoWidgetHolder;

/// Finds, checks and loads the widget bundles of the widgets folder. Only the making of the shared instance is safe on
/// any thread; everything else is for the main thread.
@interface ZunoWidgetLoader : NSObject {
 @private
  NSArray *_loadedWidgets;
}

/// The widgets (`ZunoWidgetHolder`) that passed every test in the last load, in the order of the folder's listing.
@property(nonatomic, strong) NSArray *loadedWidgets;

/// The one loader of the process; it has loaded nothing yet.
+ (instancetype)sharedInstance;

/// Rebuilds `loadedWidgets` from the widgets folder, which is made if it is missing. Bundles that fail a test are left
/// out, each with one line in the log. Loaded code stays in the process; holders and instances are new each time.
- (void)loadWidgets;

/// The first widget of the shared instance with this bundle identifier; nil when there is none.
- (ZunoWidgetHolder *)widgetWithIdentifier:(NSString *)identifier;

/// Tells every widget of the shared instance that has been set up that it is no longer the active page.
- (void)setAllWidgetsInactive;

@end
