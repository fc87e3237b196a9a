#import "theme/ZunoCustomiseRootListController+Colours.h"

#import <Preferences/PSTableCell.h>

#import "theme/ZunoColourPicker.h"

@implementation ZunoCustomiseRootListController (Colours)

- (void)pickColour:(PSSpecifier *)row {
  ZunoColourPicker *picker = [ZunoColourPicker pickerForRow:row];
  [picker setModalPresentationStyle:UIModalPresentationPopover];
  UIView *place = [self cachedCellForSpecifier:row] ?: [self view];
  [[picker popoverPresentationController] setSourceView:place];
  [[picker popoverPresentationController] setSourceRect:[place bounds]];
  [self presentViewController:picker animated:YES completion:nil];
}

@end
