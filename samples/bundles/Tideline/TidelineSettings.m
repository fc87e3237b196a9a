#import "TidelineSettings.h"

NSString *const TidelineDomain = @"org.example.tideline";

@implementation TidelineSettings {
  NSUserDefaults *_defaults;
}

+ (TidelineSettings *)shared {
  static TidelineSettings *shared;
  static dispatch_once_t once;
  dispatch_once(&once, ^{
    shared = [self new];
  });
  return shared;
}

- (instancetype)init {
  if ((self = [super init])) {
    _defaults = [[NSUserDefaults alloc] initWithSuiteName:TidelineDomain];
    [_defaults registerDefaults:@{ @"lines" : @3, @"colour" : @[ @0.2, @0.6, @0.9, @1 ] }];
  }
  return self;
}

- (NSInteger)lines {
  return [_defaults integerForKey:@"lines"];
}

- (void)setLines:(NSInteger)lines {
  [self setObject:@(lines) forKey:@"lines"];
}

- (UIColor *)colour {
  NSArray<NSNumber *> *parts = [_defaults arrayForKey:@"colour"];
  return [UIColor colorWithRed:parts[0].doubleValue
                         green:parts[1].doubleValue
                          blue:parts[2].doubleValue
                         alpha:parts[3].doubleValue];
}

- (void)setColour:(UIColor *)colour {
  CGFloat red, green, blue, alpha;
  [colour getRed:&red green:&green blue:&blue alpha:&alpha];
  [self setObject:@[ @(red), @(green), @(blue), @(alpha) ] forKey:@"colour"];
}

- (id)objectForKey:(NSString *)key {
  return [_defaults objectForKey:key];
}

- (void)setObject:(id)object forKey:(NSString *)key {
  [_defaults setObject:object forKey:key];
  [_defaults synchronize];
  CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(),
                                       CFSTR("org.example.tideline/changed"), NULL, NULL, YES);
}

- (void)removeAll {
  NSDictionary *all = [_defaults persistentDomainForName:TidelineDomain];
  for (NSString *key in all) [_defaults removeObjectForKey:key];
  [_defaults synchronize];
}

@end
