#import <Preferences/PSListController.h>

@interface LanternRootListController : PSListController

@end
