// What a visual effect view does with what lies behind it or in it.
#pragma once

#import <UIKit/UIKitDefines.h>

/// Immutable. Only its subclasses do anything.
@interface UIVisualEffect : NSObject <NSCopying>
@end
