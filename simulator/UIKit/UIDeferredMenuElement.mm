#import <UIKit/UIDeferredMenuElement+Sim.h>
#import <UIKit/UIMenuElement+Sim.h>

#import <UIKit/UIImage.h>

#include <objcxx/BlockHandle.h>
#include <objcxx/Retained.h>

namespace sim {

struct DeferredMenuState {
  objcxx::BlockHandle<void, void (^)(NSArray<UIMenuElement *> *)> provider;
  objcxx::Retained<NSArray> elements;
  bool isKept = true;
  unsigned asked = 0;  ///< How often; an answer to an earlier question is no answer any more.
  bool isWaiting = false;
};

}  // namespace sim

@implementation UIDeferredMenuElement

- (instancetype)sim_initWithTitle:(NSString *)title image:(UIImage *)image {
  if (!(self = [super sim_initWithTitle:title image:image])) return nil;
  _deferredMenuState = std::make_unique<sim::DeferredMenuState>();
  return self;
}

+ (instancetype)elementWithProvider:(void (^)(void (^)(NSArray<UIMenuElement *> *)))provider {
  UIDeferredMenuElement *element = objcxx::adopt([[self alloc] sim_initWithTitle:nil image:nil]).autoreleased();
  element->_deferredMenuState->provider = objcxx::copyOf(provider);
  return element;
}

+ (instancetype)elementWithUncachedProvider:(void (^)(void (^)(NSArray<UIMenuElement *> *)))provider {
  UIDeferredMenuElement *element = [self elementWithProvider:provider];
  element->_deferredMenuState->isKept = false;
  return element;
}

/// What it has loaded is that of every menu that it is in.
- (id)copyWithZone:(NSZone *)zone {
  (void)zone;
  return [self retain];
}

- (instancetype)sim_frozen {
  return self;
}

@end

@implementation UIDeferredMenuElement (Sim)

- (NSArray *)sim_elements {
  return _deferredMenuState->elements.get();
}

- (void)sim_take:(NSArray *)elements of:(unsigned)question {
  sim::DeferredMenuState &state = *_deferredMenuState;
  if (!state.isWaiting || state.asked != question) return;
  NSMutableArray *frozen = [NSMutableArray array];
  for (UIMenuElement *each in elements) [frozen addObject:[each sim_frozen]];
  state.elements = objcxx::share((NSArray *)frozen);
  state.isWaiting = false;
}

- (void)sim_appear {
  sim::DeferredMenuState &state = *_deferredMenuState;
  if (state.elements || state.isWaiting || !state.provider) return;
  const auto kept = objcxx::share(self);
  const unsigned question = ++state.asked;
  state.isWaiting = true;
  const auto provider = state.provider;
  provider(^(NSArray<UIMenuElement *> *elements) {
    if ([NSThread isMainThread]) return [kept.get() sim_take:elements of:question];
    dispatch_async(dispatch_get_main_queue(), ^{
      [kept.get() sim_take:elements of:question];
    });
  });
}

- (void)sim_disappear {
  if (_deferredMenuState->isKept) return;
  _deferredMenuState->elements = nullptr;
  _deferredMenuState->isWaiting = false;
}

@end
