#import <Preferences/PSListController.h>

/// A request to rebuild the root page the next time it has appeared. Process-wide, initially NO; set by whoever
/// replaces preference files behind the page's back, cleared by the page. Main thread only.
extern BOOL pendingRootReload;

/// The root page of the settings bundle: the rows of "Root.plist" without those of features that are off.
///
/// Values live in the main preference file; each row carries its "key", "default" and "PostNotification".
@interface ZunoprefsRootListController : PSListController {
  BOOL shouldReload;
  NSDictionary *appNames;  // By bundle identifier; nil until the installed apps are known.
}

/// Actions of the page's rows.
- (void)respring;
- (void)selectDefaultMusicApp;
- (void)selectFavourites;
- (void)selectWidgets;
- (void)developerProfileLink;
- (void)designerProfileLink;

@end
