// One row of a table view.
#pragma once

#import <UIKit/UIView.h>

#include <objcxx/HiddenState.h>

@class UIImageView;
@class UILabel;

typedef NS_ENUM(NSInteger, UITableViewCellStyle) {
  UITableViewCellStyleDefault = 0,
  UITableViewCellStyleValue1,
  UITableViewCellStyleValue2,
  UITableViewCellStyleSubtitle,
};

typedef NS_ENUM(NSInteger, UITableViewCellSelectionStyle) {
  UITableViewCellSelectionStyleNone = 0,
  UITableViewCellSelectionStyleBlue,
  UITableViewCellSelectionStyleGray,
  UITableViewCellSelectionStyleDefault,
};

typedef NS_ENUM(NSInteger, UITableViewCellEditingStyle) {
  UITableViewCellEditingStyleNone = 0,
  UITableViewCellEditingStyleDelete,
  UITableViewCellEditingStyleInsert,
};

typedef NS_ENUM(NSInteger, UITableViewCellAccessoryType) {
  UITableViewCellAccessoryNone = 0,
  UITableViewCellAccessoryDisclosureIndicator,
  UITableViewCellAccessoryDetailDisclosureButton,
  UITableViewCellAccessoryCheckmark,
  UITableViewCellAccessoryDetailButton,
};

SIM_STATE_TYPE(TableViewCellState);

/// The standard labels and the image view are made when they are first asked for. Main thread.
@interface UITableViewCell : UIView {
 @private
  SIM_STATE(TableViewCellState, _cellState);
}
/// Designated.
- (instancetype)initWithStyle:(UITableViewCellStyle)style reuseIdentifier:(NSString *)reuseIdentifier;

@property(nonatomic, readonly) UIView *contentView;
@property(nonatomic, readonly) UILabel *textLabel;
/// nil for the style UITableViewCellStyleDefault.
@property(nonatomic, readonly) UILabel *detailTextLabel;
/// nil for the style UITableViewCellStyleValue2.
@property(nonatomic, readonly) UIImageView *imageView;
@property(nonatomic, retain) UIView *backgroundView;
@property(nonatomic, retain) UIView *selectedBackgroundView;

@property(nonatomic, readonly, copy) NSString *reuseIdentifier;
/// Called before the cell leaves the reuse queue. Sub-classes call super.
- (void)prepareForReuse;

@property(nonatomic) UITableViewCellSelectionStyle selectionStyle;
@property(nonatomic, getter=isSelected) BOOL selected;
@property(nonatomic, getter=isHighlighted) BOOL highlighted;
- (void)setSelected:(BOOL)selected animated:(BOOL)animated;
- (void)setHighlighted:(BOOL)highlighted animated:(BOOL)animated;

@property(nonatomic) UITableViewCellAccessoryType accessoryType;
@property(nonatomic, retain) UIView *accessoryView;
@property(nonatomic) UITableViewCellAccessoryType editingAccessoryType;
@property(nonatomic, retain) UIView *editingAccessoryView;

/// In levels of `indentationWidth`.
@property(nonatomic) NSInteger indentationLevel;
/// In points; 10 at first.
@property(nonatomic) CGFloat indentationWidth;
@property(nonatomic) UIEdgeInsets separatorInset;

@property(nonatomic, getter=isEditing) BOOL editing;
- (void)setEditing:(BOOL)editing animated:(BOOL)animated;
/// What the table view said of this row when it came on screen or changed its mode.
@property(nonatomic, readonly) UITableViewCellEditingStyle editingStyle;
@property(nonatomic) BOOL showsReorderControl;
@property(nonatomic) BOOL shouldIndentWhileEditing;
@end
