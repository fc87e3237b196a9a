#import <UIKit/UIPasteboard+Sim.h>

#include <objcxx/Retained.h>

namespace sim {
struct PasteboardState {
  objcxx::Retained<NSArray> strings = objcxx::adopt([[NSArray alloc] init]);
  NSInteger changeCount = 0;
};
}  // namespace sim

namespace {
void (*changeHandler)(NSString *string, void *context) = nullptr;
void *changeContext = nullptr;
}  // namespace

void SIMSetPasteboardHandler(void (*handler)(NSString *string, void *context), void *context) {
  changeHandler = handler;
  changeContext = context;
}

@implementation UIPasteboard

+ (UIPasteboard *)generalPasteboard {
  static UIPasteboard *general = [[UIPasteboard alloc] init];
  return general;
}

- (instancetype)init {
  if (!(self = [super init])) return nil;

  _pasteboardState = std::make_unique<sim::PasteboardState>();
  return self;
}

- (void)sim_replaceStrings:(NSArray *)strings {
  // Copied one by one: a mutable string that its owner changes later must not change the pasteboard.
  const auto copies = objcxx::adopt([[NSMutableArray alloc] init]);
  for (NSString *string in strings) [copies.get() addObject:objcxx::adopt((NSString *)[string copy]).get()];
  _pasteboardState->strings = objcxx::adopt((NSArray *)[copies.get() copy]);
  ++_pasteboardState->changeCount;
}

- (NSString *)string {
  return [_pasteboardState->strings.get() firstObject];
}

- (void)setString:(NSString *)string {
  [self setStrings:string ? @[ string ] : nil];
}

- (NSArray *)strings {
  return [self hasStrings] ? _pasteboardState->strings.get() : nil;
}

- (void)setStrings:(NSArray *)strings {
  [self sim_replaceStrings:strings];
  if (changeHandler) changeHandler([self string], changeContext);
}

- (BOOL)hasStrings {
  return [self numberOfItems] > 0;
}

- (NSInteger)numberOfItems {
  return (NSInteger)[_pasteboardState->strings.get() count];
}

- (NSInteger)changeCount {
  return _pasteboardState->changeCount;
}

- (void)sim_setStringFromOutside:(NSString *)string {
  [self sim_replaceStrings:string ? @[ string ] : nil];
}

@end
