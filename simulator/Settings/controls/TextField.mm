#import <UIKit/UITextField+Sim.h>

#import "Settings/controls/TextInput.h"
#import "Settings/views/TextLook.h"
#import "Settings/views/Views.h"

#include <algorithm>

namespace sim {
namespace {

std::string_view type(UIView *view) { return [(UITextField *)view isSecureTextEntry] ? "secureText" : "text"; }

const char *borderName(UITextBorderStyle style) {
  switch (style) {
    case UITextBorderStyleLine: return "line";
    case UITextBorderStyleBezel: return "bezel";
    case UITextBorderStyleRoundedRect: return "roundedRect";
    default: return "none";
  }
}

const char *enter(UIView *view, const Json &value) {
  NSString *text = nil;
  if (const char *problem = textToEnter(value, &text)) return problem;
  return [(UITextField *)view sim_enterTextAndReturn:text] ? nullptr : kUnreachable;
}

const char *clear(UIView *view) {
  return [(UITextField *)view sim_clearByUser] ? nullptr : "The text cannot be cleared.";
}

const char *clearButtonModeName(UITextFieldViewMode mode) {
  switch (mode) {
    case UITextFieldViewModeWhileEditing: return "whileEditing";
    case UITextFieldViewModeUnlessEditing: return "unlessEditing";
    case UITextFieldViewModeAlways: return "always";
    default: return "never";
  }
}

/// Points: the font's size, or less where the field is to make its text fit.
CGFloat shownFontSize(UITextField *field) {
  const CGFloat size = [[field font] pointSize];
  const CGFloat room = [field bounds].size.width;
  if (![field adjustsFontSizeToFitWidth] || room <= 0) return size;
  const CGFloat width = [[field text] sizeWithAttributes:@{NSFontAttributeName : [field font]}].width;
  return std::max(size * room / std::max(width, room), std::min([field minimumFontSize], size));
}

/// The view beside the text, where its mode shows it: a field is edited for a moment only.
void writeSideView(JsonText &out, UIView *view, UITextFieldViewMode mode, ImageStore &images) {
  if (!view || mode == UITextFieldViewModeNever || mode == UITextFieldViewModeWhileEditing) return out.null();
  writeView(out, view, images);
}

/// The colour and the font with which an attributed placeholder begins; null where it has neither.
void writePlaceholderLook(JsonText &out, NSAttributedString *placeholder) {
  if ([placeholder length] == 0) return out.null();
  NSDictionary *attributes = [placeholder attributesAtIndex:0 effectiveRange:nullptr];
  UIFont *font = [attributes objectForKey:NSFontAttributeName];
  out.beginObject();
  writeColor(out.name("color"), [attributes objectForKey:NSForegroundColorAttributeName]);
  if (font) {
    out.name("fontSize").number([font pointSize]);
    writeFace(out, font);
  }
  out.endObject();
}

void describe(JsonText &out, UIView *view, ImageStore &images) {
  UITextField *field = (UITextField *)view;
  writeText(out.name("placeholder"), [field placeholder]);
  writeInputTraits(out, field);
  out.name("clearButton").flag([field clearButtonMode] != UITextFieldViewModeNever);
  out.name("clearButtonMode").string(clearButtonModeName([field clearButtonMode]));
  writeColor(out.name("textColor"), [field textColor]);
  out.name("ownTextColor").flag([field sim_hasOwnColor]);
  out.name("alignment").string(alignmentName([field textAlignment]));
  out.name("fontSize").number(shownFontSize(field));
  writeFace(out, [field font]);
  writePlaceholderLook(out.name("placeholderLook"), [field attributedPlaceholder]);
  out.name("border").string(borderName([field borderStyle]));
  writeSideView(out.name("leftView"), [field leftView], [field leftViewMode], images);
  writeSideView(out.name("rightView"), [field rightView], [field rightViewMode], images);
}

}  // namespace

extern const ControlAdapter kTextField{.kind = [] { return [UITextField class]; },
                                       .type = type,
                                       .describe = describe,
                                       .writeValue = writeTextOf<UITextField>,
                                       .set = enterTextInto<UITextField>,
                                       .enter = enter,
                                       .paste = pasteInto<UITextField>,
                                       .clear = clear};

}  // namespace sim
