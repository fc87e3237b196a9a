#import "Bundle.h"

@implementation BundleBase {
  int _mark;
}

- (instancetype)init {
  if ((self = [super init])) {
    _mark = MARK;
    _word = @"word";
  }
  return self;
}

- (int)mark {
  return _mark;
}

@end
