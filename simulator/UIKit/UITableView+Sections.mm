// Headers and footers: titles from the data source, views from the delegate.
#import "LayoutProblem.h"
#import "UITableViewState.h"

#import <UIKit/FrameworkSupport.h>
#import <UIKit/UIColor.h>
#import <UIKit/UIFont.h>
#import <UIKit/UILabel.h>

#include <cmath>

namespace {

constexpr CGFloat kPlainTitleHeight = 28;    // Until the title's view is there.
constexpr CGFloat kGroupedTitleHeight = 38;  // The same.
constexpr CGFloat kGroupedGap = 17.5;        // Above and below the rows of each section.
constexpr CGFloat kPlainTopPadding = 22;
constexpr CGFloat kPlainTitleSize = 17;

bool isHeight(CGFloat height) { return std::isfinite(height) && height >= 0; }

/// One part of a section; null when the section is not there, so after a question that made the table view reload.
sim::SectionPart *partAt(sim::TableViewState &state, long section, BOOL header) {
  if (section < 0 || static_cast<std::size_t>(section) >= state.parts.size()) return nullptr;
  return header ? &state.parts[section].header : &state.parts[section].footer;
}

/// The first header of a grouped table view lies a gap further down.
CGFloat groupedGapAbove(long section, BOOL header) { return header && section == 0 ? kGroupedGap : 0; }

/// How far a title stays from the edges of its view, as UIKit lays it out in a table view of this style.
UIEdgeInsets titleInsets(UITableViewStyle style, long section, BOOL header, CGFloat margin, UIEdgeInsets covered) {
  const auto insets = [&](CGFloat top, CGFloat bottom) {
    return UIEdgeInsetsMake(top, covered.left + margin, bottom, covered.right + margin);
  };
  if (style == UITableViewStylePlain) return insets(4, 4);
  if (!header) return insets(7, 7);
  return insets(15.5 + groupedGapAbove(section, header), 6.5);
}

/// What the view's constraints make of it in that width, or else what the view itself says.
CGFloat fittingHeight(UIView *view, CGFloat width) {
  const CGSize target = CGSizeMake(width, 0);
  const BOOL knows = [view isKindOfClass:[UITableViewHeaderFooterView class]] || sim::constraintsSayHeight(view);
  if (!knows) return [view sizeThatFits:target].height;
  return [view systemLayoutSizeFittingSize:target
             withHorizontalFittingPriority:UILayoutPriorityRequired
                   verticalFittingPriority:UILayoutPriorityFittingSizeLevel]
      .height;
}

}  // namespace

@implementation UITableView (SimSections)

/// Asks the data source for the title of one section part, once.
- (NSString *)sim_titleOfSection:(long)section header:(BOOL)header {
  auto &state = *_tableViewState;
  sim::SectionPart *part = partAt(state, section, header);
  if (!part || part->hasTitle) return part ? part->title.get() : nil;

  part->hasTitle = true;
  NSString *title = nil;
  if (header && state.source.headerTitle) {
    title = [state.dataSource tableView:self titleForHeaderInSection:section];
  } else if (!header && state.source.footerTitle) {
    title = [state.dataSource tableView:self titleForFooterInSection:section];
  }
  part = partAt(state, section, header);
  if (!part) return nil;
  part->title = objcxx::adopt((NSString *)[title copy]);
  return part->title.get();
}

/// A view of UIKit's own for a title. Grouped table views show their headers in capitals.
- (UIView *)sim_viewOfTitle:(NSString *)title header:(BOOL)header {
  const bool isPlain = _tableViewState->style == UITableViewStylePlain;
  UITableViewHeaderFooterView *view =
      objcxx::adopt([[UITableViewHeaderFooterView alloc] initWithReuseIdentifier:nil]).autoreleased();
  UILabel *label = [view textLabel];
  [label setText:header && !isPlain ? [title uppercaseString] : title];
  if (header && isPlain) {
    const sim::SystemSets system;
    [label setFont:[UIFont systemFontOfSize:kPlainTitleSize weight:UIFontWeightSemibold]];
    [label setTextColor:[UIColor labelColor]];
  }
  return view;
}

