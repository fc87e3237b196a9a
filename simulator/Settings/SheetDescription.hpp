// Alerts and sheets as the automation interface shows them.
#pragma once

#import <UIKit/UIKit.h>

#include "base/JsonText.hpp"

namespace sim {

class ImageStore;
class PageNumbers;

/// Writes the alert `presented`; null when it is none (or nil).
void writeAlert(JsonText& out, UIViewController* presented, PageNumbers& numbers);

/// Writes the photo picker, document picker, colour picker, share sheet or other page `presented`; null when it is an
/// alert (or nil).
void writeSheet(JsonText& out, UIViewController* presented, PageNumbers& numbers, ImageStore& images);

}  // namespace sim
