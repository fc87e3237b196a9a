#import "Settings/RowDescription.h"

#import <Preferences/PSTableCell+Sim.h>
#import <Preferences/Preferences.h>
#import <UIKit/UIFont+Sim.h>
#import <UIKit/UIKit.h>
#import <UIKit/UILabel+Sim.h>
#import <UIKit/UITableView+Sim.h>
#import <UIKit/UITableViewCell+Sim.h>
#import <UIKit/UIView+Sim.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#import "Settings/ElementId.hpp"
#import "Settings/ImageStore.h"
#import "Settings/JsonValues.h"
#import "Settings/RowTraits.h"
#import "Settings/Touches.h"
#import "Settings/controls/AccessoryButton.h"
#import "Settings/controls/Controls.h"
#import "Settings/views/ImageView.h"
#import "Settings/views/Layer.h"
#import "Settings/views/TextLook.h"
#import "Settings/views/Views.h"

namespace sim {
namespace {

const char *styleName(UITableViewCellStyle style) {
  switch (style) {
    case UITableViewCellStyleValue1: return "value1";
    case UITableViewCellStyleValue2: return "value2";
    case UITableViewCellStyleSubtitle: return "subtitle";
    default: return "default";
  }
}

const char *accessoryName(UITableViewCellAccessoryType type) {
  switch (type) {
    case UITableViewCellAccessoryDisclosureIndicator: return "disclosureIndicator";
    case UITableViewCellAccessoryDetailDisclosureButton: return "detailDisclosureButton";
    case UITableViewCellAccessoryCheckmark: return "checkmark";
    case UITableViewCellAccessoryDetailButton: return "detailButton";
    default: return "none";
  }
}

/// nullptr for none.
const char *editControlName(UITableViewCellEditingStyle style) {
  switch (style) {
    case UITableViewCellEditingStyleDelete: return "delete";
    case UITableViewCellEditingStyleInsert: return "insert";
    default: return nullptr;
  }
}

void writeImageStyle(JsonText &out, UIImageView *view, ImageStore &images) {
  out.beginObject();
  writeShadow(out.name("shadow"), view);
  writeLayer(out.name("layer"), view, images);
  out.name("clips").flag([view clipsToBounds]);
  writeContentMode(out.name("contentMode"), view);
  out.endObject();
}

/// The left and right distance of the line below a row; null where it is left to the system.
void writeSeparatorInset(JsonText &out, UITableView *table, UITableViewCell *cell) {
  if (![cell sim_hasSeparatorInset] && ![table sim_hasSeparatorInset]) return out.null();
  const UIEdgeInsets inset = [cell sim_hasSeparatorInset] ? [cell separatorInset] : [table separatorInset];
  out.beginArray();
  out.number(inset.left);
  out.number(inset.right);
  out.endArray();
}

/// Whether the class comes from the frameworks: then the cell's subviews are known, and the browser draws them itself.
bool isFrameworkClass(Class kind) {
  return kind == [UITableViewCell class] ||
         [NSBundle bundleForClass:kind] == [NSBundle bundleForClass:[PSTableCell class]];
}

bool isEnabled(UITableViewCell *cell, UIView *control) {
  if ([cell isKindOfClass:[PSTableCell class]] && ![(PSTableCell *)cell cellEnabled]) return false;
  return ![control isKindOfClass:[UIControl class]] || [(UIControl *)control isEnabled];
}

/// What the row's getter gave; a row of a list of values has its own value.
id storedValue(UITableViewCell *cell, PSSpecifier *specifier) {
  id value = [cell isKindOfClass:[PSTableCell class]] ? [(PSTableCell *)cell sim_rawValue] : nil;
  return value ?: [specifier propertyForKey:PSValueKey];
}

/// Writes the rows of one table.
class RowWriter {
 public:
  RowWriter(JsonText &out, UITableView *table, ImageStore &images) : out_(out), table_(table), images_(images) {}

  /// Writes of each row what can be said without making its cell.
  void writeOutlines(NSRange rows, NSInteger section) {
    for (NSUInteger row = rows.location; row < NSMaxRange(rows); ++row) {
      @autoreleasepool {
        NSIndexPath *path = [NSIndexPath indexPathForRow:static_cast<NSInteger>(row) inSection:section];
        noteOutline(table_, path);
        out_.beginObject();
        writeId(path);
        out_.name("outline").flag(true);
        out_.name("height").number([table_ sim_likelyHeightOfRowAtIndexPath:path]);
        out_.endObject();
      }
    }
  }

  void write(NSIndexPath *path, UITableViewCell *cell) {
    noteRow(table_, path, cell);
    UIView *accessory = [cell sim_shownAccessoryView];
    UIView *control = findControl(accessory) ?: findControl([cell contentView]);
    PSSpecifier *specifier = [cell isKindOfClass:[PSTableCell class]] ? [(PSTableCell *)cell specifier] : nil;
    out_.beginObject();
    writeId(path);
    writeKind(cell, specifier);
    writeTexts(cell, control);
    writeState(path, cell, control, specifier);
    writePicture([cell sim_imageViewIfMade]);
    writeLook(cell, findControl(accessory) ? nil : accessory);
    writeSwipeActions(path);
    writeOwnViews(cell, control);
    out_.endObject();
  }

