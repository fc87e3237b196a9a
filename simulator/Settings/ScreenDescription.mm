#import "Settings/ScreenDescription.hpp"

#import <UIKit/UIKit.h>
#import <UIKit/UIBarButtonItem+Sim.h>
#import <UIKit/UINavigationController+Sim.h>
#import <UIKit/UITableView+Sim.h>
#import <UIKit/UIViewController+Sim.h>

#import "Settings/BarButtons.hpp"
#import "Settings/ElementId.hpp"
#import "Settings/Guarded.hpp"
#import "Settings/ImageStore.hpp"
#import "Settings/JsonValues.hpp"
#import "Settings/RowDescription.hpp"
#import "Settings/SheetDescription.hpp"
#import "Settings/ViewDescription.hpp"

#include <algorithm>

namespace sim {
namespace {

NSString *titleOf(UIViewController *page) { return [[page navigationItem] title] ?: [page title] ?: @""; }

const char *styleName(UITableViewStyle style) {
  switch (style) {
    case UITableViewStylePlain:
      return "plain";
    case UITableViewStyleGrouped:
      return "grouped";
    default:
      return "insetGrouped";
  }
}

UITableView *firstTable(UIView *view) {
  if (!view || [view isKindOfClass:[UITableView class]]) return (UITableView *)view;
  for (UIView *child in [view subviews]) {
    if (UITableView *found = firstTable(child)) return found;
  }
  return nil;
}

void writeButtons(JsonText &out, UIViewController *page, std::uint32_t number) {
  out.beginArray();
  std::uint32_t index = 0;
  for (UIBarButtonItem *item in barButtons(page)) {
    out.beginObject();
    out.name("id").string(ElementId{ElementKind::kButton, number, 0, 0, index++}.text());
    writeText(out.name("title"), [item title]);
    writeText(out.name("systemItem"), [item sim_systemItemName]);
    out.name("side").string(isLeftButton(page, item) ? "left" : "right");
    out.name("enabled").flag([item isEnabled]);
    out.endObject();
  }
  out.endArray();
}

void writeBack(JsonText &out, UINavigationController *navigation, std::uint32_t number) {
  NSString *title = [navigation sim_backTitle];
  if (!title) return out.null();
  out.beginObject();
  out.name("id").string(ElementId{ElementKind::kBack, number}.text());
  writeText(out.name("title"), title);
  out.endObject();
}

/// The page's rows, or its view when it has no table.
void writeContent(JsonText &out, UIViewController *page, std::uint32_t number, ImageStore &images) {
  UITableView *table = tableOf(page);
  out.name("editing").flag([table isEditing] && ![table sim_swipedRow]);
  if (table) {
    out.name("style").string(styleName([table style]));
    writeSections(out.name("sections"), table, number, images);
    out.name("view").null();
  } else {
    out.name("style").null();
    out.name("sections").beginArray();
    out.endArray();
    writeView(out.name("view"), [page view], images);
  }
}

/// In place of the rows of a page whose code raised `exception`.
void writeFailure(JsonText &out, NSString *exception) {
  out.name("editing").flag(false);
  out.name("style").string(styleName(UITableViewStyleGrouped));
  out.name("sections").beginArray();
  out.beginObject();
  out.name("header").null();
  writeText(out.name("footer"), [@"This page cannot be shown. Its code raised " stringByAppendingFormat:@"%@.", exception]);
  out.name("headerView").null();
  out.name("footerView").null();
  out.name("headerHeight").null();
  out.name("footerHeight").null();
  out.name("rows").beginArray();
  out.endArray();
  out.endObject();
  out.endArray();
  out.name("view").null();
}

void writePage(JsonText &out, UINavigationController *navigation, PageNumbers &numbers, ImageStore &images) {
  UIViewController *page = [navigation topViewController];
  const std::uint32_t number = numbers.of(page);
  out.beginObject();
  out.name("id").natural(number);
  out.name("class").string(classNameOf(page));
  writeText(out.name("title"), titleOf(page));
  writeBack(out.name("back"), navigation, number);
  writeButtons(out.name("buttons"), page, number);
  const std::size_t head = out.text().size();
  NSString *raised = guarded("describing the page", [&] { writeContent(out, page, number, images); });
  if (raised) {
    out.truncate(head);
    writeFailure(out, raised);
  }
  out.endObject();
}

}  // namespace

std::uint32_t PageNumbers::of(UIViewController *page) {
  for (Entry &entry : entries_) {
    if (entry.page.get() != page) continue;
    entry.used = true;
    return entry.number;
  }
  entries_.push_back({objcxx::share(page), next_, true});
  return next_++;
}

void PageNumbers::beginDescription() {
  for (Entry &entry : entries_) entry.used = false;
}

void PageNumbers::endDescription() {
  std::erase_if(entries_, [](const Entry &entry) { return !entry.used; });
}

UITableView *tableOf(UIViewController *page) { return firstTable([page view]); }

UIViewController *presentedOver(UINavigationController *navigation) {
  UIViewController *front = [navigation sim_frontmostViewController];
  return front == navigation ? nil : front;
}

void writeScreen(JsonText &out, UINavigationController *navigation, PageNumbers &numbers, ImageStore &images) {
  numbers.beginDescription();
  out.beginObject();
  out.name("path").beginArray();
  for (UIViewController *page in [navigation viewControllers]) {
    numbers.of(page);
    writeText(out, titleOf(page));
  }
  out.endArray();
  writePage(out.name("page"), navigation, numbers, images);
  UIViewController *presented = presentedOver(navigation);
  writeAlert(out.name("alert"), presented, numbers);
  writeSheet(out.name("sheet"), presented, numbers, images);
  out.endObject();
  numbers.endDescription();
}

}  // namespace sim
