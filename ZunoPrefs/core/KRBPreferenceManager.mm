#import "core/KRBPreferenceManager.h"

#import "core/PreferenceFile.h"
#import "core/PreferenceKeys.h"
#import "widgets/WidgetNames.h"

namespace {

NSString *const kShownWelcome = @"ShownWelcome";

NSDictionary *makeDefaults() {
  NSNumber *off = [NSNumber numberWithInt:0];
  NSNumber *on = [NSNumber numberWithInt:1];
  return @{
    zuno::kEnabled : on,
    zuno::kEnabledWidgets : @[ @"com.norvik.Zunowidgets.siri", zuno::kFavouritesPage, zuno::kMusicPage ],
    @"NotificationBadges" : on,
    @"OnActivationMode" : on,
    @"QuickSwitcherEnabled" : off,
    @"ShowSwitcherWithSnapshots" : off,
    zuno::kNowPlayingApplication : @[ @"com.apple.Music" ],
    zuno::kHidesSnapshotsOnFavourites : off,
    @"pullToKillEnabled" : off,
    zuno::kQuickSwitcherShowsFavourites : off,
    zuno::kQuickSwitcherWidth : [NSNumber numberWithFloat:-20.0f],
  };
}

/// Whether a resolved "Enabled" leaves the switcher on. A stored object that is no truth value counts as not stored,
/// and the default is on.
bool isOn(id enabled) { return ![enabled respondsToSelector:@selector(boolValue)] || [enabled boolValue]; }

}  // namespace

@implementation KRBPreferenceManager

+ (NSDictionary *)defaultPrefs {
  static NSDictionary *const defaults = [makeDefaults() retain];
  return defaults;
}

+ (NSDictionary *)getPrefs {
  return zuno::PreferenceFile::ofDomain(zuno::kMainDomain).contents() ?: [NSDictionary dictionary];
}

+ (id)getPrefForKey:(NSString *)key {
  const bool exempt = [key isEqualToString:zuno::kEnabled] || [key isEqualToString:kShownWelcome];
  if (!exempt && !isOn([self getPrefForKey:zuno::kEnabled])) return [[self defaultPrefs] objectForKey:key];
  @try {
    return [[self getPrefs] objectForKey:key] ?: [[self defaultPrefs] objectForKey:key];
  } @catch (NSException *) {
    return [NSNumber numberWithInt:0];
  }
}

+ (NSNumber *)kCurrentVersion {
  return [NSNumber numberWithInt:2];
}

@end
