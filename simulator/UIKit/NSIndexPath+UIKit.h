// Rows and sections of a table view as index paths of length two.
#pragma once

#import <Foundation/Foundation.h>

@interface NSIndexPath (UIKitAdditions)
+ (instancetype)indexPathForRow:(NSInteger)row inSection:(NSInteger)section;
+ (instancetype)indexPathForItem:(NSInteger)item inSection:(NSInteger)section;
/// The first index. Raises NSInternalInconsistencyException when the path does not have two indexes.
@property(nonatomic, readonly) NSInteger section;
/// The second index; raises like `section`.
@property(nonatomic, readonly) NSInteger row;
@property(nonatomic, readonly) NSInteger item;
@end
