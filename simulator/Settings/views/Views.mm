#import "Settings/views/Views.h"

#import <UIKit/UIControl+Sim.h>
#import <UIKit/UIScrollView+Sim.h>
#import <UIKit/UISearchController.h>
#import <UIKit/UITableView+Sim.h>
#import <UIKit/UIView+Sim.h>

#import "Settings/AdapterTable.h"
#import "Settings/ElementId.hpp"
#import "Settings/JsonValues.h"
#import "Settings/ScreenDescription.h"
#import "Settings/Scrolling.h"
#import "Settings/Touches.h"
#import "Settings/controls/Controls.h"
#import "Settings/views/Layer.h"
#import "Settings/views/ViewAdapter.h"

#include <objc/runtime.h>

namespace sim {

// Each stands in the file of its name.
extern const ViewAdapter kEffectView, kImageView, kLabel, kScrollView;

namespace {

/// nullptr for a view that has nothing but what every view has.
const ViewAdapter *adapterOf(UIView *view) {
  static const AdapterTable<ViewAdapter> views{&kEffectView, &kImageView, &kLabel, &kScrollView};
  return views.of(view);
}

void writeAccessibility(JsonText &out, UIView *view) {
  writeText(out.name("accessibilityLabel"), [view accessibilityLabel]);
  writeText(out.name("accessibilityValue"), [view accessibilityValue]);
  writeText(out.name("accessibilityHint"), [view accessibilityHint]);
  writeText(out.name("accessibilityIdentifier"), [view accessibilityIdentifier]);
  out.name("isAccessibilityElement").flag([view isAccessibilityElement]);
}

/// Whether there is anything for a finger to do: a control that rows could have, or one that something listens to.
bool isWorkable(UIView *view) {
  if (isControl(view)) return true;
  return [view isKindOfClass:[UIControl class]] && [(UIControl *)view sim_hearsOfTaps];
}

std::uint32_t numberOf(UIView *view) { return static_cast<std::uint32_t>([view sim_number]); }

/// What a control adds: whether a finger can work it, and what it is set to.
void writeWorkable(JsonText &out, UIView *view, ImageStore &images) {
  const bool isUIControl = [view isKindOfClass:[UIControl class]];
  out.name("enabled").flag(isUIControl ? [(UIControl *)view sim_acceptsUser] : [view sim_acceptsTouches]);
  if (!isControl(view)) {
    out.name("control").beginObject();
    out.name("type").string("button");
    out.name("highlighted").flag([(UIControl *)view isHighlighted]);
    out.name("menu").flag([(UIControl *)view sim_showsMenu]);
    return out.endObject();
  }
  writeControl(out.name("control"), view, images);
  if (!writeControlValue(out, view)) out.name("value").null();
}

/// The view with this number at or below `view`; nil when none is shown.
UIView *shownView(UIView *view, std::uint32_t number) {
  if (!view || [view isHidden]) return nil;
  if (numberOf(view) == number) return view;
  for (UIView *child in [view subviews]) {
    if (UIView *found = shownView(child, number)) return found;
  }
  return nil;
}

enum class Reach { kNothing, kControls };

void writeChild(JsonText &out, id child, ImageStore &images, Reach reach, bool isOutermost);

/// A layer that belongs to no view.
void writeLayerAsView(JsonText &out, CALayer *layer, ImageStore &images, Reach reach) {
  [layer layoutIfNeeded];
  CALayer *shown = [layer sim_shown];
  out.beginObject();
  out.name("type").string("layer");
  out.name("class").string(classNameOf(layer));
  writeText(out.name("name"), [layer name]);
  writePlace(out, shown);
  writeColor(out.name("backgroundColor"),
             [shown backgroundColor] ? [UIColor colorWithCGColor:[shown backgroundColor]] : nil);
  writeLayer(out.name("layer"), layer, images);
  out.name("clips").flag([shown masksToBounds]);
  out.name("hidden").flag([shown isHidden]);
  out.name("alpha").number([shown opacity]);
  out.name("views").beginArray();
  for (CALayer *each in [layer sim_sublayersInDrawingOrder]) {
    writeChild(out, [each sim_owner] ? (id)[each sim_owner] : each, images, reach, false);
  }
  out.endArray();
  out.endObject();
}

/// The view's own, or what an animation left of it on the screen.
struct Shown {
  explicit Shown(UIView *view) {
    CALayer *layer = [view sim_layerIfMade];
    CALayer *shown = [layer sim_shown];
    const bool differs = shown != layer;
    const CGColorRef color = differs ? [shown backgroundColor] : nullptr;
    backgroundColor = !differs ? [view backgroundColor] : color ? [UIColor colorWithCGColor:color] : nil;
    clips = differs ? [shown masksToBounds] : [view clipsToBounds];
    hidden = differs ? [shown isHidden] : [view isHidden];
    alpha = differs ? [shown opacity] : [view alpha];
  }

