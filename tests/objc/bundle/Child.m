#import "Bundle.h"

@interface BundleChild () {
  double _half;
}
@end

@implementation BundleChild

+ (void)load {
  [[NSProcessInfo processInfo] setProcessName:[[[NSProcessInfo processInfo] processName] stringByAppendingString:@"+"]];
}

- (instancetype)init {
  if ((self = [super init])) {
    _half = 0.5;
    __weak BundleChild *weak = self;
    int mark = self.mark;
    _blocks = @[
      ^{
        return mark;
      },
      ^{
        return weak ? [weak number] : -1;
      }
    ];
  }
  return self;
}

- (NSString *)tale {
  return [NSString stringWithFormat:@"%@ %g %d %d %d", self.word, _half, self.blocks[0](), self.blocks[1](), _number];
}

@end
