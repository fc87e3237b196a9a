#import "Settings/ViewDescription.hpp"

#import <UIKit/UIFont+Sim.h>
#import <UIKit/UIKit.h>

#import "Settings/ImageStore.hpp"
#import "Settings/JsonValues.hpp"

#include <objc/runtime.h>

namespace sim {
namespace {

const char *contentModeName(UIViewContentMode mode) {
  switch (mode) {
    case UIViewContentModeScaleAspectFit:
      return "scaleAspectFit";
    case UIViewContentModeScaleAspectFill:
      return "scaleAspectFill";
    case UIViewContentModeCenter:
      return "center";
    default:
      return "scaleToFill";
  }
}

void writeLabel(JsonText &out, UILabel *label) {
  out.name("type").string("label");
  writeText(out.name("text"), [label text]);
  out.name("fontSize").number([[label font] pointSize]);
  out.name("fontWeight").integer(textStyle([label font]).weight);
  writeColor(out.name("color"), [label textColor]);
  out.name("alignment").string(alignmentName([label textAlignment]));
  out.name("lines").integer([label numberOfLines]);
}

void writeImageView(JsonText &out, UIImageView *view, ImageStore &images) {
  out.name("type").string("image");
  images.write(out.name("image"), [view image], [view frame].size);
  out.name("contentMode").string(contentModeName([view contentMode]));
}

const char *keyboardName(UIKeyboardType type) {
  switch (type) {
    case UIKeyboardTypeNumberPad:
    case UIKeyboardTypeNumbersAndPunctuation:
      return "numeric";
    case UIKeyboardTypeDecimalPad:
      return "decimal";
    case UIKeyboardTypePhonePad:
      return "tel";
    case UIKeyboardTypeURL:
      return "url";
    case UIKeyboardTypeEmailAddress:
      return "email";
    default:
      return "text";
  }
}

void writeSegments(JsonText &out, UISegmentedControl *control) {
  out.name("titles").beginArray();
  for (NSUInteger index = 0; index < [control numberOfSegments]; ++index) {
    writeText(out, [control titleForSegmentAtIndex:index]);
  }
  out.endArray();
  out.name("selected");
  if (!writeControlValue(out, control)) out.null();
}

void writeField(JsonText &out, UITextField *field) {
  writeText(out.name("placeholder"), [field placeholder]);
  out.name("keyboard").string(keyboardName([field keyboardType]));
  out.name("clearButton").flag([field clearButtonMode] != UITextFieldViewModeNever);
}

void writeLimits(JsonText &out, UISlider *slider) {
  out.name("min").number([slider minimumValue]);
  out.name("max").number([slider maximumValue]);
}

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

const char *alignmentName(NSTextAlignment alignment) {
  switch (alignment) {
    case NSTextAlignmentCenter:
      return "center";
    case NSTextAlignmentRight:
      return "right";
    case NSTextAlignmentJustified:
      return "justified";
    case NSTextAlignmentLeft:
      return "left";
    default:
      return "natural";
  }
}

std::string_view classNameOf(id object) { return class_getName([object class]); }

void writeFrame(JsonText &out, CGRect frame) {
  out.beginArray();
  out.number(frame.origin.x);
  out.number(frame.origin.y);
  out.number(frame.size.width);
  out.number(frame.size.height);
  out.endArray();
}

void writeView(JsonText &out, UIView *view, ImageStore &images) {
  out.beginObject();
  if ([view isKindOfClass:[UILabel class]]) {
    writeLabel(out, (UILabel *)view);
  } else if ([view isKindOfClass:[UIImageView class]]) {
    writeImageView(out, (UIImageView *)view, images);
  } else {
    out.name("type").string("view");
  }
  out.name("class").string(classNameOf(view));
  writeFrame(out.name("frame"), [view frame]);
  writeColor(out.name("backgroundColor"), [view backgroundColor]);
  out.name("hidden").flag([view isHidden]);
  out.name("alpha").number([view alpha]);
  writeText(out.name("accessibilityLabel"), [view accessibilityLabel]);
  out.name("views").beginArray();
  for (UIView *child in [view subviews]) writeView(out, child, images);
  out.endArray();
  out.endObject();
}

UIView *findControl(UIView *view) {
  if (!view || controlType(view)) return view;
  for (UIView *child in [view subviews]) {
    if (UIView *found = findControl(child)) return found;
  }
  return nil;
}

void writeControl(JsonText &out, UIView *control) {
  const char *type = controlType(control);
  if (!type) return out.null();
  out.beginObject();
  out.name("type").string(type);
  if ([control isKindOfClass:[UISlider class]]) {
    writeLimits(out, (UISlider *)control);
  } else if ([control isKindOfClass:[UISegmentedControl class]]) {
    writeSegments(out, (UISegmentedControl *)control);
  } else if ([control isKindOfClass:[UITextField class]]) {
    writeField(out, (UITextField *)control);
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
