#import <Foundation/Foundation.h>

@protocol ZunoWidgetProtocol;

/// The record of one widget: a loaded bundle and its one instance, or a built-in page, which has only an identifier
/// and a name. Set once by its maker.
@interface ZunoWidgetHolder : NSObject {
 @private
  BOOL _hasPreferences;
  NSString *_bundleIdentifier;
  NSString *_displayName;
  NSString *_className;
  NSBundle *_bundle;
  NSString *_preferencesFile;
  id<ZunoWidgetProtocol> _widget;
}

/// Whether the bundle has a resource "Preferences.plist".
@property(nonatomic) BOOL hasPreferences;
/// The widget's identity in the preference lists.
@property(nonatomic, strong) NSString *bundleIdentifier;
/// The name that the widgets editor shows; nil when the bundle has none.
@property(nonatomic, strong) NSString *displayName;
/// The principal class, as the bundle's Info list names it.
@property(nonatomic, strong) NSString *className;
@property(nonatomic, strong) NSBundle *bundle;
/// Full path of the resource "Preferences.plist"; nil when there is none.
@property(nonatomic, strong) NSString *preferencesFile;
@property(nonatomic, strong) id<ZunoWidgetProtocol> widget;

@end
