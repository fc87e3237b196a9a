// GNUstep's Foundation and what a device's Foundation has beyond it.
#pragma once

#include_next <Foundation/Foundation.h>
#import <Foundation/FoundationAdditions.h>
