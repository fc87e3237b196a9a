#import "Settings/BarDescription.h"

#import <UIKit/UIBarAppearance+Sim.h>
#import <UIKit/UIBarButtonItem+Sim.h>
#import <UIKit/UIFont+Sim.h>
#import <UIKit/UIImage+Sim.h>
#import <UIKit/UINavigationBar+Sim.h>
#import <UIKit/UINavigationController+Sim.h>
#import <UIKit/UIView+Sim.h>

#import "Settings/BarButtons.h"
#import "Settings/ElementId.hpp"
#import "Settings/ImageStore.h"
#import "Settings/JsonValues.h"
#import "Settings/ScreenDescription.h"
#import "Settings/views/ImageView.h"
#import "Settings/views/Views.h"

namespace sim {
namespace {

bool isEmpty(UIImage *image) { return [image size].width <= 0 || [image size].height <= 0; }

/// nil for none, and for what is no colour.
UIColor *colorIn(NSDictionary *attributes) {
  UIColor *color = [attributes objectForKey:NSForegroundColorAttributeName];
  return [color isKindOfClass:[UIColor class]] ? color : nil;
}

/// What of a text's look its attributes set; null for nothing.
void writeTextLook(JsonText &out, NSDictionary *attributes) {
  UIFont *font = [attributes objectForKey:NSFontAttributeName];
  UIColor *color = colorIn(attributes);
  const bool hasFont = [font isKindOfClass:[UIFont class]];
  if (!hasFont && !color) return out.null();
  out.beginObject();
  writeColor(out.name("color"), color);
  if (hasFont) {
    const TextStyle style = textStyle(font);
    out.name("fontSize").number([font pointSize]);
    out.name("fontWeight").integer(style.weight);
    out.name("fontFamily").string(fontFamilyOf(style.typeface));
    out.name("italic").flag(style.italic);
  }
  out.endObject();
}

void writeOffset(JsonText &out, UIOffset offset) { writePair(out, offset.horizontal, offset.vertical); }

void writeButtonLook(JsonText &out, UIBarButtonItemAppearance *look) {
  out.beginObject();
  writeTextLook(out.name("normal"), [[look normal] titleTextAttributes]);
  writeTextLook(out.name("highlighted"), [[look highlighted] titleTextAttributes]);
  writeTextLook(out.name("disabled"), [[look disabled] titleTextAttributes]);
  writeOffset(out.name("offset"), [[look normal] titlePositionAdjustment]);
  out.endObject();
}

void writePicture(JsonText &out, UIImage *image, UIColor *tint, ImageStore &images) {
  if (isEmpty(image)) return out.null();
  images.write(out, image, CGSizeZero, [image sim_isTemplate] ? tint : nil);
}

void writeLook(JsonText &out, UINavigationBarAppearance *look, UINavigationBar *bar, ImageStore &images) {
  out.beginObject();
  writeColor(out.name("color"), [look backgroundColor]);
  out.name("blur").flag([look sim_blurs]);
  writePicture(out.name("image"), [look backgroundImage], [bar tintColor], images);
  out.name("imageMode").string(contentModeName([look backgroundImageContentMode]));
  out.name("clear").flag([look sim_isTransparent]);
  out.name("shadow").flag([look sim_hasShadow]);
  const bool isSystemShadow = [[look shadowColor] isEqual:[UIColor separatorColor]];
  writeColor(out.name("shadowColor"), isSystemShadow ? nil : [look shadowColor]);
  writePicture(out.name("shadowImage"), [look shadowImage], [look shadowColor], images);
  writeTextLook(out.name("title"), [look titleTextAttributes]);
  writeOffset(out.name("titleOffset"), [look titlePositionAdjustment]);
  writeTextLook(out.name("largeTitle"), [look largeTitleTextAttributes]);
  writeButtonLook(out.name("button"), [look buttonAppearance]);
  writeButtonLook(out.name("doneButton"), [look doneButtonAppearance]);
  writeButtonLook(out.name("backButton"), [look backButtonAppearance]);
  out.endObject();
}

/// What is set of the button itself; null for nothing.
void writeOwnButtonLook(JsonText &out, UIBarButtonItem *item) {
  NSDictionary *normal = [item titleTextAttributesForState:UIControlStateNormal];
  NSDictionary *highlighted = [item titleTextAttributesForState:UIControlStateHighlighted];
  NSDictionary *disabled = [item titleTextAttributesForState:UIControlStateDisabled];
  if (!normal && !highlighted && !disabled) return out.null();
  out.beginObject();
  writeTextLook(out.name("normal"), normal);
  writeTextLook(out.name("highlighted"), highlighted);
  writeTextLook(out.name("disabled"), disabled);
  out.endObject();
}

/// What opens the button's menu; null without one.
void writeMenu(JsonText &out, UIBarButtonItem *item) {
  if (![item menu]) return out.null();
  out.string([item sim_showsMenuByTap] ? "tap" : "press");
}

/// What makers made themselves to be seen in the bar.
NSArray *ownViewsIn(UIViewController *page) {
  NSMutableArray *views = [NSMutableArray array];
  if (UIView *title = [[page navigationItem] titleView]) [views addObject:title];
  for (UIBarButtonItem *button in barButtons(page)) {
    if ([button customView]) [views addObject:[button customView]];
  }
  return views;
}

}  // namespace

void writeBar(JsonText &out, UINavigationController *navigation, UIViewController *page, ImageStore &images) {
  UINavigationBar *bar = [navigation navigationBar];
  UINavigationItem *item = [page navigationItem];
  [bar sim_showViews:ownViewsIn(page)];
  UINavigationBarAppearance *standard = [bar sim_appearanceForItem:item atScrollEdge:NO];
  out.name("bar").beginObject();
  writeColor(out.name("color"), [standard backgroundColor]);
  writeColor(out.name("titleColor"), colorIn([standard titleTextAttributes]));
  writeColor(out.name("largeTitleColor"), colorIn([standard largeTitleTextAttributes]));
  writeColor(out.name("tintColor"), ownTint(bar));
  out.name("translucent").flag([bar isTranslucent]);
  out.name("hidden").flag([navigation isNavigationBarHidden]);
  const bool isBlack = [bar barStyle] != UIBarStyleDefault;
  writeInterfaceStyle(out.name("interfaceStyle"), isBlack ? UIUserInterfaceStyleDark : [bar sim_setUserInterfaceStyle]);
  writeLook(out.name("standard"), standard, bar, images);
  writeLook(out.name("scrollEdge"), [bar sim_appearanceForItem:item atScrollEdge:YES], bar, images);
  out.endObject();

  out.name("largeTitle").flag([navigation sim_showsLargeTitle]);
  writeText(out.name("prompt"), [item prompt]);
  writeOptionalView(out.name("titleView"), [item titleView], images);
}

void writeBarButtons(JsonText &out, UINavigationController *navigation, UIViewController *page, PageNumbers &numbers,
                     ImageStore &images) {
  // As bars show symbols that leave it open.
  UIImageSymbolConfiguration *symbols = [UIImageSymbolConfiguration configurationWithTextStyle:UIFontTextStyleBody
                                                                                         scale:UIImageSymbolScaleLarge];
  UINavigationBar *bar = [navigation navigationBar];
  [bar sim_applyAppearanceToItems:barButtons(page)];
  out.beginArray();
  for (UIBarButtonItem *item in barButtons(page)) {
    out.beginObject();
    out.name("id").string(ElementId{ElementKind::kButton, numbers.of(page), 0, numbers.of(item)}.text());
    writeText(out.name("title"), [item title]);
    writeText(out.name("systemItem"), [item sim_systemItemName]);
    out.name("side").string(isLeftButton(page, item) ? "left" : "right");
    out.name("enabled").flag([item isEnabled]);
    UIColor *tint = [item tintColor] ?: ownTint(bar);
    UIImage *image = [[item image] sim_imageWithPreferredSymbolConfiguration:symbols];
    images.write(out.name("image"), image, [image size], templateTint(image, tint ?: [bar tintColor]));
    writeColor(out.name("tintColor"), tint);
    writeOwnButtonLook(out.name("titleLook"), item);
    writeMenu(out.name("menu"), item);
    out.name("style").string([item style] == UIBarButtonItemStyleDone ? "done" : "plain");
    out.name("width").number([item width]);
    writeText(out.name("accessibilityLabel"), [item accessibilityLabel]);
    writeText(out.name("accessibilityIdentifier"), [item accessibilityIdentifier]);
    writeOptionalView(out.name("view"), [item customView], images);
    out.endObject();
  }
  out.endArray();
}

}  // namespace sim
