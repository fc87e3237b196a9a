#import "theme/ZunoCustomiseRootListController.h"

/// The rows of colours are picked, not typed.
@interface ZunoCustomiseRootListController (Colours)

/// Action of a row of ZunoColourCell: opens the system's colour picker for its value. On a large screen the picker
/// points to the row.
- (void)pickColour:(PSSpecifier *)row;

@end
