#import "AlertSupport.h"

#import <UIKit/UIColorPickerViewController+Sim.h>
#import <UIKit/UIKit.h>
#import <dispatch/MainQueue+Sim.h>
#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

using testing_support::Stage;

namespace {

using Calls = std::vector<std::string>;

/// "r,g,b,a" in eight bits.
std::string text(UIColor *color) {
  CGFloat red = 0, green = 0, blue = 0, alpha = 0;
  if (![color getRed:&red green:&green blue:&blue alpha:&alpha]) return "none";
  std::string parts;
  for (const CGFloat part : {red, green, blue, alpha}) {
    parts += (parts.empty() ? "" : ",") + std::to_string(static_cast<int>(part * 255 + 0.5));
  }
  return parts;
}

}  // namespace

/// A delegate as makers wrote it for the first version of the picker.
@interface FirstColorTaker : NSObject <UIColorPickerViewControllerDelegate> {
 @public
  Calls calls;
}
@end

@implementation FirstColorTaker
- (void)colorPickerViewControllerDidSelectColor:(UIColorPickerViewController *)picker {
  calls.push_back("selected " + text([picker selectedColor]));
}
- (void)colorPickerViewControllerDidFinish:(UIColorPickerViewController *)picker {
  calls.push_back([picker presentingViewController] && [picker isBeingDismissed] ? "finished, leaving" : "finished");
}
@end

@interface ColorTaker : FirstColorTaker
@end

@implementation ColorTaker
- (void)colorPickerViewController:(UIColorPickerViewController *)picker
                   didSelectColor:(UIColor *)color
                     continuously:(BOOL)continuously {
  calls.push_back(std::string(continuously ? "dragged " : "chose ") + text(color));
  EXPECT_OBJC_EQ([picker selectedColor], color);
}
@end

/// Notes what it observes among the calls of a delegate.
@interface ColorObserver : NSObject {
 @public
  Calls *calls;
}
@end

@implementation ColorObserver
- (void)observeValueForKeyPath:(NSString *)path
                      ofObject:(id)picker
                        change:(NSDictionary *)change
                       context:(void *)context {
  calls->push_back("observed " + text([picker valueForKey:path]));
}
@end

/// Lets go of the picker that it observes.
@interface ColorDropper : NSObject {
 @public
  objcxx::Retained<UIColorPickerViewController> *picker;
}
@end

@implementation ColorDropper
- (void)observeValueForKeyPath:(NSString *)path
                      ofObject:(id)object
                        change:(NSDictionary *)change
                       context:(void *)context {
  [object removeObserver:self forKeyPath:path];
  *picker = nullptr;
}
@end

