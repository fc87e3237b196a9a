// A menu over the pages.
#import <UIKit/MenuController.h>
#import <UIKit/UIAction+Sim.h>
#import <UIKit/UIImage+Sim.h>

#import "Settings/ImageStore.h"
#import "Settings/presented/PresentedAdapter.h"
#import "Settings/views/ImageView.h"

namespace sim {
namespace {

const char *stateName(UIMenuElementState state) {
  switch (state) {
    case UIMenuElementStateOn: return "on";
    case UIMenuElementStateMixed: return "mixed";
    default: return "off";
  }
}

std::string idOf(SIMMenuController *controller, UIMenuElement *element, std::uint32_t number) {
  const auto place = static_cast<std::uint32_t>([controller numberOfElement:element]);
  return ElementId{ElementKind::kSheetItem, number, 0, place}.text();
}

void writeElement(JsonText &out, SIMMenuController *controller, UIMenuElement *element, std::uint32_t number,
                  ImageStore &images) {
  UIAction *action = [element isKindOfClass:[UIAction class]] ? (UIAction *)element : nil;
  UIMenu *menu = [element isKindOfClass:[UIMenu class]] ? (UIMenu *)element : nil;
  const bool isRed =
      menu ? ([menu options] & UIMenuOptionsDestructive) != 0 : [action sim_has:UIMenuElementAttributesDestructive];
  // As menus show symbols that leave it open.
  UIImageSymbolConfiguration *symbols =
      [UIImageSymbolConfiguration configurationWithTextStyle:UIFontTextStyleBody scale:UIImageSymbolScaleMedium];
  UIImage *image = [[element image] sim_imageWithPreferredSymbolConfiguration:symbols];
  out.beginObject();
  out.name("id").string(idOf(controller, element, number));
  out.name("kind").string(menu ? "menu" : action ? "action" : "loading");
  writeText(out.name("title"), [element title]);
  writeText(out.name("subtitle"), [element subtitle]);
  images.write(out.name("image"), image, [image size],
               templateTint(image, isRed ? [UIColor systemRedColor] : [UIColor labelColor]));
  out.name("state").string(stateName([action state]));
  out.name("enabled").flag(menu || (action && ![action sim_has:UIMenuElementAttributesDisabled]));
  out.name("destructive").flag(isRed);
  writeText(out.name("discoverabilityTitle"), [action discoverabilityTitle]);
  out.endObject();
}

void writeGroups(JsonText &out, SIMMenuController *controller, UIMenu *menu, std::uint32_t number, ImageStore &images) {
  out.beginArray();
  for (const MenuGroup &group : groupsOf(menu)) {
    out.beginObject();
    writeText(out.name("title"), group.title.get());
    out.name("items").beginArray();
    for (const auto &element : group.elements) writeElement(out, controller, element.get(), number, images);
    out.endArray();
    out.endObject();
  }
  out.endArray();
}

void describe(JsonText &out, UIViewController *presented, std::uint32_t number, ImageStore &images) {
  SIMMenuController *controller = (SIMMenuController *)presented;
  [controller askForDeferredElements];
  out.name("appearance").string([controller rich] ? "rich" : "compact");
  out.name("levels").beginArray();
  NSArray *open = [controller openMenus];
  for (UIMenu *menu in open) {
    out.beginObject();
    out.name("id");
    if (menu == [open objectAtIndex:0]) {
      out.null();
    } else {
      out.string(idOf(controller, menu, number));
    }
    writeText(out.name("title"), [[menu title] length] > 0 ? [menu title] : nil);
    writeGroups(out.name("groups"), controller, menu, number, images);
    out.endObject();
  }
  out.endArray();
}

EventResult tap(UIViewController *presented, const ElementId &id, std::string_view) {
  SIMMenuController *controller = (SIMMenuController *)presented;
  if (id.kind != ElementKind::kSheetItem) return unknown();
  UIMenuElement *element = [controller elementNumbered:id.index];
  if (!element) return unknown();
  return done([controller tapElement:element], "This is disabled, or another menu is open over it.");
}

EventResult dismiss(UIViewController *presented) {
  [(SIMMenuController *)presented leave];
  return {};
}

}  // namespace

extern const PresentedAdapter kMenu{.kind = [] { return [SIMMenuController class]; },
                                    .place = PresentedPlace::kMenu,
                                    .describe = describe,
                                    .tap = tap,
                                    .dismiss = dismiss};

}  // namespace sim
