#import <UIKit/UIPickerView+Sim.h>

#import <UIKit/NSAttributedString+UIKit.h>
#import <UIKit/UIColor.h>
#import <UIKit/UIView+Sim.h>

#include <objcxx/Retained.h>

#include <algorithm>
#include <map>
#include <vector>

namespace sim {

/// A row's view, and the size that the wheel gave it, as it had none of its own; nothing for one that had.
struct PickerRowView {
  objcxx::Retained<UIView> view;
  CGSize given = {0, 0};
};

struct PickerComponent {
  NSInteger rows = 0;
  NSInteger selected = -1;
  CGFloat rowHeight = 0;
  CGFloat width = 0;  ///< 0: its share.
  std::map<NSInteger, PickerRowView> views;
  std::vector<PickerRowView> waiting;  ///< To be used again.
};

struct PickerViewState {
  id<UIPickerViewDataSource> dataSource = nil;  // Not owned.
  id<UIPickerViewDelegate> delegate = nil;      // Not owned.
  bool isLoaded = false;
  std::vector<PickerComponent> components;
};

}  // namespace sim

namespace {

constexpr CGSize kPickerSize = {320, 216};
constexpr CGFloat kRowHeight = 32;
// What is left free beside the components, and between two: measured nowhere, as the picker looks.
constexpr CGFloat kMargin = 9;
constexpr CGFloat kSpacing = 5;
// Rows on either side of the selected one that are shown: more than a wheel turns by in one go.
constexpr NSInteger kViewsAround = 50;
constexpr NSInteger kTitlesAround = 500;

CGSize sizeFor(CGSize size) { return size.width > 0 || size.height > 0 ? size : kPickerSize; }

}  // namespace

@implementation UIPickerView

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:{frame.origin, sizeFor(frame.size)}])) return nil;
  _pickerViewState = std::make_unique<sim::PickerViewState>();
  return self;
}

- (CGSize)sizeThatFits:(CGSize)size {
  (void)size;
  return kPickerSize;
}

- (CGSize)intrinsicContentSize {
  return kPickerSize;
}

- (id<UIPickerViewDataSource>)dataSource {
  return _pickerViewState->dataSource;
}

- (void)setDataSource:(id<UIPickerViewDataSource>)dataSource {
  _pickerViewState->dataSource = dataSource;
  [self reloadAllComponents];
}

- (id<UIPickerViewDelegate>)delegate {
  return _pickerViewState->delegate;
}

- (void)setDelegate:(id<UIPickerViewDelegate>)delegate {
  _pickerViewState->delegate = delegate;
  [self reloadAllComponents];
}

#pragma mark - Components

/// Asks for the rows of a component anew; what was selected stays as far as it is there.
- (void)sim_loadComponent:(NSInteger)number into:(sim::PickerComponent &)component {
  id<UIPickerViewDelegate> delegate = _pickerViewState->delegate;
  const NSInteger rows = [_pickerViewState->dataSource pickerView:self numberOfRowsInComponent:number];
  component.rows = std::max<NSInteger>(rows, 0);
  component.selected = std::clamp<NSInteger>(component.selected, component.rows > 0 ? 0 : -1, component.rows - 1);
  component.rowHeight = kRowHeight;
  component.width = 0;
  if ([delegate respondsToSelector:@selector(pickerView:rowHeightForComponent:)]) {
    component.rowHeight = std::max<CGFloat>([delegate pickerView:self rowHeightForComponent:number], 1);
  }
  if ([delegate respondsToSelector:@selector(pickerView:widthForComponent:)]) {
    component.width = std::max<CGFloat>([delegate pickerView:self widthForComponent:number], 0);
  }
  for (const auto &[row, view] : component.views) component.waiting.push_back(view);
  component.views.clear();
}

- (void)sim_loadIfNeeded {
  sim::PickerViewState &state = *_pickerViewState;
  if (state.isLoaded || !state.dataSource) return;
  state.isLoaded = true;
  const NSInteger count = [state.dataSource numberOfComponentsInPickerView:self];
  std::vector<sim::PickerComponent> components = std::move(state.components);
  components.resize(static_cast<std::size_t>(std::max<NSInteger>(count, 0)));
  for (std::size_t each = 0; each < components.size(); ++each) {
    [self sim_loadComponent:static_cast<NSInteger>(each) into:components[each]];
  }
  state.components = std::move(components);
}

/// nullptr for one that is not there.
- (sim::PickerComponent *)sim_component:(NSInteger)number {
  [self sim_loadIfNeeded];
  auto &components = _pickerViewState->components;
  if (number < 0 || static_cast<std::size_t>(number) >= components.size()) return nullptr;
  return &components[static_cast<std::size_t>(number)];
}

- (NSInteger)numberOfComponents {
  [self sim_loadIfNeeded];
  return static_cast<NSInteger>(_pickerViewState->components.size());
}

- (NSInteger)numberOfRowsInComponent:(NSInteger)number {
  const sim::PickerComponent *component = [self sim_component:number];
  return component ? component->rows : 0;
}

- (CGSize)rowSizeForComponent:(NSInteger)number {
  const sim::PickerComponent *component = [self sim_component:number];
  if (!component) return CGSizeZero;
  const auto count = static_cast<CGFloat>(_pickerViewState->components.size());
  const CGFloat share = ([self bounds].size.width - 2 * kMargin - (count - 1) * kSpacing) / count;
  return CGSizeMake(component->width > 0 ? component->width : std::max<CGFloat>(share, 0), component->rowHeight);
}

