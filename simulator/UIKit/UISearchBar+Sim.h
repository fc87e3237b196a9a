// What a person does to a search bar.
#pragma once

#import <UIKit/UISearchBar.h>

@class UISearchController;

@interface UISearchBar (Sim)
/// Whose bar it is; nil without one. Not owned.
@property(nonatomic, assign, setter=sim_setController:) UISearchController *sim_controller;
@property(nonatomic, readonly) BOOL sim_showsCancel;
/// Taps the field, unless it is edited already, and has `text` in it; `finished`: touches elsewhere then. NO when it
/// cannot be reached or the delegate refuses to begin.
- (BOOL)sim_type:(NSString *)text finished:(BOOL)finished;
/// The same, ending with the key that searches.
- (BOOL)sim_search:(NSString *)text;
/// NO when the button is not shown.
- (BOOL)sim_cancelByUser;
@end
