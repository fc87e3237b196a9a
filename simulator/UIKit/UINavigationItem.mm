#import <UIKit/UINavigationItem.h>

#import <UIKit/UIBarButtonItem.h>
#import <UIKit/UINavigationBarAppearance.h>
#import <UIKit/UISearchController.h>
#import <UIKit/UIView.h>
#include <objcxx/Retained.h>

namespace sim {
struct NavigationItemState {
  objcxx::Retained<NSString> title;
  objcxx::Retained<UIView> titleView;
  objcxx::Retained<NSString> prompt;
  objcxx::Retained<NSString> backButtonTitle;
  objcxx::Retained<UIBarButtonItem> backBarButtonItem;
  objcxx::Retained<NSArray> leftItems;
  objcxx::Retained<NSArray> rightItems;
  BOOL hidesBackButton = NO;
  BOOL leftItemsSupplementBackButton = NO;
  objcxx::Retained<UISearchController> searchController;
  BOOL hidesSearchBarWhenScrolling = YES;
  objcxx::Retained<UINavigationBarAppearance> standardAppearance;
  objcxx::Retained<UINavigationBarAppearance> compactAppearance;
  objcxx::Retained<UINavigationBarAppearance> scrollEdgeAppearance;
  UINavigationItemLargeTitleDisplayMode largeTitleDisplayMode = UINavigationItemLargeTitleDisplayModeAutomatic;
};
}  // namespace sim

@implementation UINavigationItem

- (instancetype)initWithTitle:(NSString *)title {
  if (!(self = [super init])) return nil;

  _navigationItemState = std::make_unique<sim::NavigationItemState>();
  [self setTitle:title];
  return self;
}

- (instancetype)init {
  return [self initWithTitle:nil];
}

- (NSString *)title {
  return _navigationItemState->title.get();
}

- (void)setTitle:(NSString *)title {
  _navigationItemState->title = objcxx::adopt((NSString *)[title copy]);
}

- (UIView *)titleView {
  return _navigationItemState->titleView.get();
}

- (void)setTitleView:(UIView *)titleView {
  _navigationItemState->titleView = objcxx::share(titleView);
}

- (NSString *)prompt {
  return _navigationItemState->prompt.get();
}

- (void)setPrompt:(NSString *)prompt {
  _navigationItemState->prompt = objcxx::adopt((NSString *)[prompt copy]);
}

- (UINavigationItemLargeTitleDisplayMode)largeTitleDisplayMode {
  return _navigationItemState->largeTitleDisplayMode;
}

- (void)setLargeTitleDisplayMode:(UINavigationItemLargeTitleDisplayMode)mode {
  _navigationItemState->largeTitleDisplayMode = mode;
}

#pragma mark - The look of the bar

- (UINavigationBarAppearance *)standardAppearance {
  return _navigationItemState->standardAppearance.get();
}

- (void)setStandardAppearance:(UINavigationBarAppearance *)look {
  _navigationItemState->standardAppearance = objcxx::adopt((UINavigationBarAppearance *)[look copy]);
}

- (UINavigationBarAppearance *)compactAppearance {
  return _navigationItemState->compactAppearance.get();
}

- (void)setCompactAppearance:(UINavigationBarAppearance *)look {
  _navigationItemState->compactAppearance = objcxx::adopt((UINavigationBarAppearance *)[look copy]);
}

- (UINavigationBarAppearance *)scrollEdgeAppearance {
  return _navigationItemState->scrollEdgeAppearance.get();
}

- (void)setScrollEdgeAppearance:(UINavigationBarAppearance *)look {
  _navigationItemState->scrollEdgeAppearance = objcxx::adopt((UINavigationBarAppearance *)[look copy]);
}

#pragma mark - The back button

- (NSString *)backButtonTitle {
  return _navigationItemState->backButtonTitle.get();
}

- (void)setBackButtonTitle:(NSString *)title {
  _navigationItemState->backButtonTitle = objcxx::adopt((NSString *)[title copy]);
}

- (UIBarButtonItem *)backBarButtonItem {
  return _navigationItemState->backBarButtonItem.get();
}

- (void)setBackBarButtonItem:(UIBarButtonItem *)item {
  _navigationItemState->backBarButtonItem = objcxx::share(item);
}

- (BOOL)hidesBackButton {
  return _navigationItemState->hidesBackButton;
}

- (void)setHidesBackButton:(BOOL)hidesBackButton {
  [self setHidesBackButton:hidesBackButton animated:NO];
}

- (void)setHidesBackButton:(BOOL)hidesBackButton animated:(BOOL)animated {
  _navigationItemState->hidesBackButton = hidesBackButton;
}

- (BOOL)leftItemsSupplementBackButton {
  return _navigationItemState->leftItemsSupplementBackButton;
}

- (void)setLeftItemsSupplementBackButton:(BOOL)supplement {
  _navigationItemState->leftItemsSupplementBackButton = supplement;
}

#pragma mark - Items on the sides

- (NSArray *)leftBarButtonItems {
  return _navigationItemState->leftItems.get();
}

- (void)setLeftBarButtonItems:(NSArray *)items {
  [self setLeftBarButtonItems:items animated:NO];
}

- (void)setLeftBarButtonItems:(NSArray *)items animated:(BOOL)animated {
  _navigationItemState->leftItems = objcxx::adopt((NSArray *)[items copy]);
}

- (NSArray *)rightBarButtonItems {
  return _navigationItemState->rightItems.get();
}

- (void)setRightBarButtonItems:(NSArray *)items {
  [self setRightBarButtonItems:items animated:NO];
}

- (void)setRightBarButtonItems:(NSArray *)items animated:(BOOL)animated {
  _navigationItemState->rightItems = objcxx::adopt((NSArray *)[items copy]);
}

- (UIBarButtonItem *)leftBarButtonItem {
  return [_navigationItemState->leftItems.get() firstObject];
}

- (void)setLeftBarButtonItem:(UIBarButtonItem *)item {
  [self setLeftBarButtonItem:item animated:NO];
}

- (void)setLeftBarButtonItem:(UIBarButtonItem *)item animated:(BOOL)animated {
  [self setLeftBarButtonItems:item ? @[ item ] : nil animated:animated];
}

- (UIBarButtonItem *)rightBarButtonItem {
  return [_navigationItemState->rightItems.get() firstObject];
}

- (void)setRightBarButtonItem:(UIBarButtonItem *)item {
  [self setRightBarButtonItem:item animated:NO];
}

- (void)setRightBarButtonItem:(UIBarButtonItem *)item animated:(BOOL)animated {
  [self setRightBarButtonItems:item ? @[ item ] : nil animated:animated];
}

@end

@implementation UINavigationItem (UISearchController)

- (UISearchController *)searchController {
  return _navigationItemState->searchController.get();
}

- (void)setSearchController:(UISearchController *)searchController {
  _navigationItemState->searchController = objcxx::share(searchController);
}

- (BOOL)hidesSearchBarWhenScrolling {
  return _navigationItemState->hidesSearchBarWhenScrolling;
}

- (void)setHidesSearchBarWhenScrolling:(BOOL)hides {
  _navigationItemState->hidesSearchBarWhenScrolling = hides;
}

@end