  /// Rows are numbered when all of them have been looked at, and named after that.
  void writeIds(std::uint32_t page) {
    [table_ sim_settleRowNumbers];
    std::vector<std::string> texts;
    texts.reserve(named_.size());
    for (const Named &named : named_) {
      @autoreleasepool {
        NSIndexPath *path = [NSIndexPath indexPathForRow:named.row inSection:named.section];
        texts.push_back(ElementId{named.kind, page, [table_ sim_numberOfRowAtIndexPath:path], named.index}.text());
      }
    }
    out_.fill(texts);
  }

 private:
  /// What an id is still to be written of.
  struct Named {
    ElementKind kind;
    NSInteger section;
    NSInteger row;
    std::uint32_t index;
  };

  void writeId(NSIndexPath *path, ElementKind kind = ElementKind::kRow, std::uint32_t index = 0) {
    out_.name("id").emptyString();
    named_.push_back({kind, [path section], [path row], index});
  }

  void writeKind(UITableViewCell *cell, PSSpecifier *specifier) {
    id type = [specifier propertyForKey:PSTableCellClassKey];
    id key = [specifier propertyForKey:PSKeyNameKey];
    if ([type isKindOfClass:[NSString class]]) {
      writeText(out_.name("cell"), type);
    } else {
      out_.name("cell").string(classNameOf(cell));
    }
    out_.name("cellClass").string(classNameOf(cell));
    out_.name("style").string(styleName([cell sim_style]));
    writeText(out_.name("key"), [key isKindOfClass:[NSString class]] ? key : nil);
  }

  void writeTexts(UITableViewCell *cell, UIView *control) {
    UILabel *label = [cell sim_textLabelIfMade];
    UILabel *detail = [cell sim_detailTextLabelIfMade];
    writeText(out_.name("label"), [label text]);
    writeColor(out_.name("labelColor"), [label sim_shownColor]);
    out_.name("ownLabelColor").flag([label sim_hasOwnColor]);
    if (label) {
      out_.name("labelSize").number([[label font] pointSize]);
      const TextStyle style = textStyle([label font]);
      out_.name("labelWeight").integer(style.weight);
      out_.name("labelFamily").string(fontFamilyOf(style.typeface));
      out_.name("labelItalic").flag(style.italic);
      out_.name("labelAlignment").string(alignmentName([label textAlignment]));
      out_.name("labelLines").integer([label numberOfLines]);
    } else {
      out_.name("labelSize").null();
      out_.name("labelWeight").null();
      out_.name("labelFamily").null();
      out_.name("labelItalic").null();
      out_.name("labelAlignment").null();
      out_.name("labelLines").null();
    }
    writeText(out_.name("detail"), [detail text]);
    writeColor(out_.name("detailColor"), [detail sim_shownColor]);
    out_.name("ownDetailColor").flag([detail sim_hasOwnColor]);
    // As they lie now: their frames are those of the last layout.
    if ([label sim_isAttributed] || [detail sim_isAttributed]) [cell layoutIfNeeded];
    writeAttributedText(out_.name("attributedLabel"), label, 1, images_);
    writeAttributedText(out_.name("attributedDetail"), detail, 1, images_);
    writeText(out_.name("accessibilityLabel"), [cell accessibilityLabel] ?: [control accessibilityLabel]);
    writeText(out_.name("accessibilityValue"), [cell accessibilityValue] ?: [control accessibilityValue]);
    writeText(out_.name("accessibilityHint"), [cell accessibilityHint] ?: [control accessibilityHint]);
    writeText(out_.name("accessibilityIdentifier"),
              [cell accessibilityIdentifier] ?: [control accessibilityIdentifier]);
  }

  void writeState(NSIndexPath *path, UITableViewCell *cell, UIView *control, PSSpecifier *specifier) {
    writeControl(out_.name("control"), control, images_);
    if (!writeControlValue(out_, control)) writeValue(out_.name("value"), storedValue(cell, specifier));
    out_.name("enabled").flag(isEnabled(cell, control));
    out_.name("selectable").flag([table_ sim_tapShowsAtIndexPath:path cell:cell]);
    writeTouches(cell);
    out_.name("accessory").string(accessoryName([cell sim_shownAccessoryType]));
    const char *editControl = editControlName([table_ sim_editControlAtIndexPath:path]);
    if (editControl) {
      out_.name("editControl").string(editControl);
    } else {
      out_.name("editControl").null();
    }
    out_.name("canMove").flag([table_ sim_canMoveRowAtIndexPath:path]);
    out_.name("height").number([table_ sim_heightOfRowAtIndexPath:path]);
    writeFrame(out_.name("frame"), [cell frame]);
  }

  void writeTouches(UITableViewCell *cell) {
    const Touchability in = touchabilityIn(cell, true);
    if (!around_) around_ = touchabilityAround(cell);
    out_.name("touchable").flag(in.touched || around_->touched);
    out_.name("dragged").flag(in.dragged);
    out_.name("contextMenu").flag(hasContextMenu(cell));
  }

