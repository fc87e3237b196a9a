#import <UIKit/UIInteraction.h>
#import <UIKit/UIViewState.h>

#include <algorithm>

@implementation UIView (Interactions)

- (NSArray *)interactions {
  NSMutableArray *all = [NSMutableArray array];
  for (const auto &each : [self sim_state].interactions) [all addObject:each.get()];
  return all;
}

- (void)setInteractions:(NSArray *)interactions {
  NSArray *wanted = [[interactions copy] autorelease];
  for (id<UIInteraction> each in [self interactions]) [self removeInteraction:each];
  for (id<UIInteraction> each in wanted) [self addInteraction:each];
}

- (void)addInteraction:(id<UIInteraction>)interaction {
  if (!interaction || [interaction view] == self) return;
  const auto added = objcxx::share((NSObject<UIInteraction> *)interaction);
  [[interaction view] removeInteraction:interaction];
  [interaction willMoveToView:self];
  [self sim_state].interactions.push_back(added);
  [interaction didMoveToView:self];
}

- (void)removeInteraction:(id<UIInteraction>)interaction {
  auto &all = [self sim_state].interactions;
  const auto found = std::ranges::find_if(all, [&](const auto &each) { return each.get() == interaction; });
  if (found == all.end()) return;
  const auto kept = *found;
  [interaction willMoveToView:nil];
  std::erase_if([self sim_state].interactions, [&](const auto &each) { return each.get() == interaction; });
  [interaction didMoveToView:nil];
}

@end
