// What a control remembers. Included by the sources of UIControl only.
#pragma once

#import <UIKit/UIAction.h>
#import <UIKit/UIContextMenuInteraction.h>
#import <UIKit/UIControl.h>

#include <objcxx/Retained.h>

#include <vector>

namespace sim {

/// A target with its action, or an action that is an object.
struct Binding {
  id target = nil;  // Not owned.
  SEL action = nullptr;
  UIControlEvents events = 0;
  objcxx::Retained<UIAction> handler;
};

struct UIControlMemory {
  std::vector<Binding> bindings;
  bool enabled = true;
  bool selected = false;
  bool highlighted = false;
  bool tracking = false;
  bool touchInside = false;
  UIControlContentHorizontalAlignment horizontalAlignment = UIControlContentHorizontalAlignmentCenter;
  UIControlContentVerticalAlignment verticalAlignment = UIControlContentVerticalAlignmentCenter;
  objcxx::Retained<UIContextMenuInteraction> menuInteraction;
  bool menuEnabled = false;
  bool menuIsPrimary = false;
};

}  // namespace sim
