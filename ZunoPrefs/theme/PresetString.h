// A preset as a text that can be sent: JSON, then base64 without line breaks.
#pragma once

#import <Foundation/Foundation.h>

namespace zuno {

/// The text for `preset`; nil when there is no preset or it holds what JSON cannot (data, dates). Autoreleased.
NSString *presetStringFrom(NSDictionary *preset);

/// The object that `text` holds: a dictionary, or any other JSON value. nil when `text` is not strict base64 (a line
/// break already fails) or its bytes are no JSON. Autoreleased.
id objectFromPresetString(NSString *text);

}  // namespace zuno
