// GNUstep's Foundation and what a device's Foundation has beyond it.
#pragma once

// Newer Foundations list the edges of a rectangle without the type CGRectEdge, which CoreGraphics declares with them.
#define CGRectMinXEdge GSRectMinXEdge
#define CGRectMinYEdge GSRectMinYEdge
#define CGRectMaxXEdge GSRectMaxXEdge
#define CGRectMaxYEdge GSRectMaxYEdge
// The device has a loader of its own: NSURLSession.h.
#define __NSURLSession_h_GNUSTEP_BASE_INCLUDE
// No SDK has a header for NSTask: makers declare the class themselves.
#define __NSTask_h_GNUSTEP_BASE_INCLUDE
#include_next <Foundation/Foundation.h>
#undef CGRectMinXEdge
#undef CGRectMinYEdge
#undef CGRectMaxXEdge
#undef CGRectMaxYEdge

#import <Foundation/FoundationMacros.h>

#import <Foundation/FoundationAdditions.h>
#import <Foundation/NSURLSession.h>
