#import <UIKit/UITextView+Sim.h>

#import "Settings/controls/TextInput.h"
#import "Settings/views/Views.h"

namespace sim {
namespace {

std::string_view type(UIView *) { return "textView"; }

void describe(JsonText &out, UIView *view, ImageStore &) {
  UITextView *field = (UITextView *)view;
  writeInputTraits(out, field);
  writeColor(out.name("textColor"), [field textColor]);
  out.name("alignment").string(alignmentName([field textAlignment]));
}

}  // namespace

extern const ControlAdapter kTextView{.kind = [] { return [UITextView class]; },
                                      .type = type,
                                      .describe = describe,
                                      .writeValue = writeTextOf<UITextView>,
                                      .set = enterTextInto<UITextView>,
                                      .paste = pasteInto<UITextView>};

}  // namespace sim
