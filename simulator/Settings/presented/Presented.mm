#import "Settings/presented/Presented.h"

#import <UIKit/UIViewController+Sim.h>

#import "Settings/AdapterTable.h"
#import "Settings/ScreenDescription.h"
#import "Settings/views/Views.h"

namespace sim {

// Each stands in the file of its name.
extern const PresentedAdapter kAlert, kColorPicker, kDocumentPicker, kPage, kPhotoPicker, kSafari, kShareSheet;

namespace {

/// Where on the screen a popover points to, in points; null for what has no such place.
void writeAnchor(JsonText &out, UIViewController *presented) {
  UIPopoverPresentationController *popover = [presented popoverPresentationController];
  UIView *source = [popover sourceView];
  if (![source window]) return out.null();
  const CGRect rect = CGRectIsNull([popover sourceRect]) ? [source bounds] : [popover sourceRect];
  writeFrame(out, [source convertRect:rect toView:nil]);
}

}  // namespace

const PresentedAdapter *presentedAdapter(UIViewController *presented) {
  static const AdapterTable<PresentedAdapter> kinds{&kAlert,       &kColorPicker, &kDocumentPicker, &kPage,
                                                    &kPhotoPicker, &kSafari,      &kShareSheet};
  return kinds.of(presented);
}

std::string_view nameOf(PresentedPlace place) { return place == PresentedPlace::kAlert ? "alert" : "sheet"; }

void writePresented(JsonText &out, UIViewController *presented, PresentedPlace place, PageNumbers &numbers,
                    ImageStore &images) {
  const PresentedAdapter *adapter = presentedAdapter(presented);
  if (!adapter || adapter->place != place) return out.null();
  out.beginObject();
  writeAnchor(out.name("anchor"), presented);
  writeInterfaceStyle(out.name("interfaceStyle"), [presented sim_setUserInterfaceStyle]);
  adapter->describe(out, presented, numbers.of(presented), images);
  out.endObject();
}

}  // namespace sim
