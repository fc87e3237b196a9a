// The queues of cells and of section views that wait to be used again.
#import "UITableViewState.h"

namespace {

std::string keyOf(NSString *identifier) {
  if (!identifier) [NSException raise:NSInvalidArgumentException format:@"A reuse identifier must not be nil."];
  return [identifier UTF8String];
}

template <typename View>
void registerClass(sim::ReuseQueue<View> &queue, Class viewClass, Class base, NSString *identifier) {
  const std::string key = keyOf(identifier);
  if (viewClass && ![viewClass isSubclassOfClass:base]) {
    [NSException raise:NSInvalidArgumentException format:@"%@ is no subclass of %@.", viewClass, base];
  }
  if (viewClass) {
    queue.classes[key] = viewClass;
  } else {
    queue.classes.erase(key);
  }
}

void show(UITableViewCell *cell) {
  [cell sim_setWaiting:NO];
  [cell setHidden:NO];
}

void show(UITableViewHeaderFooterView *) {}

/// A waiting view that was made ready, or nil.
template <typename View>
View *takeWaiting(sim::ReuseQueue<View> &queue, const std::string &key) {
  const auto at = queue.waiting.find(key);
  if (at == queue.waiting.end() || at->second.empty()) return nil;
  auto view = std::move(at->second.back());
  at->second.pop_back();
  show(view.get());
  [view.get() prepareForReuse];
  return view.autoreleased();
}

template <typename View>
Class registeredClass(const sim::ReuseQueue<View> &queue, const std::string &key) {
  const auto at = queue.classes.find(key);
  return at == queue.classes.end() ? Nil : at->second;
}

}  // namespace

@implementation UITableView (Reuse)

- (void)registerClass:(Class)cellClass forCellReuseIdentifier:(NSString *)identifier {
  registerClass(_tableViewState->cells, cellClass, [UITableViewCell class], identifier);
}

- (void)registerClass:(Class)viewClass forHeaderFooterViewReuseIdentifier:(NSString *)identifier {
  registerClass(_tableViewState->headersAndFooters, viewClass, [UITableViewHeaderFooterView class], identifier);
}

- (UITableViewCell *)dequeueReusableCellWithIdentifier:(NSString *)identifier {
  const std::string key = keyOf(identifier);
  if (UITableViewCell *waiting = takeWaiting(_tableViewState->cells, key)) return waiting;

  const Class cellClass = registeredClass(_tableViewState->cells, key);
  if (!cellClass) return nil;
  auto cell = objcxx::adopt((UITableViewCell *)[[cellClass alloc] initWithStyle:UITableViewCellStyleDefault
                                                                reuseIdentifier:identifier]);
  [cell.get() sim_setReuseIdentifier:identifier];
  return cell.autoreleased();
}

- (UITableViewCell *)dequeueReusableCellWithIdentifier:(NSString *)identifier forIndexPath:(NSIndexPath *)indexPath {
  UITableViewCell *cell = [self dequeueReusableCellWithIdentifier:identifier];
  if (!cell) {
    [NSException raise:NSInternalInconsistencyException
                format:@"No class is registered for cells with the identifier %@.", identifier];
  }
  return cell;
}

- (UITableViewHeaderFooterView *)dequeueReusableHeaderFooterViewWithIdentifier:(NSString *)identifier {
  const std::string key = keyOf(identifier);
  if (UITableViewHeaderFooterView *waiting = takeWaiting(_tableViewState->headersAndFooters, key)) return waiting;

  const Class viewClass = registeredClass(_tableViewState->headersAndFooters, key);
  if (!viewClass) return nil;
  auto view = objcxx::adopt((UITableViewHeaderFooterView *)[[viewClass alloc] initWithReuseIdentifier:identifier]);
  [view.get() sim_setReuseIdentifier:identifier];
  return view.autoreleased();
}

@end

@implementation UITableView (SimReuse)

- (BOOL)sim_queue:(UITableViewCell *)cell {
  constexpr std::size_t longestQueue = 64;
  if (![cell reuseIdentifier]) return NO;
  auto &queue = _tableViewState->cells.waiting[[[cell reuseIdentifier] UTF8String]];
  if (queue.size() >= longestQueue) return NO;
  queue.push_back(objcxx::share(cell));
  [cell sim_setWaiting:YES];
  return YES;
}

- (void)sim_takeFromQueue:(UITableViewCell *)cell {
  if (![cell sim_waiting]) return;
  auto &queue = _tableViewState->cells.waiting[[[cell reuseIdentifier] UTF8String]];
  std::erase_if(queue, [cell](const auto &waiting) { return waiting.get() == cell; });
  show(cell);
}

@end
