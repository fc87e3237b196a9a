#import <Preferences/PSListController.h>

/// One colour of those that the package brings along is the light's.
@interface LanternColoursListController : PSListController

@end
