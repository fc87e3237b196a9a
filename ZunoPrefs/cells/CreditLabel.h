// The labels of the banner and the footer.
#pragma once

#import <UIKit/UIKit.h>

namespace zuno {

/// One centred line on a clear background that keeps the whole width of its superview. Autoreleased.
UILabel *creditLabel(CGRect frame, UIFont *font, NSString *text);

}  // namespace zuno
