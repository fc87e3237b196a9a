#import "Settings/controls/Controls.h"

#import <objcxx/Retained.h>

#import "Settings/AdapterTable.h"
#import "Settings/controls/ControlAdapter.h"

namespace sim {

// Each stands in the file of its name.
extern const ControlAdapter kDatePicker, kPicker, kSearchBar, kSegmentedControl, kSlider, kSpinner, kStepper, kSwitch,
    kTextField, kTextView;

namespace {

/// nullptr for a view that is no control.
const ControlAdapter *adapterOf(UIView *view) {
  static const AdapterTable<ControlAdapter> controls{&kDatePicker, &kPicker,  &kSearchBar, &kSegmentedControl,
                                                     &kSlider,     &kSpinner, &kStepper,   &kSwitch,
                                                     &kTextField,  &kTextView};
  return controls.of(view);
}

}  // namespace

bool isControl(UIView *view) { return adapterOf(view) != nullptr; }

UIView *findControl(UIView *view) {
  if (adapterOf(view)) return view;
  for (UIView *child in [view subviews]) {
    if (UIView *found = findControl(child)) return found;
  }
  return nil;
}

void writeControl(JsonText &out, UIView *control, ImageStore &images) {
  const ControlAdapter *adapter = adapterOf(control);
  if (!adapter) return out.null();
  out.beginObject();
  out.name("type").string(adapter->type(control));
  adapter->describe(out, control, images);
  out.endObject();
}

bool writeControlValue(JsonText &out, UIView *control) {
  const ControlAdapter *adapter = adapterOf(control);
  return adapter && adapter->writeValue && adapter->writeValue(out, control);
}

const char *setControl(UIView *view, const Json &value, bool isFinished) {
  const auto control = objcxx::share(findControl(view));  // The page may take it away between two steps.
  const ControlAdapter *adapter = adapterOf(control.get());
  if (!adapter) return "This row has no control.";
  if (!adapter->set) return "This control shows something and cannot be set.";
  if (!isFinished && !adapter->isDragged)
    return "Only a slider is dragged: \"finished\": false is not for this control.";
  return adapter->set(control.get(), value, isFinished);
}

const char *enterIntoControl(UIView *view, const Json &value) {
  UIView *control = findControl(view);
  const ControlAdapter *adapter = adapterOf(control);
  return adapter && adapter->enter ? adapter->enter(control, value) : "Only a text field has a return key.";
}

const char *pasteIntoControl(UIView *view) {
  UIView *control = findControl(view);
  const ControlAdapter *adapter = adapterOf(control);
  if (!adapter || !adapter->paste) return "Nothing can be pasted here.";
  if (![[UIPasteboard generalPasteboard] hasStrings]) return "The pasteboard is empty.";
  return adapter->paste(control);
}

const char *clearControl(UIView *view) {
  UIView *control = findControl(view);
  const ControlAdapter *adapter = adapterOf(control);
  return adapter && adapter->clear ? adapter->clear(control) : "Only a text field has a clear button.";
}

}  // namespace sim
