#pragma once

#import <UIKit/UIKit.h>

@class PSSpecifier;

/// A view in the place of a group's header or footer, named by "headerCellClass" or "footerCellClass".
@protocol PreferencesTableCustomView <NSObject>
@required
- (id)initWithSpecifier:(PSSpecifier *)specifier;
@optional
/// Heights in points. The second is asked where a view has both.
- (CGFloat)preferredHeightForWidth:(CGFloat)width;
- (CGFloat)preferredHeightForWidth:(CGFloat)width inTableView:(UITableView *)tableView;
@end

/// The same under the framework's own name.
@protocol PSHeaderFooterView <PreferencesTableCustomView>
@end
