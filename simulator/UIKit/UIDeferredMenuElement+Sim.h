// What an open menu asks of elements that are still to come.
#pragma once

#import <UIKit/UIDeferredMenuElement.h>

@interface UIDeferredMenuElement (Sim)
/// nil until they have come. None of them can be changed.
@property(nonatomic, readonly) NSArray *sim_elements;
/// A menu shows the element: the provider is asked, if it is its turn.
- (void)sim_appear;
/// The menu has gone: what is not kept is forgotten.
- (void)sim_disappear;
@end
