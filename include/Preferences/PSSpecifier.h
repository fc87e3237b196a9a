// One row, or one group of rows, of a settings page.
#pragma once

#import <Foundation/Foundation.h>
#import <UIKit/UIKit.h>

#import <Preferences/PSConstants.h>

typedef NS_ENUM(NSInteger, PSCellType) {
  PSGroupCell,
  PSLinkCell,
  PSLinkListCell,
  PSListItemCell,
  PSTitleValueCell,
  PSSliderCell,
  PSSwitchCell,
  PSStaticTextCell,
  PSEditTextCell,
  PSSegmentCell,
  PSGiantIconCell,
  PSGiantCell,
  PSSecureEditTextCell,
  PSButtonCell,
  PSEditTextViewCell,
  PSSpinnerCell
};

/// Describes a row: its cell type, where its value is read and written, and what a tap does. Main thread only.
///
/// Everything that is not an instance variable is in `properties`; rows and pages read their own keys from there.
@interface PSSpecifier : NSObject {
 @public
  __unsafe_unretained id target;  // Not owned.
  SEL getter;                     // Takes the specifier, returns an object.
  SEL setter;                     // Takes the value and the specifier.
  SEL action;                     // Takes nothing or the specifier.
  SEL cancel;
  Class detailControllerClass;
  PSCellType cellType;  // -1 when the type is unknown.
  Class editPaneClass;
  UIKeyboardType keyboardType;
  UITextAutocapitalizationType autoCapsType;
  UITextAutocorrectionType autoCorrectionType;

 @private
  NSString *_name;
  NSArray *_values;
  NSDictionary *_titleDict;
  NSDictionary *_shortTitleDict;
  id _userInfo;
  NSMutableDictionary *_properties;
  SEL _buttonAction;
  SEL _confirmationAction;
  SEL _confirmationCancelAction;
  SEL _controllerLoadAction;
  unsigned _reported;  // The simulator's own: which faults of the value were logged.
}

/// The row's localised title.
@property(nonatomic, copy) NSString *name;
/// Unique on its page. Setting nil removes it.
@property(nonatomic, copy) NSString *identifier;
/// Receives every selector of the specifier. Not owned.
@property(nonatomic, assign) id target;
@property(nonatomic) PSCellType cellType;
@property(nonatomic) Class detailControllerClass;
@property(nonatomic) Class editPaneClass;
/// The live dictionary behind `propertyForKey:`. Setting another one takes over a copy of what it holds.
@property(nonatomic, retain) NSMutableDictionary *properties;
@property(nonatomic, retain) NSArray *values;
/// Value to title.
@property(nonatomic, retain) NSDictionary *titleDictionary;
/// Value to the short title that a link list row shows.
@property(nonatomic, retain) NSDictionary *shortTitleDictionary;
@property(nonatomic, retain) id userInfo;
@property(nonatomic) SEL buttonAction;
@property(nonatomic) SEL confirmationAction;
@property(nonatomic) SEL confirmationCancelAction;
@property(nonatomic) SEL controllerLoadAction;

+ (instancetype)preferenceSpecifierNamed:(NSString *)name
                                  target:(id)target
                                     set:(SEL)set
                                     get:(SEL)get
                                  detail:(Class)detail
                                    cell:(PSCellType)cell
                                    edit:(Class)edit;
+ (instancetype)emptyGroupSpecifier;
+ (instancetype)groupSpecifierWithName:(NSString *)name;
+ (instancetype)groupSpecifierWithID:(NSString *)identifier;
+ (instancetype)groupSpecifierWithID:(NSString *)identifier name:(NSString *)name;
+ (instancetype)groupSpecifierWithHeader:(NSString *)header footer:(NSString *)footer;

- (id)propertyForKey:(NSString *)key;
/// Does nothing when `property` is nil; see `removePropertyForKey:`.
- (void)setProperty:(id)property forKey:(NSString *)key;
- (void)removePropertyForKey:(NSString *)key;

/// Parallel arrays. Arrays of different length raise NSInvalidArgumentException.
- (void)setValues:(NSArray *)values titles:(NSArray *)titles;
- (void)setValues:(NSArray *)values titles:(NSArray *)titles shortTitles:(NSArray *)shortTitles;
/// Fills values and titles from the selectors "valuesDataSource", "titlesDataSource" and "shortTitlesDataSource".
- (void)loadValuesAndTitlesFromDataSource;

/// YES when there is a getter and the target responds to it.
- (BOOL)hasValidGetter;
- (BOOL)hasValidSetter;
/// The target's value; nil without a valid getter.
- (id)performGetter;
/// Does nothing without a valid setter.
- (void)performSetterWithValue:(id)value;
@end

// Whoever has a row can name its cell.
#import <Preferences/PSTableCell.h>
