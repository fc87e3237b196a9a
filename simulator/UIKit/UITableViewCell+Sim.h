// The simulator's own face of a table row.
#pragma once

#import <UIKit/UITableViewCell.h>

@interface UITableViewCell (Sim)
@property(nonatomic, readonly) UITableViewCellStyle sim_style;
/// Whether it waits, hidden, in the queue of its table view to be used again. Set by the table view alone.
@property(nonatomic, setter=sim_setWaiting:) BOOL sim_waiting;
/// The standard views as far as they were made: asking makes none.
@property(nonatomic, readonly) UILabel *sim_textLabelIfMade;
@property(nonatomic, readonly) UILabel *sim_detailTextLabelIfMade;
@property(nonatomic, readonly) UIImageView *sim_imageViewIfMade;
/// The accessory of the present mode (editing or not); a view of the cell's own comes before a type.
@property(nonatomic, readonly) UITableViewCellAccessoryType sim_shownAccessoryType;
@property(nonatomic, readonly) UIView *sim_shownAccessoryView;
/// Whether the cell has a separator inset of its own.
@property(nonatomic, readonly) BOOL sim_hasSeparatorInset;
/// Set by the table view: the margin, and how far the screen's corners reach into the row from left and right, which
/// the content view keeps clear of.
- (void)sim_setMargin:(CGFloat)margin coveredSides:(UIEdgeInsets)sides;
/// Set by the table view from the answers of its data source and delegate.
- (void)sim_setEditingStyle:(UITableViewCellEditingStyle)editingStyle;
/// For cells made from a registered class, whose own initialiser may have left the identifier out.
- (void)sim_setReuseIdentifier:(NSString *)reuseIdentifier;
@end
