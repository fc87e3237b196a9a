// What objects are associated with others, as far as their end is concerned.
#pragma once

#import <Foundation/Foundation.h>

namespace sim {

/// Releases what is associated with an object that is being deallocated.
void forgetAssociatedObjects(id object);

}  // namespace sim
