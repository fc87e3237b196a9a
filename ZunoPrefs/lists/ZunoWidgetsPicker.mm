#import "lists/ZunoWidgetsPicker.h"

#import "core/PreferenceKeys.h"
#import "lists/IconTone.h"
#import "widgets/WidgetNames.h"
#import "widgets/ZunoWidgetHolder.h"
#import "widgets/ZunoWidgetLoader.h"

namespace zuno {
namespace {

void showPage(id record, UITableViewCell *cell) {
  ZunoWidgetHolder *page = record;
  [[cell textLabel] setText:[page displayName]];
}

const ListKind kKind{
    .key = kEnabledWidgets,
    .needsFile = false,
    .enabledEmpty = @"No Widgets Are Enabled...",
    .disabledEmpty = @"No Widgets Are Disabled...",
    .show = showPage,
    .policy = {},
};

}  // namespace

WidgetsModel::WidgetsModel() : EditorModel(kKind) {}

}  // namespace zuno

@implementation ZunoWidgetsPicker

@synthesize widgetsList = _widgetsList;

- (instancetype)initWithIdentifier:(NSString *)identifier {
  if (!(self = [super init])) return nil;

  [self setPrefsIdentifier:identifier];
  [self loadWidgets];
  return self;
}

- (void)dealloc {
  [_prefsIdentifier release];
  [_widgetsList release];
  [super dealloc];
}

- (void)loadWidgets {
  ZunoWidgetLoader *loader = [ZunoWidgetLoader sharedInstance];
  [loader loadWidgets];
  [self setWidgetsList:[loader loadedWidgets]];
  [self loadLists];
}

#include "lists/ListEditorMethods.h"

- (NSArray *)defaultItems {
  return [zuno::builtInPages() arrayByAddingObjectsFromArray:_widgetsList ?: @[]];
}

#pragma mark - Icon tone

- (BOOL)isImageDark:(UIImage *)image {
  return zuno::isImageDark(image);
}

- (UIImage *)invertImage:(UIImage *)image {
  return zuno::invertedImage(image);
}

@end
