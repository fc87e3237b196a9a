// The part of CoreFoundation that the simulator carries. Its types are the Foundation objects themselves (toll-free
// bridged in both directions by a cast).
#pragma once

#import <CoreFoundation/CFBase.h>
#import <CoreFoundation/CFData.h>
#import <CoreFoundation/CFNotificationCenter.h>
#import <CoreFoundation/CFNumber.h>
