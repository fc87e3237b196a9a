// What bundles ask of the system: restarts, the applications, and what UIKit has in no header.
#import <FrontBoardServices/FrontBoardServices.h>
#import <MobileCoreServices/MobileCoreServices.h>
#import <SpringBoardServices/SpringBoardServices.h>
#import <dispatch/MainQueue+Sim.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "simulator/AppList/AppListTest.h"
#include "simulator/Preferences/PreferencesTest.h"

@interface UIView (ServicesTests)
- (UIViewController *)_viewControllerForAncestor;
@end
@interface UINavigationItem (ServicesTests)
- (UINavigationBar *)navigationBar;
@end
@interface UIImage (ServicesTests)
+ (UIImage *)_applicationIconImageForBundleIdentifier:(NSString *)identifier format:(int)format scale:(CGFloat)scale;
@end

namespace {

class ServicesTests : public PreferencesTest {
 protected:
  void SetUp() override {
    PreferencesTest::SetUp();
    makeFolder(@"/.simulator");
  }
  NSString *pipe() const { return path(@"/.simulator/backboardd"); }
};

TEST_F(ServicesTests, ARelaunchActionIsARespring) {
  ASSERT_EQ(::mkfifo([pipe() fileSystemRepresentation], 0600), 0);
  const int reader = ::open([pipe() fileSystemRepresentation], O_RDONLY | O_NONBLOCK);
  ASSERT_GE(reader, 0);
  SBSRelaunchAction *relaunch = [SBSRelaunchAction actionWithReason:@"reason"
                                                            options:SBSRelaunchActionOptionsFadeToBlackTransition
                                                          targetURL:nil];
  EXPECT_OBJC_EQ([relaunch reason], @"reason");
  EXPECT_EQ([relaunch options], SBSRelaunchActionOptionsFadeToBlackTransition);
  __block int answers = 0;
  [[FBSSystemService sharedService] sendActions:[NSSet setWithObject:relaunch]
                                     withResult:^(NSError *error) {
                                       answers += error ? 100 : 1;
                                     }];
  char text[8];
  EXPECT_EQ(::read(reader, text, sizeof text), 1);
  EXPECT_EQ(answers, 0);
  SIMDrainMainQueue();
  EXPECT_EQ(answers, 1);
  id restart = [SBSRestartRenderServerAction restartActionWithTargetRelaunchURL:[NSURL URLWithString:@"prefs:root=X"]];
  [[FBSSystemService sharedService] sendActions:[NSSet setWithObject:restart] withResult:nil];
  EXPECT_EQ(::read(reader, text, sizeof text), 1);
  EXPECT_EQ(logged("SBSRestartRenderServerAction.targetURL"), 1);
  [[FBSSystemService sharedService] sendActions:[NSSet setWithObject:@"another"] withResult:nil];
  EXPECT_LT(::read(reader, text, sizeof text), 1);
  ::close(reader);
}

TEST_F(ServicesTests, WithoutASimulatorARestartIsALineInTheLog) {
  SBSRelaunchAction *relaunch = [SBSRelaunchAction actionWithReason:nil options:0 targetURL:nil];
  [[FBSSystemService sharedService] sendActions:[NSSet setWithObject:relaunch] withResult:nil];
  EXPECT_EQ(logged("nothing to restart"), 1);
}

TEST_F(ServicesTests, AViewKnowsTheControllerAboveIt) {
  UIViewController *page = [[[UIViewController alloc] init] autorelease];
  UIView *inner = [[[UIView alloc] init] autorelease];
  UIView *outer = [[[UIView alloc] init] autorelease];
  [outer addSubview:inner];
  EXPECT_EQ([inner _viewControllerForAncestor], nil);
  [[page view] addSubview:outer];
  EXPECT_EQ([inner _viewControllerForAncestor], page);
}

TEST_F(ServicesTests, AnItemKnowsItsBarWhileItsPageIsShown) {
  UIViewController *page = [[[UIViewController alloc] init] autorelease];
  EXPECT_EQ([[page navigationItem] navigationBar], nil);
  show(page);
  EXPECT_NE([[page navigationItem] navigationBar], nil);
  EXPECT_EQ([[page navigationItem] navigationBar], [navigation() navigationBar]);
}

class ApplicationsTests : public AppListTest {};

TEST_F(ApplicationsTests, TheWorkspaceHasTheApplicationsOfTheDevice) {
  install(@"/Applications/Music.app", @{
    @"CFBundleIdentifier" : @"com.example.music",
    @"CFBundleDisplayName" : @"Tunes",
    @"CFBundleName" : @"Music",
    @"CFBundleExecutable" : @"Music",
    @"CFBundleShortVersionString" : @"1.2"
  });
  install(@"/var/containers/Bundle/Application/1/Tea.app", @{@"CFBundleIdentifier" : @"com.example.tea"});
  LSApplicationWorkspace *workspace = [LSApplicationWorkspace defaultWorkspace];
  NSArray *all = [workspace allInstalledApplications];
  ASSERT_EQ([all count], 2u);
  EXPECT_OBJC_EQ([[all objectAtIndex:0] localizedName], @"Tea");
  EXPECT_OBJC_EQ([[all objectAtIndex:0] localizedShortName], @"Tea");
  EXPECT_OBJC_EQ([[all objectAtIndex:0] applicationType], @"User");
  LSApplicationProxy *music = [LSApplicationProxy applicationProxyForIdentifier:@"com.example.music"];
  EXPECT_OBJC_EQ([all objectAtIndex:1], music);
  EXPECT_TRUE([music isInstalled]);
  EXPECT_OBJC_EQ([music localizedName], @"Tunes");
  EXPECT_OBJC_EQ([music localizedShortName], @"Music");
  EXPECT_OBJC_EQ([music applicationType], @"System");
  EXPECT_OBJC_EQ([music shortVersionString], @"1.2");
  EXPECT_OBJC_EQ([music canonicalExecutablePath], [[[music bundleURL] path] stringByAppendingPathComponent:@"Music"]);
  EXPECT_TRUE([workspace applicationIsInstalled:@"com.example.tea"]);
  EXPECT_TRUE([workspace openApplicationWithBundleID:@"com.example.tea"]);
  EXPECT_FALSE([workspace openApplicationWithBundleID:@"com.example.none"]);
  LSApplicationProxy *none = [LSApplicationProxy applicationProxyForIdentifier:@"com.example.none"];
  EXPECT_FALSE([none isInstalled]);
  EXPECT_OBJC_EQ([none bundleIdentifier], @"com.example.none");
  EXPECT_EQ([none localizedName], nil);
}

TEST_F(ApplicationsTests, AnIconIsFoundByTheIdentifierOfItsApplication) {
  install(
      @"/Applications/Music.app",
      @{@"CFBundleIdentifier" : @"com.example.music",
        @"CFBundleIconFiles" : @[ @"Icon.png" ]});
  write(@"/Applications/Music.app/Icon@2x.png", png(120));
  const auto side = [](NSString *identifier, int format) {
    return [[UIImage _applicationIconImageForBundleIdentifier:identifier format:format scale:2] size].width;
  };
  EXPECT_NEAR(side(@"com.example.music", 0), 29, 0.01);
  EXPECT_NEAR(side(@"com.example.music", 1), 40, 0.01);
  EXPECT_NEAR(side(@"com.example.music", 2), 60, 0.01);
  EXPECT_EQ([UIImage _applicationIconImageForBundleIdentifier:@"com.example.none" format:0 scale:2], nil);
}

}  // namespace
