// Fixture for tests of the theme page, its image cell and the presets screen.
#pragma once

#import <UIKit/UIKit.h>

#include <string>

#include "ZunoPrefs/support/BundleTest.h"
#include "ZunoPrefs/theme/CallCounter.h"

namespace testing_support {

class ThemeTest : public BundleTest {
 protected:
  /// A picture of one colour, `side` points wide and high at scale 1.
  static UIImage *picture(CGFloat side, UIColor *colour);

  /// The info dictionary of a photo picker for `image` (nil: without a picture).
  static NSDictionary *picked(UIImage *image);

  /// A photo as a camera gives it that was held upright: `pixels` wide and half as high as it is stored, red above blue
  /// when it stands as it was seen.
  static UIImage *portraitPhoto(NSInteger pixels, CGFloat scale = 1);
  /// What a photo has become: "WIDTHxHEIGHT COLOUR above COLOUR", sides in pixels as it shows, colours of its corners.
  static std::string look(UIImage *image);

  /// Red, green and blue of the middle of `image`, as "r,g,b"; "none" for nil.
  static std::string colourOf(UIImage *image);

  /// Makes the photo library of the device.
  void makePhotoLibrary() { makeFolder(@"/var/mobile/Media/DCIM/100APPLE"); }

  /// The alert that `page` presents; the test fails when there is none.
  static UIAlertController *alertOf(UIViewController *page);
  /// "title|message|action:style|…" of an alert.
  static std::string describe(UIAlertController *alert);
  /// Taps the action titled `title` and runs what it queues.
  static void tapAction(UIViewController *page, const char *title);
  /// The picture that the theme file stores; nil when it stores none.
  UIImage *storedPicture();

  /// Sets the text of the alert's field number `index`.
  static void enter(UIViewController *page, NSUInteger index, NSString *text);
};

}  // namespace testing_support

using testing_support::CallCounter;
using testing_support::Presentations;
using testing_support::ThemeTest;
