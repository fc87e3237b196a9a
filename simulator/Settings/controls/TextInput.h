// What text fields and text views share.
#pragma once

#import <UIKit/UIKit.h>

#import "Settings/controls/ControlAdapter.h"

namespace sim {

/// Writes what the field asks of the keyboard.
void writeInputTraits(JsonText &out, id<UITextInputTraits> field);

/// Why `value` is no text to enter, or nullptr with the text, autoreleased, at `text`.
const char *textToEnter(const Json &value, NSString **text);

/// A ControlAdapter's functions for `Field`, UITextField or UITextView.
template <typename Field>
bool writeTextOf(JsonText &out, UIView *view) {
  writeText(out, "value", [(Field *)view text]);
  return true;
}
template <typename Field>
const char *enterTextInto(UIView *view, const Json &value, bool) {
  NSString *text = nil;
  if (const char *problem = textToEnter(value, &text)) return problem;
  return [(Field *)view sim_enterText:text] ? nullptr : kUnreachable;
}
template <typename Field>
const char *pasteInto(UIView *view) {
  return [(Field *)view sim_pasteByUser] ? nullptr : kUnreachable;
}

}  // namespace sim
