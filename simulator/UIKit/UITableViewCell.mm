#import "UITableViewCellState.h"

#import <Foundation/NotCarried.h>
#import <UIKit/FrameworkSupport.h>
#import <UIKit/UIFont.h>

@implementation UITableViewCell

- (instancetype)initWithStyle:(UITableViewCellStyle)style reuseIdentifier:(NSString *)reuseIdentifier {
  if (!(self = [super initWithFrame:CGRectMake(0, 0, 320, 44)])) return nil;

  _cellState = std::make_unique<sim::TableViewCellState>();
  _cellState->style = style;
  _cellState->reuseIdentifier = objcxx::adopt((NSString *)[reuseIdentifier copy]);
  _cellState->contentView = objcxx::adopt([[UIView alloc] initWithFrame:[self bounds]]);
  [self addSubview:_cellState->contentView.get()];
  return self;
}

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [self initWithStyle:UITableViewCellStyleDefault reuseIdentifier:nil])) return nil;

  [self setFrame:frame];
  return self;
}

- (instancetype)init {
  return [self initWithStyle:UITableViewCellStyleDefault reuseIdentifier:nil];
}

#pragma mark - Standard views

- (UIView *)contentView {
  return _cellState->contentView.get();
}

- (UILabel *)sim_makeLabelWithFontSize:(CGFloat)size color:(UIColor *)color {
  UILabel *label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectZero]).autoreleased();
  const sim::SystemSets system;
  [label setFont:[UIFont systemFontOfSize:size]];
  [label setTextColor:color];
  [_cellState->contentView.get() addSubview:label];
  [self setNeedsLayout];
  return label;
}

- (UILabel *)textLabel {
  if (!_cellState->textLabel) {
    const BOOL name = _cellState->style == UITableViewCellStyleValue2;
    UILabel *label = [self sim_makeLabelWithFontSize:name ? 15 : 17
                                               color:name ? [self tintColor] : [UIColor labelColor]];
    if (name) [label setTextAlignment:NSTextAlignmentRight];
    _cellState->textLabel = objcxx::share(label);
  }
  return _cellState->textLabel.get();
}

- (UILabel *)detailTextLabel {
  if (_cellState->style == UITableViewCellStyleDefault) return nil;
  if (!_cellState->detailTextLabel) {
    const BOOL below = _cellState->style == UITableViewCellStyleSubtitle;
    const BOOL beside = _cellState->style == UITableViewCellStyleValue1;
    _cellState->detailTextLabel =
        objcxx::share([self sim_makeLabelWithFontSize:below    ? 12
                                                      : beside ? 17
                                                               : 15
                                                color:beside ? [UIColor secondaryLabelColor] : [UIColor labelColor]]);
  }
  return _cellState->detailTextLabel.get();
}

- (UIImageView *)imageView {
  if (_cellState->style == UITableViewCellStyleValue2) return nil;
  if (!_cellState->imageView) {
    _cellState->imageView = objcxx::adopt([[UIImageView alloc] initWithFrame:CGRectZero]);
    [_cellState->contentView.get() addSubview:_cellState->imageView.get()];
    [self setNeedsLayout];
  }
  return _cellState->imageView.get();
}

- (UIView *)backgroundView {
  return _cellState->backgroundView.get();
}

- (void)setBackgroundView:(UIView *)view {
  if (_cellState->backgroundView.get() == view) return;
  [_cellState->backgroundView.get() removeFromSuperview];
  _cellState->backgroundView = objcxx::share(view);
  if (view) [self insertSubview:view atIndex:0];
  [self setNeedsLayout];
}

- (UIView *)selectedBackgroundView {
  return _cellState->selectedBackgroundView.get();
}

- (void)setSelectedBackgroundView:(UIView *)view {
  if (view) {
    sim::notCarried(@"UITableViewCell.selectedBackgroundView", @"A row that is touched is drawn in the system's grey.");
  }
  _cellState->selectedBackgroundView = objcxx::share(view);
}

#pragma mark - Reuse

- (NSString *)reuseIdentifier {
  return _cellState->reuseIdentifier.get();
}

- (void)prepareForReuse {
  [self setHighlighted:NO animated:NO];
  [self setSelected:NO animated:NO];
  [self setEditing:NO animated:NO];
}

#pragma mark - Selection

- (UITableViewCellSelectionStyle)selectionStyle {
  return _cellState->selectionStyle;
}

- (void)setSelectionStyle:(UITableViewCellSelectionStyle)style {
  _cellState->selectionStyle = style;
}

- (BOOL)isSelected {
  return _cellState->selected;
}

- (void)setSelected:(BOOL)selected {
  [self setSelected:selected animated:NO];
}

- (void)setSelected:(BOOL)selected animated:(BOOL)animated {
  _cellState->selected = selected;
}

- (BOOL)isHighlighted {
  return _cellState->highlighted;
}

- (void)setHighlighted:(BOOL)highlighted {
  [self setHighlighted:highlighted animated:NO];
}

- (void)setHighlighted:(BOOL)highlighted animated:(BOOL)animated {
  _cellState->highlighted = highlighted;
  [_cellState->textLabel.get() setHighlighted:highlighted];
  [_cellState->detailTextLabel.get() setHighlighted:highlighted];
  [_cellState->imageView.get() setHighlighted:highlighted];
}

