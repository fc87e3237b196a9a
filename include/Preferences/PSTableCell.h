#pragma once

#import <UIKit/UIKit.h>

#import <Preferences/PSSpecifier.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(PSTableCellState);

/// The cell of a specifier. Main thread only.
@interface PSTableCell : UITableViewCell {
 @private
  SIM_STATE(PSTableCellState, _tableCellState);
}
/// The row shown. Setting another one refreshes the cell.
@property(nonatomic, retain) PSSpecifier *specifier;
/// -1 when unknown.
@property(nonatomic) PSCellType type;
/// Where a control sends its new value: (value, specifier). The target is not owned.
@property(nonatomic, assign) id cellTarget;
@property(nonatomic) SEL cellAction;
/// Older names of the two above.
@property(nonatomic, assign) id target;
@property(nonatomic) SEL action;
/// The value shown; what that means is the cell type's affair.
@property(nonatomic, retain) id value;
@property(nonatomic, getter=isChecked) BOOL checked;

/// Type for a name such as "PSSwitchCell"; -1 when there is none.
+ (PSCellType)cellTypeFromString:(NSString *)name;
/// nil for a type that does not exist.
+ (NSString *)stringFromCellType:(PSCellType)type;
/// The specifier's "cellClass", else the class of its type.
+ (Class)cellClassForSpecifier:(PSSpecifier *)specifier;
+ (UITableViewCellStyle)cellStyle;
+ (NSString *)reuseIdentifierForSpecifier:(PSSpecifier *)specifier;

/// Designated.
- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString *)identifier
                    specifier:(PSSpecifier *)specifier;

/// Brings title, value, icon and state up to date. Called at least once for every display, sometimes more often.
- (void)refreshCellContentsWithSpecifier:(PSSpecifier *)specifier;
/// YES when `refreshCellContentsWithSpecifier:` is all that a reload of the row needs.
- (BOOL)canReload;
/// How a page shows the row's new state where `canReload` says YES.
- (void)reloadWithSpecifier:(PSSpecifier *)specifier animated:(BOOL)animated;

- (void)setValueChangedTarget:(id)target action:(SEL)action specifier:(PSSpecifier *)specifier;

- (NSString *)title;
- (void)setTitle:(NSString *)title;
- (UILabel *)titleLabel;
- (UILabel *)valueLabel;
- (UIImage *)icon;
- (void)setIcon:(UIImage *)icon;
- (UIImageView *)iconImageView;
- (void)setAlignment:(NSTextAlignment)alignment;
- (void)setShouldHideTitle:(BOOL)hide;
- (BOOL)cellEnabled;
/// Changes the look only; taps are refused by the page.
- (void)setCellEnabled:(BOOL)enabled;
@end
