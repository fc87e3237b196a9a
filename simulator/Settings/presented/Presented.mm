#import "Settings/presented/Presented.h"

#import <UIKit/UITableView+Sim.h>
#import <UIKit/UIViewController+Sim.h>

#import "Settings/AdapterTable.h"
#import "Settings/BarButtons.h"
#import "Settings/ElementId.hpp"
#import "Settings/ScreenDescription.h"
#import "Settings/views/Views.h"

namespace sim {

// Each stands in the file of its name.
extern const PresentedAdapter kAlert, kColorPicker, kDocumentPicker, kMenu, kPage, kPhotoPicker, kSafari, kShareSheet;

namespace {

/// Where on the screen a popover points to, in points; null for what has no such place.
void writeAnchor(JsonText &out, UIViewController *presented) {
  UIPopoverPresentationController *popover = [presented popoverPresentationController];
  UIView *source = [popover sourceView];
  if (![source window]) return out.null();
  const CGRect rect = CGRectIsNull([popover sourceRect]) ? [source bounds] : [popover sourceRect];
  const CGPoint window = [[source window] frame].origin;
  writeFrame(out, CGRectOffset([source convertRect:rect toView:nil], window.x, window.y));
}

/// The bar button, row or view on the page below that a popover belongs to, and where in that; null where it has none.
void writeSource(JsonText &out, UIViewController *presented, PageNumbers &numbers) {
  UIPopoverPresentationController *popover = [presented popoverPresentationController];
  UIViewController *below = [presented presentingViewController];
  const bool isNavigation = [below isKindOfClass:[UINavigationController class]];
  UIViewController *page = isNavigation ? [(UINavigationController *)below topViewController] : below;
  UIView *view = [popover sourceView];
  for (UIBarButtonItem *button in barButtons(page)) {
    if (button != [popover barButtonItem] && ![view isDescendantOfView:[button customView]]) continue;
    out.beginObject();
    out.name("id").string(ElementId{ElementKind::kButton, numbers.of(page), 0, numbers.of(button)}.text());
    out.name("rect").null();
    return out.endObject();
  }
  if (!view) return out.null();
  UIView *owner = view;
  while (owner && ![owner isKindOfClass:[UITableViewCell class]]) owner = [owner superview];
  UITableView *table = tableOf(page);
  NSIndexPath *path = owner ? [table indexPathForCell:(UITableViewCell *)owner] : nil;
  out.beginObject();
  out.name("id");
  if (path) {
    out.string(ElementId{ElementKind::kRow, numbers.of(page), [table sim_numberOfRowAtIndexPath:path]}.text());
  } else {
    out.string(idOf(view));
  }
  writeFrame(out.name("rect"), path ? [view convertRect:[view bounds] toView:owner] : [view bounds]);
  out.endObject();
}

}  // namespace

const PresentedAdapter *presentedAdapter(UIViewController *presented) {
  static const AdapterTable<PresentedAdapter> kinds{&kAlert, &kColorPicker, &kDocumentPicker, &kMenu,
                                                    &kPage,  &kPhotoPicker, &kSafari,         &kShareSheet};
  return kinds.of(presented);
}

std::string_view nameOf(PresentedPlace place) {
  switch (place) {
    case PresentedPlace::kAlert: return "alert";
    case PresentedPlace::kMenu: return "menu";
    default: return "sheet";
  }
}

void writePresented(JsonText &out, UIViewController *presented, PresentedPlace place, PageNumbers &numbers,
                    ImageStore &images) {
  const PresentedAdapter *adapter = presentedAdapter(presented);
  if (!adapter || adapter->place != place) return out.null();
  out.beginObject();
  writeAnchor(out.name("anchor"), presented);
  writeInterfaceStyle(out.name("interfaceStyle"), [presented sim_setUserInterfaceStyle]);
  if (place == PresentedPlace::kMenu) writeSource(out.name("source"), presented, numbers);
  adapter->describe(out, presented, numbers.of(presented), images);
  out.endObject();
}

}  // namespace sim
