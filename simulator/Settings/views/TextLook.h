// How texts look.
#pragma once

#import <UIKit/AttributedText.h>
#import <UIKit/UIKit.h>

#include "base/JsonText.hpp"

namespace sim {

class ImageStore;

/// Writes the font's weight, family and slant, and whether its digits are of one width.
void writeFace(JsonText &out, UIFont *font);

/// Writes where each piece of each line stands and how it looks when `text` is laid out within `limits`.
void writeAttributedText(JsonText &out, const AttributedText &text, const TextLimits &limits, ImageStore &images);

/// The same of a label's text in its frame, in fonts of `scale` times their size; null for one without attributes.
void writeAttributedText(JsonText &out, UILabel *label, CGFloat scale, ImageStore &images);

}  // namespace sim
