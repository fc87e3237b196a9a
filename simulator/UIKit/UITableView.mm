#import "UITableViewState.h"

#import <UIKit/FrameworkSupport.h>
#import <UIKit/UIColor.h>
#import <UIKit/UIScreen.h>

const CGFloat UITableViewAutomaticDimension = -1;

namespace {

void requireSection(const sim::TableGeometry &geometry, NSInteger section) {
  if (section >= 0 && section < geometry.sectionCount()) return;
  [NSException raise:NSRangeException
              format:@"There is no section %ld; the table view has %ld.", (long)section, geometry.sectionCount()];
}

}  // namespace

@implementation UITableView

- (instancetype)initWithFrame:(CGRect)frame style:(UITableViewStyle)style {
  if (!(self = [super initWithFrame:frame])) return nil;

  _tableViewState = std::make_unique<sim::TableViewState>();
  _tableViewState->style = style;
  const sim::SystemSets system;
  [self setAlwaysBounceVertical:YES];
  [self setBackgroundColor:style == UITableViewStylePlain ? [UIColor systemBackgroundColor]
                                                          : [UIColor systemGroupedBackgroundColor]];
  return self;
}

- (instancetype)initWithFrame:(CGRect)frame {
  return [self initWithFrame:frame style:UITableViewStylePlain];
}

- (instancetype)init {
  return [self initWithFrame:CGRectZero style:UITableViewStylePlain];
}

- (UITableViewStyle)style {
  return _tableViewState->style;
}

/// The safe area may reach into it now, and nobody sees an open row any more when it has left.
- (void)didMoveToWindow {
  [super didMoveToWindow];
  if (![self window]) (void)[self sim_closeSwipedRow];
  [self setNeedsLayout];
}

#pragma mark - Data source and delegate

- (id<UITableViewDataSource>)dataSource {
  return _tableViewState->dataSource;
}

- (void)setDataSource:(id<UITableViewDataSource>)source {
  const auto has = [source](SEL selector) { return [source respondsToSelector:selector] != NO; };
  _tableViewState->dataSource = source;
  _tableViewState->source = {
      .sections = has(@selector(numberOfSectionsInTableView:)),
      .headerTitle = has(@selector(tableView:titleForHeaderInSection:)),
      .footerTitle = has(@selector(tableView:titleForFooterInSection:)),
      .canEdit = has(@selector(tableView:canEditRowAtIndexPath:)),
      .canMove = has(@selector(tableView:canMoveRowAtIndexPath:)),
      .commit = has(@selector(tableView:commitEditingStyle:forRowAtIndexPath:)),
      .move = has(@selector(tableView:moveRowAtIndexPath:toIndexPath:)),
  };
  _tableViewState->loaded = false;
  [self setNeedsLayout];
}

- (id<UITableViewDelegate>)delegate {
  return _tableViewState->delegate;
}

- (void)setDelegate:(id<UITableViewDelegate>)delegate {
  const auto has = [delegate](SEL selector) { return [delegate respondsToSelector:selector] != NO; };
  [super setDelegate:delegate];
  _tableViewState->delegate = delegate;
  _tableViewState->has = {
      .willDisplay = has(@selector(tableView:willDisplayCell:forRowAtIndexPath:)),
      .didEndDisplaying = has(@selector(tableView:didEndDisplayingCell:forRowAtIndexPath:)),
      .willDisplayHeader = has(@selector(tableView:willDisplayHeaderView:forSection:)),
      .willDisplayFooter = has(@selector(tableView:willDisplayFooterView:forSection:)),
      .rowHeight = has(@selector(tableView:heightForRowAtIndexPath:)),
      .estimatedRowHeight = has(@selector(tableView:estimatedHeightForRowAtIndexPath:)),
      .headerHeight = has(@selector(tableView:heightForHeaderInSection:)),
      .footerHeight = has(@selector(tableView:heightForFooterInSection:)),
      .headerView = has(@selector(tableView:viewForHeaderInSection:)),
      .footerView = has(@selector(tableView:viewForFooterInSection:)),
      .indentation = has(@selector(tableView:indentationLevelForRowAtIndexPath:)),
      .accessory = has(@selector(tableView:accessoryButtonTappedForRowWithIndexPath:)),
      .shouldHighlight = has(@selector(tableView:shouldHighlightRowAtIndexPath:)),
      .didHighlight = has(@selector(tableView:didHighlightRowAtIndexPath:)),
      .didUnhighlight = has(@selector(tableView:didUnhighlightRowAtIndexPath:)),
      .willSelect = has(@selector(tableView:willSelectRowAtIndexPath:)),
      .willDeselect = has(@selector(tableView:willDeselectRowAtIndexPath:)),
      .didSelect = has(@selector(tableView:didSelectRowAtIndexPath:)),
      .didDeselect = has(@selector(tableView:didDeselectRowAtIndexPath:)),
      .editingStyle = has(@selector(tableView:editingStyleForRowAtIndexPath:)),
      .deleteTitle = has(@selector(tableView:titleForDeleteConfirmationButtonForRowAtIndexPath:)),
      .editActions = has(@selector(tableView:editActionsForRowAtIndexPath:)),
      .leadingSwipe = has(@selector(tableView:leadingSwipeActionsConfigurationForRowAtIndexPath:)),
      .trailingSwipe = has(@selector(tableView:trailingSwipeActionsConfigurationForRowAtIndexPath:)),
      .indents = has(@selector(tableView:shouldIndentWhileEditingRowAtIndexPath:)),
      .willEdit = has(@selector(tableView:willBeginEditingRowAtIndexPath:)),
      .didEdit = has(@selector(tableView:didEndEditingRowAtIndexPath:)),
      .target = has(@selector(tableView:targetIndexPathForMoveFromRowAtIndexPath:toProposedIndexPath:)),
  };
  [self sim_updateContextMenu];
  _tableViewState->loaded = false;
  [self setNeedsLayout];
}

