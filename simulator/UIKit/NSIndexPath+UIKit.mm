#import <UIKit/NSIndexPath+UIKit.h>

namespace {

NSInteger indexAt(NSIndexPath *path, NSUInteger position) {
  if ([path length] != 2) {
    [NSException
         raise:NSInternalInconsistencyException
        format:@"An index path for a table view has two indexes; %@ has %lu.", path, (unsigned long)[path length]];
  }
  return (NSInteger)[path indexAtPosition:position];
}

}  // namespace

// Newer Foundations have some of these methods, but take an index path of any length.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

@implementation NSIndexPath (UIKitAdditions)

+ (instancetype)indexPathForRow:(NSInteger)row inSection:(NSInteger)section {
  NSUInteger indexes[2] = {(NSUInteger)section, (NSUInteger)row};
  return [self indexPathWithIndexes:indexes length:2];
}

+ (instancetype)indexPathForItem:(NSInteger)item inSection:(NSInteger)section {
  return [self indexPathForRow:item inSection:section];
}

- (NSInteger)section {
  return indexAt(self, 0);
}

- (NSInteger)row {
  return indexAt(self, 1);
}

- (NSInteger)item {
  return indexAt(self, 1);
}

@end
