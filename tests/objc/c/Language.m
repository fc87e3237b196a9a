// Objective-C as makers write it. Compiled with ARC here; manual/Language.m compiles the same without.
#import "../Language.h"

#if __has_feature(objc_arc)
#define CLASS LanguageWithArc
#define RETAINED(object) (object)
#else
#define CLASS LanguageWithoutArc
#define RETAINED(object) [[(object) retain] autorelease]
#endif

@interface CLASS () {
  int _extra;
}
@property(nonatomic, strong) NSMutableArray *list;
@end

@implementation CLASS {
  double _hidden;
}
@synthesize name = _name, flag = _flag, handler = _handler;

#if !__has_feature(objc_arc)
- (void)dealloc {
  [_name release];
  [_handler release];
  [_list release];
  [super dealloc];
}
#endif

- (NSString *)caughtBy:(void (^)(void))body {
  @try {
    body();
  } @catch (NSException *exception) {
    return RETAINED(exception.name);
  } @catch (id object) {
    return RETAINED([object description]);
  } @catch (...) {
    return @"something else";
  }
  return @"";
}

- (NSString *)caughtAgain:(void (^)(void))body {
  return [self caughtBy:^{
    @try {
      body();
    } @catch (NSString *text __attribute__((unused))) {
      @throw;
    } @catch (...) {
      @throw;
    }
  }];
}

- (void)run:(void (^)(void))body finally:(BOOL *)reached {
  @try {
    body();
  } @finally {
    *reached = YES;
  }
}

- (void)run:(void (^)(void))body synchronizedOn:(id)lock {
  @synchronized(lock) {
    body();
  }
}

// As on a device, C has nothing released on the way of an exception.
- (void)throwObject:(__unsafe_unretained id)object {
  @throw object;
}

- (void)setExtra:(int)extra hidden:(double)hidden {
  _extra = extra;
  _hidden = hidden;
}

- (NSString *)extraAndHidden {
  return [NSString stringWithFormat:@"%d %g", _extra, _hidden];
}

- (NSArray *)literals {
  self.list = [NSMutableArray array];
  self.list[0] = @YES;
  NSMutableDictionary *dictionary = [NSMutableDictionary dictionary];
  dictionary[@"k"] = @[ @1, @2.5, @'c', @(1 + 2) ];
  self.list[1] = dictionary[@"k"][3];
  self.list[2] = @NO;
  return self.list;
}

static BOOL takes(SEL selector, NSError **error, id object, Class class, void *pointer) {
  return selector == nil && error == nil && object == nil && class == Nil && pointer == nil && selector == NULL;
}

- (BOOL)acceptsNil {
  NSError *__autoreleasing *error = nil;
  BOOL isTrue = TRUE, isFalse = FALSE;
  return takes(nil, nil, nil, nil, nil) && takes(NULL, error, nil, Nil, nil) && isTrue && !isFalse;
}

@end
