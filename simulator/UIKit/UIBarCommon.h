// What the bars have in common: the heights and the places that they have looks for.
#pragma once

#import <UIKit/UIKitDefines.h>

typedef NS_ENUM(NSInteger, UIBarMetrics) {
  UIBarMetricsDefault = 0,
  /// The lower bars of a phone on its side.
  UIBarMetricsCompact = 1,
  /// With a prompt above the title.
  UIBarMetricsDefaultPrompt = 101,
  UIBarMetricsCompactPrompt,
  UIBarMetricsLandscapePhone = UIBarMetricsCompact,
  UIBarMetricsLandscapePhonePrompt = UIBarMetricsCompactPrompt,
};

typedef NS_ENUM(NSInteger, UIBarPosition) {
  UIBarPositionAny = 0,
  UIBarPositionBottom = 1,
  UIBarPositionTop = 2,
  /// At the top, reaching under the status bar.
  UIBarPositionTopAttached = 3,
};
