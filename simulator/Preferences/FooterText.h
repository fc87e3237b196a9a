// A footer's text in a view of its own, where the table's own footer will not do.
#pragma once

#import <Preferences/PSHeaderFooterView.h>

namespace sim {

/// A label that looks like the text of a table's footers; autoreleased.
UILabel *footerLabel();
/// Where the label lies in a footer of this size, and the height that a footer of this width needs for it, in points.
CGRect footerLabelFrame(CGSize size);
CGFloat footerHeight(UILabel *label, CGFloat width);

}  // namespace sim

/// A group's "footerText", aligned as its "footerAlignment" says.
@interface SIMAlignedFooterView : UIView <PreferencesTableCustomView> {
  UILabel *_label;
}
@end
