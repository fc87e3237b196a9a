// What a context menu shows. Main thread only.
#pragma once

#import <UIKit/UIAction.h>
#import <UIKit/UIKitDefines.h>
#import <UIKit/UIMenu.h>

@class UIViewController;

typedef UIMenu * (^UIContextMenuActionProvider)(NSArray<UIMenuElement *> *suggestedActions);
typedef UIViewController * (^UIContextMenuContentPreviewProvider)(void);

SIM_STATE_TYPE(ContextMenuConfigurationState);

@interface UIContextMenuConfiguration : NSObject {
 @private
  SIM_STATE(ContextMenuConfigurationState, _configurationState);
}
/// An NSUUID unless one was given.
@property(nonatomic, readonly) id<NSCopying> identifier;
/// The blocks are copied; each may be nil. A menu shows no preview. The suggested actions are an empty list.
+ (instancetype)configurationWithIdentifier:(id<NSCopying>)identifier
                            previewProvider:(UIContextMenuContentPreviewProvider)previewProvider
                             actionProvider:(UIContextMenuActionProvider)actionProvider;
@end
