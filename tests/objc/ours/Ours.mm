#import "Ours.h"

NSString *OursCatch(void (^body)(void)) {
  @try {
    body();
  } @catch (NSException *exception) {
    return [[[exception name] retain] autorelease];
  }
  return @"";
}

void OursRaise(NSString *name) { [NSException raise:name format:@"raised"]; }

void OursFinally(void (^body)(void), BOOL *reached) {
  @try {
    body();
  } @finally {
    *reached = YES;
  }
}

@implementation OursBase

- (instancetype)init {
  if (!(self = [super init])) return nil;

  _letter = 'o';
  _number = 7;
  return self;
}

- (int)number {
  return _number;
}

- (NSString *)story {
  return [NSString stringWithFormat:@"%c%d", _letter, _number];
}

@end
