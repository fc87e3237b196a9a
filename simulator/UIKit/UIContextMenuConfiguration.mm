#import <UIKit/UIContextMenuConfiguration+Sim.h>

#import <Foundation/NotCarried.h>
#import <UIKit/UIMenuElement+Sim.h>

#include <objcxx/BlockHandle.h>
#include <objcxx/Retained.h>

namespace sim {

struct ContextMenuConfigurationState {
  objcxx::Retained<NSObject> identifier;
  objcxx::BlockHandle<UIMenu *, NSArray<UIMenuElement *> *> actions;
};

}  // namespace sim

@implementation UIContextMenuConfiguration

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _configurationState = std::make_unique<sim::ContextMenuConfigurationState>();
  _configurationState->identifier = objcxx::share((NSObject *)[NSUUID UUID]);
  return self;
}

+ (instancetype)configurationWithIdentifier:(id<NSCopying>)identifier
                            previewProvider:(UIContextMenuContentPreviewProvider)previewProvider
                             actionProvider:(UIContextMenuActionProvider)actionProvider {
  UIContextMenuConfiguration *configuration = objcxx::adopt([[self alloc] init]).autoreleased();
  if (identifier) {
    configuration->_configurationState->identifier = objcxx::adopt((NSObject *)[(NSObject *)identifier copy]);
  }
  configuration->_configurationState->actions = objcxx::copyOf(actionProvider);
  if (previewProvider) {
    sim::notCarried(@"UIContextMenuConfiguration.previewProvider", @"A context menu is shown without a preview.");
  }
  return configuration;
}

- (id<NSCopying>)identifier {
  return (id<NSCopying>)_configurationState->identifier.get();
}

@end

@implementation UIContextMenuConfiguration (Sim)

- (UIMenu *)sim_makeMenu {
  const auto provider = _configurationState->actions;
  return provider ? [provider(@[]) sim_frozen] : nil;
}

@end