#pragma mark - Look

- (CGFloat)rowHeight {
  return _tableViewState->rowHeight;
}

- (void)setRowHeight:(CGFloat)height {
  _tableViewState->rowHeight = height;
  [self sim_heightsChanged];
}

- (CGFloat)estimatedRowHeight {
  return _tableViewState->estimatedRowHeight;
}

- (void)setEstimatedRowHeight:(CGFloat)height {
  _tableViewState->estimatedRowHeight = height;
  [self sim_heightsChanged];
}

- (CGFloat)sectionHeaderHeight {
  return _tableViewState->headerHeight;
}

- (void)setSectionHeaderHeight:(CGFloat)height {
  _tableViewState->headerHeight = height;
  [self sim_heightsChanged];
}

- (CGFloat)sectionFooterHeight {
  return _tableViewState->footerHeight;
}

- (void)setSectionFooterHeight:(CGFloat)height {
  _tableViewState->footerHeight = height;
  [self sim_heightsChanged];
}

- (CGFloat)sectionHeaderTopPadding {
  return _tableViewState->headerTopPadding;
}

- (void)setSectionHeaderTopPadding:(CGFloat)padding {
  _tableViewState->headerTopPadding = padding;
  [self sim_heightsChanged];
}

- (void)sim_heightsChanged {
  if (!_tableViewState->loaded) return;
  for (long section = 0; section < _tableViewState->geometry.sectionCount(); ++section) {
    [self sim_estimateSection:section];
  }
  [self setNeedsLayout];
}

- (UITableViewCellSeparatorStyle)separatorStyle {
  return _tableViewState->separatorStyle;
}

- (void)setSeparatorStyle:(UITableViewCellSeparatorStyle)style {
  _tableViewState->separatorStyle = style;
}

- (UIEdgeInsets)separatorInset {
  return _tableViewState->separatorInset.value_or(UIEdgeInsetsMake(0, [self sim_margin], 0, 0));
}

- (void)setSeparatorInset:(UIEdgeInsets)inset {
  _tableViewState->separatorInset = inset;
}

- (UIColor *)separatorColor {
  return _tableViewState->separatorColor.get() ?: [UIColor separatorColor];
}

- (void)setSeparatorColor:(UIColor *)color {
  _tableViewState->separatorColor = objcxx::share(color);
}

/// Exchanges one of the views that stand beside the rows.
- (void)sim_replaceView:(objcxx::Retained<UIView> &)slot by:(UIView *)view {
  if (slot.get() == view) return;
  [slot.get() removeFromSuperview];
  slot = objcxx::share(view);
  if (view) [self insertSubview:view atIndex:0];
  [self setNeedsLayout];
}

- (UIView *)backgroundView {
  return _tableViewState->backgroundView.get();
}

- (void)setBackgroundView:(UIView *)view {
  [self sim_replaceView:_tableViewState->backgroundView by:view];
}

- (UIView *)tableHeaderView {
  return _tableViewState->tableHeaderView.get();
}

