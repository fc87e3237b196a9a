#import <UIKit/UITextView+Sim.h>

#import "Settings/controls/TextInput.h"
#import "Settings/views/TextLook.h"
#import "Settings/views/Views.h"

namespace sim {
namespace {

std::string_view type(UIView *) { return "textView"; }

void writeAttributed(JsonText &out, UITextView *view, ImageStore &images) {
  if (![view sim_isAttributed]) return out.null();
  writeAttributedText(out, [view sim_attributedText], { .width = [view sim_widthOfLines] }, images);
}

void describe(JsonText &out, UIView *view, ImageStore &images) {
  UITextView *field = (UITextView *)view;
  writeInputTraits(out, field);
  writeColor(out.name("textColor"), [field textColor]);
  out.name("ownTextColor").flag([field sim_hasOwnColor]);
  out.name("alignment").string(alignmentName([field textAlignment]));
  out.name("fontSize").number([[field font] pointSize]);
  writeFace(out, [field font]);
  out.name("editable").flag([field isEditable]);
  writeAttributed(out.name("attributedText"), field, images);
}

}  // namespace

extern const ControlAdapter kTextView{.kind = [] { return [UITextView class]; },
                                      .type = type,
                                      .describe = describe,
                                      .writeValue = writeTextOf<UITextView>,
                                      .set = enterTextInto<UITextView>,
                                      .paste = pasteInto<UITextView>};

}  // namespace sim
