#import "AlertSupport.h"

#import <Foundation/NSURL+Sim.h>
#import <UIKit/UIDocumentPickerViewController+Sim.h>
#import <dispatch/MainQueue+Sim.h>
#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

using testing_support::Stage;

@interface FileTaker : NSObject <UIDocumentPickerDelegate> {
 @public
  objcxx::Retained<NSURL> url;
  BOOL leaving;
  int cancels;
}
@end

@implementation FileTaker
- (void)documentPicker:(UIDocumentPickerViewController *)picker didPickDocumentAtURL:(NSURL *)given {
  url = objcxx::share(given);
  leaving = [picker presentingViewController] && [picker isBeingDismissed];
}
- (void)documentPickerWasCancelled:(UIDocumentPickerViewController *)picker {
  ++cancels;
  leaving = [picker presentingViewController] && [picker isBeingDismissed];
}
@end

@interface FilesTaker : FileTaker {
 @public
  objcxx::Retained<NSArray> urls;
}
@end

@implementation FilesTaker
- (void)documentPicker:(UIDocumentPickerViewController *)picker didPickDocumentsAtURLs:(NSArray *)given {
  urls = objcxx::share(given);
}
@end

namespace {

class UIDocumentPickerTest : public DeviceTest {
 protected:
  void TearDown() override {
    SIMDrainMainQueue();
    [NSURL sim_resetSecurityScopes];
    DeviceTest::TearDown();
  }
  static objcxx::Retained<UIDocumentPickerViewController> picker(UIDocumentPickerMode mode) {
    return objcxx::adopt([[UIDocumentPickerViewController alloc] initWithDocumentTypes:@[ @"public.data" ]
                                                                                inMode:mode]);
  }
  objcxx::Retained<UIDocumentPickerViewController> presentedPicker(UIDocumentPickerMode mode) {
    auto made = picker(mode);
    [made.get() setDelegate:taker_.get()];
    stage_.present(made.get());
    return made;
  }
  objcxx::Retained<FileTaker> taker_ = objcxx::adopt([[FileTaker alloc] init]);
  Stage stage_;
};

TEST_F(UIDocumentPickerTest, offersOnlyFilesOfItsTypes) {
  for (NSString *name in @[ @"Dark.plist", @"notes.txt", @"picture.png" ]) {
    write([@"/var/mobile/Documents/" stringByAppendingString:name], "x");
  }
  const auto of = [](NSArray *types) {
    return objcxx::adopt([[UIDocumentPickerViewController alloc] initWithDocumentTypes:types
                                                                                inMode:UIDocumentPickerModeOpen]);
  };
  EXPECT_OBJC_EQ([of(@[ @"com.apple.property-list" ]).get() sim_filePaths], @[ @"Dark.plist" ]);
  EXPECT_OBJC_EQ([of(@[ @"public.image", @"public.text" ]).get() sim_filePaths], (@[ @"notes.txt", @"picture.png" ]));
  EXPECT_OBJC_EQ([of(@[ @"com.example.preset" ]).get() sim_filePaths], @[]);
  EXPECT_EQ([[of(@[ @"public.data" ]).get() sim_filePaths] count], 3u);

  const auto lists = of(@[ @"com.apple.property-list" ]);
  NSError *error = nil;
  EXPECT_FALSE([lists.get() sim_pickFileAtPath:@"notes.txt" error:&error]);
  EXPECT_FALSE([lists.get() sim_pickProvidedFile:path(@"/var/mobile/Documents/notes.txt")
                                           named:@"notes.txt"
                                           error:&error]);
  EXPECT_OBJC_EQ([error localizedDescription], @"“notes.txt” is of a type that cannot be picked here.");
}

}  // namespace

TEST_F(UIDocumentPickerTest, KeepsItsSettings) {
  const auto made = picker(UIDocumentPickerModeImport);
  EXPECT_EQ([made.get() documentPickerMode], UIDocumentPickerModeImport);
  EXPECT_FALSE([made.get() allowsMultipleSelection]);
  [made.get() setModalPresentationStyle:UIModalPresentationOverFullScreen];
  EXPECT_EQ([made.get() modalPresentationStyle], UIModalPresentationOverFullScreen);
  EXPECT_EQ(raisedBy([] { picker(UIDocumentPickerModeExportToService).get(); }), "NSInvalidArgumentException");
  EXPECT_EQ(raisedBy([] {
              [[UIDocumentPickerViewController alloc] initWithDocumentTypes:@[] inMode:UIDocumentPickerModeOpen];
            }),
            "NSInvalidArgumentException");
}

TEST_F(UIDocumentPickerTest, ListsTheDocuments) {
  EXPECT_OBJC_EQ([picker(UIDocumentPickerModeImport).get() sim_filePaths], @[]);
  write(@"/var/mobile/Documents/b.plist", "x");
  write(@"/var/mobile/Documents/a/c.txt", "x");
  EXPECT_OBJC_EQ([picker(UIDocumentPickerModeImport).get() sim_filePaths], (@[ @"a/c.txt", @"b.plist" ]));
}

TEST_F(UIDocumentPickerTest, ImportGivesACopyThatHasToBeOpened) {
  NSString *file = write(@"/var/mobile/Documents/Dark.plist", "content");
  const auto made = presentedPicker(UIDocumentPickerModeImport);
  EXPECT_TRUE([made.get() sim_pickFileAtPath:@"Dark.plist" error:NULL]);
  NSURL *url = taker_.get()->url.get();
  EXPECT_TRUE(taker_.get()->leaving);
  SIMDrainMainQueue();
  EXPECT_EQ(stage_.presented(), nil);
  EXPECT_OBJC_EQ([[url path] lastPathComponent], @"Dark.plist");
  EXPECT_OBJC_NE([url path], file);
  EXPECT_OBJC_EQ([NSString stringWithContentsOfFile:[url path]], @"content");
  EXPECT_TRUE([url startAccessingSecurityScopedResource]);
  EXPECT_EQ([url sim_openAccesses], 1u);
  [url stopAccessingSecurityScopedResource];
}

