#import "Settings/ScreenDescription.h"

#import <Foundation/Guarded.h>
#import <UIKit/UIKit.h>
#import <UIKit/UINavigationController+Sim.h>
#import <UIKit/UISearchController+Sim.h>
#import <UIKit/UITableView+Sim.h>
#import <UIKit/UIView+Sim.h>
#import <UIKit/UIViewController+Sim.h>

#import "Settings/BarButtons.h"
#import "Settings/BarDescription.h"
#import "Settings/ElementId.hpp"
#import "Settings/ImageStore.h"
#import "Settings/JsonValues.h"
#import "Settings/RowDescription.h"
#import "Settings/Scrolling.h"
#import "Settings/Touches.h"
#import "Settings/presented/Presented.h"
#import "Settings/views/Views.h"

#include "wire/NoticePage.hpp"

#include <algorithm>
#include <limits>

namespace sim {
namespace {

NSString *titleOf(UIViewController *page) { return [[page navigationItem] title] ?: [page title] ?: @""; }

const char *styleName(UITableViewStyle style) {
  switch (style) {
    case UITableViewStylePlain: return "plain";
    case UITableViewStyleGrouped: return "grouped";
    default: return "insetGrouped";
  }
}

UITableView *firstTable(UIView *view) {
  if (!view || [view isKindOfClass:[UITableView class]]) return (UITableView *)view;
  for (UIView *child in [view subviews]) {
    if (UITableView *found = firstTable(child)) return found;
  }
  return nil;
}

void writeBack(JsonText &out, UINavigationController *navigation, std::uint32_t number) {
  NSString *title = [navigation sim_backTitle];
  if (!title) return out.null();
  out.beginObject();
  out.name("id").string(ElementId{ElementKind::kBack, number}.text());
  writeText(out.name("title"), title);
  out.endObject();
}

/// Whether the table's rows begin at its edge, whatever covers that.
bool keepsClearOfNothing(UITableView *table) {
  return [table safeAreaInsets].top > 0 && [table adjustedContentInset].top == [table contentInset].top;
}

/// What a table shows beside its rows.
void writeTableLook(JsonText &out, UITableView *table, ImageStore &images) {
  writeColor(out.name("backgroundColor"), [table backgroundColor]);
  writeOptionalView(out.name("backgroundView"), [table backgroundView], images);
  writeOptionalTouchableView(out.name("headerView"), [table tableHeaderView], images);
  writeOptionalTouchableView(out.name("footerView"), [table tableFooterView], images);
  writeColor(out.name("separatorColor"), [table sim_ownSeparatorColor]);
  out.name("separators").flag(!table || [table separatorStyle] != UITableViewCellSeparatorStyleNone);
  out.name("scrolls").flag(!table || [table isScrollEnabled]);
  out.name("contentInset").beginArray();
  out.number([table contentInset].top);
  out.number([table contentInset].bottom);
  out.endArray();
}

/// The bar to search the page by; null without one.
void writeSearch(JsonText &out, UIViewController *page, ImageStore &images) {
  UISearchController *search = [[page navigationItem] searchController];
  if (!search) return out.null();
  out.beginObject();
  writeTouchableView(out.name("bar"), [search searchBar], images);
  out.name("active").flag([search isActive]);
  out.name("obscures")
      .flag([search isActive] && [search obscuresBackgroundDuringPresentation] && ![search sim_shownResultsController]);
  out.name("coversBar").flag([search isActive] && [search hidesNavigationBarDuringPresentation]);
  out.name("scrolls").flag([[page navigationItem] hidesSearchBarWhenScrolling]);
  out.endObject();
}

/// The page's rows, or its view when it has no table.
void writeContent(JsonText &out, UIViewController *page, std::uint32_t number, ImageStore &images) {
  UITableView *table = tableOf(page);
  [[page view] layoutIfNeeded];  // As before a device draws.
  writeInterfaceStyle(out.name("interfaceStyle"), [table ?: [page view] sim_setUserInterfaceStyle]);
  writeTableLook(out, table, images);
  out.name("underBar").flag(table && ![page sim_beginsBelowBar] && keepsClearOfNothing(table));
  const bool isTouched = table && (touchabilityOf(table).touched || touchabilityAround(table).touched);
  out.name("touchId");
  if (isTouched) {
    out.string(idOf(table));
  } else {
    out.null();
  }
  writeScrolling(out.name("scrolling"), table);
  writeSearch(out.name("search"), page, images);
  out.name("editing").flag([table sim_isInEditingMode]);
  if (table) {
    out.name("style").string(styleName([table style]));
    writeSections(out.name("sections"), table, number, images);
    out.name("view").null();
  } else {
    out.name("style").null();
    out.name("sections").beginArray();
    out.endArray();
    writeTouchableView(out.name("view"), [page view], images);
  }
}

void writePage(JsonText &out, UINavigationController *navigation, PageNumbers &numbers, ImageStore &images) {
  UIViewController *page = [navigation topViewController];
  const std::uint32_t number = numbers.of(page);
  out.beginObject();
  out.name("id").natural(number);
  out.name("class").string(classNameOf(page));
  writeText(out.name("title"), titleOf(page));
  writeBack(out.name("back"), navigation, number);
  writeBarButtons(out.name("buttons"), navigation, page, numbers, images);
  writeBar(out, navigation, page, images);
  const std::size_t head = out.text().size();
  NSString *raised = guarded(@"describing the page", [&] { writeContent(out, page, number, images); });
  if (raised) {
    out.truncate(head);
    wire::writeNotice(out, "", "This page cannot be shown. Its code raised " + utf8(raised) + ".");
  }
  out.endObject();
}

}  // namespace

std::uint32_t PageNumbers::of(NSObject *object) {
  for (Entry &entry : entries_) {
    if (entry.object.get() != object) continue;
    entry.used = true;
    return entry.number;
  }
  entries_.push_back({objcxx::share(object), next_, true});
  return next_++;
}

void PageNumbers::reserve(std::uint32_t number) {
  if (number >= next_ && number < std::numeric_limits<std::uint32_t>::max() / 2) next_ = number + 1;
}

void PageNumbers::assign(NSObject *object, std::uint32_t number) {
  const bool isFree = std::ranges::none_of(entries_, [&](const Entry &entry) { return entry.number == number; });
  if (number == 0 || number >= next_ || !isFree) return;
  (void)of(object);
  std::ranges::find_if(entries_, [&](const Entry &entry) { return entry.object.get() == object; })->number = number;
}

void PageNumbers::beginDescription() {
  for (Entry &entry : entries_) entry.used = false;
}

void PageNumbers::endDescription() {
  std::erase_if(entries_, [](const Entry &entry) { return !entry.used; });
}

UITableView *tableOf(UIViewController *page) {
  UIViewController *results = [[[page navigationItem] searchController] sim_shownResultsController];
  UITableView *table = results ? firstTable([results view]) : nil;
  return table ?: firstTable([page view]);
}

bool hasUnnamedRows(UINavigationController *navigation) {
  UIViewController *page = [navigation topViewController];
  UITableView *table = [page isViewLoaded] ? tableOf(page) : nil;
  return table && ![table sim_hasRowNumbers];
}

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
    for (UIBarButtonItem *button in barButtons(page)) numbers.of(button);
    writeText(out, titleOf(page));
  }
  out.endArray();
  writePage(out.name("page"), navigation, numbers, images);
  UIViewController *presented = presentedOver(navigation);
  for (const PresentedPlace place : {PresentedPlace::kAlert, PresentedPlace::kSheet, PresentedPlace::kMenu}) {
    writePresented(out.name(nameOf(place)), presented, place, numbers, images);
  }
  out.endObject();
  numbers.endDescription();
}

void writeContentOffset(JsonText &out, UINavigationController *navigation) {
  UIViewController *page = [navigation topViewController];
  UITableView *table = [page isViewLoaded] ? tableOf(page) : nil;
  if (!table) return out.null();
  writePair(out, [table contentOffset].x, [table contentOffset].y);
}

}  // namespace sim
