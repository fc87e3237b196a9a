#import "theme/ZunoPresets+Sharing.h"

#import <dispatch/dispatch.h>

#import "theme/Alerts.h"
#import "theme/PresetFileImport.h"
#import "theme/PresetStore.h"
#import "theme/PresetString.h"

namespace {

NSString *const kImportFailed = @"Failed to import preset. Please check the preset data and try again.";

/// Presents once the alert that led here has gone.
void presentLater(UIViewController *page, UIViewController *presented) {
  dispatch_async(dispatch_get_main_queue(), ^{
    [page presentViewController:presented animated:YES completion:nil];
  });
}

}  // namespace

@implementation ZunoPresets (Sharing)

#pragma mark - Import

- (void)onTapAdd {
  if ([[UIPasteboard generalPasteboard] string]) {
    [self askForSharedPreset];
  } else {
    [self newPresetAlert];
  }
}

- (void)askForSharedPreset {
  UIAlertController *alert = zuno::alertTitled(@"Import/Add", @"What would you like to do?");
  zuno::addAction(alert, @"Import Existing Preset...", UIAlertActionStyleDefault, ^{
    [self importPresetAlert];
  });
  zuno::addAction(alert, @"Create New Preset...", UIAlertActionStyleDefault, ^{
    [self newPresetAlert];
  });
  zuno::addAction(alert, @"Cancel", UIAlertActionStyleCancel, nil);
  [self presentViewController:alert animated:YES completion:nil];
}

- (void)importPresetAlert {
  UIAlertController *alert = zuno::alertTitled(@"Import Preset", @"Chose import...");
  zuno::addAction(alert, @"Import from file...", UIAlertActionStyleDefault, ^{
    [self importViaFileAlert];
  });
  zuno::addAction(alert, @"Import from string...", UIAlertActionStyleDefault, ^{
    [self importViaBase64Alert];
  });
  zuno::addAction(alert, @"Cancel", UIAlertActionStyleCancel, nil);
  [self presentViewController:alert animated:YES completion:nil];
}

- (void)importViaFileAlert {
  UIDocumentPickerViewController *picker =
      [[[UIDocumentPickerViewController alloc] initWithDocumentTypes:@[ @"public.data" ]
                                                              inMode:UIDocumentPickerModeImport] autorelease];
  [picker setDelegate:self];
  [picker setModalPresentationStyle:UIModalPresentationOverFullScreen];
  [self presentViewController:picker animated:YES completion:nil];
}

- (void)documentPicker:(UIDocumentPickerViewController *)picker didPickDocumentAtURL:(NSURL *)url {
  if ([picker documentPickerMode] != UIDocumentPickerModeImport) return;
  if (![url startAccessingSecurityScopedResource]) {
    zuno::presentError(self, @"Cannot access preset file.");
    return;
  }
  switch (zuno::importPresetFile([url path])) {
    case zuno::FileImport::kInvalid:
      zuno::presentError(self, @"Invalid file selected.");
      return;  // The access stays open.
    case zuno::FileImport::kCopyFailed: zuno::presentError(self, @"Failed to import preset"); break;
    case zuno::FileImport::kImported: break;
  }
  [url stopAccessingSecurityScopedResource];
  [[self tableView] reloadData];
}

- (void)importViaBase64Alert {
  __block UIAlertController *alert =
      zuno::alertTitled(@"Import Preset", @"Enter a name and paste the preset data below...");
  zuno::addField(alert, @"Preset Name...");
  zuno::addField(alert, @"Preset Data...");
  zuno::addAction(alert, @"Import", UIAlertActionStyleDefault, ^{
    if (NSString *name = [self validatePresetName:zuno::fieldText(alert, 0)]) {
      [self importPresetWithBase64String:zuno::fieldText(alert, 1) andName:name];
    }
  });
  zuno::addAction(alert, @"Cancel", UIAlertActionStyleCancel, nil);
  [self presentViewController:alert animated:YES completion:nil];
}

- (void)importPresetWithBase64String:(NSString *)text andName:(NSString *)name {
  BOOL imported = NO;
  @try {
    NSLog(@"[Zuno] importPresetWithBase64String base64Str: %@", text);
    id decoded = [self base64StringToDict:text];
    if (!decoded) {
      NSLog(@"[Zuno] importPresetWithBase64String NULL");
    } else if (![decoded isKindOfClass:[NSDictionary class]]) {
      [NSException raise:NSInvalidArgumentException format:@"a preset is a dictionary, not a %@", [decoded class]];
    } else if (zuno::writePreset(decoded, name)) {
      imported = YES;
      [self loadPresets];
    } else {
      NSLog(@"[Zuno] importPresetWithBase64String writeToFile FAILED");
    }
  } @catch (NSException *exception) {
    NSLog(@"[Zuno] importPresetWithBase64String %@", exception);
  }
  if (!imported) zuno::presentError(self, kImportFailed, UIAlertActionStyleCancel);
}

- (NSString *)base64StringFromDict:(NSDictionary *)dictionary {
  return zuno::presetStringFrom(dictionary);
}

- (id)base64StringToDict:(NSString *)text {
  return zuno::objectFromPresetString(text);
}

#pragma mark - Share

- (void)sharePresetAlert:(NSString *)path {
  UIAlertController *alert = zuno::alertTitled([NSString stringWithFormat:@"Share \"%@\"...", zuno::presetNameOf(path)],
                                               @"Choose sharing option...");
  zuno::addAction(alert, @"Share via string", UIAlertActionStyleDefault, ^{
    [self shareViaBase64:path];
  });
  zuno::addAction(alert, @"Share via file", UIAlertActionStyleDefault, ^{
    [self shareViaFile:path];
  });
  zuno::addAction(alert, @"Cancel", UIAlertActionStyleCancel, nil);
  presentLater(self, alert);
}

- (void)shareViaBase64:(NSString *)path {
  NSString *text = [self base64StringFromDict:[NSDictionary dictionaryWithContentsOfFile:path]];
  if (!text) {
    zuno::presentError(self, @"Cannot access preset file.");
    return;
  }
  UIAlertController *alert =
      zuno::alertTitled([NSString stringWithFormat:@"Share \"%@\"...", zuno::presetNameOf(path)],
                        [NSString stringWithFormat:@"Copy the following to share the preset: \n\n%@", text]);
  zuno::addAction(alert, @"Copy to Clipboard", UIAlertActionStyleDefault, ^{
    [[UIPasteboard generalPasteboard] setString:text];
  });
  zuno::addAction(alert, @"Done", UIAlertActionStyleCancel, nil);
  presentLater(self, alert);
}

- (void)shareViaFile:(NSString *)path {
  UIActivityViewController *sheet =
      [[[UIActivityViewController alloc] initWithActivityItems:@[ [NSURL fileURLWithPath:path] ]
                                         applicationActivities:nil] autorelease];
  // Large screens show the sheet beside the preset's row.
  const NSUInteger row = [[self presetsArray] indexOfObject:path];
  UIPopoverPresentationController *popover = [sheet popoverPresentationController];
  [popover setSourceView:[self tableView]];
  [popover setSourceRect:row == NSNotFound
                             ? [[self tableView] bounds]
                             : [[self tableView] rectForRowAtIndexPath:[NSIndexPath indexPathForRow:(NSInteger)row
                                                                                          inSection:0]]];
  presentLater(self, sheet);
}

@end
