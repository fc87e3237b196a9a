// The part of CoreFoundation that the simulator carries. Its types are the Foundation objects themselves (toll-free
// bridged in both directions by a cast).
#pragma once

#import <CoreFoundation/CFArray.h>
#import <CoreFoundation/CFBase.h>
#import <CoreFoundation/CFBundle.h>
#import <CoreFoundation/CFData.h>
#import <CoreFoundation/CFDate.h>
#import <CoreFoundation/CFDictionary.h>
#import <CoreFoundation/CFError.h>
#import <CoreFoundation/CFNotificationCenter.h>
#import <CoreFoundation/CFNumber.h>
#import <CoreFoundation/CFPreferences.h>
#import <CoreFoundation/CFPropertyList.h>
#import <CoreFoundation/CFString.h>
#import <CoreFoundation/CFURL.h>
#import <CoreFoundation/CFUUID.h>
