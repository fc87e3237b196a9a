#import "theme/ZunoPresets+Sharing.h"

#import <Foundation/NSURL+Sim.h>
#import <UIKit/UIActivityViewController+Sim.h>
#import <UIKit/UIDocumentPickerViewController+Sim.h>
#import <UIKit/UITableView+Sim.h>
#import <dispatch/dispatch.h>
#import <dispatch/MainQueue+Sim.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "ZunoPrefs/theme/PresetsTest.h"

@class UnsureTransition;

/// Has a page refuse a name while it is itself on its way out.
@interface LeavingPage : UIViewController {
 @public
  ZunoPresets *presets;  // Not owned.
  objcxx::Retained<UnsureTransition> transition;
}
@end

/// Says that it runs nothing, and runs it all the same.
@interface UnsureTransition : NSObject
@end

@implementation UnsureTransition
- (BOOL)animateAlongsideTransition:(void (^)(id))animation completion:(void (^)(id))completion {
  dispatch_async(dispatch_get_main_queue(), ^{
    completion(nil);
  });
  return NO;
}
@end

@implementation LeavingPage
- (id<UIViewControllerTransitionCoordinator>)transitionCoordinator {
  return (id)transition.get();
}
- (void)viewWillDisappear:(BOOL)animated {
  [super viewWillDisappear:animated];
  [presets validatePresetName:@""];
}
@end

