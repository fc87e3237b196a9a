// How records are made. Bundles never include this.
#pragma once

#import <NorvikAppList/NorvikAppList.h>

@interface NorvikAppRecord (Sim)
/// The application in the folder `path`; nil with a log line when its Info.plist is broken or names no identifier.
+ (instancetype)sim_recordOfApplicationAtPath:(NSString *)path;
/// Every application of the device once, ordered by display name. Where two share an identifier the first one counts.
+ (NSArray *)sim_installedApplications;
/// Where the application lies on this computer.
- (NSString *)sim_folder;
/// Its icon, `side` points wide; nil when it has none that can be read.
- (UIImage *)sim_iconOfSide:(CGFloat)side;
@end