  UIColor *backgroundColor;
  bool clips, hidden;
  CGFloat alpha;
};

/// Where what scrolls stands, and how it is named. Text views are controls, and the page's table has its own place.
void writeScrollingOf(JsonText &out, UIView *view, Reach reach) {
  if (reach == Reach::kNothing || adapterOf(view) != &kScrollView) return;
  if (![(UIScrollView *)view sim_isScrollable]) return;
  writeScrolling(out.name("scrolling"), (UIScrollView *)view);
  const CGPoint offset = [(UIScrollView *)view contentOffset];
  writePair(out.name("contentOffset"), offset.x, offset.y);
}

/// `isOutermost`: a touch at or in the view is told of by a point in it.
void writeTouches(JsonText &out, UIView *view, Reach reach, bool isOutermost) {
  if (reach == Reach::kNothing) return;
  const bool workable = isWorkable(view);
  const Touchability in = isOutermost ? touchabilityIn(view, false) : touchabilityOf(view);
  const bool touchable = (isOutermost || (workable && !isControl(view))) &&
                         (in.touched || (isOutermost && touchabilityAround(view).touched));
  if (workable || touchable) out.name("id").string(idOf(view));
  if (!touchable) return;
  out.name("touchable").flag(true);
  out.name("dragged").flag(in.dragged);
  out.name("contextMenu").flag(hasContextMenu(view));
}

void writeView(JsonText &out, UIView *view, ImageStore &images, Reach reach, bool isOutermost) {
  const ViewAdapter *adapter = adapterOf(view);
  out.beginObject();
  out.name("type").string(adapter ? adapter->type : "view");
  if (adapter) adapter->describe(out, view, images);
  writeTouches(out, view, reach, isOutermost);
  writeScrollingOf(out, view, reach);
  if (reach == Reach::kControls && isWorkable(view)) writeWorkable(out, view, images);
  out.name("class").string(classNameOf(view));
  const Shown shown(view);
  writePlace(out, view);
  writeColor(out.name("backgroundColor"), shown.backgroundColor);
  writeLayer(out.name("layer"), view, images);
  writeInterfaceStyle(out.name("interfaceStyle"), [view sim_ownUserInterfaceStyle]);
  out.name("clips").flag(shown.clips);
  out.name("hidden").flag(shown.hidden);
  out.name("alpha").number(shown.alpha);
  writeAccessibility(out, view);
  out.name("views").beginArray();
  // The browser scrolls the content of a scroll view itself, so that points are those of what is in it.
  const bool scrolls = [view isKindOfClass:[UIScrollView class]];
  for (id child in childrenOf(view)) writeChild(out, child, images, reach, scrolls);
  out.endArray();
  out.endObject();
}

void writeChild(JsonText &out, id child, ImageStore &images, Reach reach, bool isOutermost) {
  if ([child isKindOfClass:[UIView class]]) return writeView(out, child, images, reach, isOutermost);
  writeLayerAsView(out, child, images, reach);
}

}  // namespace

const char *alignmentName(NSTextAlignment alignment) {
  switch (alignment) {
    case NSTextAlignmentCenter: return "center";
    case NSTextAlignmentRight: return "right";
    case NSTextAlignmentJustified: return "justified";
    case NSTextAlignmentLeft: return "left";
    default: return "natural";
  }
}

UIColor *ownTint(UIView *view) {
  UIColor *tint = [view tintColor];
  return [tint isEqual:[UIColor systemBlueColor]] ? nil : tint;
}

void writeInterfaceStyle(JsonText &out, UIUserInterfaceStyle style) {
  switch (style) {
    case UIUserInterfaceStyleLight: return out.string("light");
    case UIUserInterfaceStyleDark: return out.string("dark");
    default: return out.null();
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

void writeView(JsonText &out, UIView *view, ImageStore &images) { writeView(out, view, images, Reach::kNothing, true); }

void writeChild(JsonText &out, id child, ImageStore &images) { writeChild(out, child, images, Reach::kNothing, false); }

void writeTouchableView(JsonText &out, UIView *view, ImageStore &images) {
  writeView(out, view, images, Reach::kControls, true);
}

std::string idOf(UIView *view) { return ElementId{ElementKind::kView, numberOf(view)}.text(); }

UIView *viewOnPage(UIViewController *page, std::uint32_t number) {
  UITableView *table = tableOf(page);
  UIView *searchBar = [[[page navigationItem] searchController] searchBar];
  for (UIView *view : {[page view], [table tableHeaderView], [table tableFooterView], searchBar}) {
    if (UIView *found = shownView(view, number)) return found;
  }
  for (NSInteger section = 0; section < [table numberOfSections]; ++section) {
    for (UIView *view : {[table sim_viewForHeaderInSection:section], [table sim_viewForFooterInSection:section]}) {
      if (UIView *found = shownView(view, number)) return found;
    }
  }
  return nil;
}

void writeOptionalView(JsonText &out, UIView *view, ImageStore &images) {
  if (!view) return out.null();
  writeView(out, view, images);
}

void writeOptionalTouchableView(JsonText &out, UIView *view, ImageStore &images) {
  if (!view) return out.null();
  writeTouchableView(out, view, images);
}

}  // namespace sim