/// Asks the delegate for the view of one section part, once; a title without a view gets one of UIKit's.
- (void)sim_loadViewOfSection:(long)section header:(BOOL)header {
  auto &state = *_tableViewState;
  sim::SectionPart *part = partAt(state, section, header);
  if (!part || part->hasView) return;

  part->hasView = true;
  UIView *view = nil;
  if (header && state.has.headerView) {
    view = [state.delegate tableView:self viewForHeaderInSection:section];
  } else if (!header && state.has.footerView) {
    view = [state.delegate tableView:self viewForFooterInSection:section];
  }
  const bool isDelegates = view != nil;
  NSString *title = [self sim_titleOfSection:section header:header];
  if (!view && [title length] > 0) view = [self sim_viewOfTitle:title header:header];
  part = partAt(state, section, header);
  if (!part) return;
  part->view = objcxx::share(view);
  part->isDelegates = isDelegates;
  [self sim_setTitleInsetsOf:view section:section header:header];
}

- (void)sim_setTitleInsetsOf:(UIView *)view section:(long)section header:(BOOL)header {
  if (![view isKindOfClass:[UITableViewHeaderFooterView class]]) return;
  [(UITableViewHeaderFooterView *)view
      sim_setTextInsets:titleInsets(_tableViewState->style, section, header, [self sim_margin], [self sim_coveredSides])
               atBottom:header];
}

- (void)sim_setTitleInsets {
  const auto &parts = _tableViewState->parts;
  for (std::size_t section = 0; section < parts.size(); ++section) {
    [self sim_setTitleInsetsOf:parts[section].header.view.get() section:(long)section header:YES];
    [self sim_setTitleInsetsOf:parts[section].footer.view.get() section:(long)section header:NO];
  }
}

- (CGFloat)sim_defaultHeightOfSection:(long)section header:(BOOL)header {
  auto &state = *_tableViewState;
  NSString *title = [self sim_titleOfSection:section header:header];
  const sim::SectionPart *part = partAt(state, section, header);
  if (!part) return 0;
  const bool grouped = state.style != UITableViewStylePlain;
  const bool delegateGivesViews = header ? state.has.headerView : state.has.footerView;
  const bool shows = part->hasView ? static_cast<bool>(part->view) : delegateGivesViews || [title length] > 0;
  const CGFloat set = header ? state.headerHeight : state.footerHeight;
  if (isHeight(set) && (shows || grouped)) return set;
  if (!shows) return grouped ? kGroupedGap + groupedGapAbove(section, header) : 0;
  if (part->view) {
    const CGFloat fitting = fittingHeight(part->view.get(), [self sim_rowWidth]);
    if (isHeight(fitting) && fitting > 0) return fitting;
  }
  return grouped ? kGroupedTitleHeight + groupedGapAbove(section, header) : kPlainTitleHeight;
}

- (void)sim_measureSection:(long)section {
  auto &state = *_tableViewState;
  CGFloat header = state.has.headerHeight ? [state.delegate tableView:self heightForHeaderInSection:section] : -1;
  if (!isHeight(header)) {
    header = [self sim_defaultHeightOfSection:section header:YES];
    if (state.style == UITableViewStylePlain && header > 0) {
      const CGFloat padding = isHeight(state.headerTopPadding) ? state.headerTopPadding : kPlainTopPadding;
      header += padding;
      if (sim::SectionPart *part = partAt(state, section, YES)) part->paddingAbove = padding;
    }
  }
  CGFloat footer = state.has.footerHeight ? [state.delegate tableView:self heightForFooterInSection:section] : -1;
  if (!isHeight(footer)) footer = [self sim_defaultHeightOfSection:section header:NO];
  if (section >= state.geometry.sectionCount()) return;
  state.geometry.setHeader(section, header);
  state.geometry.setFooter(section, footer);
}

- (void)sim_showSectionParts {
  auto &state = *_tableViewState;
  const CGRect bounds = [self bounds];
  for (long section = 0; section < state.geometry.sectionCount(); ++section) {
    const double top = state.geometry.sectionTop(section);
    if (top >= bounds.origin.y + bounds.size.height) break;
    if (state.geometry.sectionBottom(section) <= bounds.origin.y) continue;
    [self sim_showPartOfSection:section header:YES];
    [self sim_showPartOfSection:section header:NO];
  }
}

