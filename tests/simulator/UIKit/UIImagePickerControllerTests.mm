#import "AlertSupport.h"

#import <UIKit/UIImagePickerController+Sim.h>
#import <dispatch/MainQueue+Sim.h>
#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

using testing_support::Stage;

@interface PhotoTaker : NSObject <UINavigationControllerDelegate, UIImagePickerControllerDelegate> {
 @public
  objcxx::Retained<NSDictionary> info;
  int cancels;
}
@end

@implementation PhotoTaker
- (void)imagePickerController:(UIImagePickerController *)picker didFinishPickingMediaWithInfo:(NSDictionary *)given {
  info = objcxx::share(given);
  [picker dismissViewControllerAnimated:NO completion:nil];
}
- (void)imagePickerControllerDidCancel:(UIImagePickerController *)picker {
  ++cancels;
  [picker dismissViewControllerAnimated:NO completion:nil];
}
@end

namespace {

class UIImagePickerControllerTest : public DeviceTest {
 protected:
  static NSData *png(CGFloat side) {
    UIGraphicsBeginImageContextWithOptions(CGSizeMake(side, side), NO, 1);
    UIImage *image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return UIImagePNGRepresentation(image);
  }
  objcxx::Retained<UIImagePickerController> presentedPicker() {
    auto picker = objcxx::adopt([[UIImagePickerController alloc] init]);
    [picker.get() setDelegate:taker_.get()];
    stage_.present(picker.get());
    return picker;
  }
  objcxx::Retained<PhotoTaker> taker_ = objcxx::adopt([[PhotoTaker alloc] init]);
  Stage stage_;
};

TEST_F(UIImagePickerControllerTest, offersPhotosOnlyWhereItsTypesHaveThem) {
  write(@"/var/mobile/Media/DCIM/100APPLE/IMG_0002.PNG", png(4));
  const auto picker = objcxx::adopt([[UIImagePickerController alloc] init]);
  const NSUInteger all = [[picker.get() sim_photoPaths] count];
  ASSERT_GT(all, 0u);
  [picker.get() setMediaTypes:@[ @"public.movie" ]];
  EXPECT_EQ([[picker.get() sim_photoPaths] count], 0u);
  [picker.get() setMediaTypes:@[ @"public.movie", @"public.image" ]];
  EXPECT_EQ([[picker.get() sim_photoPaths] count], all);
}

}  // namespace

TEST_F(UIImagePickerControllerTest, TheLibraryIsThereWithItsFolder) {
  const auto available = [](UIImagePickerControllerSourceType type) {
    return [UIImagePickerController isSourceTypeAvailable:type];
  };
  EXPECT_FALSE(available(UIImagePickerControllerSourceTypePhotoLibrary));
  makeFolder(@"/var/mobile/Media/DCIM");
  EXPECT_TRUE(available(UIImagePickerControllerSourceTypePhotoLibrary));
  EXPECT_TRUE(available(UIImagePickerControllerSourceTypeSavedPhotosAlbum));
  EXPECT_FALSE(available(UIImagePickerControllerSourceTypeCamera));
  const auto types = [](UIImagePickerControllerSourceType type) {
    return [UIImagePickerController availableMediaTypesForSourceType:type];
  };
  EXPECT_OBJC_EQ(types(UIImagePickerControllerSourceTypePhotoLibrary), @[ @"public.image" ]);
  EXPECT_OBJC_EQ(types(UIImagePickerControllerSourceTypeCamera), nil);
}

TEST_F(UIImagePickerControllerTest, AFileInPlaceOfTheFolderIsNoLibrary) {
  write(@"/var/mobile/Media/DCIM", "x");
  EXPECT_FALSE([UIImagePickerController isSourceTypeAvailable:UIImagePickerControllerSourceTypePhotoLibrary]);
}

TEST_F(UIImagePickerControllerTest, KeepsItsSettings) {
  makeFolder(@"/var/mobile/Media/DCIM");
  const auto picker = objcxx::adopt([[UIImagePickerController alloc] init]);
  EXPECT_EQ([picker.get() sourceType], UIImagePickerControllerSourceTypePhotoLibrary);
  EXPECT_OBJC_EQ([picker.get() mediaTypes], @[ @"public.image" ]);
  [picker.get() setSourceType:UIImagePickerControllerSourceTypeSavedPhotosAlbum];
  EXPECT_EQ([picker.get() sourceType], UIImagePickerControllerSourceTypeSavedPhotosAlbum);
  [picker.get() setAllowsEditing:YES];
  EXPECT_TRUE([picker.get() allowsEditing]);
  EXPECT_EQ(raisedBy([&] { [picker.get() setSourceType:UIImagePickerControllerSourceTypeCamera]; }),
            "NSInvalidArgumentException");
  EXPECT_EQ(raisedBy([&] { [picker.get() setMediaTypes:@[]]; }), "NSInvalidArgumentException");
}

