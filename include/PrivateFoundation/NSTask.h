// Child processes. The class is in every Foundation; the device SDKs ship no header for it.
#pragma once

#import <Foundation/Foundation.h>

/// Runs a program. Main thread or any one thread.
@interface NSTask : NSObject
@property(nonatomic, copy) NSString *launchPath;
@property(nonatomic, copy) NSString *currentDirectoryPath;
@property(nonatomic, copy) NSArray *arguments;
/// An NSPipe or NSFileHandle.
@property(nonatomic, retain) id standardOutput;
/// Raises NSInvalidArgumentException when the program cannot be started.
- (void)launch;
- (void)waitUntilExit;
@end
