#import <UIKit/MenuController.h>

#import <UIKit/UIAction+Sim.h>
#import <UIKit/UIApplication.h>
#import <UIKit/UIBarButtonItem.h>
#import <UIKit/UIDeferredMenuElement+Sim.h>
#import <UIKit/UIPopoverPresentationController.h>
#import <UIKit/UIViewController+Sim.h>
#import <UIKit/UIWindow.h>

#include <algorithm>

namespace sim {

struct MenuControllerState {
  objcxx::Retained<UIMenu> menu;
  std::vector<objcxx::Retained<UIMenu>> opened;  ///< Each in the one before it, the first in `menu`.
  std::vector<objcxx::Retained<UIMenuElement>> numbered;
  id sender = nil;  // Not owned: it is what the menu is shown beside, or its owner.
  objcxx::BlockHandle<void> leaving;
  objcxx::BlockHandle<void> gone;
  objcxx::BlockHandle<void, UIAction *> chosen;
  bool keepsSelection = false;
  bool rich = false;
};

namespace {

using Elements = std::vector<objcxx::Retained<UIMenuElement>>;

bool isShown(UIMenuElement *element) {
  if ([element isKindOfClass:[UIAction class]]) return ![(UIAction *)element sim_has:UIMenuElementAttributesHidden];
  if ([element isKindOfClass:[UIMenu class]]) return !groupsOf((UIMenu *)element).empty();
  return true;
}

void add(std::vector<MenuGroup> &groups, NSArray *elements, bool &startsGroup) {
  for (UIMenuElement *element in elements) {
    if (!isShown(element)) continue;
    NSArray *come =
        [element isKindOfClass:[UIDeferredMenuElement class]] ? [(UIDeferredMenuElement *)element sim_elements] : nil;
    if (come) {
      add(groups, come, startsGroup);
    } else if ([element isKindOfClass:[UIMenu class]] && ([(UIMenu *)element options] & UIMenuOptionsDisplayInline)) {
      const std::vector<MenuGroup> own = groupsOf((UIMenu *)element);
      groups.insert(groups.end(), own.begin(), own.end());
      if (NSString *title = [element title];[title length] > 0) {
        groups[groups.size() - own.size()].title = objcxx::share(title);
      }
      startsGroup = true;
    } else {
      if (startsGroup) groups.emplace_back();
      startsGroup = false;
      groups.back().elements.push_back(objcxx::share(element));
    }
  }
}

template <typename Visit>
void visitElements(NSArray *elements, Visit visit) {
  for (UIMenuElement *each in elements) {
    visit(each);
    if ([each isKindOfClass:[UIMenu class]]) visitElements([(UIMenu *)each children], visit);
    if ([each isKindOfClass:[UIDeferredMenuElement class]]) {
      visitElements([(UIDeferredMenuElement *)each sim_elements], visit);
    }
  }
}

/// The menu in which one of all choices is on, to which `action` belongs; nil when there is none.
UIMenu *selectionAround(UIMenu *menu, UIAction *action) {
  bool holds = false;
  visitElements([menu children], [&](UIMenuElement *each) { holds |= each == action; });
  if (!holds) return nil;
  if ([menu options] & UIMenuOptionsSingleSelection) return menu;
  for (UIMenuElement *child in [menu children]) {
    UIMenu *found = [child isKindOfClass:[UIMenu class]] ? selectionAround((UIMenu *)child, action) : nil;
    if (found) return found;
  }
  return nil;
}

}  // namespace

std::vector<MenuGroup> groupsOf(UIMenu *menu) {
  std::vector<MenuGroup> groups;
  bool startsGroup = true;
  add(groups, [menu children], startsGroup);
  return groups;
}

void choose(UIMenu *menu, UIAction *chosen) {
  visitElements([menu children], [&](UIMenuElement *each) {
    if (![each isKindOfClass:[UIAction class]]) return;
    [(UIAction *)each sim_turn:each == chosen ? UIMenuElementStateOn : UIMenuElementStateOff];
  });
}

}  // namespace sim

@implementation SIMMenuController

- (instancetype)initWithMenu:(UIMenu *)menu sender:(id)sender {
  if (!(self = [super initWithNibName:nil bundle:nil])) return nil;
  _menuControllerState = std::make_unique<sim::MenuControllerState>();
  _menuControllerState->menu = objcxx::share(menu);
  _menuControllerState->sender = sender;
  [self setModalPresentationStyle:UIModalPresentationPopover];
  return self;
}

- (void)dealloc {
  // It may go with the window, without having left the screen.
  const auto gone = _menuControllerState ? std::exchange(_menuControllerState->gone, {}) : objcxx::BlockHandle<void>();
  if (gone) gone();
  [super dealloc];
}

- (void)onLeaving:(void (^)(void))leaving gone:(void (^)(void))gone {
  _menuControllerState->leaving = objcxx::copyOf(leaving);
  _menuControllerState->gone = objcxx::copyOf(gone);
}

- (void)keepSelection:(BOOL)keeps chosen:(void (^)(UIAction *))chosen {
  _menuControllerState->keepsSelection = keeps;
  _menuControllerState->chosen = objcxx::copyOf(chosen);
}

