#import "theme/ZunoPresets.h"

/// Presets leave and come as strings (JSON in base64) and as property-list files.
@interface ZunoPresets (Sharing)

/// Adds a preset; asks first whether to import when the pasteboard holds a text.
- (void)onTapAdd;
- (void)askForSharedPreset;
- (void)importPresetAlert;
- (void)importViaFileAlert;
- (void)importViaBase64Alert;

/// Stores the preset that `text` holds under `name`, which has been checked. An error alert and no file when it holds
/// none.
- (void)importPresetWithBase64String:(NSString *)text andName:(NSString *)name;

- (NSString *)base64StringFromDict:(NSDictionary *)dictionary;
/// Any JSON value; nil when the text holds none.
- (id)base64StringToDict:(NSString *)text;

/// Asks how to share the preset file at `path`.
- (void)sharePresetAlert:(NSString *)path;
- (void)shareViaBase64:(NSString *)path;
- (void)shareViaFile:(NSString *)path;

@end
