#import <Preferences/PSListController.h>

/// The harbours whose tides are shown. The name of the page stands in its header, and in its bar once that has been
/// scrolled away; more harbours are listed as the end comes near.
@interface TidelineHarboursController : PSListController

@end
