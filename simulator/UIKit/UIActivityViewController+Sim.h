// The simulator's own face of the share sheet.
#pragma once

#import <UIKit/UIActivityViewController.h>

/// Saves a copy of the items as files, outside the device.
UIKIT_EXTERN UIActivityType const SIMActivityTypeSaveToFiles;

@interface UIActivityViewController (Sim)
/// The items as they were given: NSURL, NSString, UIImage and others.
@property(nonatomic, readonly) NSArray *sim_activityItems;
/// The types of the activities that fit at least one item and are not excluded, in the order to show.
@property(nonatomic, readonly) NSArray *sim_activityTypes;
/// Puts the item on the general pasteboard as a text and ends the sheet with the activity "copy". NO, with nothing
/// changed, when there is no such item, it cannot be had as a text, or the activity is excluded.
- (BOOL)sim_copyItemAtIndex:(NSUInteger)index;
/// What follows an activity that was performed: dismisses the sheet, then calls the handler. A nil type stands for a
/// cancelled sheet. NO when the type is not one of `sim_activityTypes`.
- (BOOL)sim_finishWithActivityType:(UIActivityType)activityType;
@end
