#import <UIKit/UIContextualAction.h>

#import <UIKit/UIColor.h>
#import <UIKit/UIImage.h>
#include <objcxx/BlockHandle.h>
#include <objcxx/Retained.h>

namespace sim {
struct ContextualActionState {
  UIContextualActionStyle style = UIContextualActionStyleNormal;
  objcxx::Retained<NSString> title;
  objcxx::Retained<UIColor> backgroundColor;
  objcxx::Retained<UIImage> image;
  objcxx::BlockHandle<void, UIContextualAction *, __kindof UIView *, void (^)(BOOL)> handler;
};
}  // namespace sim

@implementation UIContextualAction

- (instancetype)init {
  if (!(self = [super init])) return nil;

  _contextualActionState = std::make_unique<sim::ContextualActionState>();
  return self;
}

+ (instancetype)contextualActionWithStyle:(UIContextualActionStyle)style
                                    title:(NSString *)title
                                  handler:(UIContextualActionHandler)handler {
  UIContextualAction *action = objcxx::adopt([[self alloc] init]).autoreleased();
  action->_contextualActionState->style = style;
  action->_contextualActionState->handler = objcxx::copyOf(handler);
  [action setTitle:title];
  [action setBackgroundColor:style == UIContextualActionStyleDestructive ? [UIColor systemRedColor]
                                                                         : [UIColor systemGrayColor]];
  return action;
}

- (UIContextualActionStyle)style {
  return _contextualActionState->style;
}

- (UIContextualActionHandler)handler {
  return _contextualActionState->handler.get();
}

- (NSString *)title {
  return _contextualActionState->title.get();
}

- (void)setTitle:(NSString *)title {
  _contextualActionState->title = objcxx::adopt((NSString *)[title copy]);
}

- (UIColor *)backgroundColor {
  return _contextualActionState->backgroundColor.get();
}

- (void)setBackgroundColor:(UIColor *)color {
  _contextualActionState->backgroundColor = objcxx::adopt((UIColor *)[color copy]);
}

- (UIImage *)image {
  return _contextualActionState->image.get();
}

- (void)setImage:(UIImage *)image {
  _contextualActionState->image = objcxx::share(image);  // It never changes, so it is its own copy.
}

@end
