// The page of the preferences that a widget brings along.
#pragma once

#import <Preferences/PSListController.h>

/// Rows of a property list in a widget's bundle. Their values are kept in files as everywhere in the Preferences
/// framework; rows that name no domain ("defaults") share the widget's own, its bundle identifier.
@interface SIMWidgetPreferencesPage : PSListController {
 @private
  NSBundle *_widgetBundle;
  NSString *_file;
}
/// `file`: full path of the list. `bundle` has its pictures and texts.
- (instancetype)initWithFile:(NSString *)file bundle:(NSBundle *)bundle title:(NSString *)title;
@end
