#import "Settings/ControlDescription.hpp"

#import "Settings/ImageStore.hpp"
#import "Settings/JsonValues.hpp"
#import "Settings/ViewDescription.hpp"

#include <algorithm>

namespace sim {
namespace {

const char *keyboardName(UIKeyboardType type) {
  switch (type) {
    case UIKeyboardTypeNumberPad:
    case UIKeyboardTypeNumbersAndPunctuation: return "numeric";
    case UIKeyboardTypeDecimalPad: return "decimal";
    case UIKeyboardTypePhonePad: return "tel";
    case UIKeyboardTypeURL: return "url";
    case UIKeyboardTypeEmailAddress: return "email";
    default: return "text";
  }
}

const char *capitalsName(UITextAutocapitalizationType type) {
  switch (type) {
    case UITextAutocapitalizationTypeNone: return "none";
    case UITextAutocapitalizationTypeWords: return "words";
    case UITextAutocapitalizationTypeAllCharacters: return "characters";
    default: return "sentences";
  }
}

const char *returnKeyName(UIReturnKeyType type) {
  switch (type) {
    case UIReturnKeyGo: return "go";
    case UIReturnKeyNext: return "next";
    case UIReturnKeySearch: return "search";
    case UIReturnKeySend: return "send";
    case UIReturnKeyDone: return "done";
    default: return "return";
  }
}

const char *borderName(UITextBorderStyle style) {
  switch (style) {
    case UITextBorderStyleLine: return "line";
    case UITextBorderStyleBezel: return "bezel";
    case UITextBorderStyleRoundedRect: return "roundedRect";
    default: return "none";
  }
}

/// True or false; null for what is left to the system.
template <typename Type>
void writeChoice(JsonText &out, Type choice, Type yes, Type no) {
  if (choice == yes) return out.flag(true);
  if (choice == no) return out.flag(false);
  out.null();
}

void writeSwitch(JsonText &out, UISwitch *control) {
  writeColor(out.name("onTintColor"), [control onTintColor]);
  writeColor(out.name("thumbTintColor"), [control thumbTintColor]);
}

/// What only the steps of a drag send.
constexpr UIControlEvents kDrags = UIControlEventTouchDragInside | UIControlEventTouchDragOutside;

void writeSlider(JsonText &out, UISlider *slider, ImageStore &images) {
  out.name("min").number([slider minimumValue]);
  out.name("max").number([slider maximumValue]);
  out.name("followed").flag([slider isContinuous] || ([slider allControlEvents] & kDrags) != 0);
  writeColor(out.name("minimumTrackTintColor"), [slider minimumTrackTintColor] ?: [slider tintColor]);
  writeColor(out.name("maximumTrackTintColor"), [slider maximumTrackTintColor]);
  writeColor(out.name("thumbTintColor"), [slider thumbTintColor]);
  for (const auto &[name, image] :
       {std::pair{"minimumImage", [slider minimumValueImage]}, std::pair{"maximumImage", [slider maximumValueImage]}}) {
    images.write(out.name(name), image, [image size], templateTint(image, slider));
  }
}

void writeSegments(JsonText &out, UISegmentedControl *control, ImageStore &images) {
  const NSUInteger count = [control numberOfSegments];
  out.name("titles").beginArray();
  for (NSUInteger index = 0; index < count; ++index) writeText(out, [control titleForSegmentAtIndex:index]);
  out.endArray();
  out.name("images").beginArray();
  for (NSUInteger index = 0; index < count; ++index) {
    UIImage *image = [control imageForSegmentAtIndex:index];
    images.write(out, image, [image size], templateTint(image, [UIColor labelColor]));
  }
  out.endArray();
  out.name("enabled").beginArray();
  for (NSUInteger index = 0; index < count; ++index) out.flag([control isEnabledForSegmentAtIndex:index]);
  out.endArray();
  writeColor(out.name("selectedTintColor"), [control selectedSegmentTintColor]);
  out.name("selected");
  if (!writeControlValue(out, control)) out.null();
}

/// Of a text field or a text view.
void writeTraits(JsonText &out, id<UITextInputTraits> control) {
  out.name("keyboard").string(keyboardName([control keyboardType]));
  out.name("autocapitalization").string(capitalsName([control autocapitalizationType]));
  writeChoice(out.name("autocorrection"), [control autocorrectionType], UITextAutocorrectionTypeYes,
              UITextAutocorrectionTypeNo);
  writeChoice(out.name("spellChecking"), [control spellCheckingType], UITextSpellCheckingTypeYes,
              UITextSpellCheckingTypeNo);
  out.name("returnKey").string(returnKeyName([control returnKeyType]));
}

/// Points: the font's size, or less where the field is to make its text fit.
CGFloat shownFontSize(UITextField *field) {
  const CGFloat size = [[field font] pointSize];
  const CGFloat room = [field bounds].size.width;
  if (![field adjustsFontSizeToFitWidth] || room <= 0) return size;
  const CGFloat width = [[field text] sizeWithAttributes:@{NSFontAttributeName : [field font]}].width;
  return width <= room ? size : std::clamp(size * room / width, std::min([field minimumFontSize], size), size);
}

/// The view beside the text, where its mode shows it: a field is edited for a moment only.
void writeSideView(JsonText &out, UIView *view, UITextFieldViewMode mode, ImageStore &images) {
  if (!view || mode == UITextFieldViewModeNever || mode == UITextFieldViewModeWhileEditing) return out.null();
  writeView(out, view, images);
}

void writeField(JsonText &out, UITextField *field, ImageStore &images) {
  writeText(out.name("placeholder"), [field placeholder]);
  writeTraits(out, field);
  out.name("clearButton").flag([field clearButtonMode] != UITextFieldViewModeNever);
  writeColor(out.name("textColor"), [field textColor]);
  out.name("alignment").string(alignmentName([field textAlignment]));
  out.name("fontSize").number(shownFontSize(field));
  out.name("border").string(borderName([field borderStyle]));
  writeSideView(out.name("leftView"), [field leftView], [field leftViewMode], images);
  writeSideView(out.name("rightView"), [field rightView], [field rightViewMode], images);
}

void writeTextView(JsonText &out, UITextView *view) {
  writeTraits(out, view);
  writeColor(out.name("textColor"), [view textColor]);
  out.name("alignment").string(alignmentName([view textAlignment]));
}

void writeSpinner(JsonText &out, UIActivityIndicatorView *spinner) { writeColor(out.name("color"), [spinner color]); }

/// The kind's name in descriptions; nullptr for a view that is no control.
const char *controlType(UIView *view) {
  if ([view isKindOfClass:[UISwitch class]]) return "switch";
  if ([view isKindOfClass:[UISlider class]]) return "slider";
  if ([view isKindOfClass:[UISegmentedControl class]]) return "segmented";
  if ([view isKindOfClass:[UITextField class]]) {
    return [(UITextField *)view isSecureTextEntry] ? "secureText" : "text";
  }
  if ([view isKindOfClass:[UITextView class]]) return "textView";
  if ([view isKindOfClass:[UIActivityIndicatorView class]]) return "spinner";
  return nullptr;
}

}  // namespace

UIView *findControl(UIView *view) {
  if (!view || controlType(view)) return view;
  for (UIView *child in [view subviews]) {
    if (UIView *found = findControl(child)) return found;
  }
  return nil;
}

UIButton *findButton(UIView *view) {
  if (!view || [view isHidden]) return nil;
  if ([view isKindOfClass:[UIButton class]]) return (UIButton *)view;
  for (UIView *child in [view subviews]) {
    if (UIButton *found = findButton(child)) return found;
  }
  return nil;
}

void writeControl(JsonText &out, UIView *control, ImageStore &images) {
  const char *type = controlType(control);
  if (!type) return out.null();
  out.beginObject();
  out.name("type").string(type);
  if ([control isKindOfClass:[UISwitch class]]) {
    writeSwitch(out, (UISwitch *)control);
  } else if ([control isKindOfClass:[UISlider class]]) {
    writeSlider(out, (UISlider *)control, images);
  } else if ([control isKindOfClass:[UISegmentedControl class]]) {
    writeSegments(out, (UISegmentedControl *)control, images);
  } else if ([control isKindOfClass:[UITextField class]]) {
    writeField(out, (UITextField *)control, images);
  } else if ([control isKindOfClass:[UITextView class]]) {
    writeTextView(out, (UITextView *)control);
  } else {
    writeSpinner(out, (UIActivityIndicatorView *)control);
  }
  out.endObject();
}

NSString *editableText(UIView *control) {
  if ([control isKindOfClass:[UITextField class]]) return [(UITextField *)control text] ?: @"";
  if ([control isKindOfClass:[UITextView class]]) return [(UITextView *)control text] ?: @"";
  return nil;
}

bool writeControlValue(JsonText &out, UIView *control) {
  if ([control isKindOfClass:[UISwitch class]]) {
    out.flag([(UISwitch *)control isOn]);
  } else if ([control isKindOfClass:[UISlider class]]) {
    out.number([(UISlider *)control value]);
  } else if ([control isKindOfClass:[UISegmentedControl class]]) {
    const NSInteger selected = [(UISegmentedControl *)control selectedSegmentIndex];
    if (selected < 0) return false;
    out.integer(selected);
  } else {
    return false;
  }
  return true;
}

}  // namespace sim