- (void)sim_showPartOfSection:(long)section header:(BOOL)header {
  auto &state = *_tableViewState;
  if (const sim::SectionPart *part = partAt(state, section, header); part && !part->hasView) {
    [self sim_loadViewOfSection:section header:header];
    if (partAt(state, section, header)) [self sim_measureSection:section];
  }
  const sim::SectionPart *part = partAt(state, section, header);
  if (!part || !part->view || section >= state.geometry.sectionCount()) return;
  const auto view = part->view;
  const CGRect rect = header ? [self rectForHeaderInSection:section] : [self rectForFooterInSection:section];
  // A view that is as high as its constraints make it has no use for the padding.
  const CGFloat padding = sim::constraintsSayHeight(view.get()) ? part->paddingAbove : 0;
  const CGRect frame =
      CGRectMake([self sim_rowInsets].left, rect.origin.y + padding, [self sim_rowWidth], rect.size.height - padding);
  [view.get() setFrame:frame];
  if ([view.get() superview] == self) return;
  if (header && state.has.willDisplayHeader) {
    [state.delegate tableView:self willDisplayHeaderView:view.get() forSection:section];
  } else if (!header && state.has.willDisplayFooter) {
    [state.delegate tableView:self willDisplayFooterView:view.get() forSection:section];
  }
  [self addSubview:view.get()];
  [view.get() setFrame:frame];  // Once more: views of Preferences pages take their width from their superview.
}

- (void)sim_dropParts:(sim::SectionParts &)parts {
  for (sim::SectionPart *part : {&parts.header, &parts.footer}) {
    const auto view = std::exchange(part->view, nullptr);
    if ([view.get() superview] == self) [view.get() removeFromSuperview];
    if (![view.get() isKindOfClass:[UITableViewHeaderFooterView class]]) continue;
    UITableViewHeaderFooterView *reusable = (UITableViewHeaderFooterView *)view.get();
    if (![reusable reuseIdentifier]) continue;
    _tableViewState->headersAndFooters.waiting[[[reusable reuseIdentifier] UTF8String]].push_back(
        objcxx::share(reusable));
  }
  parts = {};
}

@end

@implementation UITableView (HeadersAndFooters)

- (UITableViewHeaderFooterView *)sim_shownPart:(NSInteger)section header:(BOOL)header {
  const sim::SectionPart *part = partAt(*_tableViewState, section, header);
  UIView *view = part ? part->view.get() : nil;
  if ([view superview] != self || ![view isKindOfClass:[UITableViewHeaderFooterView class]]) return nil;
  return (UITableViewHeaderFooterView *)view;
}

- (UITableViewHeaderFooterView *)headerViewForSection:(NSInteger)section {
  return [self sim_shownPart:section header:YES];
}

- (UITableViewHeaderFooterView *)footerViewForSection:(NSInteger)section {
  return [self sim_shownPart:section header:NO];
}

@end

@implementation UITableView (SimHeadersAndFooters)

/// The delegate's own view of the part, laid out and shown as a subview from now on.
- (UIView *)sim_delegatesViewOf:(NSInteger)section header:(BOOL)header {
  [self sim_loadIfNeeded];
  [self sim_showPartOfSection:section header:header];
  const sim::SectionPart *part = partAt(*_tableViewState, section, header);
  if (!part || !part->isDelegates) return nil;
  [part->view.get() layoutIfNeeded];
  part = partAt(*_tableViewState, section, header);  // Gone if the view's own code has the table view reload.
  return part && part->isDelegates ? part->view.get() : nil;
}

- (NSString *)sim_shownTitleOf:(NSInteger)section header:(BOOL)header {
  if ([self sim_delegatesViewOf:section header:header]) return nil;
  return [self sim_titleOfSection:section header:header];
}

- (NSString *)sim_titleForHeaderInSection:(NSInteger)section {
  return [self sim_shownTitleOf:section header:YES];
}

- (NSString *)sim_titleForFooterInSection:(NSInteger)section {
  return [self sim_shownTitleOf:section header:NO];
}

- (UIView *)sim_viewForHeaderInSection:(NSInteger)section {
  return [self sim_delegatesViewOf:section header:YES];
}

- (UIView *)sim_viewForFooterInSection:(NSInteger)section {
  return [self sim_delegatesViewOf:section header:NO];
}

- (CGFloat)sim_heightOfHeaderInSection:(NSInteger)section {
  [self sim_delegatesViewOf:section header:YES];
  return partAt(*_tableViewState, section, YES) ? _tableViewState->geometry.header(section) : 0;
}

- (CGFloat)sim_heightOfFooterInSection:(NSInteger)section {
  [self sim_delegatesViewOf:section header:NO];
  return partAt(*_tableViewState, section, NO) ? _tableViewState->geometry.footer(section) : 0;
}

@end
