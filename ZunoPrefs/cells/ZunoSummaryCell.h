#import <Preferences/PSTableCell.h>
#import <UIKit/UIKit.h>

/// A row that opens a list, with what is chosen in that list at its end: as many of the first names as there is room
/// for, and how many more there are; where there is no room for a name, their number.
///
/// Property of its specifier: "names" (array of texts). Without it nothing stands there; an empty array shows as
/// "None". VoiceOver reads all names. Main thread only.
@interface ZunoSummaryCell : PSTableCell
@end
