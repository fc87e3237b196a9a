#import <NorvikAppList/NorvikAppList.h>

#import "AppList/NorvikAppRecord+Sim.h"

#import <dispatch/dispatch.h>

@implementation NorvikAppList

- (void)getAppList:(void (^)(NSArray *apps))completion {
  if (!completion) return;
  dispatch_async(dispatch_get_main_queue(), ^{
    completion([NorvikAppRecord sim_installedApplications]);
  });
}

@end
