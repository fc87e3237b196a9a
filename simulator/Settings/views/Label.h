// Labels as they are drawn.
#pragma once

#import <UIKit/UIKit.h>

namespace sim {

/// The text's colour as it is drawn: highlighted, disabled or plain. nil for nil.
UIColor* shownColor(UILabel* label);

}  // namespace sim