- (BOOL)showFromView:(UIView *)view barButton:(UIBarButtonItem *)item {
  if (sim::groupsOf([self menu]).empty()) return NO;
  UIPopoverPresentationController *place = [self popoverPresentationController];
  [place setSourceView:view];
  [place setBarButtonItem:item];
  // What lies in a bar is in no window of its own.
  UIWindow *window = [view window] ?: [[UIApplication sharedApplication] keyWindow];
  UIViewController *front = [[window rootViewController] sim_frontmostViewController];
  [front presentViewController:self animated:YES completion:nil];
  return [self presentingViewController] != nil;
}

- (BOOL)rich {
  return _menuControllerState->rich;
}

- (void)setRich:(BOOL)rich {
  _menuControllerState->rich = rich;
}

- (UIMenu *)menu {
  return _menuControllerState->menu.get();
}

- (void)setMenu:(UIMenu *)menu {
  if (sim::groupsOf(menu).empty()) return [self leave];
  _menuControllerState->menu = objcxx::share(menu);
  auto &opened = _menuControllerState->opened;
  const auto former = std::exchange(opened, {});
  UIMenu *around = menu;
  for (const auto &each : former) {
    UIMenu *same = nil;
    for (const sim::MenuGroup &group : sim::groupsOf(around)) {
      for (const auto &element : group.elements) {
        const bool isMenu = [element.get() isKindOfClass:[UIMenu class]];
        if (isMenu && [[(UIMenu *)element.get() identifier] isEqual:[each.get() identifier]]) {
          same = (UIMenu *)element.get();
        }
      }
    }
    if (!same) break;
    opened.push_back(objcxx::share(same));
    around = same;
  }
}

- (NSArray *)openMenus {
  NSMutableArray *all = [NSMutableArray arrayWithObject:[self menu]];
  for (const auto &each : _menuControllerState->opened) [all addObject:each.get()];
  return all;
}

- (NSUInteger)numberOfElement:(UIMenuElement *)element {
  auto &numbered = _menuControllerState->numbered;
  const auto found = std::ranges::find_if(numbered, [&](const auto &each) { return each.get() == element; });
  const auto number = static_cast<NSUInteger>(found - numbered.begin());
  if (found == numbered.end()) numbered.push_back(objcxx::share(element));
  return number;
}

- (UIMenuElement *)elementNumbered:(NSUInteger)number {
  const auto &numbered = _menuControllerState->numbered;
  return number < numbered.size() ? numbered[number].get() : nil;
}

- (void)askForDeferredElements {
  for (UIMenu *menu in [self openMenus]) {
    for (const sim::MenuGroup &group : sim::groupsOf(menu)) {
      for (const auto &element : group.elements) {
        if ([element.get() isKindOfClass:[UIDeferredMenuElement class]]) {
          [(UIDeferredMenuElement *)element.get() sim_appear];
        }
      }
    }
  }
}

- (BOOL)sim_isOn:(UIMenuElement *)element in:(UIMenu *)menu {
  for (const sim::MenuGroup &group : sim::groupsOf(menu)) {
    for (const auto &each : group.elements) {
      if (each.get() == element) return YES;
    }
  }
  return NO;
}

- (BOOL)tapElement:(UIMenuElement *)element {
  auto &opened = _menuControllerState->opened;
  const auto header = std::ranges::find_if(opened, [&](const auto &each) { return each.get() == element; });
  if (header != opened.end()) {
    opened.erase(header, opened.end());
    return YES;
  }
  if (![self sim_isOn:element in:[[self openMenus] lastObject]]) return NO;
  if ([element isKindOfClass:[UIMenu class]]) {
    opened.push_back(objcxx::share((UIMenu *)element));
    return YES;
  }
  const bool isAction = [element isKindOfClass:[UIAction class]];
  if (!isAction || [(UIAction *)element sim_has:UIMenuElementAttributesDisabled]) return NO;
  [self sim_perform:(UIAction *)element];
  return YES;
}

- (void)sim_perform:(UIAction *)action {
  const auto kept = objcxx::share(self);
  const auto keptAction = objcxx::share(action);
  const auto sender = objcxx::share((NSObject *)_menuControllerState->sender);
  const auto chosen = _menuControllerState->chosen;
  UIMenu *selection = _menuControllerState->keepsSelection ? [self menu] : sim::selectionAround([self menu], action);
  if (selection) sim::choose(selection, action);
  [self leave];
  if (chosen) chosen(action);
  [action sim_performFrom:sender.get()];
}

- (void)leave {
  const auto kept = objcxx::share(self);
  if ([self presentingViewController]) [self sim_dismissAtOnce];
}

- (void)viewWillDisappear:(BOOL)animated {
  [super viewWillDisappear:animated];
  const auto leaving = std::exchange(_menuControllerState->leaving, {});
  if (leaving) leaving();
}

- (void)viewDidDisappear:(BOOL)animated {
  [super viewDidDisappear:animated];
  sim::visitElements([[self menu] children], [](UIMenuElement *each) {
    if ([each isKindOfClass:[UIDeferredMenuElement class]]) [(UIDeferredMenuElement *)each sim_disappear];
  });
  const auto gone = std::exchange(_menuControllerState->gone, {});
  if (gone) gone();
}

@end
