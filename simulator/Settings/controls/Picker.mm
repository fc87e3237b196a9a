#import <UIKit/UIPickerView+Sim.h>
#import <UIKit/UIView+Sim.h>

#import "Settings/JsonValues.h"
#import "Settings/controls/ControlAdapter.h"
#import "Settings/views/Views.h"

#include <objcxx/Retained.h>

#include <vector>

namespace sim {
namespace {

std::string_view type(UIView *) { return "picker"; }

void writeRow(JsonText &out, UIPickerView *picker, NSInteger component, NSInteger row, ImageStore &images) {
  UIView *view = [picker sim_makeViewForRow:row inComponent:component];
  UIColor *color = nil;
  NSString *title = view ? nil : [picker sim_titleOfRow:row inComponent:component color:&color];
  out.beginObject();
  writeText(out.name("title"), title);
  writeColor(out.name("color"), color);
  writeOptionalView(out.name("view"), view, images);
  out.endObject();
}

void describe(JsonText &out, UIView *view, ImageStore &images) {
  UIPickerView *picker = (UIPickerView *)view;
  out.name("components").beginArray();
  for (NSInteger component = 0; component < [picker numberOfComponents]; ++component) {
    const NSRange shown = [picker sim_shownRowsInComponent:component];
    const CGSize size = [picker rowSizeForComponent:component];
    out.beginObject();
    out.name("count").integer([picker numberOfRowsInComponent:component]);
    out.name("width").number(size.width);
    out.name("rowHeight").number(size.height);
    out.name("first").natural(shown.location);
    out.name("rows").beginArray();
    for (NSUInteger row = shown.location; row < NSMaxRange(shown); ++row) {
      writeRow(out, picker, component, static_cast<NSInteger>(row), images);
    }
    out.endArray();
    out.endObject();
  }
  out.endArray();
  writePair(out.name("size"), [picker bounds].size.width, [picker bounds].size.height);
}

bool writeValue(JsonText &out, UIView *view) {
  UIPickerView *picker = (UIPickerView *)view;
  out.name("value").beginArray();
  for (NSInteger component = 0; component < [picker numberOfComponents]; ++component) {
    out.integer([picker selectedRowInComponent:component]);
  }
  out.endArray();
  return true;
}

/// To a list of a row each component, or null for one that stays.
const char *set(UIView *view, const Json &value, bool) {
  UIPickerView *picker = (UIPickerView *)view;
  const char *const malformed = "A picker is set to a list: of each component the number of a row, or null.";
  const NSInteger count = [picker numberOfComponents];
  if (!value.is_array() || static_cast<NSInteger>(value.size()) != count) return malformed;
  std::vector<NSInteger> rows;
  for (const Json &part : value) {
    const auto component = static_cast<NSInteger>(rows.size());
    const bool isRow = part.is_number_unsigned() && part.get<std::uint64_t>() < static_cast<std::uint64_t>([picker
                                                                                    numberOfRowsInComponent:component]);
    if (!part.is_null() && !isRow) return malformed;
    rows.push_back(part.is_null() ? -1 : part.get<NSInteger>());
  }
  if (![picker sim_acceptsTouches]) return kUnreachable;
  for (NSInteger component = 0; component < count; ++component) {
    const NSInteger row = rows[static_cast<std::size_t>(component)];
    // What the code of the page did for an earlier wheel may have taken the row away.
    if (row >= 0 && ![picker sim_selectByUser:row inComponent:component]) return "This row has gone.";
  }
  return nullptr;
}

}  // namespace

extern const ControlAdapter kPicker{.kind = [] { return [UIPickerView class]; },
                                    .type = type,
                                    .describe = describe,
                                    .writeValue = writeValue,
                                    .set = set};

}  // namespace sim