namespace {

const std::string kImportFailed =
    "Error|Failed to import preset. Please check the preset data and try again.|OK:cancel";

class SharingTest : public PresetsTest {
 protected:
  void TearDown() override {
    [[UIPasteboard generalPasteboard] setString:nil];
    [NSURL sim_resetSecurityScopes];
    PresetsTest::TearDown();
  }
  static NSString *base64(std::string_view text) {
    return [[NSData dataWithBytes:text.data() length:text.size()] base64EncodedStringWithOptions:0];
  }
  /// Imports `text` as "new" and describes the alert that follows, "none" when there is none.
  std::string imported(NSString *text) {
    ZunoPresets *page = showPage();
    [page importPresetWithBase64String:text andName:@"new"];
    return describe([page presentedViewController] ? alertOf(page) : nil);
  }
  /// A file that the user picks, and the picker's delegate call.
  std::string pick(NSString *name, std::string_view content, SIMSecurityScope scope = SIMSecurityScopeReadable) {
    NSURL *url = [NSURL fileURLWithPath:write([@"/picked/" stringByAppendingString:name], content)];
    [url sim_setSecurityScope:scope];
    ZunoPresets *page = showPage();
    shown_ = page;
    auto *picker =
        [[[UIDocumentPickerViewController alloc] initWithDocumentTypes:@[ @"public.data" ]
                                                                inMode:UIDocumentPickerModeImport] autorelease];
    [page documentPicker:picker didPickDocumentAtURL:url];
    openAccesses_ = [url sim_openAccesses];
    return describe([page presentedViewController] ? alertOf(page) : nil);
  }
  /// A page that presents a document picker, which is returned.
  UIDocumentPickerViewController *openPicker() {
    shown_ = showPage();
    [shown_ importViaFileAlert];
    UIViewController *picker = [shown_ presentedViewController];
    EXPECT_TRUE([picker isKindOfClass:[UIDocumentPickerViewController class]]);
    return (UIDocumentPickerViewController *)picker;
  }
  /// Until what was put off has been done.
  static void wait() {
    SIMDrainMainQueue();
    [[NSRunLoop currentRunLoop] runUntilDate:[NSDate dateWithTimeIntervalSinceNow:0.3]];
    SIMDrainMainQueue();
  }
  /// How often the log has a line that begins with `text`.
  long linesBeginning(const std::string &text) const {
    return std::count_if(log.begin(), log.end(), [&](const auto &line) { return line.rfind(text, 0) == 0; });
  }
  ZunoPresets *shown_ = nil;  // The page of the last pick; the window owns it.
  NSUInteger openAccesses_ = 0;
};

TEST_F(SharingTest, WithoutAPasteboardTextTheAddButtonAsksForAName) {
  ZunoPresets *page = showPage();
  [page onTapAdd];
  EXPECT_OBJC_EQ([alertOf(page) title], @"New Preset");
}

TEST_F(SharingTest, WithAnyPasteboardTextTheMenuComesFirst) {
  for (NSString *text in @[ @"anything", @"" ]) {
    [[UIPasteboard generalPasteboard] setString:text];
    ZunoPresets *page = showPage();
    [page onTapAdd];
    EXPECT_EQ(describe(alertOf(page)),
              "Import/Add|What would you like to do?|Import Existing Preset...:default|Create New "
              "Preset...:default|Cancel:cancel");
  }
}

TEST_F(SharingTest, TheMenusLeadToEachOther) {
  ZunoPresets *page = showPage();
  [page askForSharedPreset];
  tapAction(page, "Import Existing Preset...");
  EXPECT_EQ(describe(alertOf(page)),
            "Import Preset|Chose import...|Import from file...:default|Import from string...:default|Cancel:cancel");
  tapAction(page, "Import from string...");
  EXPECT_EQ(describe(alertOf(page)),
            "Import Preset|Enter a name and paste the preset data below...|[Preset Name...]|[Preset Data...]"
            "|Import:default|Cancel:cancel");
  tapAction(page, "Cancel");
  [page askForSharedPreset];
  tapAction(page, "Create New Preset...");
  EXPECT_OBJC_EQ([alertOf(page) title], @"New Preset");
}

TEST_F(SharingTest, ImportFromFileOpensThePicker) {
  ZunoPresets *page = showPage();
  [page importPresetAlert];
  tapAction(page, "Import from file...");
  auto *picker = (UIDocumentPickerViewController *)[page presentedViewController];
  ASSERT_TRUE([picker isKindOfClass:[UIDocumentPickerViewController class]]);
  EXPECT_EQ([picker documentPickerMode], UIDocumentPickerModeImport);
  EXPECT_EQ([picker modalPresentationStyle], UIModalPresentationOverFullScreen);
  EXPECT_EQ((id)[picker delegate], page);
}

TEST_F(SharingTest, ADictionaryIsImportedAsItIs) {
  EXPECT_EQ(imported(base64(R"({"spacing": 3, "enabled": true, "half": 0.5, "note": "😀", "list": [1, {"a": "b"}]})")),
            "none");
  NSDictionary *stored = preset(@"new");
  EXPECT_OBJC_EQ([stored objectForKey:@"spacing"], @3);
  EXPECT_STRNE([[stored objectForKey:@"spacing"] objCType], @encode(double)) << "an integer stays one";
  EXPECT_OBJC_EQ([stored objectForKey:@"note"], @"😀");
  EXPECT_EQ([stored count], 5u);
  EXPECT_NE(read([kPresets stringByAppendingString:@"/new.plist"]).find("<true/>"), std::string::npos);
  EXPECT_TRUE(logged("[Zuno] importPresetWithBase64String base64Str: "));
}

TEST_F(SharingTest, WhatIsNoDictionaryFailsAndLeavesNoFile) {
  for (const char *json : {"[1,2]", "[]", "7", "\"text\"", "null", "true", R"({"a": null})", R"({"a": [null]})",
                           R"({"a": {"b": null}})"}) {
    EXPECT_EQ(imported(base64(json)), kImportFailed) << json;
    EXPECT_EQ(listing(kPresets), "") << json;
  }
}

TEST_F(SharingTest, TheLogTellsWhyAStringWasNotImported) {
  const std::string method = "[Zuno] importPresetWithBase64String ";
  const auto logOf = [&](NSString *text) {
    log.clear();
    (void)imported(text);
    std::erase_if(log, [&](const std::string &line) { return line.rfind("[Zuno] ", 0) != 0; });
    EXPECT_EQ(log.front(), method + "base64Str: " + [text UTF8String]);
    return std::vector<std::string>(log.begin() + 1, log.end());
  };
  for (const char *json : {"[1]", "7"}) {
    const auto lines = logOf(base64(json));
    id decoded = [NSJSONSerialization JSONObjectWithData:[NSData dataWithBytes:json length:std::strlen(json)]
                                                 options:NSJSONReadingFragmentsAllowed
                                                   error:nullptr];
    std::string said;
    @try {
      [NSException raise:NSInvalidArgumentException format:@"a preset is a dictionary, not a %@", [decoded class]];
    } @catch (NSException *exception) {
      said = [[exception description] UTF8String];
    }
    ASSERT_EQ(lines.size(), 1u);
    // The description begins with the object's own address.
    const std::string &line = lines.front();
    EXPECT_EQ(line.rfind(method, 0), 0u);
    EXPECT_EQ(line.substr(line.find(" NAME:")), said.substr(said.find(" NAME:")));
  }
  EXPECT_EQ(logOf(base64(R"({"a": null})")), std::vector<std::string>{method + "writeToFile FAILED"});
  EXPECT_EQ(logOf(@"%"), std::vector<std::string>{method + "NULL"});
}

TEST_F(SharingTest, WhatIsNoPresetStringFails) {
  NSString *good = base64(R"({"a": 1})");
  for (NSString *text in @[
         @"", @"not base64", [good stringByAppendingString:@"\n"], [good stringByAppendingString:@" "],
         [good substringToIndex:[good length] - 1], base64("{\"a\": 1"), base64("{\"a\": \"\xff\"}"), base64("{a: 1}"),
         base64("{\"a\": 1} x")
       ]) {
    EXPECT_EQ(imported(text), kImportFailed) << [text UTF8String];
    EXPECT_TRUE(logged("[Zuno] importPresetWithBase64String NULL")) << [text UTF8String];
    EXPECT_EQ(listing(kPresets), "") << [text UTF8String];
    log.clear();
  }
  EXPECT_EQ(imported(nil), kImportFailed);
}

TEST_F(SharingTest, WhatCannotBeStoredLeavesThePresetOfThatName) {
  writePreset(@"new", @{@"a" : @1});
  EXPECT_EQ(imported(base64(R"({"a": null})")), kImportFailed);
  EXPECT_OBJC_EQ(preset(@"new"), @{@"a" : @1});
}

TEST_F(SharingTest, AnImportTakesThePlaceOfWhateverHasItsName) {
  makeFolder([kPresets stringByAppendingString:@"/new.plist"]);
  EXPECT_EQ(imported(base64(R"({"a": 1})")), "none");
  EXPECT_OBJC_EQ(preset(@"new"), @{@"a" : @1});
}

TEST_F(SharingTest, WhatHoldsNoPresetGivesNothing) {
  ZunoPresets *page = showPage();
  for (NSString *text in @[ @"%", @"" ]) EXPECT_OBJC_EQ([page base64StringToDict:text], nil);
  EXPECT_OBJC_EQ([page base64StringToDict:nil], nil);
  EXPECT_OBJC_EQ([page base64StringFromDict:nil], nil);
  EXPECT_OBJC_EQ([page base64StringFromDict:@{@"when" : [NSDate date]}], nil);
  NSData *json = [[[NSData alloc] initWithBase64EncodedString:[page base64StringFromDict:@{
                                    @"a" : @1
                                  }]
                                                      options:0] autorelease];
  EXPECT_TRUE(memchr([json bytes], '\n', [json length])) << "it is meant to be read";
}

TEST_F(SharingTest, DeepNestingFailsCleanly) {
  std::string deep = "{\"a\":" + std::string(200'000, '[') + std::string(200'000, ']') + "}";
  EXPECT_EQ(imported(base64(deep)), kImportFailed);
  EXPECT_EQ(listing(kPresets), "");
}

TEST_F(SharingTest, TheImportDialogChecksTheNameFirst) {
  writePreset(@"taken", @{});
  ZunoPresets *page = showPage();
  [page importViaBase64Alert];
  enter(page, 0, @"taken");
  enter(page, 1, base64(R"({"a": 1})"));
  tapAction(page, "Import");
  EXPECT_EQ(describe(alertOf(page)), "Error|Preset with this name already exists|OK:default");
  tapAction(page, "OK");
  [page importViaBase64Alert];
  enter(page, 0, @"free");
  enter(page, 1, base64(R"({"a": 1})"));
  tapAction(page, "Import");
  EXPECT_OBJC_EQ(preset(@"free"), @{@"a" : @1});
  EXPECT_EQ([[page presetsArray] count], 2u);
}

TEST_F(SharingTest, ARoundTripKeepsKeysValuesAndTypes) {
  NSDictionary *original = @{
    @"ZunoPresetVersion" : @1,
    @"enabled" : @(YES),
    @"big" : [NSNumber numberWithLongLong:9007199254740993],
    @"real" : @0.1,
    @"text" : @"“quotes” / \\ \n 😀",
    @"backgroundImage" : @"aGVsbG8=\r\naGVsbG8="
  };
  writePreset(@"first", original);
  ZunoPresets *page = showPage();
  NSString *text = [page base64StringFromDict:original];
  EXPECT_EQ([text rangeOfString:@"\n"].location, NSNotFound);
  [page importPresetWithBase64String:text andName:@"second"];
  EXPECT_EQ(read([kPresets stringByAppendingString:@"/first.plist"]),
            read([kPresets stringByAppendingString:@"/second.plist"]));
}

TEST_F(SharingTest, SharingAsAStringComesAfterTheMenuHasGone) {
  writePreset(@"one", @{@"a" : @1});
  ZunoPresets *page = showPage();
  ASSERT_TRUE([[page tableView] sim_performSwipeActionAtIndex:1 ofRow:[NSIndexPath indexPathForRow:0 inSection:0]]);
  EXPECT_OBJC_EQ([page presentedViewController], nil) << "it is presented asynchronously";
  SIMDrainMainQueue();
  EXPECT_EQ(describe(alertOf(page)),
            "Share \"one\"...|Choose sharing option...|Share via string:default|Share via file:default|Cancel:cancel");
  tapAction(page, "Share via string");
  UIAlertController *alert = alertOf(page);
  NSString *text = [page base64StringFromDict:@{@"a" : @1}];
  EXPECT_OBJC_EQ([alert title], @"Share \"one\"...");
  EXPECT_OBJC_EQ([alert message], [@"Copy the following to share the preset: \n\n" stringByAppendingString:text]);
  tapAction(page, "Copy to Clipboard");
  EXPECT_OBJC_EQ([[UIPasteboard generalPasteboard] string], text);
}

TEST_F(SharingTest, TheStringIsShownOnceTheMenuHasGone) {
  writePreset(@"one", @{@"a" : @1});
  ZunoPresets *page = showPage();
  [page shareViaBase64:presetPath(@"one")];
  EXPECT_OBJC_EQ([page presentedViewController], nil) << "it is presented asynchronously";
  SIMDrainMainQueue();
  EXPECT_OBJC_EQ([alertOf(page) title], @"Share \"one\"...");
  EXPECT_EQ([[alertOf(page) actions] count], 2u);
  EXPECT_EQ([(UIAlertAction *)[[alertOf(page) actions] objectAtIndex:0] style], UIAlertActionStyleDefault);
  EXPECT_EQ([(UIAlertAction *)[[alertOf(page) actions] objectAtIndex:1] style], UIAlertActionStyleCancel);
  tapAction(page, "Done");
  EXPECT_OBJC_EQ([[UIPasteboard generalPasteboard] string], nil);
}

TEST_F(SharingTest, APresetThatCannotBeReadIsNotSharedAsAString) {
  write([kPresets stringByAppendingString:@"/bad.plist"], "damaged");
  ZunoPresets *page = showPage();
  [page shareViaBase64:presetPath(@"bad")];
  SIMDrainMainQueue();
  EXPECT_EQ(describe(alertOf(page)), "Error|Cannot access preset file.|OK:default");
  EXPECT_FALSE(logged("Attempt to present")) << "nothing is shared";
}

TEST_F(SharingTest, SharingAsAFileHandsItOverAnchoredAtItsRow) {
  writePreset(@"one", @{@"a" : @1});
  ZunoPresets *page = showPage();
  [page shareViaFile:presetPath(@"one")];
  EXPECT_OBJC_EQ([page presentedViewController], nil);
  SIMDrainMainQueue();
  auto *sheet = (UIActivityViewController *)[page presentedViewController];
  ASSERT_TRUE([sheet isKindOfClass:[UIActivityViewController class]]);
  EXPECT_OBJC_EQ([sheet sim_activityItems], @[ [NSURL fileURLWithPath:presetPath(@"one")] ]);
  EXPECT_OBJC_EQ([[sheet popoverPresentationController] sourceView], [page tableView]);
  EXPECT_EQ([[sheet popoverPresentationController] sourceRect].size.height, 60.0);
}

TEST_F(SharingTest, AFileWhoseNameIsNewIsInvalid) {
  EXPECT_EQ(pick(@"Dark.plist", "x"), "Error|Invalid file selected.|OK:default");
  EXPECT_EQ(openAccesses_, 1u) << "the access stays open";
}

TEST_F(SharingTest, TheLetterCaseOfAPickedNameCounts) {
  writePreset(@"Dark", @{@"ZunoPresetVersion" : @1});
  EXPECT_EQ(pick(@"dark.plist", "x"), "Error|Invalid file selected.|OK:default") << "the file system tells them apart";
  EXPECT_EQ(pick(@"Dark.PLIST", "x"), "Error|Invalid file selected.|OK:default");
  EXPECT_EQ(listing(kPresets), "Dark.plist");
}

TEST_F(SharingTest, TheTableIsReloadedAfterAnImportThatWasTried) {
  writePreset(@"Dark", @{@"ZunoPresetVersion" : @1});
  NSIndexPath *first = [NSIndexPath indexPathForRow:0 inSection:0];
  const auto reloads = [&](NSString *file) {
    NSURL *url = [NSURL fileURLWithPath:file];
    [url sim_setSecurityScope:SIMSecurityScopeReadable];
    ZunoPresets *page = showPage();
    EXPECT_TRUE([[page tableView] sim_swipeRowAtIndexPath:first]);  // Which a reload undoes.
    [page documentPicker:[[[UIDocumentPickerViewController alloc] initWithDocumentTypes:@[ @"public.data" ]
                                                                                 inMode:UIDocumentPickerModeImport]
                             autorelease]
        didPickDocumentAtURL:url];
    return [[page tableView] sim_swipedRow] == nil;
  };
  EXPECT_TRUE(reloads(path(@"/picked/Dark.plist"))) << "the copy failed";
  EXPECT_TRUE(reloads(write(@"/picked/Dark.plist", "x")));
  EXPECT_FALSE(reloads(write(@"/picked/Light.plist", "x"))) << "an invalid file ends the import before";
}

TEST_F(SharingTest, AnErrorIsShownWhenThePickerHasGone) {
  write(@"/var/mobile/Documents/New.plist", "x");
  UIDocumentPickerViewController *picker = openPicker();
  ASSERT_TRUE([picker sim_pickFileAtPath:@"New.plist" error:nullptr]);
  EXPECT_EQ([shown_ presentedViewController], picker) << "it is on its way out";
  SIMDrainMainQueue();
  EXPECT_EQ(describe(alertOf(shown_)), "Error|Invalid file selected.|OK:default");
  EXPECT_FALSE(logged("Attempt to present"));
  tapAction(shown_, "OK");
  EXPECT_OBJC_EQ([shown_ presentedViewController], nil);
}

TEST_F(SharingTest, APickerThatIsStillThereGoesBeforeTheError) {
  UIDocumentPickerViewController *picker = openPicker();
  NSURL *url = [NSURL fileURLWithPath:write(@"/picked/New.plist", "x")];
  [url sim_setSecurityScope:SIMSecurityScopeReadable];
  [shown_ documentPicker:picker didPickDocumentAtURL:url];
  EXPECT_TRUE([picker isBeingDismissed]);
  [[shown_ presentedViewController] dismissViewControllerAnimated:YES completion:nil];  // As the system does next.
  SIMDrainMainQueue();
  EXPECT_EQ(describe(alertOf(shown_)), "Error|Invalid file selected.|OK:default");
  EXPECT_FALSE(logged("Attempt to present"));
}

TEST_F(SharingTest, AnErrorWaitsForAPageThatGoesWithoutAnimation) {
  for (const bool isUnsure : {false, true}) {
    ZunoPresets *page = showPage();
    LeavingPage *leaving = [[[LeavingPage alloc] init] autorelease];
    leaving->presets = page;
    if (isUnsure) leaving->transition = objcxx::adopt([[UnsureTransition alloc] init]);
    [page presentViewController:leaving animated:NO completion:nil];
    const Presentations presentations;
    [leaving dismissViewControllerAnimated:NO completion:nil];
    EXPECT_OBJC_EQ([page presentedViewController], nil);
    wait();
    EXPECT_EQ(describe(alertOf(page)), "Error|Invalid preset name|OK:default");
    EXPECT_EQ(presentations.take(), "UIAlertController with OK animated") << "once";
  }
}

TEST_F(SharingTest, WhatIsPresentedComesWithAnimation) {
  writePreset(@"one", @{@"a" : @1});
  ZunoPresets *page = showPage();
  const Presentations presentations;
  const auto presented = [&](const char *action) {
    tapAction(page, action);
    return presentations.take();
  };
  [page askForSharedPreset];
  EXPECT_EQ(presented("Cancel"), "UIAlertController with Cancel animated");
  [page importViaBase64Alert];
  EXPECT_EQ(presented("Cancel"), "UIAlertController with Cancel animated");
  [page sharePresetAlert:presetPath(@"one")];
  SIMDrainMainQueue();
  EXPECT_EQ(presented("Share via file"), "UIAlertController with Cancel animated, UIActivityViewController animated");
  page = showPage();
  [page importPresetAlert];
  EXPECT_EQ(presented("Import from file..."),
            "UIAlertController with Cancel animated, UIDocumentPickerViewController on the full screen animated");
}

TEST_F(SharingTest, AFileIsJudgedByThePresetOfItsName) {
  writePreset(@"Dark", @{@"ZunoPresetVersion" : @1});
  EXPECT_EQ(pick(@"Dark.plist", "any content"), "none");
  EXPECT_EQ(openAccesses_, 0u);
  EXPECT_EQ(listing(kPresets), "Dark.plist,Dark_1.plist");
  EXPECT_EQ(read([kPresets stringByAppendingString:@"/Dark_1.plist"]), "any content");
  EXPECT_EQ([[shown_ presetsArray] count], 1u) << "the list is not rebuilt";
  EXPECT_EQ(pick(@"Dark.plist", "again"), "none");
  EXPECT_EQ(listing(kPresets), "Dark.plist,Dark_1.plist,Dark_2.plist");
}

TEST_F(SharingTest, APresetWithoutAPositiveVersionDoesNotCount) {
  for (NSDictionary *contents in @[ @{}, @{@"ZunoPresetVersion" : @0}, @{@"ZunoPresetVersion" : @[ @1 ]} ]) {
    writePreset(@"Dark", contents);
    EXPECT_EQ(pick(@"Dark.plist", "x"), "Error|Invalid file selected.|OK:default");
  }
  write([kPresets stringByAppendingString:@"/Dark.plist"], "damaged");
  EXPECT_EQ(pick(@"Dark.plist", "x"), "Error|Invalid file selected.|OK:default");
  EXPECT_EQ(listing(kPresets), "Dark.plist");
}

TEST_F(SharingTest, TheExtensionIsComparedWithoutCase) {
  write([kPresets stringByAppendingString:@"/Dark.PLIST"], "");
  ASSERT_TRUE([@{
    @"ZunoPresetVersion" : @2
  } writeToFile:path([kPresets stringByAppendingString:@"/Dark.PLIST"])
      atomically:YES]);
  EXPECT_EQ(pick(@"Dark.PLIST", "x"), "none");
  EXPECT_EQ(listing(kPresets), "Dark.PLIST,Dark_1.plist");
  EXPECT_EQ(pick(@"Dark.txt", "x"), "Error|Invalid file selected.|OK:default");
}

TEST_F(SharingTest, AFileThatMayNotBeReadIsTold) {
  writePreset(@"Dark", @{@"ZunoPresetVersion" : @1});
  EXPECT_EQ(pick(@"Dark.plist", "x", SIMSecurityScopeRefused), "Error|Cannot access preset file.|OK:default");
  EXPECT_EQ(openAccesses_, 0u);
  EXPECT_EQ(listing(kPresets), "Dark.plist");
}

TEST_F(SharingTest, AFailedCopyIsToldAndEndsTheAccess) {
  writePreset(@"Dark", @{@"ZunoPresetVersion" : @1});
  NSURL *url = [NSURL fileURLWithPath:path(@"/picked/Dark.plist")];
  [url sim_setSecurityScope:SIMSecurityScopeReadable];
  ZunoPresets *page = showPage();
  auto *picker =
      [[[UIDocumentPickerViewController alloc] initWithDocumentTypes:@[ @"public.data" ]
                                                              inMode:UIDocumentPickerModeImport] autorelease];
  [page documentPicker:picker didPickDocumentAtURL:url];
  EXPECT_EQ(describe(alertOf(page)), "Error|Failed to import preset|OK:default");
  EXPECT_EQ([url sim_openAccesses], 0u);
}

TEST_F(SharingTest, AnotherModeIsIgnored) {
  writePreset(@"Dark", @{@"ZunoPresetVersion" : @1});
  NSURL *url = [NSURL fileURLWithPath:write(@"/picked/Dark.plist", "x")];
  [url sim_setSecurityScope:SIMSecurityScopeReadable];
  ZunoPresets *page = showPage();
  auto *picker = [[[UIDocumentPickerViewController alloc] initWithDocumentTypes:@[ @"public.data" ]
                                                                         inMode:UIDocumentPickerModeOpen] autorelease];
  [page documentPicker:picker didPickDocumentAtURL:url];
  EXPECT_EQ(listing(kPresets), "Dark.plist");
  EXPECT_EQ([url sim_openAccesses], 0u);
}

}  // namespace
