// The navigation bar over a page, as the automation interface shows it.
#pragma once

#import <UIKit/UIKit.h>

#include "base/JsonText.hpp"

namespace sim {

class ImageStore;
class PageNumbers;

/// Writes "bar", "largeTitle", "prompt" and "titleView" of the description of `page`: what is asked of the bar over it.
void writeBar(JsonText& out, UINavigationController* navigation, UIViewController* page, ImageStore& images);

/// Writes an array of the buttons in the bar over `page`.
void writeBarButtons(JsonText& out, UINavigationController* navigation, UIViewController* page, PageNumbers& numbers,
                     ImageStore& images);

}  // namespace sim
