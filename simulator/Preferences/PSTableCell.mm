#import <UIKit/FrameworkSupport.h>
#import <Preferences/PSTableCell+Sim.h>

#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/RowLook.h>
#import <UIKit/UIKit.h>

using objcxx::adopt;
using objcxx::share;

@implementation PSTableCell

+ (PSCellType)cellTypeFromString:(NSString *)name {
  return sim::cellTypeNamed(name);
}

+ (NSString *)stringFromCellType:(PSCellType)type {
  return sim::traitsOf(type).name;
}

+ (Class)cellClassForSpecifier:(PSSpecifier *)specifier {
  id custom = [specifier propertyForKey:PSCellClassKey];
  if ([custom isKindOfClass:[NSString class]]) custom = NSClassFromString(custom);
  const bool isCell =
      [custom respondsToSelector:@selector(isSubclassOfClass:)] && [custom isSubclassOfClass:[UITableViewCell class]];
  return isCell ? static_cast<Class>(custom) : sim::classOfCellType([specifier cellType]);
}

+ (UITableViewCellStyle)cellStyle {
  return UITableViewCellStyleValue1;
}

/// Cells of the framework's own classes serve any row of their type; a maker's cell stays with its row.
+ (NSString *)reuseIdentifierForSpecifier:(PSSpecifier *)specifier {
  Class cellClass = [self cellClassForSpecifier:specifier];
  if (cellClass == sim::classOfCellType([specifier cellType])) {
    return [self stringFromCellType:[specifier cellType]] ?: NSStringFromClass(cellClass);
  }
  return [NSString stringWithFormat:@"%@:%@", NSStringFromClass(cellClass),
                                    [specifier identifier] ?: [NSString stringWithFormat:@"%p", specifier]];
}

#pragma mark - Life

/// Makers call initialisers of every superclass, so that the state is made by whoever needs it first.
- (sim::PSTableCellState &)sim_cellState {
  if (!_tableCellState) _tableCellState = std::make_unique<sim::PSTableCellState>();
  return *_tableCellState;
}

- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString *)identifier
                    specifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithStyle:style reuseIdentifier:identifier])) return nil;

  [self sim_cellState].specifier = share(specifier);
  [self sim_cellState].type = specifier ? [specifier cellType] : sim::kNoCellType;
  return self;
}

- (instancetype)initWithStyle:(UITableViewCellStyle)style reuseIdentifier:(NSString *)identifier {
  return [self initWithStyle:style reuseIdentifier:identifier specifier:nil];
}

- (void)dealloc {
  [self sim_leaveSpecifier];
  [super dealloc];
}

/// Undoes what ties the specifier to this cell; makers let a cell be the target of its own row.
- (void)sim_leaveSpecifier {
  PSSpecifier *specifier = [self sim_cellState].specifier.get();
  if (specifier && specifier->target == self) specifier->target = nil;
  if (specifier && [specifier propertyForKey:PSTableCellKey] == self) {
    [[self retain] autorelease];
    [specifier removePropertyForKey:PSTableCellKey];
  }
}

- (void)prepareForReuse {
  [super prepareForReuse];
  sim::PSTableCellState &state = [self sim_cellState];
  state.cellTarget = nil;
  state.cellAction = NULL;
  state.value = nullptr;
  state.rawValue = nullptr;
  [self setAccessoryType:UITableViewCellAccessoryNone];
}

#pragma mark - Specifier

- (PSSpecifier *)specifier {
  return [self sim_cellState].specifier.get();
}

- (void)setSpecifier:(PSSpecifier *)specifier {
  if (specifier == [self sim_cellState].specifier.get()) return;
  [self sim_leaveSpecifier];
  [self sim_cellState].specifier = share(specifier);
  if (specifier) [self refreshCellContentsWithSpecifier:specifier];
}

