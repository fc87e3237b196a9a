#import <UIKit/UITableViewRowAction+Sim.h>

#import <UIKit/UIColor.h>
#include <objcxx/BlockHandle.h>
#include <objcxx/Retained.h>

namespace sim {
struct RowActionState {
  UITableViewRowActionStyle style = UITableViewRowActionStyleDefault;
  objcxx::Retained<NSString> title;
  objcxx::Retained<UIColor> backgroundColor;
  objcxx::BlockHandle<void, UITableViewRowAction *, NSIndexPath *> handler;
};
}  // namespace sim

@implementation UITableViewRowAction

- (instancetype)init {
  if (!(self = [super init])) return nil;

  _rowActionState = std::make_unique<sim::RowActionState>();
  return self;
}

+ (instancetype)rowActionWithStyle:(UITableViewRowActionStyle)style
                             title:(NSString *)title
                           handler:(void (^)(UITableViewRowAction *action, NSIndexPath *indexPath))handler {
  UITableViewRowAction *action = objcxx::adopt([[self alloc] init]).autoreleased();
  action->_rowActionState->style = style;
  action->_rowActionState->handler = objcxx::copyOf(handler);
  [action setTitle:title];
  [action setBackgroundColor:style == UITableViewRowActionStyleNormal ? [UIColor systemGrayColor]
                                                                      : [UIColor systemRedColor]];
  return action;
}

- (id)copyWithZone:(NSZone *)zone {
  UITableViewRowAction *copy = [[[self class] allocWithZone:zone] init];
  *copy->_rowActionState = *_rowActionState;
  return copy;
}

- (UITableViewRowActionStyle)style {
  return _rowActionState->style;
}

- (NSString *)title {
  return _rowActionState->title.get();
}

- (void)setTitle:(NSString *)title {
  _rowActionState->title = objcxx::adopt((NSString *)[title copy]);
}

- (UIColor *)backgroundColor {
  return _rowActionState->backgroundColor.get();
}

- (void)setBackgroundColor:(UIColor *)color {
  _rowActionState->backgroundColor = objcxx::adopt((UIColor *)[color copy]);
}

- (void)sim_performAtIndexPath:(NSIndexPath *)indexPath {
  const auto keepAlive = objcxx::share(self);
  if (_rowActionState->handler) _rowActionState->handler(self, indexPath);
}

@end
