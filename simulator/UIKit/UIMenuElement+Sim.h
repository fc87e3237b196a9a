// What menus and their elements need of each other.
#pragma once

#import <UIKit/UIMenuElement.h>

@interface UIMenuElement (Sim)
/// nil as the title stands for none.
- (instancetype)sim_initWithTitle:(NSString *)title image:(UIImage *)image;
- (void)sim_setTitle:(NSString *)title;
- (void)sim_setImage:(UIImage *)image;
/// What cannot be changed any more raises NSInternalInconsistencyException.
- (void)sim_requireMutable;
/// The same as `copy`, autoreleased, but of a kind that nobody can change; the receiver when it is of that kind.
- (instancetype)sim_frozen;
@end
