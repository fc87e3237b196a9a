#import <Preferences/PSTableCell+Sim.h>

#import <Preferences/PSEditableTableCell.h>
#import <Preferences/PSSegmentTableCell.h>
#import <Preferences/PSSliderTableCell.h>
#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PSSpinnerTableCell.h>
#import <Preferences/PSSwitchTableCell.h>
#import <Preferences/PSTextViewTableCell.h>
#import <Preferences/PreferencesLog.h>
#import <UIKit/UIKit.h>

#include <array>

using objcxx::adopt;
using objcxx::share;

namespace {

constexpr PSCellType kNoType = static_cast<PSCellType>(-1);

struct TypeRow {
  NSString *name;
  Class cellClass;
};

/// In the order of PSCellType.
const std::array<TypeRow, 16> &cellTypes() {
  Class plain = [PSTableCell class];
  static const std::array<TypeRow, 16> types{{{@"PSGroupCell", plain},
                                              {@"PSLinkCell", plain},
                                              {@"PSLinkListCell", plain},
                                              {@"PSListItemCell", plain},
                                              {@"PSTitleValueCell", plain},
                                              {@"PSSliderCell", [PSSliderTableCell class]},
                                              {@"PSSwitchCell", [PSSwitchTableCell class]},
                                              {@"PSStaticTextCell", plain},
                                              {@"PSEditTextCell", [PSEditableTableCell class]},
                                              {@"PSSegmentCell", [PSSegmentTableCell class]},
                                              {@"PSGiantIconCell", plain},
                                              {@"PSGiantCell", plain},
                                              {@"PSSecureEditTextCell", [PSEditableTableCell class]},
                                              {@"PSButtonCell", plain},
                                              {@"PSEditTextViewCell", [PSTextViewTableCell class]},
                                              {@"PSSpinnerCell", [PSSpinnerTableCell class]}}};
  return types;
}

Class classOfType(PSCellType type) {
  const auto index = static_cast<std::size_t>(type);
  return type >= 0 && index < cellTypes().size() ? cellTypes()[index].cellClass : [PSTableCell class];
}

/// How a value looks as text; nil for what is neither text nor number.
NSString *textOf(id value) {
  if ([value isKindOfClass:[NSString class]]) return value;
  return [value isKindOfClass:[NSNumber class]] ? [value stringValue] : nil;
}

NSTextAlignment alignmentFrom(id property) {
  if ([property isKindOfClass:[NSNumber class]]) {
    const NSInteger number = [property integerValue];
    return number >= NSTextAlignmentLeft && number <= NSTextAlignmentNatural ? static_cast<NSTextAlignment>(number)
                                                                              : NSTextAlignmentNatural;
  }
  if (![property isKindOfClass:[NSString class]]) return NSTextAlignmentNatural;
  if ([property isEqualToString:@"center"] || [property isEqualToString:@"1"]) return NSTextAlignmentCenter;
  if ([property isEqualToString:@"right"] || [property isEqualToString:@"2"]) return NSTextAlignmentRight;
  return NSTextAlignmentLeft;
}

/// A row that shows something, or does something, is not drawn disabled.
bool hasPurpose(PSSpecifier *specifier) {
  switch ([specifier cellType]) {
    case PSSliderCell:
    case PSSwitchCell:
    case PSEditTextCell:
    case PSSegmentCell:
    case PSSecureEditTextCell:
    case PSEditTextViewCell:
    case PSLinkCell:
    case PSLinkListCell:
    case PSButtonCell:
      return specifier->setter || specifier->action || [specifier buttonAction] || [specifier controllerLoadAction] ||
             [specifier detailControllerClass] || [specifier propertyForKey:PSIconImageKey];
    default:
      return true;
  }
}

UIColor *titleColor(PSSpecifier *specifier, bool isEnabled) {
  if (!isEnabled) return [UIColor tertiaryLabelColor];
  if ([specifier cellType] != PSButtonCell) return [UIColor labelColor];
  const bool isDestructive = [specifier sim_flagForKey:PSConfirmationDestructiveKey fallback:NO];
  return isDestructive ? [UIColor systemRedColor] : [UIColor systemBlueColor];
}

bool opensPage(PSSpecifier *specifier) {
  switch ([specifier cellType]) {
    case PSLinkCell:
    case PSLinkListCell:
      return ![specifier sim_flagForKey:@"hidesDisclosureIndicator" fallback:NO];
    case PSGiantIconCell:
    case PSGiantCell:
      return [specifier detailControllerClass] != Nil;
    default:
      return false;
  }
}

}  // namespace

@implementation PSTableCell

+ (PSCellType)cellTypeFromString:(NSString *)name {
  if (!name) return kNoType;
  for (std::size_t index = 0; index < cellTypes().size(); ++index) {
    if ([cellTypes()[index].name isEqualToString:name]) return static_cast<PSCellType>(index);
  }
  return kNoType;
}

+ (NSString *)stringFromCellType:(PSCellType)type {
  const auto index = static_cast<std::size_t>(type);
  return type >= 0 && index < cellTypes().size() ? cellTypes()[index].name : nil;
}

