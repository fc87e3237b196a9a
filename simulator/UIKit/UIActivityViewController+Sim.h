// The simulator's own face of the share sheet.
#pragma once

#import <UIKit/UIActivityViewController.h>

@interface UIActivityViewController (Sim)
/// The items as they were given: NSURL, NSString, UIImage and others.
@property (nonatomic, readonly) NSArray *sim_activityItems;
/// One line for each item, for people: the file's name, the address, the text, "Image".
@property (nonatomic, readonly) NSArray *sim_itemTitles;
/// The types of the activities that fit at least one item and are not excluded, in the order to show.
@property (nonatomic, readonly) NSArray *sim_activityTypes;
/// What a finger on an activity does: performs "copy" for real, dismisses the sheet, then calls the handler. A nil
/// type stands for a cancelled sheet. NO when the type is not one of `sim_activityTypes`.
- (BOOL)sim_finishWithActivityType:(UIActivityType)activityType completed:(BOOL)completed;
@end
