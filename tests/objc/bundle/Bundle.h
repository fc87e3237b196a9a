// The classes of a bundle in C with ARC.
#import "../ours/Ours.h"

@interface BundleBase : OursBase
@property(nonatomic, copy) NSString *word;
- (int)mark;
@end

@interface BundleChild : BundleBase
@property(nonatomic, weak) id owner;
@property(nonatomic, strong) NSArray<int (^)(void)> *blocks;
- (NSString *)tale;
@end