TEST_F(UIImagePickerControllerTest, ListsThePhotosOfTheDevice) {
  write(@"/var/mobile/Media/DCIM/100APPLE/b.PNG", "x");
  write(@"/var/mobile/Media/DCIM/100APPLE/a.heic", "x");
  write(@"/var/mobile/Media/DCIM/notes.txt", "x");
  write(@"/var/mobile/Media/DCIM/.hidden.png", "x");
  write(@"/var/mobile/Media/DCIM/top.jpeg", "x");
  const auto picker = presentedPicker();
  EXPECT_OBJC_EQ([picker.get() sim_photoPaths], (@[ @"100APPLE/a.heic", @"100APPLE/b.PNG", @"top.jpeg" ]));
}

TEST_F(UIImagePickerControllerTest, GivesThePickedPhotoToTheDelegate) {
  NSString *file = write(@"/var/mobile/Media/DCIM/a/photo.png", png(7));
  const auto picker = presentedPicker();
  NSError *error = nil;
  EXPECT_TRUE([picker.get() sim_pickPhotoAtPath:@"a/photo.png" error:&error]);
  EXPECT_OBJC_EQ(error, nil);
  NSDictionary *info = taker_.get()->info.get();
  UIImage *image = [info objectForKey:UIImagePickerControllerOriginalImage];
  EXPECT_EQ([image size].width, 7);
  EXPECT_OBJC_EQ([info objectForKey:UIImagePickerControllerMediaType], @"public.image");
  NSURL *url = [info objectForKey:UIImagePickerControllerImageURL];
  EXPECT_OBJC_EQ([[url path] lastPathComponent], @"photo.png");
  EXPECT_OBJC_NE([url path], file);
  EXPECT_OBJC_EQ([NSData dataWithContentsOfFile:[url path]], [NSData dataWithContentsOfFile:file]);
  EXPECT_EQ(stage_.presented(), nil);
}

TEST_F(UIImagePickerControllerTest, RefusesWhatIsNoPhotoAndStays) {
  write(@"/var/mobile/Media/DCIM/text.png", "this is no picture");
  write(@"/var/mobile/Media/DCIM/empty.png", "");
  NSData *whole = png(64);
  write(@"/var/mobile/Media/DCIM/cut.png", [whole subdataWithRange:NSMakeRange(0, [whole length] / 2)]);
  write(@"/var/mobile/secret.png", png(3));
  const auto picker = presentedPicker();
  for (NSString *path in @[ @"text.png", @"empty.png", @"cut.png", @"missing.png", @"../../secret.png", @"", @"." ]) {
    NSError *error = nil;
    EXPECT_FALSE([picker.get() sim_pickPhotoAtPath:path error:&error]) << [path UTF8String];
    EXPECT_GT([[error localizedDescription] length], 0u) << [path UTF8String];
  }
  EXPECT_FALSE([picker.get() sim_pickPhotoAtPath:nil error:NULL]);
  EXPECT_OBJC_EQ(taker_.get()->info.get(), nil);
  EXPECT_EQ(stage_.presented(), picker.get());
}

TEST_F(UIImagePickerControllerTest, TheDelegateIsToldOfTheEnd) {
  const auto picker = presentedPicker();
  [picker.get() sim_cancel];
  EXPECT_EQ(taker_.get()->cancels, 1);
  EXPECT_EQ(stage_.presented(), nil);
}

TEST_F(UIImagePickerControllerTest, WithoutADelegateThePickerDismissesItself) {
  const auto picker = presentedPicker();
  [picker.get() setDelegate:nil];
  [picker.get() sim_cancel];
  SIMDrainMainQueue();
  EXPECT_EQ(stage_.presented(), nil);
}

TEST_F(UIImagePickerControllerTest, ThePageBelowStaysOnScreen) {
  testing_support::takeEvents(stage_.events);
  const auto picker = presentedPicker();
  [picker.get() sim_cancel];
  EXPECT_EQ(testing_support::takeEvents(stage_.events), "");
}