- (UIView *)viewForRow:(NSInteger)row forComponent:(NSInteger)number {
  const sim::PickerComponent *component = [self sim_component:number];
  if (!component) return nil;
  const auto found = component->views.find(row);
  return found == component->views.end() ? nil : found->second.view.get();
}

- (void)reloadAllComponents {
  _pickerViewState->isLoaded = false;
}

- (void)reloadComponent:(NSInteger)number {
  if (sim::PickerComponent *component = [self sim_component:number]) [self sim_loadComponent:number into:*component];
}

- (void)selectRow:(NSInteger)row inComponent:(NSInteger)number animated:(BOOL)animated {
  (void)animated;
  sim::PickerComponent *component = [self sim_component:number];
  if (component && row >= 0 && row < component->rows) component->selected = row;
}

- (NSInteger)selectedRowInComponent:(NSInteger)number {
  const sim::PickerComponent *component = [self sim_component:number];
  return component ? component->selected : -1;
}

@end

@implementation UIPickerView (Sim)

- (BOOL)sim_makesViews {
  return [_pickerViewState->delegate respondsToSelector:@selector(pickerView:viewForRow:forComponent:reusingView:)];
}

- (NSRange)sim_shownRowsInComponent:(NSInteger)number {
  const sim::PickerComponent *component = [self sim_component:number];
  if (!component || component->rows == 0) return NSMakeRange(0, 0);
  const NSInteger around = [self sim_makesViews] ? kViewsAround : kTitlesAround;
  const NSInteger first = std::max<NSInteger>(component->selected - around, 0);
  const NSInteger last = std::min<NSInteger>(component->selected + around, component->rows - 1);
  return NSMakeRange(static_cast<NSUInteger>(first), static_cast<NSUInteger>(last - first + 1));
}

/// Takes the views of rows that are shown no more.
- (void)sim_letGoOfViewsIn:(sim::PickerComponent &)component beside:(NSRange)shown {
  for (auto at = component.views.begin(); at != component.views.end();) {
    if (NSLocationInRange(static_cast<NSUInteger>(at->first), shown)) {
      ++at;
      continue;
    }
    component.waiting.push_back(at->second);
    at = component.views.erase(at);
  }
}

/// Puts the view into the middle of its row, which may have become wider since: one without a size of its own fills it.
- (void)sim_place:(sim::PickerRowView &)row inComponent:(NSInteger)number {
  UIView *view = row.view.get();
  const CGSize room = [self rowSizeForComponent:number];
  const CGSize size = [view bounds].size;
  if (size.width <= 0 || size.height <= 0 || CGSizeEqualToSize(size, row.given)) {
    row.given = room;
    [view setBounds:{CGPointZero, room}];
  }
  [view setCenter:CGPointMake(room.width / 2, room.height / 2)];
}

- (UIView *)sim_makeViewForRow:(NSInteger)row inComponent:(NSInteger)number {
  if (![self sim_makesViews]) return nil;
  sim::PickerComponent *component = [self sim_component:number];
  if (!component || row < 0 || row >= component->rows) return nil;
  if (const auto known = component->views.find(row); known != component->views.end()) {
    [self sim_place:known->second inComponent:number];
    return known->second.view.get();
  }
  [self sim_letGoOfViewsIn:*component beside:[self sim_shownRowsInComponent:number]];
  sim::PickerRowView old;
  if (!component->waiting.empty()) {
    old = component->waiting.back();
    component->waiting.pop_back();
  }
  const auto view = objcxx::share([_pickerViewState->delegate pickerView:self
                                                              viewForRow:row
                                                            forComponent:number
                                                             reusingView:old.view.get()]);
  component = [self sim_component:number];  // The delegate may have reloaded.
  if (!view || !component) return nil;
  sim::PickerRowView &made = component->views[row] = {view, view.get() == old.view.get() ? old.given : CGSizeZero};
  [self sim_place:made inComponent:number];
  return view.get();
}

- (NSString *)sim_titleOfRow:(NSInteger)row inComponent:(NSInteger)number color:(UIColor **)color {
  id<UIPickerViewDelegate> delegate = _pickerViewState->delegate;
  *color = nil;
  if ([delegate respondsToSelector:@selector(pickerView:attributedTitleForRow:forComponent:)]) {
    NSAttributedString *title = [delegate pickerView:self attributedTitleForRow:row forComponent:number];
    if ([title length] > 0) {
      *color = [title attribute:NSForegroundColorAttributeName atIndex:0 effectiveRange:NULL];
      return [title string];
    }
  }
  if ([delegate respondsToSelector:@selector(pickerView:titleForRow:forComponent:)]) {
    return [delegate pickerView:self titleForRow:row forComponent:number] ?: @"";
  }
  return @"?";
}

- (BOOL)sim_selectByUser:(NSInteger)row inComponent:(NSInteger)number {
  if (![self sim_acceptsTouches]) return NO;
  sim::PickerComponent *component = [self sim_component:number];
  if (!component || row < 0 || row >= component->rows) return NO;
  if (component->selected == row) return YES;
  const auto kept = objcxx::share(self);
  component->selected = row;
  id<UIPickerViewDelegate> delegate = _pickerViewState->delegate;
  if ([delegate respondsToSelector:@selector(pickerView:didSelectRow:inComponent:)]) {
    [delegate pickerView:self didSelectRow:row inComponent:number];
  }
  return YES;
}

@end
