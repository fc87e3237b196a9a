#import <Preferences/PSSwitchTableCell.h>

/// A switch that shows a stored value as its readers take it: on for every number but 0. What is no finite number shows
/// as the row's "default"; the system's own cell would ask it for its truth, which an array for instance does not know.
/// Main thread only.
@interface ZunoSwitchCell : PSSwitchTableCell
@end
