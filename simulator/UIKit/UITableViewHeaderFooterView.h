// The view above or below the rows of a section.
#pragma once

#import <UIKit/UIView.h>

#include <objcxx/HiddenState.h>

@class UILabel;

SIM_STATE_TYPE(HeaderFooterViewState);

/// Main thread.
@interface UITableViewHeaderFooterView : UIView {
 @private
  SIM_STATE(HeaderFooterViewState, _headerFooterState);
}
/// Designated.
- (instancetype)initWithReuseIdentifier:(NSString *)reuseIdentifier;
@property(nonatomic, readonly) UIView *contentView;
@property(nonatomic, readonly) UILabel *textLabel;
@property(nonatomic, readonly) UILabel *detailTextLabel;
@property(nonatomic, retain) UIView *backgroundView;
@property(nonatomic, readonly, copy) NSString *reuseIdentifier;
/// Called before the view leaves the reuse queue. Sub-classes call super.
- (void)prepareForReuse;
@end
