#import <UIKit/UISearchBar+Sim.h>
#import <UIKit/UITextField+Sim.h>

#import "Settings/controls/TextInput.h"
#import "Settings/views/Views.h"

namespace sim {
namespace {

std::string_view type(UIView *) { return "search"; }

void describe(JsonText &out, UIView *view, ImageStore &) {
  UISearchBar *bar = (UISearchBar *)view;
  UISearchTextField *field = [bar searchTextField];
  writeText(out.name("placeholder"), [bar placeholder]);
  writeInputTraits(out, field);
  out.name("cancelButton").flag([bar sim_showsCancel]);
  out.name("editing").flag([bar isFirstResponder]);
  out.name("minimal").flag([bar searchBarStyle] == UISearchBarStyleMinimal);
  writeColor(out.name("barColor"), [bar barTintColor]);
  writeColor(out.name("textColor"), [field textColor]);
  out.name("ownTextColor").flag([field sim_hasOwnColor]);
  writeColor(out.name("fieldColor"), [field backgroundColor]);
  writeColor(out.name("tintColor"), ownTint(bar));
}

bool writeValue(JsonText &out, UIView *view) {
  writeText(out, "value", [(UISearchBar *)view text]);
  return true;
}

const char *set(UIView *view, const Json &value, bool isFinished) {
  UISearchBar *bar = (UISearchBar *)view;
  if (value.is_null()) return [bar sim_cancelByUser] ? nullptr : "It shows no button that cancels.";
  NSString *text = nil;
  if (const char *problem = textToEnter(value, &text)) return problem;
  return [bar sim_type:text finished:isFinished] ? nullptr : kUnreachable;
}

const char *enter(UIView *view, const Json &value) {
  NSString *text = nil;
  if (const char *problem = textToEnter(value, &text)) return problem;
  return [(UISearchBar *)view sim_search:text] ? nullptr : kUnreachable;
}

}  // namespace

extern const ControlAdapter kSearchBar{.kind = [] { return [UISearchBar class]; },
                                       .type = type,
                                       .describe = describe,
                                       .writeValue = writeValue,
                                       .set = set,
                                       .enter = enter,
                                       .isDragged = true};

}  // namespace sim
