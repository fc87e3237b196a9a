// The tree of layers, and their layout.
#import <QuartzCore/CALayerState.h>

#include <algorithm>

namespace {

using Layers = std::vector<objcxx::Retained<CALayer>>;

Layers::iterator find(Layers &layers, CALayer *layer) {
  return std::find_if(layers.begin(), layers.end(), [&](const auto &handle) { return handle.get() == layer; });
}

NSArray *arrayOf(const Layers &layers) {
  NSMutableArray *array = [NSMutableArray arrayWithCapacity:layers.size()];
  for (const auto &layer : layers) [array addObject:layer.get()];
  return array;
}

bool isWithin(CALayer *layer, CALayer *ancestor) {
  for (; layer; layer = [layer superlayer]) {
    if (layer == ancestor) return true;
  }
  return false;
}

}  // namespace

@implementation CALayer (Hierarchy)

- (CALayer *)superlayer {
  const sim::CALayerState &state = [self sim_state];
  return state.superlayer ? state.superlayer : [state.owner sim_superviewLayer];
}

- (void)sim_setSuperlayer:(CALayer *)layer {
  [self sim_state].superlayer = layer;
}

- (BOOL)sim_hasOwnSublayers {
  const sim::CALayerState &state = [self sim_state];
  return state.owner ? state.listsSublayers : !state.sublayers.empty();
}

/// The list, of a view's layer begun with what its subviews say.
- (Layers &)sim_listedSublayers {
  sim::CALayerState &state = [self sim_state];
  if (state.owner && !state.listsSublayers) {
    state.listsSublayers = true;
    for (CALayer *layer in [state.owner sim_subviewLayers]) state.sublayers.push_back(objcxx::share(layer));
  }
  return state.sublayers;
}

- (NSArray *)sublayers {
  const sim::CALayerState &state = [self sim_state];
  NSArray *layers = state.owner && !state.listsSublayers ? [state.owner sim_subviewLayers] : arrayOf(state.sublayers);
  return [layers count] > 0 ? layers : nil;
}

- (void)setSublayers:(NSArray *)sublayers {
  const auto wanted = objcxx::adopt([sublayers copy]);
  for (CALayer *layer in [self sublayers]) {
    if (![wanted.get() containsObject:layer]) [layer removeFromSuperlayer];
  }
  for (CALayer *layer in (NSArray *)wanted.get()) [self addSublayer:layer];
}

- (NSArray *)sim_sublayersInDrawingOrder {
  Layers layers;
  for (CALayer *layer in [self sublayers]) layers.push_back(objcxx::share(layer));
  std::stable_sort(layers.begin(), layers.end(),
                   [](const auto &a, const auto &b) { return [a.get() zPosition] < [b.get() zPosition]; });
  return arrayOf(layers);
}

- (void)addSublayer:(CALayer *)layer {
  [self sim_insertSublayer:layer below:nil];
}

- (void)insertSublayer:(CALayer *)layer atIndex:(unsigned)idx {
  Layers layers = [self sim_listedSublayers];
  std::erase_if(layers, [&](const auto &each) { return each.get() == layer; });
  [self sim_insertSublayer:layer below:idx < layers.size() ? layers[idx].get() : nil];
}

- (void)insertSublayer:(CALayer *)layer below:(CALayer *)sibling {
  if (layer != sibling) [self sim_insertSublayer:layer below:sibling];
}

- (void)insertSublayer:(CALayer *)layer above:(CALayer *)sibling {
  if (layer == sibling) return;
  Layers layers = [self sim_listedSublayers];
  std::erase_if(layers, [&](const auto &each) { return each.get() == layer; });
  const auto place = find(layers, sibling);
  const bool isBetween = place != layers.end() && place + 1 != layers.end();
  [self sim_insertSublayer:layer below:isBetween ? (place + 1)->get() : nil];
}

- (void)replaceSublayer:(CALayer *)oldLayer with:(CALayer *)newLayer {
  if (oldLayer == newLayer || [oldLayer superlayer] != self) return;
  if (newLayer) [self insertSublayer:newLayer below:oldLayer];
  [oldLayer removeFromSuperlayer];
}

/// In front of all where `sibling` is nil or no sublayer.
- (void)sim_insertSublayer:(CALayer *)layer below:(CALayer *)sibling {
  if (!layer) return;
  if (isWithin(self, layer)) {
    [NSException raise:@"CALayerInvalid" format:@"A layer cannot be added below itself."];
  }
  const auto added = objcxx::share(layer);
  if ([layer superlayer] != self) [layer removeFromSuperlayer];
  [self sim_addSubviewLayer:layer below:sibling];
  // A view's layer in that of its superview is found through the views.
  if ([[layer sim_owner] sim_superviewLayer] != self) [layer sim_setSuperlayer:self];
  [self setNeedsLayout];
}

- (void)sim_addSubviewLayer:(CALayer *)layer below:(CALayer *)sibling {
  Layers &layers = [self sim_listedSublayers];
  const auto added = objcxx::share(layer);
  std::erase_if(layers, [&](const auto &each) { return each.get() == layer; });
  layers.insert(sibling ? find(layers, sibling) : layers.end(), added);
}

- (void)sim_removeSubviewLayer:(CALayer *)layer {
  Layers &layers = [self sim_listedSublayers];
  const auto place = find(layers, layer);
  if (place == layers.end()) return;
  const auto removed = *place;
  layers.erase(place);
}

- (void)removeFromSuperlayer {
  CALayer *superlayer = [self superlayer];
  if (!superlayer) return;
  const auto kept = objcxx::share(self);
  sim::CALayerState &state = [superlayer sim_state];
  [self sim_state].superlayer = nil;
  if (state.mask.get() == self) {
    state.mask = nullptr;
    return;
  }
  [superlayer sim_removeSubviewLayer:self];
  [superlayer setNeedsLayout];
}

- (CALayer *)mask {
  return [self sim_state].mask.get();
}

- (void)setMask:(CALayer *)mask {
  sim::CALayerState &state = [self sim_state];
  if (state.mask.get() == mask) return;
  const auto added = objcxx::share(mask);
  [mask removeFromSuperlayer];
  if (state.mask) [state.mask.get() sim_state].superlayer = nil;
  state.mask = added;
  [mask sim_setSuperlayer:self];
}

- (void)setNeedsLayout {
  if (id<SIMLayerOwner> owner = [self sim_owner]) return [owner sim_layerSetNeedsLayout];
  [self sim_state].needsLayout = true;
}

- (BOOL)needsLayout {
  return [self sim_state].needsLayout;
}

- (void)layoutIfNeeded {
  sim::CALayerState &state = [self sim_state];
  if (state.owner) return [state.owner sim_layerLayoutIfNeeded];
  if (state.needsLayout) {
    state.needsLayout = false;
    [self layoutSublayers];
  }
  for (CALayer *layer in [self sublayers]) [layer layoutIfNeeded];
}

- (void)layoutSublayers {
  id<CALayerDelegate> delegate = [self delegate];
  if ([delegate respondsToSelector:@selector(layoutSublayersOfLayer:)]) [delegate layoutSublayersOfLayer:self];
}

@end
