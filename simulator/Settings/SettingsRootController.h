// The first page of the Settings application: one row for each settings bundle of the device folder.
#pragma once

#import <Preferences/PSListController.h>

@interface SettingsRootController : PSListController
@end