#pragma mark - Accessories

- (UITableViewCellAccessoryType)accessoryType {
  return _cellState->accessoryType;
}

- (void)setAccessoryType:(UITableViewCellAccessoryType)type {
  _cellState->accessoryType = type;
  [self setNeedsLayout];
}

- (UIView *)accessoryView {
  return _cellState->accessoryView.get();
}

- (void)setAccessoryView:(UIView *)view {
  if (_cellState->accessoryView.get() == view) return;
  [_cellState->accessoryView.get() removeFromSuperview];
  _cellState->accessoryView = objcxx::share(view);
  [self sim_showAccessoryView];
}

- (UITableViewCellAccessoryType)editingAccessoryType {
  return _cellState->editingAccessoryType;
}

- (void)setEditingAccessoryType:(UITableViewCellAccessoryType)type {
  _cellState->editingAccessoryType = type;
  [self setNeedsLayout];
}

- (UIView *)editingAccessoryView {
  return _cellState->editingAccessoryView.get();
}

- (void)setEditingAccessoryView:(UIView *)view {
  if (_cellState->editingAccessoryView.get() == view) return;
  [_cellState->editingAccessoryView.get() removeFromSuperview];
  _cellState->editingAccessoryView = objcxx::share(view);
  [self sim_showAccessoryView];
}

/// Keeps the accessory view of the present mode among the subviews and the other one out.
- (void)sim_showAccessoryView {
  UIView *shown = [self sim_shownAccessoryView];
  for (UIView *view : {_cellState->accessoryView.get(), _cellState->editingAccessoryView.get()}) {
    if (view != shown && [view superview] == self) [view removeFromSuperview];
  }
  if (shown && [shown superview] != self) [self addSubview:shown];
  [self setNeedsLayout];
}

#pragma mark - Indentation

- (NSInteger)indentationLevel {
  return _cellState->indentationLevel;
}

- (void)setIndentationLevel:(NSInteger)level {
  _cellState->indentationLevel = level;
  [self setNeedsLayout];
}

- (CGFloat)indentationWidth {
  return _cellState->indentationWidth;
}

- (void)setIndentationWidth:(CGFloat)width {
  _cellState->indentationWidth = width;
  [self setNeedsLayout];
}

- (UIEdgeInsets)separatorInset {
  return _cellState->separatorInset.value_or(UIEdgeInsetsMake(0, _cellState->margin, 0, 0));
}

- (void)setSeparatorInset:(UIEdgeInsets)inset {
  _cellState->separatorInset = inset;
}

#pragma mark - Editing

- (BOOL)isEditing {
  return _cellState->editing;
}

- (void)setEditing:(BOOL)editing {
  [self setEditing:editing animated:NO];
}

- (void)setEditing:(BOOL)editing animated:(BOOL)animated {
  _cellState->editing = editing;
  [self sim_showAccessoryView];
}

- (UITableViewCellEditingStyle)editingStyle {
  return _cellState->editingStyle;
}

- (BOOL)showsReorderControl {
  return _cellState->showsReorderControl;
}

- (void)setShowsReorderControl:(BOOL)shows {
  _cellState->showsReorderControl = shows;
  [self setNeedsLayout];
}

- (BOOL)shouldIndentWhileEditing {
  return _cellState->shouldIndentWhileEditing;
}

- (void)setShouldIndentWhileEditing:(BOOL)indents {
  _cellState->shouldIndentWhileEditing = indents;
  [self setNeedsLayout];
}

#pragma mark - Sim

- (BOOL)sim_hasSeparatorInset {
  return _cellState->separatorInset.has_value();
}

- (UITableViewCellStyle)sim_style {
  return _cellState->style;
}

- (UILabel *)sim_textLabelIfMade {
  return _cellState->textLabel.get();
}

- (UILabel *)sim_detailTextLabelIfMade {
  return _cellState->detailTextLabel.get();
}

- (UIImageView *)sim_imageViewIfMade {
  return _cellState->imageView.get();
}

- (UITableViewCellAccessoryType)sim_shownAccessoryType {
  return _cellState->editing ? _cellState->editingAccessoryType : _cellState->accessoryType;
}

- (UIView *)sim_shownAccessoryView {
  return (_cellState->editing ? _cellState->editingAccessoryView : _cellState->accessoryView).get();
}

- (CGFloat)sim_margin {
  return _cellState->margin;
}

- (void)sim_setMargin:(CGFloat)margin coveredSides:(UIEdgeInsets)sides {
  _cellState->margin = margin;
  _cellState->coveredSides = sides;
  [self setNeedsLayout];
}

- (void)sim_setEditingStyle:(UITableViewCellEditingStyle)editingStyle {
  _cellState->editingStyle = editingStyle;
  [self setNeedsLayout];
}

- (void)sim_setReuseIdentifier:(NSString *)reuseIdentifier {
  _cellState->reuseIdentifier = objcxx::adopt((NSString *)[reuseIdentifier copy]);
}

- (BOOL)sim_waiting {
  return _cellState->waiting;
}

- (void)sim_setWaiting:(BOOL)waiting {
  _cellState->waiting = waiting;
}

@end
