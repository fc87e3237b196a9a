#import <UIKit/UITextView+Sim.h>

#import "Settings/controls/TextInput.hpp"
#import "Settings/views/Views.hpp"

namespace sim {
namespace {

std::string_view type(UIView *) { return "textView"; }

void describe(JsonText &out, UIView *view, ImageStore &) {
  UITextView *field = (UITextView *)view;
  writeInputTraits(out, field);
  writeColor(out.name("textColor"), [field textColor]);
  out.name("alignment").string(alignmentName([field textAlignment]));
}

bool writeValue(JsonText &out, UIView *view) {
  writeText(out, "value", [(UITextView *)view text] ?: @"");
  return true;
}

const char *set(UIView *view, const Json &value, bool) {
  NSString *text = nil;
  if (const char *problem = textToEnter(value, &text)) return problem;
  return [(UITextView *)view sim_enterText:text] ? nullptr : kUnreachable;
}

const char *paste(UIView *view) { return [(UITextView *)view sim_pasteByUser] ? nullptr : kUnreachable; }

}  // namespace

extern const ControlAdapter kTextView{.kind = [] { return [UITextView class]; },
                                      .type = type,
                                      .describe = describe,
                                      .writeValue = writeValue,
                                      .set = set,
                                      .paste = paste};

}  // namespace sim
