#import <UIKit/UIColorPickerViewController+Sim.h>

#import <UIKit/UIColor.h>
#include <objcxx/Retained.h>

namespace sim {
struct ColorPickerState {
  objcxx::Retained<UIColor> selectedColor;
  BOOL supportsAlpha = YES;
  id<UIColorPickerViewControllerDelegate> delegate = nil;  // not owned
};
}  // namespace sim

@implementation UIColorPickerViewController

- (instancetype)init {
  return [self initWithNibName:nil bundle:nil];
}

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
  if (!(self = [super initWithNibName:nibName bundle:bundle])) return nil;

  _colorPickerState = std::make_unique<sim::ColorPickerState>();
  [self setSelectedColor:nil];
  return self;
}

- (id<UIColorPickerViewControllerDelegate>)delegate {
  return _colorPickerState->delegate;
}

- (void)setDelegate:(id<UIColorPickerViewControllerDelegate>)delegate {
  _colorPickerState->delegate = delegate;
}

- (UIColor *)selectedColor {
  return _colorPickerState->selectedColor.get();
}

- (void)setSelectedColor:(UIColor *)color {
  _colorPickerState->selectedColor = objcxx::share(color ?: [UIColor blackColor]);
}

- (BOOL)supportsAlpha {
  return _colorPickerState->supportsAlpha;
}

- (void)setSupportsAlpha:(BOOL)supportsAlpha {
  _colorPickerState->supportsAlpha = supportsAlpha;
}

#pragma mark - Sim

- (BOOL)sim_selectColorByUser:(UIColor *)color continuously:(BOOL)continuously {
  CGFloat alpha = 1;
  [color getRed:nullptr green:nullptr blue:nullptr alpha:&alpha];
  if (!color || (alpha < 1 && !_colorPickerState->supportsAlpha)) return NO;

  const auto keepAlive = objcxx::share(self);
  [self setSelectedColor:color];
  id<UIColorPickerViewControllerDelegate> delegate = _colorPickerState->delegate;
  if ([delegate respondsToSelector:@selector(colorPickerViewController:didSelectColor:continuously:)]) {
    [delegate colorPickerViewController:self didSelectColor:color continuously:continuously];
  } else if ([delegate respondsToSelector:@selector(colorPickerViewControllerDidSelectColor:)]) {
    [delegate colorPickerViewControllerDidSelectColor:self];
  }
  return YES;
}

- (void)sim_close {
  const auto keepAlive = objcxx::share(self);
  id<UIColorPickerViewControllerDelegate> delegate = _colorPickerState->delegate;
  [[self presentingViewController] dismissViewControllerAnimated:YES completion:nil];
  if ([delegate respondsToSelector:@selector(colorPickerViewControllerDidFinish:)]) {
    [delegate colorPickerViewControllerDidFinish:self];
  }
}

@end