TEST_F(UIDocumentPickerTest, AFileOfTheComputerIsGivenAsACopyUnderItsName) {
  NSString *file = write(@"/.simulator/uploads/1", "content");
  for (const UIDocumentPickerMode mode : {UIDocumentPickerModeImport, UIDocumentPickerModeOpen}) {
    const auto made = presentedPicker(mode);
    EXPECT_TRUE([made.get() sim_pickProvidedFile:file named:@"Gr\u00FCn \U0001F33F.plist" error:NULL]);
    NSURL *url = taker_.get()->url.get();
    EXPECT_TRUE(taker_.get()->leaving);
    SIMDrainMainQueue();
    EXPECT_EQ(stage_.presented(), nil);
    EXPECT_OBJC_EQ([[url path] lastPathComponent], @"Gr\u00FCn \U0001F33F.plist");
    EXPECT_TRUE([[url path] hasPrefix:path(@"/var/mobile/tmp/Inbox/")]);
    EXPECT_OBJC_EQ([NSString stringWithContentsOfFile:[url path]], @"content");
    EXPECT_TRUE([url startAccessingSecurityScopedResource]);
    [url stopAccessingSecurityScopedResource];
    EXPECT_TRUE(exists(@"/.simulator/uploads/1"));
  }
}

TEST_F(UIDocumentPickerTest, AFileOfTheComputerNeedsANameAndHasToBeThere) {
  NSString *file = write(@"/.simulator/uploads/1", "content");
  const auto made = presentedPicker(UIDocumentPickerModeImport);
  for (NSString *name in @[ @"", @".", @"..", @"../a", @"a/b", @"/a" ]) {
    NSError *error = nil;
    EXPECT_FALSE([made.get() sim_pickProvidedFile:file named:name error:&error]) << [name UTF8String];
    EXPECT_GT([[error localizedDescription] length], 0u);
  }
  EXPECT_FALSE([made.get() sim_pickProvidedFile:path(@"/.simulator/uploads/2") named:@"a" error:NULL]);
  EXPECT_OBJC_EQ(taker_.get()->url.get(), nil);
  EXPECT_EQ(stage_.presented(), made.get());
  EXPECT_EQ(listing(@"/var/mobile/tmp/Inbox"), "");
}

TEST_F(UIDocumentPickerTest, OpenGivesTheFileItself) {
  NSString *file = write(@"/var/mobile/Documents/Dark.plist", "content");
  const auto made = presentedPicker(UIDocumentPickerModeOpen);
  EXPECT_TRUE([made.get() sim_pickFileAtPath:@"Dark.plist" error:NULL]);
  EXPECT_OBJC_EQ([taker_.get()->url.get() path], file);
}

TEST_F(UIDocumentPickerTest, TheSameNameTwiceGivesTwoCopies) {
  write(@"/var/mobile/Documents/a.txt", "1");
  const auto one = presentedPicker(UIDocumentPickerModeImport);
  [one.get() sim_pickFileAtPath:@"a.txt" error:NULL];
  SIMDrainMainQueue();
  const auto first = taker_.get()->url;
  write(@"/var/mobile/Documents/a.txt", "2");
  const auto two = presentedPicker(UIDocumentPickerModeImport);
  [two.get() sim_pickFileAtPath:@"a.txt" error:NULL];
  EXPECT_OBJC_NE(taker_.get()->url.get(), first.get());
  EXPECT_OBJC_EQ([NSString stringWithContentsOfFile:[first.get() path]], @"1");
}

TEST_F(UIDocumentPickerTest, TheMethodForSeveralComesFirst) {
  write(@"/var/mobile/Documents/a.txt", "1");
  const auto taker = objcxx::adopt([[FilesTaker alloc] init]);
  const auto made = presentedPicker(UIDocumentPickerModeOpen);
  [made.get() setDelegate:taker.get()];
  [made.get() sim_pickFileAtPath:@"a.txt" error:NULL];
  EXPECT_EQ([taker.get()->urls.get() count], 1u);
  EXPECT_OBJC_EQ(taker.get()->url.get(), nil);
}

TEST_F(UIDocumentPickerTest, RefusesWhatIsNotInTheList) {
  write(@"/var/mobile/Documents/a.txt", "1");
  write(@"/var/mobile/other.txt", "1");
  const auto made = presentedPicker(UIDocumentPickerModeImport);
  for (NSString *path in @[ @"b.txt", @"../other.txt", @"/a.txt", @"" ]) {
    NSError *error = nil;
    EXPECT_FALSE([made.get() sim_pickFileAtPath:path error:&error]) << [path UTF8String];
    EXPECT_GT([[error localizedDescription] length], 0u);
  }
  EXPECT_OBJC_EQ(taker_.get()->url.get(), nil);
  EXPECT_EQ(stage_.presented(), made.get());
}

TEST_F(UIDocumentPickerTest, TheDelegateIsToldOfTheEnd) {
  const auto made = presentedPicker(UIDocumentPickerModeImport);
  [made.get() sim_cancel];
  EXPECT_EQ(taker_.get()->cancels, 1);
  EXPECT_TRUE(taker_.get()->leaving);
  SIMDrainMainQueue();
  EXPECT_EQ(stage_.presented(), nil);
}