- (void)setTableHeaderView:(UIView *)view {
  [self sim_replaceView:_tableViewState->tableHeaderView by:view];
  [self sim_updateMargins];
}

- (UIView *)tableFooterView {
  return _tableViewState->tableFooterView.get();
}

- (void)setTableFooterView:(UIView *)view {
  [self sim_replaceView:_tableViewState->tableFooterView by:view];
  [self sim_updateMargins];
}

#pragma mark - Counts and places

- (NSInteger)numberOfSections {
  [self sim_loadIfNeeded];
  return _tableViewState->geometry.sectionCount();
}

- (NSInteger)numberOfRowsInSection:(NSInteger)section {
  [self sim_loadIfNeeded];
  requireSection(_tableViewState->geometry, section);
  return _tableViewState->geometry.rowCount(section);
}

- (CGRect)rectForSection:(NSInteger)section {
  [self sim_loadIfNeeded];
  const auto &geometry = _tableViewState->geometry;
  requireSection(geometry, section);
  const double top = geometry.sectionTop(section);
  return CGRectMake(0, top, [self bounds].size.width, geometry.sectionBottom(section) - top);
}

- (CGRect)rectForHeaderInSection:(NSInteger)section {
  CGRect rect = [self rectForSection:section];
  rect.size.height = _tableViewState->geometry.header(section);
  return rect;
}

- (CGRect)rectForFooterInSection:(NSInteger)section {
  CGRect rect = [self rectForSection:section];
  const double height = _tableViewState->geometry.footer(section);
  rect.origin.y += rect.size.height - height;
  rect.size.height = height;
  return rect;
}

- (CGRect)rectForRowAtIndexPath:(NSIndexPath *)indexPath {
  [self sim_loadIfNeeded];
  const auto index = sim::indexOf(indexPath);
  return _tableViewState->geometry.contains(index) ? [self sim_rectOf:index] : CGRectZero;
}

- (NSIndexPath *)indexPathForRowAtPoint:(CGPoint)point {
  [self sim_loadIfNeeded];
  const auto &geometry = _tableViewState->geometry;
  const auto index = geometry.firstRowEndingAfter(point.y);
  return index && geometry.rowTop(*index) <= point.y ? sim::pathOf(*index) : nil;
}

- (NSIndexPath *)indexPathForCell:(UITableViewCell *)cell {
  if (!cell) return nil;
  if (_tableViewState->guest.get() == cell) return sim::pathOf(_tableViewState->guestIndex);
  for (const auto &[index, live] : _tableViewState->live) {
    if (live.get() == cell) return sim::pathOf(index);
  }
  return nil;
}

- (UITableViewCell *)cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  const auto at = _tableViewState->live.find(sim::indexOf(indexPath));
  return at == _tableViewState->live.end() ? nil : at->second.get();
}

- (NSArray *)visibleCells {
  NSMutableArray *cells = [NSMutableArray array];
  for (const auto &[index, cell] : _tableViewState->live) [cells addObject:cell.get()];
  return cells;
}

- (NSArray *)indexPathsForVisibleRows {
  NSMutableArray *paths = [NSMutableArray array];
  for (const auto &[index, cell] : _tableViewState->live) [paths addObject:sim::pathOf(index)];
  return [paths count] > 0 ? paths : nil;
}

- (void)scrollToRowAtIndexPath:(NSIndexPath *)indexPath
              atScrollPosition:(UITableViewScrollPosition)position
                      animated:(BOOL)animated {
  [self sim_loadIfNeeded];
  const auto &geometry = _tableViewState->geometry;
  sim::RowIndex index = sim::indexOf(indexPath);
  if (index.row == NSNotFound) {
    requireSection(geometry, index.section);
    const CGFloat top = geometry.sectionTop(index.section) - [self adjustedContentInset].top;
    [self setContentOffset:CGPointMake([self contentOffset].x, top) animated:animated];
  } else if (geometry.contains(index)) {
    [self setContentOffset:[self sim_offsetForRow:index position:position] animated:animated];
  } else {
    [NSException raise:NSRangeException format:@"There is no row %@ to scroll to.", indexPath];
  }
}

- (void)reloadData {
  [self sim_reload];
}

@end

@implementation UITableView (SimSeparators)

- (UIColor *)sim_ownSeparatorColor {
  return _tableViewState->separatorColor.get();
}

- (BOOL)sim_hasSeparatorInset {
  return _tableViewState->separatorInset.has_value();
}

@end
