#import <UIKit/UISearchBar+Sim.h>
#import <UIKit/UISearchController+Sim.h>
#import <UIKit/UIScreen.h>
#import <UIKit/UIView+Sim.h>

#include <objcxx/Retained.h>

namespace sim {

struct SearchBarState {
  id<UISearchBarDelegate> delegate = nil;  // Not owned.
  UISearchController *controller = nil;    // Not owned.
  objcxx::Retained<UISearchTextField> field;
  objcxx::Retained<UIColor> barTint;
  UISearchBarStyle style = UISearchBarStyleDefault;
  bool showsCancel = false;
};

}  // namespace sim

namespace {

constexpr CGFloat kBarHeight = 56;

}  // namespace

@implementation UISearchTextField
@end

@implementation UISearchBar

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  _searchBarState = std::make_unique<sim::SearchBarState>();
  _searchBarState->field = objcxx::adopt([[UISearchTextField alloc] initWithFrame:CGRectZero]);
  [_searchBarState->field.get() setClearButtonMode:UITextFieldViewModeWhileEditing];
  [_searchBarState->field.get() setReturnKeyType:UIReturnKeySearch];
  return self;
}

- (CGSize)sizeThatFits:(CGSize)size {
  const CGFloat width = size.width > 0 ? size.width : [[UIScreen mainScreen] bounds].size.width;
  return CGSizeMake(width, kBarHeight);
}

- (CGSize)intrinsicContentSize {
  return CGSizeMake(UIViewNoIntrinsicMetric, kBarHeight);
}

- (id<UISearchBarDelegate>)delegate {
  return _searchBarState->delegate;
}

- (void)setDelegate:(id<UISearchBarDelegate>)delegate {
  _searchBarState->delegate = delegate;
}

- (UISearchTextField *)searchTextField {
  return _searchBarState->field.get();
}

- (NSString *)text {
  return [[self searchTextField] text];
}

- (void)setText:(NSString *)text {
  NSString *wanted = text ?: @"";
  if ([wanted isEqualToString:[self text]]) return;
  [[self searchTextField] setText:wanted];
  [self sim_tellChange];
}

- (void)sim_tellChange {
  if ([_searchBarState->delegate respondsToSelector:@selector(searchBar:textDidChange:)]) {
    [_searchBarState->delegate searchBar:self textDidChange:[self text]];
  }
  [_searchBarState->controller sim_textDidChange];
}

- (NSString *)placeholder {
  return [[self searchTextField] placeholder];
}

- (void)setPlaceholder:(NSString *)placeholder {
  [[self searchTextField] setPlaceholder:placeholder];
}

- (BOOL)showsCancelButton {
  return _searchBarState->showsCancel;
}

- (void)setShowsCancelButton:(BOOL)shows {
  _searchBarState->showsCancel = shows;
}

- (void)setShowsCancelButton:(BOOL)shows animated:(BOOL)animated {
  (void)animated;
  [self setShowsCancelButton:shows];
}

- (UISearchBarStyle)searchBarStyle {
  return _searchBarState->style;
}

- (void)setSearchBarStyle:(UISearchBarStyle)style {
  _searchBarState->style = style;
}

- (UIColor *)barTintColor {
  return _searchBarState->barTint.get();
}

- (void)setBarTintColor:(UIColor *)color {
  _searchBarState->barTint = objcxx::share(color);
}

- (UITextAutocapitalizationType)autocapitalizationType {
  return [[self searchTextField] autocapitalizationType];
}

- (void)setAutocapitalizationType:(UITextAutocapitalizationType)type {
  [[self searchTextField] setAutocapitalizationType:type];
}

- (UITextAutocorrectionType)autocorrectionType {
  return [[self searchTextField] autocorrectionType];
}

- (void)setAutocorrectionType:(UITextAutocorrectionType)type {
  [[self searchTextField] setAutocorrectionType:type];
}

- (UITextSpellCheckingType)spellCheckingType {
  return [[self searchTextField] spellCheckingType];
}

- (void)setSpellCheckingType:(UITextSpellCheckingType)type {
  [[self searchTextField] setSpellCheckingType:type];
}

- (UIKeyboardType)keyboardType {
  return [[self searchTextField] keyboardType];
}

- (void)setKeyboardType:(UIKeyboardType)type {
  [[self searchTextField] setKeyboardType:type];
}

- (BOOL)canBecomeFirstResponder {
  return YES;
}

- (BOOL)becomeFirstResponder {
  if ([self isFirstResponder]) return YES;
  id<UISearchBarDelegate> delegate = _searchBarState->delegate;
  if ([delegate respondsToSelector:@selector(searchBarShouldBeginEditing:)] &&
      ![delegate searchBarShouldBeginEditing:self]) {
    return NO;
  }
  if (![super becomeFirstResponder]) return NO;
  [_searchBarState->controller setActive:YES];
  if ([delegate respondsToSelector:@selector(searchBarTextDidBeginEditing:)]) {
    [delegate searchBarTextDidBeginEditing:self];
  }
  return YES;
}

- (BOOL)resignFirstResponder {
  if (![self isFirstResponder]) return YES;
  id<UISearchBarDelegate> delegate = _searchBarState->delegate;
  if ([delegate respondsToSelector:@selector(searchBarShouldEndEditing:)] &&
      ![delegate searchBarShouldEndEditing:self]) {
    return NO;
  }
  if (![super resignFirstResponder]) return NO;
  if ([delegate respondsToSelector:@selector(searchBarTextDidEndEditing:)]) [delegate searchBarTextDidEndEditing:self];
  return YES;
}

@end

@implementation UISearchBar (Sim)

- (UISearchController *)sim_controller {
  return _searchBarState->controller;
}

- (void)sim_setController:(UISearchController *)controller {
  _searchBarState->controller = controller;
}

- (BOOL)sim_showsCancel {
  return _searchBarState->showsCancel || [_searchBarState->controller isActive];
}

- (BOOL)sim_type:(NSString *)text finished:(BOOL)finished {
  if (![self sim_acceptsTouches] || ![[self searchTextField] isEnabled]) return NO;
  const auto kept = objcxx::share(self);
  if (![self becomeFirstResponder]) return NO;
  id<UISearchBarDelegate> delegate = _searchBarState->delegate;
  const bool changes = ![[self text] isEqualToString:text];
  const bool mayChange = ![delegate respondsToSelector:@selector(searchBar:shouldChangeTextInRange:replacementText:)] ||
                         (changes && [delegate searchBar:self
                                         shouldChangeTextInRange:NSMakeRange(0, [[self text] length])
                                                 replacementText:text]);
  if (changes && mayChange) [self setText:text];
  if (finished) [self resignFirstResponder];
  return YES;
}

- (BOOL)sim_search:(NSString *)text {
  const auto kept = objcxx::share(self);
  if (![self sim_type:text finished:NO]) return NO;
  if ([_searchBarState->delegate respondsToSelector:@selector(searchBarSearchButtonClicked:)]) {
    [_searchBarState->delegate searchBarSearchButtonClicked:self];
  }
  if (_searchBarState->controller) [self resignFirstResponder];
  return YES;
}

- (BOOL)sim_cancelByUser {
  if (![self sim_acceptsTouches] || ![self sim_showsCancel]) return NO;
  const auto kept = objcxx::share(self);
  if ([_searchBarState->delegate respondsToSelector:@selector(searchBarCancelButtonClicked:)]) {
    [_searchBarState->delegate searchBarCancelButtonClicked:self];
  }
  [_searchBarState->controller setActive:NO];
  return YES;
}

@end
