// A page on which the user chooses applications.
#pragma once

#import <UIKit/UIKit.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(AppListPageState);

/// Lists the installed applications with a check mark at the chosen ones. Main thread only.
///
/// The choice is stored at every tap, as an array of bundle identifiers under one key of the preference file of the
/// identifier; every other key of the file is kept. Chosen applications that are not installed stay stored.
@interface NorvikAppListTableViewController : UITableViewController {
 @private
  SIM_STATE(AppListPageState, _pageState);
}
/// `identifier` names the preference file, `key` the entry in it.
- (instancetype)initWithIdentifier:(NSString *)identifier andKey:(NSString *)key;
/// At most this many applications; 0, as at first, is no limit. With 1 a new choice replaces the old one.
@property(nonatomic) NSInteger maxEnabled;
/// Shows a tapped application's bundle identifier below its name. NO at first.
@property(nonatomic) BOOL showBundleIdentifierOnTap;
@end
