#import <UIKit/UIActivityViewController+Sim.h>

#import "SharedItem.h"

#import <UIKit/UIImage.h>
#import <UIKit/UIPasteboard.h>
#import <UIKit/UIViewController+Sim.h>
#include <objcxx/BlockHandle.h>
#include <objcxx/Retained.h>

UIActivityType const UIActivityTypeMessage = @"com.apple.UIKit.activity.Message";
UIActivityType const UIActivityTypeMail = @"com.apple.UIKit.activity.Mail";
UIActivityType const UIActivityTypePrint = @"com.apple.UIKit.activity.Print";
UIActivityType const UIActivityTypeCopyToPasteboard = @"com.apple.UIKit.activity.CopyToPasteboard";
UIActivityType const UIActivityTypeAssignToContact = @"com.apple.UIKit.activity.AssignToContact";
UIActivityType const UIActivityTypeSaveToCameraRoll = @"com.apple.UIKit.activity.SaveToCameraRoll";
UIActivityType const UIActivityTypeAddToReadingList = @"com.apple.UIKit.activity.AddToReadingList";
UIActivityType const UIActivityTypeAirDrop = @"com.apple.UIKit.activity.AirDrop";
UIActivityType const SIMActivityTypeSaveToFiles = @"com.apple.DocumentManagerUICore.SaveToFiles";

namespace sim {
struct ActivityState {
  objcxx::Retained<NSArray> items;
  objcxx::Retained<NSArray> excluded;
  objcxx::BlockHandle<void, UIActivityType, BOOL, NSArray *, NSError *> completion;
};
}  // namespace sim

@implementation UIActivityViewController

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
  if (!(self = [super initWithNibName:nibName bundle:bundle])) return nil;

  _activityState = std::make_unique<sim::ActivityState>();
  return self;
}

- (instancetype)initWithActivityItems:(NSArray *)activityItems applicationActivities:(NSArray *)applicationActivities {
  if ([activityItems count] == 0 || [applicationActivities count] > 0) {
    [self release];
    [NSException raise:NSInvalidArgumentException
                format:@"A share sheet needs items and takes no activities of the application's own."];
  }
  if (!(self = [self initWithNibName:nil bundle:nil])) return nil;

  _activityState->items = objcxx::adopt((NSArray *)[activityItems copy]);
  return self;
}

- (UIActivityViewControllerCompletionWithItemsHandler)completionWithItemsHandler {
  return _activityState->completion.get();
}

- (void)setCompletionWithItemsHandler:(UIActivityViewControllerCompletionWithItemsHandler)handler {
  _activityState->completion = objcxx::copyOf(handler);
}

- (NSArray *)excludedActivityTypes {
  return _activityState->excluded.get();
}

- (void)setExcludedActivityTypes:(NSArray *)types {
  _activityState->excluded = objcxx::adopt((NSArray *)[types copy]);
}

#pragma mark - Sim

- (BOOL)sim_needsPopover {
  return YES;
}

- (NSArray *)sim_activityItems {
  return _activityState->items.get();
}

- (NSArray *)sim_activityTypes {
  bool copies = false, saves = false, image = false, page = false;
  for (id item in _activityState->items.get()) {
    copies = copies || sim::canCopySharedItem(item);
    saves = saves || sim::fileNameOfSharedItem(item);
    image = image || [item isKindOfClass:[UIImage class]];
    page = page || ([item isKindOfClass:[NSURL class]] && ![item isFileURL]);
  }
  NSMutableArray *types =
      [NSMutableArray arrayWithObjects:UIActivityTypeAirDrop, UIActivityTypeMessage, UIActivityTypeMail, nil];
  if (copies) [types addObject:UIActivityTypeCopyToPasteboard];
  if (page) [types addObject:UIActivityTypeAddToReadingList];
  if (image) [types addObjectsFromArray:@[ UIActivityTypeSaveToCameraRoll, UIActivityTypeAssignToContact ]];
  if (saves) [types addObject:SIMActivityTypeSaveToFiles];
  [types addObject:UIActivityTypePrint];
  [types removeObjectsInArray:_activityState->excluded.get() ?: @[]];
  return types;
}

- (BOOL)sim_copyItemAtIndex:(NSUInteger)index {
  NSArray *items = _activityState->items.get();
  if (index >= [items count] || ![[self sim_activityTypes] containsObject:UIActivityTypeCopyToPasteboard]) return NO;
  NSString *text = sim::pasteboardTextOfSharedItem([items objectAtIndex:index]);
  if (!text) return NO;
  [[UIPasteboard generalPasteboard] setString:text];
  return [self sim_finishWithActivityType:UIActivityTypeCopyToPasteboard];
}

- (BOOL)sim_finishWithActivityType:(UIActivityType)activityType {
  if (activityType && ![[self sim_activityTypes] containsObject:activityType]) return NO;

  const auto keepAlive = objcxx::share(self);
  const auto handler = std::exchange(_activityState->completion, {});  // It often holds the sheet in turn.
  [[self presentingViewController] sim_dismissAtOnce];
  if (handler) handler(activityType, activityType != nil, nil, nil);
  return YES;
}

@end
