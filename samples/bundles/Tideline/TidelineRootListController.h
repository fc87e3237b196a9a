#import <Preferences/PSListController.h>

@interface TidelineRootListController : PSListController <UISearchResultsUpdating, UIColorPickerViewControllerDelegate>

@end
