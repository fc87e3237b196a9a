#import "widgets/ZunoWidgetHolder.h"

#import "widgets/ZunoWidgetProtocol.h"

@implementation ZunoWidgetHolder

@synthesize hasPreferences = _hasPreferences;
@synthesize bundleIdentifier = _bundleIdentifier;
@synthesize displayName = _displayName;
@synthesize className = _className;
@synthesize bundle = _bundle;
@synthesize preferencesFile = _preferencesFile;
@synthesize widget = _widget;

- (void)dealloc {
  [_bundleIdentifier release];
  [_displayName release];
  [_className release];
  [_widget release];
  [_bundle release];
  [_preferencesFile release];
  [super dealloc];
}

@end