  void writePicture(UIImageView *icon) {
    const bool isShown = writeShownImage(out_.name("image"), icon, images_);
    out_.name("imageStyle");
    if (isShown) {
      writeImageStyle(out_, icon, images_);
    } else {
      out_.null();
    }
  }

  /// `accessory` is the cell's own, when it holds no control.
  void writeLook(UITableViewCell *cell, UIView *accessory) {
    writeColor(out_.name("tintColor"), ownTint(cell));
    writeColor(out_.name("backgroundColor"), [cell backgroundColor]);
    writeOptionalView(out_.name("backgroundView"), [cell backgroundView], images_);
    writeOptionalView(out_.name("accessoryView"), accessory, images_);
    writeAccessoryButton(out_.name("accessoryButton"), accessory);
    writeSeparatorInset(out_.name("separatorInset"), table_, cell);
    out_.name("highlighted").flag([cell isHighlighted]);
    writeInterfaceStyle(out_.name("interfaceStyle"), [cell sim_ownUserInterfaceStyle]);
  }

  void writeSwipeActions(NSIndexPath *path) {
    out_.name("swipeOpen").flag([[table_ sim_swipedRow] isEqual:path]);
    out_.name("swipeActions").beginArray();
    std::uint32_t index = 0;
    for (SIMSwipeAction *action in [table_ sim_swipeActionsAtIndexPath:path]) {
      out_.beginObject();
      writeId(path, ElementKind::kSwipe, index++);
      writeText(out_.name("title"), [action title]);
      writeColor(out_.name("color"), [action backgroundColor]);
      UIImage *image = [action image];
      images_.write(out_.name("image"), image, [image size], templateTint(image, [UIColor whiteColor]));
      out_.name("leading").flag([action isLeading]);
      out_.endObject();
    }
    out_.endArray();
  }

  /// The views that a maker added to the cell: everything but the standard ones.
  void writeOwnViews(UITableViewCell *cell, UIView *control) {
    out_.name("views").beginArray();
    if (![cell isKindOfClass:[PSTableCell class]] || !isFrameworkCell(cell)) {
      const std::array<UIView *, 8> standard{[cell contentView],
                                             [cell sim_textLabelIfMade],
                                             [cell sim_detailTextLabelIfMade],
                                             [cell sim_imageViewIfMade],
                                             [cell sim_shownAccessoryView],
                                             [cell backgroundView],
                                             [cell selectedBackgroundView],
                                             control};
      for (UIView *parent : {[cell contentView], (UIView *)cell}) {
        for (id child in childrenOf(parent)) {
          if (std::find(standard.begin(), standard.end(), child) == standard.end()) writeChild(out_, child, images_);
        }
      }
    }
    out_.endArray();
  }

  /// Looking up the bundle of a class is slow, and the rows of a table are of few classes.
  bool isFrameworkCell(UITableViewCell *cell) {
    const auto [entry, isNew] = frameworkClasses_.try_emplace([cell class], false);
    if (isNew) entry->second = isFrameworkClass([cell class]);
    return entry->second;
  }

  JsonText &out_;
  UITableView *table_;  // Not owned.
  ImageStore &images_;
  std::vector<Named> named_;
  std::optional<Touchability> around_;  // Of the rows of the table.
  std::unordered_map<Class, bool> frameworkClasses_;
};

}  // namespace

void writeSections(JsonText &out, UITableView *table, std::uint32_t page, ImageStore &images) {
  [table sim_prepareForDescription];
  RowWriter rows(out, table, images);
  RowWriter *writer = &rows;
  out.beginArray();
  for (NSInteger section = 0; section < [table numberOfSections]; ++section) {
    out.beginObject();
    writeText(out.name("header"), [table sim_titleForHeaderInSection:section]);
    writeText(out.name("footer"), [table sim_titleForFooterInSection:section]);
    writeOptionalTouchableView(out.name("headerView"), [table sim_viewForHeaderInSection:section], images);
    writeOptionalTouchableView(out.name("footerView"), [table sim_viewForFooterInSection:section], images);
    out.name("headerHeight").number([table sim_heightOfHeaderInSection:section]);
    out.name("footerHeight").number([table sim_heightOfFooterInSection:section]);
    out.name("rows").beginArray();
    const auto end = static_cast<NSUInteger>([table numberOfRowsInSection:section]);
    const NSRange described = [table sim_rowsToDescribeInSection:section];
    rows.writeOutlines(NSMakeRange(0, described.location), section);
    [table sim_describeRows:described
                  inSection:section
                 usingBlock:^(NSIndexPath *path, UITableViewCell *cell) {
                   writer->write(path, cell);
                 }];
    rows.writeOutlines(NSMakeRange(NSMaxRange(described), end - std::min(end, NSMaxRange(described))), section);
    out.endArray();
    out.endObject();
  }
  out.endArray();
  rows.writeIds(page);
}

}  // namespace sim
