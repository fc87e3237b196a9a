#import <UIKit/UIKit.h>

/// The presets screen: lists, saves, applies and deletes presets, and shares and imports them (see the Sharing
/// category).
///
/// The settings framework can push it as the detail page of a row. Main thread only.
@interface ZunoPresets : UITableViewController <UIDocumentPickerDelegate> {
 @private
  NSArray *_presetsArray;
}

/// Full paths of the preset files, in the order of the folder's listing.
@property(nonatomic, strong) NSArray *presetsArray;

/// The folder of the preset files.
+ (NSString *)presetsFolder;

/// Lists the folder anew and reloads the table.
- (void)loadPresets;
/// The cleaned name; nil after an error alert.
- (NSString *)validatePresetName:(NSString *)name;
- (BOOL)presetWithNameExists:(NSString *)name;
/// Stores the current theme; nil gives a random name. Does nothing without a theme file.
- (void)savePresetWithName:(NSString *)name;
/// Makes the preset file at `path` the theme and asks the root page to rebuild itself.
- (void)applyPreset:(NSString *)path;
/// Asks for the name of a new preset.
- (void)newPresetAlert;

/// What the settings framework tells a page that it pushes; not needed here.
- (void)setRootController:(id)controller;
- (void)setParentController:(id)controller;
- (void)setSpecifier:(id)specifier;

@end
