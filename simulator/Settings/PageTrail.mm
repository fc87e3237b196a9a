#import "Settings/PageTrail.h"

#import <UIKit/UIBarButtonItem+Sim.h>
#import <UIKit/UITableView+Sim.h>

#import "Settings/BarButtons.h"
#import "Settings/ElementId.hpp"
#import "Settings/RowTraits.h"

#include "base/Json.hpp"

#include <algorithm>
#include <optional>
#include <utility>

namespace sim {
namespace {

std::vector<std::uint32_t> numbersOf(UINavigationController *navigation, PageNumbers &numbers) {
  std::vector<std::uint32_t> all;
  for (UIViewController *page in [navigation viewControllers]) all.push_back(numbers.of(page));
  return all;
}

NSString *nameOf(UIBarButtonItem *button) { return [button title] ?: [button sim_systemItemName] ?: @""; }

Json rowTouch(UITableView *table, NSIndexPath *path) {
  const RowTraits traits = traitsOfRow(table, path);
  return {{"shown", traits.shown}, {"label", traits.label}, {"at", {[path section], [path row]}}};
}

Json buttonTouch(UIViewController *page, std::uint32_t number, PageNumbers &numbers) {
  NSArray *buttons = barButtons(page);
  for (NSUInteger index = 0; index < [buttons count]; ++index) {
    UIBarButtonItem *button = [buttons objectAtIndex:index];
    if (numbers.of(button) == number) return {{"button", utf8(nameOf(button))}, {"at", index}};
  }
  return nullptr;
}

std::optional<double> numberIn(const Json &object, const char *name) {
  const auto found = object.find(name);
  return found != object.end() && found->is_number() ? std::optional(found->get<double>()) : std::nullopt;
}

/// 0 for none.
std::uint32_t pageNumberIn(const Json &entry) {
  const auto found = entry.find("id");
  const std::uint64_t number = found != entry.end() && found->is_number_unsigned() ? found->get<std::uint64_t>() : 0;
  return number <= UINT32_MAX ? static_cast<std::uint32_t>(number) : 0;
}

/// Where the row stood; nil when no row is there now.
NSIndexPath *formerPath(UITableView *table, const Json &touch) {
  const auto at = touch.find("at");
  if (at == touch.end() || !at->is_array() || at->size() != 2) return nil;
  for (const Json &part : *at) {
    if (!part.is_number_unsigned() || part.get<std::uint64_t>() > INT32_MAX) return nil;
  }
  NSIndexPath *path = [NSIndexPath indexPathForRow:(*at)[1].get<NSInteger>() inSection:(*at)[0].get<NSInteger>()];
  return [table sim_hasRowAtIndexPath:path] ? path : nil;
}

/// The row that was touched: of those that are called so or show the same the one in its place, else the first; without
/// any the first with its label, or the one in its place.
NSIndexPath *rowTouched(UITableView *table, const Json &touch) {
  const std::string shown = textOrEmpty(touch, "shown");
  const std::string label = textOrEmpty(touch, "label");
  NSIndexPath *former = formerPath(table, touch);
  if (former && traitsOfRow(table, former).shown == shown) return former;
  NSIndexPath *alike = nil;
  for (NSInteger section = 0; section < [table numberOfSections]; ++section) {
    for (NSInteger row = 0; row < [table numberOfRowsInSection:section]; ++row) {
      NSIndexPath *path = [NSIndexPath indexPathForRow:row inSection:section];
      const RowTraits traits = traitsOfRow(table, path);
      if (traits.shown == shown) return path;
      if (!alike && !label.empty() && traits.label == label) alike = path;
    }
  }
  return alike ?: former;
}

UIBarButtonItem *buttonTouched(UIViewController *page, const Json &touch) {
  NSArray *buttons = barButtons(page);
  const std::string name = textOrEmpty(touch, "button");
  for (UIBarButtonItem *button in buttons) {
    if (!name.empty() && utf8(nameOf(button)) == name) return button;
  }
  const auto index = numberIn(touch, "at");
  return index && *index >= 0 && *index < [buttons count] ? [buttons objectAtIndex:NSUInteger(*index)] : nil;
}

/// Whether a page that comes now was asked for by a tap on what the event names.
bool isTap(const Json &event) {
  const std::string type = textOrEmpty(event, "type");
  return type == "tap" || (type == "touch" && textOrEmpty(event, "phase") == "ended") ||
         (type == "gesture" && textOrEmpty(event, "kind") == "tap");
}

/// The event that touches the same again; null when there is nothing of the kind.
Json eventFor(const Json &touch, UIViewController *page, PageNumbers &numbers) {
  ElementId element{.owner = numbers.of(page)};
  if (touch.contains("button")) {
    UIBarButtonItem *button = buttonTouched(page, touch);
    if (!button) return nullptr;
    element.kind = ElementKind::kButton;
    element.index = numbers.of(button);
  } else {
    UITableView *table = tableOf(page);
    NSIndexPath *path = table ? rowTouched(table, touch) : nil;
    if (!path) return nullptr;
    element.row = [table sim_numberOfRowAtIndexPath:path];
  }
  Json event{{"type", "tap"}, {"id", element.text()}};
  if (const std::string part = textOrEmpty(touch, "part"); !part.empty()) event["part"] = part;
  return event;
}

}  // namespace

void PageTrail::willPerform(const Json &event, UINavigationController *navigation, PageNumbers &numbers) {
  before_ = numbersOf(navigation, numbers);
  touch_ = nullptr;
  if (!event.is_object() || !isTap(event) || presentedOver(navigation)) return;
  const auto id = ElementId::parse(textOrEmpty(event, "id"));
  UIViewController *page = [navigation topViewController];
  if (!id || id->owner != before_.back()) return;
  if (id->kind == ElementKind::kButton) touch_ = buttonTouch(page, id->index, numbers);
  if (id->kind != ElementKind::kRow) return;
  UITableView *table = tableOf(page);
  NSIndexPath *path = [table sim_indexPathOfRowNumbered:id->row];
  if (!path) return;
  touch_ = rowTouch(table, path);
  if (const std::string part = textOrEmpty(event, "part"); !part.empty()) touch_["part"] = part;
}

void PageTrail::didPerform(UINavigationController *navigation, PageNumbers &numbers) {
  const std::vector<std::uint32_t> pages = numbersOf(navigation, numbers);
  std::erase_if(opened_, [&](const Opened &each) { return std::ranges::find(pages, each.page) == pages.end(); });
  const Json touch = std::exchange(touch_, nullptr);
  if (touch.is_null()) return;
  const auto isNew = [&](std::uint32_t page) { return std::ranges::find(before_, page) == before_.end(); };
  if (const auto first = std::ranges::find_if(pages, isNew); first != pages.end()) opened_.push_back({*first, touch});
}

std::string PageTrail::place(UINavigationController *navigation, PageNumbers &numbers) const {
  Json pages = Json::array();
  for (UIViewController *page in [navigation viewControllers]) {
    const std::uint32_t number = numbers.of(page);
    const auto opened = std::ranges::find(opened_, number, &Opened::page);
    Json entry{{"id", number}, {"touch", opened == opened_.end() ? Json() : opened->touch}, {"offset", 0}};
    if (UITableView *table = [page isViewLoaded] ? tableOf(page) : nil) entry["offset"] = [table contentOffset].y;
    pages.push_back(std::move(entry));
  }
  return Json{{"pages", std::move(pages)}}.dump(-1, ' ', false, Json::error_handler_t::replace);
}

bool PageTrail::reopen(const Json &place, UINavigationController *navigation, PageNumbers &numbers,
                       const Perform &perform) {
  const auto pages = place.is_object() ? place.find("pages") : place.end();
  if (pages == place.end() || !pages->is_array()) return false;
  for (const Json &entry : *pages) {
    if (!entry.is_object()) return false;
    numbers.reserve(pageNumberIn(entry));
  }
  for (std::size_t depth = 0; depth < pages->size(); ++depth) {
    const Json &entry = (*pages)[depth];
    if (depth >= [[navigation viewControllers] count]) {
      const auto touch = entry.find("touch");
      if (touch == entry.end() || !touch->is_object() || presentedOver(navigation)) return true;
      const Json event = eventFor(*touch, [navigation topViewController], numbers);
      if (event.is_null()) return true;
      perform(event);
      if (depth >= [[navigation viewControllers] count]) return true;
    }
    UIViewController *page = [[navigation viewControllers] objectAtIndex:depth];
    renumber(page, pageNumberIn(entry), numbers);
    UITableView *table = [page isViewLoaded] ? tableOf(page) : nil;
    if (const auto offset = numberIn(entry, "offset"); table && offset) {
      [table sim_moveQuietlyTo:CGPointMake([table contentOffset].x, *offset)];
    }
  }
  return true;
}

void PageTrail::renumber(UIViewController *page, std::uint32_t number, PageNumbers &numbers) {
  const auto opened = std::ranges::find(opened_, numbers.of(page), &Opened::page);
  numbers.assign(page, number);
  if (opened != opened_.end()) opened->page = numbers.of(page);
}

}  // namespace sim