+ (Class)cellClassForSpecifier:(PSSpecifier *)specifier {
  id custom = [specifier propertyForKey:PSCellClassKey];
  if ([custom isKindOfClass:[NSString class]]) custom = NSClassFromString(custom);
  const bool isCell = [custom respondsToSelector:@selector(isSubclassOfClass:)] &&
                      [custom isSubclassOfClass:[UITableViewCell class]];
  return isCell ? static_cast<Class>(custom) : classOfType([specifier cellType]);
}

+ (UITableViewCellStyle)cellStyle {
  return UITableViewCellStyleValue1;
}

/// Cells of the framework's own classes serve any row of their type; a maker's cell stays with its row.
+ (NSString *)reuseIdentifierForSpecifier:(PSSpecifier *)specifier {
  Class cellClass = [self cellClassForSpecifier:specifier];
  if (cellClass == classOfType([specifier cellType])) {
    return [self stringFromCellType:[specifier cellType]] ?: NSStringFromClass(cellClass);
  }
  return [NSString stringWithFormat:@"%@:%@", NSStringFromClass(cellClass),
                                    [specifier identifier] ?: [NSString stringWithFormat:@"%p", specifier]];
}

#pragma mark - Life

/// Makers call initialisers of every superclass, so that the state is made by whoever needs it first.
- (PSTableCellState &)sim_cellState {
  if (!_tableCellState) _tableCellState = new PSTableCellState;
  return *_tableCellState;
}

- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString *)identifier
                    specifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithStyle:style reuseIdentifier:identifier])) return nil;

  [self sim_cellState].specifier = share(specifier);
  [self sim_cellState].type = specifier ? [specifier cellType] : kNoType;
  return self;
}

- (instancetype)initWithStyle:(UITableViewCellStyle)style reuseIdentifier:(NSString *)identifier {
  return [self initWithStyle:style reuseIdentifier:identifier specifier:nil];
}

- (void)dealloc {
  [self sim_leaveSpecifier];
  delete _tableCellState;
  _tableCellState = nullptr;
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
  PSTableCellState &state = [self sim_cellState];
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
  if (alignment) [self setAlignment:alignmentFrom(alignment)];
  [self setValueChangedTarget:[specifier target] action:specifier->setter specifier:specifier];
  if ([self sim_showsValue]) [self setValue:[self sim_valueOfSpecifier:specifier]];

  if ([self type] == PSStaticTextCell) {
    [[self titleLabel] setNumberOfLines:0];
    [self setSelectionStyle:UITableViewCellSelectionStyleNone];
  }
  if ([self type] != PSListItemCell) {
    [self setAccessoryType:opensPage(specifier) ? UITableViewCellAccessoryDisclosureIndicator
                                                : UITableViewCellAccessoryNone];
  }
  [self setCellEnabled:[specifier sim_isEnabled] && hasPurpose(specifier)];
}

- (BOOL)canReload {
  return [self class] == classOfType([self type]);
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
  [[self valueLabel] setText:textOf(value)];
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
  [[self titleLabel] setTextColor:titleColor([self specifier], enabled)];
}

@end

@implementation PSTableCell (Sim)

- (void)sim_showSpecifier:(PSSpecifier *)specifier {
  const auto keeper = share(specifier);
  [self setSpecifier:specifier];
  [self refreshCellContentsWithSpecifier:specifier];
}

- (id)sim_rawValue {
  return [self sim_cellState].rawValue.get();
}

- (void)sim_setRawValue:(id)value {
  [self sim_cellState].rawValue = share((NSObject *)value);
}

- (UIResponder *)sim_editor {
  return nil;
}

- (void)sim_sendValue:(id)value {
  const auto keeper = share(self);  // The target may reload the page, and with it this row.
  const auto specifier = share([self specifier]);
  const SEL action = [self cellAction];
  if (!action) return;
  id target = [self cellTarget];
  if (![target respondsToSelector:action]) {
    sim::logPreferences(@"%@: %@ does not answer the setter %@.", [specifier.get() sim_label],
                        target ? NSStringFromClass([target class]) : @"no target", NSStringFromSelector(action));
    return;
  }
  [target performSelector:action withObject:value withObject:specifier.get()];
}

- (BOOL)sim_showsValue {
  return [self type] == PSTitleValueCell || [self type] == PSLinkListCell;
}

- (id)sim_valueOfSpecifier:(PSSpecifier *)specifier {
  id raw = [specifier sim_value];
  [self sim_setRawValue:raw];
  if (!raw) return nil;
  NSString *title = nil;
  if ([self type] == PSLinkListCell) title = [[specifier shortTitleDictionary] objectForKey:raw];
  if (!title) title = [[specifier titleDictionary] objectForKey:raw];
  if (title || ([self type] == PSLinkListCell && [specifier values])) return title;
  NSString *text = textOf(raw);
  if (!text) [specifier sim_reportValue:raw];
  return text;
}

@end
