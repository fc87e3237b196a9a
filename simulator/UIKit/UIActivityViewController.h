// The system's share sheet.
#pragma once

#import <UIKit/UIViewController.h>

#include <objcxx/HiddenState.h>

typedef NSString *UIActivityType;
UIKIT_EXTERN UIActivityType const UIActivityTypeMessage;
UIKIT_EXTERN UIActivityType const UIActivityTypeMail;
UIKIT_EXTERN UIActivityType const UIActivityTypePrint;
UIKIT_EXTERN UIActivityType const UIActivityTypeCopyToPasteboard;
UIKIT_EXTERN UIActivityType const UIActivityTypeAssignToContact;
UIKIT_EXTERN UIActivityType const UIActivityTypeSaveToCameraRoll;
UIKIT_EXTERN UIActivityType const UIActivityTypeAddToReadingList;
UIKIT_EXTERN UIActivityType const UIActivityTypeAirDrop;

typedef void (^UIActivityViewControllerCompletionWithItemsHandler)(UIActivityType activityType, BOOL completed,
                                                                   NSArray *returnedItems, NSError *activityError);

SIM_STATE_TYPE(ActivityState);

/// On a large screen it has to be given a place to show from; see `popoverPresentationController`. Main thread.
@interface UIActivityViewController : UIViewController {
 @private
  SIM_STATE(ActivityState, _activityState);
}
/// `applicationActivities` may be nil; activities of an application's own are not carried, so no other value is.
/// Raises NSInvalidArgumentException for no items and for activities.
- (instancetype)initWithActivityItems:(NSArray *)activityItems applicationActivities:(NSArray *)applicationActivities;
@property(nonatomic, copy) UIActivityViewControllerCompletionWithItemsHandler completionWithItemsHandler;
@property(nonatomic, copy) NSArray *excludedActivityTypes;
@end