namespace {

class UIColorPickerTest : public DeviceTest {
 protected:
  void TearDown() override {
    SIMDrainMainQueue();
    DeviceTest::TearDown();
  }
  static UIColor *color(CGFloat red, CGFloat alpha = 1) {
    return [UIColor colorWithRed:red green:0 blue:1 alpha:alpha];
  }
  Stage stage_;
  objcxx::Retained<UIColorPickerViewController> picker_ = objcxx::adopt([[UIColorPickerViewController alloc] init]);
};

TEST_F(UIColorPickerTest, BeginsWithBlackAndOpacityAndKeepsItsSettings) {
  UIColorPickerViewController *picker = picker_.get();
  EXPECT_EQ(text([picker selectedColor]), "0,0,0,255");
  EXPECT_TRUE([picker supportsAlpha]);
  EXPECT_OBJC_EQ([picker delegate], nil);
  [picker setSupportsAlpha:NO];
  [picker setSelectedColor:color(1, 0.2)];
  EXPECT_FALSE([picker supportsAlpha]);
  EXPECT_EQ(text([picker selectedColor]), "255,0,255,51") << "only what the user picks is opaque";
  [picker setSelectedColor:nil];
  EXPECT_EQ(text([picker selectedColor]), "0,0,0,255");
}

TEST_F(UIColorPickerTest, ADragIsToldAsItGoesAndAtItsEnd) {
  const auto taker = objcxx::adopt([[ColorTaker alloc] init]);
  [picker_.get() setDelegate:taker.get()];
  EXPECT_TRUE([picker_.get() sim_selectColorByUser:color(0) continuously:YES]);
  EXPECT_TRUE([picker_.get() sim_selectColorByUser:color(1, 0.2) continuously:YES]);
  EXPECT_TRUE([picker_.get() sim_selectColorByUser:color(1, 0.2) continuously:NO]);
  EXPECT_EQ(taker.get()->calls, (Calls{"dragged 0,0,255,255", "dragged 255,0,255,51", "chose 255,0,255,51"}))
      << "the older method is not called as well";
}

TEST_F(UIColorPickerTest, ADelegateWithTheOlderMethodAloneHearsOfEveryChange) {
  const auto taker = objcxx::adopt([[FirstColorTaker alloc] init]);
  [picker_.get() setDelegate:taker.get()];
  [picker_.get() sim_selectColorByUser:color(0) continuously:YES];
  [picker_.get() sim_selectColorByUser:color(1) continuously:NO];
  EXPECT_EQ(taker.get()->calls, (Calls{"selected 0,0,255,255", "selected 255,0,255,255"}));
}

TEST_F(UIColorPickerTest, TheColourChangesBeforeTheDelegateHearsOfIt) {
  const auto taker = objcxx::adopt([[ColorTaker alloc] init]);
  const auto observer = objcxx::adopt([[ColorObserver alloc] init]);
  observer.get()->calls = &taker.get()->calls;
  [picker_.get() setDelegate:taker.get()];
  [picker_.get() addObserver:observer.get() forKeyPath:@"selectedColor" options:0 context:nullptr];
  [picker_.get() sim_selectColorByUser:color(1) continuously:NO];
  [picker_.get() setSelectedColor:color(0)];
  [picker_.get() removeObserver:observer.get() forKeyPath:@"selectedColor"];
  EXPECT_EQ(taker.get()->calls, (Calls{"observed 255,0,255,255", "chose 255,0,255,255", "observed 0,0,255,255"}))
      << "code that sets the colour is not told of it";
}

TEST_F(UIColorPickerTest, APickerThatIsLetGoWhenItsColourChangesTellsItsDelegateFirst) {
  const auto taker = objcxx::adopt([[ColorTaker alloc] init]);
  const auto dropper = objcxx::adopt([[ColorDropper alloc] init]);
  auto picker = objcxx::adopt([[UIColorPickerViewController alloc] init]);
  dropper.get()->picker = &picker;
  [picker.get() setDelegate:taker.get()];
  [picker.get() addObserver:dropper.get() forKeyPath:@"selectedColor" options:0 context:nullptr];
  EXPECT_TRUE([picker.get() sim_selectColorByUser:color(1) continuously:NO]);
  EXPECT_EQ(picker.get(), nil);
  EXPECT_EQ(taker.get()->calls, Calls{"chose 255,0,255,255"});
}

TEST_F(UIColorPickerTest, WithoutOpacityOnlyOpaqueColoursArePicked) {
  const auto taker = objcxx::adopt([[ColorTaker alloc] init]);
  [picker_.get() setDelegate:taker.get()];
  [picker_.get() setSupportsAlpha:NO];
  EXPECT_FALSE([picker_.get() sim_selectColorByUser:color(1, 0.5) continuously:NO]);
  EXPECT_FALSE([picker_.get() sim_selectColorByUser:nil continuously:NO]);
  EXPECT_EQ(taker.get()->calls, Calls{});
  EXPECT_EQ(text([picker_.get() selectedColor]), "0,0,0,255");
  EXPECT_TRUE([picker_.get() sim_selectColorByUser:color(1) continuously:NO]);
}

TEST_F(UIColorPickerTest, ClosingBeginsToDismissThenTellsTheDelegate) {
  const auto taker = objcxx::adopt([[ColorTaker alloc] init]);
  [picker_.get() setDelegate:taker.get()];
  stage_.present(picker_.get());
  ASSERT_EQ(stage_.presented(), picker_.get());
  [picker_.get() sim_close];
  EXPECT_EQ(taker.get()->calls, Calls{"finished, leaving"});
  SIMDrainMainQueue();
  EXPECT_EQ(stage_.presented(), nil);
}

TEST_F(UIColorPickerTest, NobodyHasToListen) {
  stage_.present(picker_.get());
  EXPECT_TRUE([picker_.get() sim_selectColorByUser:color(1) continuously:NO]);
  [picker_.get() sim_close];
  SIMDrainMainQueue();
  EXPECT_EQ(stage_.presented(), nil);
}

}  // namespace
