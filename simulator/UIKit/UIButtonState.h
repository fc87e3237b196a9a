// What a button remembers. Included by the sources of UIButton only.
#pragma once

#import <UIKit/UIButton.h>

#include <objcxx/Retained.h>

#include <map>

namespace sim {

template <typename Value>
using PerState = std::map<UIControlState, objcxx::Retained<Value>>;

struct UIButtonState {
  UIButtonType type = UIButtonTypeCustom;
  PerState<NSString> titles;
  PerState<NSAttributedString> attributedTitles;
  PerState<UIColor> titleColors;
  PerState<UIImage> images;
  PerState<UIImage> backgroundImages;
  objcxx::Retained<UILabel> titleLabel;
  objcxx::Retained<UIImageView> imageView;
  objcxx::Retained<UIImageView> backgroundView;
  UIEdgeInsets contentInsets = UIEdgeInsetsZero;
  UIEdgeInsets titleInsets = UIEdgeInsetsZero;
  UIEdgeInsets imageInsets = UIEdgeInsetsZero;
  objcxx::Retained<UIMenu> menu;
  bool changesSelection = false;
};

}  // namespace sim

@interface UIButton (State)
/// Of either kind.
- (BOOL)sim_hasTitle;
@end
