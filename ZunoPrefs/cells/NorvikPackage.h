#import <Foundation/Foundation.h>

/// The installed version of a package, from the system's package database.
@interface NorvikPackage : NSObject {
 @private
  NSString *_version;
}

/// The version to show; never nil after the package has been made.
@property(nonatomic, strong) NSString *version;

/// Looks the package up with the system's package tool, and blocks until the tool has closed its output.
///
/// The root package has a fixed version: no tool is run. An exception from launching the tool reaches the caller.
+ (instancetype)packageWithIdentifier:(NSString *)identifier isRootPackage:(BOOL)isRootPackage;

@end
