// Web pages, mail, recognition and sounds, as on a device without network, accounts and sensors.
#import <AudioToolbox/AudioToolbox.h>
#import <LocalAuthentication/LocalAuthentication.h>
#import <MessageUI/MessageUI.h>
#import <SafariServices/SafariServices.h>
#import <UIKit/UIApplication+Sim.h>
#import <dispatch/MainQueue+Sim.h>

#include "simulator/Preferences/PreferencesTest.h"

@interface SafariListener : NSObject <SFSafariViewControllerDelegate> {
 @public
  int loads, failures;
}
@end

@implementation SafariListener
- (void)safariViewController:(SFSafariViewController *)controller didCompleteInitialLoad:(BOOL)didLoad {
  ++(didLoad ? loads : failures);
}
@end

namespace {

class SmallFrameworksTests : public PreferencesTest {
 protected:
  void TearDown() override {
    SIMSetOpenURLHandler(nullptr, nullptr);
    PreferencesTest::TearDown();
  }
};

void note(NSURL *url, void *context) {
  static_cast<std::vector<std::string> *>(context)->push_back([[url absoluteString] UTF8String]);
}

TEST_F(SmallFrameworksTests, AWebPageIsNotedWhenItAppearsAndDoesNotLoad) {
  std::vector<std::string> opened;
  SIMSetOpenURLHandler(note, &opened);
  UIViewController *page = [[[UIViewController alloc] init] autorelease];
  show(page);
  SafariListener *listener = [[[SafariListener alloc] init] autorelease];
  SFSafariViewController *safari =
      [[[SFSafariViewController alloc] initWithURL:[NSURL URLWithString:@"https://example.com/help"]] autorelease];
  [safari setDelegate:listener];
  EXPECT_OBJC_EQ([safari title], @"example.com");
  EXPECT_EQ(opened, std::vector<std::string>());
  [page presentViewController:safari animated:YES completion:nil];
  SIMDrainMainQueue();
  EXPECT_EQ([page presentedViewController], safari);
  EXPECT_EQ(opened, std::vector<std::string>{"https://example.com/help"});
  EXPECT_EQ(listener->failures, 1);
  EXPECT_EQ(listener->loads, 0);
  [page dismissViewControllerAnimated:NO completion:nil];
  SIMDrainMainQueue();
  EXPECT_EQ(
      raisedBy([] { [[SFSafariViewController alloc] initWithURL:[NSURL URLWithString:@"mailto:a@example.com"]]; }),
      "NSInvalidArgumentException");
}

TEST_F(SmallFrameworksTests, NothingCanBeSent) {
  EXPECT_FALSE([MFMailComposeViewController canSendMail]);
  EXPECT_EQ([[MFMailComposeViewController alloc] init], nil);
  EXPECT_FALSE([MFMessageComposeViewController canSendText]);
  EXPECT_FALSE([MFMessageComposeViewController canSendAttachments]);
  EXPECT_EQ([[MFMessageComposeViewController alloc] init], nil);
  EXPECT_EQ(logged("[MessageUI]"), 2);
}

TEST_F(SmallFrameworksTests, NobodyIsRecognised) {
  LAContext *context = [[[LAContext alloc] init] autorelease];
  NSError *error = nil;
  EXPECT_FALSE([context canEvaluatePolicy:LAPolicyDeviceOwnerAuthenticationWithBiometrics error:&error]);
  EXPECT_OBJC_EQ([error domain], LAErrorDomain);
  EXPECT_EQ([error code], LAErrorBiometryNotAvailable);
  EXPECT_FALSE([context canEvaluatePolicy:LAPolicyDeviceOwnerAuthentication error:&error]);
  EXPECT_EQ([error code], LAErrorPasscodeNotSet);
  EXPECT_FALSE([context canEvaluatePolicy:LAPolicyDeviceOwnerAuthentication error:NULL]);
  EXPECT_EQ([context biometryType], LABiometryTypeNone);
  const auto evaluated = [&] {
    __block NSInteger code = 0;
    __block bool wasMain = true;
    dispatch_semaphore_t replied = dispatch_semaphore_create(0);
    [context evaluatePolicy:LAPolicyDeviceOwnerAuthenticationWithBiometrics
            localizedReason:@"reason"
                      reply:^(BOOL success, NSError *problem) {
                        code = success ? 1 : [problem code];
                        wasMain = [NSThread isMainThread];
                        dispatch_semaphore_signal(replied);
                      }];
    EXPECT_EQ(dispatch_semaphore_wait(replied, dispatch_time(DISPATCH_TIME_NOW, 10 * NSEC_PER_SEC)), 0);
    dispatch_release(replied);
    EXPECT_FALSE(wasMain);
    return code;
  };
  EXPECT_EQ(evaluated(), LAErrorBiometryNotAvailable);
  [context invalidate];
  EXPECT_EQ(evaluated(), LAErrorInvalidContext);
  EXPECT_EQ(raisedBy([&] {
              [context evaluatePolicy:LAPolicyDeviceOwnerAuthentication
                      localizedReason:@""
                                reply:^(BOOL, NSError *){
                                }];
            }),
            "NSInvalidArgumentException");
}

TEST_F(SmallFrameworksTests, SoundsAreToldOnceAndNumbered) {
  AudioServicesPlaySystemSound(1519);
  AudioServicesPlayAlertSound(kSystemSoundID_Vibrate);
  EXPECT_EQ(logged("The sound 1519 is played"), 1);
  EXPECT_EQ(logged("is played"), 1);
  NSURL *file = [NSURL fileURLWithPath:write(@"/var/mobile/a.caf", "sound")];
  SystemSoundID one = 0, other = 0;
  EXPECT_EQ(AudioServicesCreateSystemSoundID((CFURLRef)file, &one), kAudioServicesNoError);
  EXPECT_EQ(AudioServicesCreateSystemSoundID((CFURLRef)file, &other), kAudioServicesNoError);
  EXPECT_NE(one, other);
  EXPECT_EQ(AudioServicesDisposeSystemSoundID(one), kAudioServicesNoError);
  EXPECT_EQ(AudioServicesDisposeSystemSoundID(one), kAudioServicesBadSystemSoundIDError);
  EXPECT_EQ(AudioServicesDisposeSystemSoundID(other), kAudioServicesNoError);
  NSURL *missing = [NSURL fileURLWithPath:path(@"/var/mobile/missing.caf")];
  EXPECT_NE(AudioServicesCreateSystemSoundID((CFURLRef)missing, &one), kAudioServicesNoError);
}

}  // namespace