- (void)refreshCellContentsWithSpecifier:(PSSpecifier *)specifier {
  [self setType:[specifier cellType]];
  [self setTitle:[specifier name]];
  id icon = [specifier propertyForKey:PSIconImageKey];
  [self setIcon:[icon isKindOfClass:[UIImage class]] ? icon : nil];
  id alignment = [specifier propertyForKey:PSAlignmentKey];
  if (alignment) [self setAlignment:sim::alignmentFrom(alignment)];
  [self setValueChangedTarget:[specifier target] action:specifier->setter specifier:specifier];
  if ([self sim_showsValue]) [self setValue:[self sim_valueOfSpecifier:specifier]];

  const sim::CellTraits &traits = sim::traitsOf([self type]);
  if (traits.wraps) [[self titleLabel] setNumberOfLines:0];
  if (traits.tap == sim::Tap::kRefused) [self setSelectionStyle:UITableViewCellSelectionStyleNone];
  if (traits.tap != sim::Tap::kChecks) {
    [self setAccessoryType:sim::showsDisclosure(specifier) ? UITableViewCellAccessoryDisclosureIndicator
                                                           : UITableViewCellAccessoryNone];
  }
  [self setCellEnabled:[specifier sim_isEnabled] && sim::hasPurpose(specifier)];
}

- (BOOL)canReload {
  return [self class] == sim::classOfCellType([self type]);
}

- (void)reloadWithSpecifier:(PSSpecifier *)specifier animated:(BOOL)animated {
  (void)animated;
  [self sim_showSpecifier:specifier];
}

- (PSCellType)type {
  return [self sim_cellState].type;
}

- (void)setType:(PSCellType)type {
  [self sim_cellState].type = type;
}

#pragma mark - Target and action

- (id)cellTarget {
  return [self sim_cellState].cellTarget;
}

- (void)setCellTarget:(id)target {
  [self sim_cellState].cellTarget = target;
}

- (SEL)cellAction {
  return [self sim_cellState].cellAction;
}

- (void)setCellAction:(SEL)action {
  [self sim_cellState].cellAction = action;
}

- (id)target {
  return [self cellTarget];
}

- (void)setTarget:(id)target {
  [self setCellTarget:target];
}

- (SEL)action {
  return [self cellAction];
}

- (void)setAction:(SEL)action {
  [self setCellAction:action];
}

- (void)setValueChangedTarget:(id)target action:(SEL)action specifier:(PSSpecifier *)specifier {
  (void)specifier;
  [self setCellTarget:target];
  [self setCellAction:action];
}

#pragma mark - Content

- (id)value {
  return [self sim_cellState].value.get();
}

- (void)setValue:(id)value {
  [self sim_cellState].value = share((NSObject *)value);
  [[self valueLabel] setText:sim::textOf(value)];
}

- (BOOL)isChecked {
  return [self accessoryType] == UITableViewCellAccessoryCheckmark;
}

- (void)setChecked:(BOOL)checked {
  [self setAccessoryType:checked ? UITableViewCellAccessoryCheckmark : UITableViewCellAccessoryNone];
}

- (NSString *)title {
  return [self sim_cellState].title.get();
}

- (void)setTitle:(NSString *)title {
  [self sim_cellState].title = adopt((NSString *)[title copy]);
  [[self titleLabel] setText:[self sim_cellState].hidesTitle ? nil : title];
}

- (UILabel *)titleLabel {
  return [self textLabel];
}

- (UILabel *)valueLabel {
  return [self detailTextLabel];
}

- (UIImage *)icon {
  return [[self imageView] image];
}

- (void)setIcon:(UIImage *)icon {
  if (icon || [self icon]) [[self imageView] setImage:icon];
}

- (UIImageView *)iconImageView {
  return [self imageView];
}

- (void)setAlignment:(NSTextAlignment)alignment {
  [[self titleLabel] setTextAlignment:alignment];
}

- (void)setShouldHideTitle:(BOOL)hide {
  [self sim_cellState].hidesTitle = hide;
  [[self titleLabel] setText:hide ? nil : [self title]];
}

- (BOOL)cellEnabled {
  return [self sim_cellState].isEnabled;
}

- (void)setCellEnabled:(BOOL)enabled {
  [self sim_cellState].isEnabled = enabled;
  const sim::SystemSets system;
  [[self titleLabel] setTextColor:sim::titleColor([self specifier], enabled)];
}

@end
