#import <Preferences/SpecifierLoader.h>

#import <Foundation/SIMDevice.h>
#import <Preferences/PSConfirmationSpecifier.h>
#import <Preferences/PSListController.h>
#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PSTableCell.h>
#import <Preferences/PreferencesLog.h>
#import <UIKit/UIKit.h>

namespace sim {
namespace {

/// Where the texts of an item are looked up.
struct Texts {
  NSBundle *bundle;
  NSString *table;

  NSString *localized(NSString *text) const {
    return bundle && [text length] > 0 ? [bundle localizedStringForKey:text value:nil table:table] : text;
  }
  NSArray *localizedAll(NSArray *texts) const {
    NSMutableArray *result = [NSMutableArray arrayWithCapacity:[texts count]];
    for (NSString *text in texts) [result addObject:localized(text)];
    return result;
  }
};

NSString *stringIn(NSDictionary *item, NSString *key) {
  id value = [item objectForKey:key];
  return [value isKindOfClass:[NSString class]] ? value : nil;
}

bool areStrings(id array) {
  if (![array isKindOfClass:[NSArray class]]) return false;
  for (id element in (NSArray *)array) {
    if (![element isKindOfClass:[NSString class]]) return false;
  }
  return true;
}

/// Why the item makes no row; nil when it does.
NSString *faultOfItem(id item) {
  if (![item isKindOfClass:[NSDictionary class]]) return @"it is no dictionary";
  id label = [item objectForKey:PSTitleKey];
  if (label && ![label isKindOfClass:[NSString class]]) return @"its label is no string";
  id values = [item objectForKey:PSValidValuesKey];
  id titles = [item objectForKey:PSValidTitlesKey];
  id shortTitles = [item objectForKey:PSShortTitlesKey];
  if (values && ![values isKindOfClass:[NSArray class]]) return @"its validValues is no array";
  if (titles && !areStrings(titles)) return @"its validTitles is no array of strings";
  if (shortTitles && !areStrings(shortTitles)) return @"its shortTitles is no array of strings";
  if (values && titles && [values count] != [titles count]) return @"validValues and validTitles differ in length";
  if (values && shortTitles && [values count] != [shortTitles count]) {
    return @"validValues and shortTitles differ in length";
  }
  return nil;
}

void logFaultOfItem(NSString *fault, id item) {
  NSString *label = [item isKindOfClass:[NSDictionary class]] ? stringIn(item, PSTitleKey) : nil;
  if (!label && [item isKindOfClass:[NSDictionary class]])
    label = stringIn(item, PSIDKey) ?: stringIn(item, PSKeyNameKey);
  logPreferences(@"An item%@ is left out: %@.", label ? [NSString stringWithFormat:@" \"%@\"", label] : @"", fault);
}

/// Adds what all items share: keys that the item lacks, elements of arrays, entries of dictionaries.
NSDictionary *itemWithAttributes(NSDictionary *item, NSDictionary *attributes) {
  NSMutableDictionary *merged = [[item mutableCopy] autorelease];
  for (NSString *key in attributes) {
    id own = [item objectForKey:key];
    id shared = [attributes objectForKey:key];
    if (!own) {
      [merged setObject:shared forKey:key];
    } else if ([own isKindOfClass:[NSArray class]] && [shared isKindOfClass:[NSArray class]]) {
      [merged setObject:[own arrayByAddingObjectsFromArray:shared] forKey:key];
    } else if ([own isKindOfClass:[NSDictionary class]] && [shared isKindOfClass:[NSDictionary class]]) {
      [merged setObject:itemWithAttributes(own, shared) forKey:key];
    }
  }
  return merged;
}

PSCellType typeOfItem(NSDictionary *item) {
  NSString *name = stringIn(item, PSTableCellClassKey);
  const PSCellType type = [PSTableCell cellTypeFromString:name];
  if (type < 0 && (name || ![item objectForKey:PSCellClassKey])) {
    logPreferences(@"\"%@\": no cell type \"%@\"; the row is plain.",
                   stringIn(item, PSTitleKey) ?: stringIn(item, PSIDKey) ?: @"", name ?: @"");
  }
  return type;
}

void localize(PSSpecifier *specifier, const Texts &texts) {
  NSMutableDictionary *properties = [specifier properties];
  for (NSString *key in @[
         PSTitleKey, PSFooterTextGroupKey, @"cellSubtitleText", PSPlaceholderKey, PSStaticTextMessageKey,
         PSStaticHeaderTextKey
       ]) {
    NSString *text = [specifier sim_stringForKey:key];
    if (text) [properties setObject:texts.localized(text) forKey:key];
  }
  for (NSString *key in @[ PSValidTitlesKey, PSShortTitlesKey ]) {
    NSArray *titles = [properties objectForKey:key];
    if (titles) [properties setObject:texts.localizedAll(titles) forKey:key];
  }
}

void setUpConfirmation(PSConfirmationSpecifier *specifier, NSDictionary *confirmation, const Texts &texts) {
  NSMutableDictionary *localized = [NSMutableDictionary dictionary];
  for (NSString *key in confirmation) {
    id text = [confirmation objectForKey:key];
    if ([text isKindOfClass:[NSString class]]) [localized setObject:texts.localized(text) forKey:key];
  }
  [specifier setProperty:localized forKey:PSConfirmationKey];
  [specifier setupWithDictionary:localized];
}

void setUpSelectors(PSSpecifier *specifier) {
  specifier->getter = selectorNamed([specifier propertyForKey:PSGetterKey]);
  specifier->setter = selectorNamed([specifier propertyForKey:PSSetterKey]);
  const bool isGroup = [specifier cellType] == PSGroupCell;
  if (!specifier->getter && !isGroup) specifier->getter = @selector(readPreferenceValue:);
  if (!specifier->setter && !isGroup) specifier->setter = @selector(setPreferenceValue:specifier:);
  specifier->action = selectorNamed([specifier propertyForKey:PSActionKey]);
  specifier->cancel = selectorNamed([specifier propertyForKey:PSConfirmationCancelActionKey]);
  [specifier setButtonAction:selectorNamed([specifier propertyForKey:PSButtonActionKey])];
  [specifier setControllerLoadAction:selectorNamed([specifier propertyForKey:PSControllerLoadActionKey])];
  [specifier setConfirmationAction:selectorNamed([specifier propertyForKey:PSConfirmationActionKey])];
  [specifier setConfirmationCancelAction:specifier->cancel];
}

/// The class named under `key`; Nil with a log line when the name is unknown or the class is of another kind.
Class classNamed(PSSpecifier *specifier, NSString *key, Class base) {
  id name = [specifier propertyForKey:key];
  if (!name) return Nil;
  Class found = [name isKindOfClass:[NSString class]] ? NSClassFromString(name) : Nil;
  if ([found isSubclassOfClass:base]) return found;
  logPreferences(@"%@: \"%@\" names no class that is a %@: %@.", [specifier sim_label], key, NSStringFromClass(base),
                 name);
  return Nil;
}

void setUpClasses(PSSpecifier *specifier) {
  // The page of another bundle is known once that bundle is loaded.
  if (![specifier propertyForKey:PSLazilyLoadedBundleKey]) {
    [specifier setDetailControllerClass:classNamed(specifier, PSDetailControllerClassKey, [UIViewController class])];
  }
  [specifier setEditPaneClass:classNamed(specifier, PSEditPaneClassKey, [UIView class])];
  Class cellClass = classNamed(specifier, PSCellClassKey, [UITableViewCell class]);
  [specifier removePropertyForKey:PSCellClassKey];
  [specifier setProperty:cellClass forKey:PSCellClassKey];
}

void setUpKeyboard(PSSpecifier *specifier) {
  NSString *keyboard = [specifier sim_stringForKey:PSKeyboardTypeKey];
  if ([keyboard isEqualToString:@"numbers"] || [specifier sim_flagForKey:PSNumberKeyboardKey fallback:NO]) {
    specifier->keyboardType = UIKeyboardTypeNumberPad;
  } else if ([keyboard isEqualToString:@"phone"]) {
    specifier->keyboardType = UIKeyboardTypePhonePad;
  } else if ([specifier sim_flagForKey:PSDecimalKeyboardKey fallback:NO]) {
    specifier->keyboardType = UIKeyboardTypeDecimalPad;
  } else if ([specifier sim_flagForKey:PSIPKeyboardKey fallback:NO]) {
    specifier->keyboardType = UIKeyboardTypeNumbersAndPunctuation;
  } else if ([specifier sim_flagForKey:PSURLKeyboardKey fallback:NO]) {
    specifier->keyboardType = UIKeyboardTypeURL;
  } else if ([specifier sim_flagForKey:PSEmailAddressKeyboardKey fallback:NO] ||
             [specifier sim_flagForKey:@"isEmailAddressing" fallback:NO]) {
    specifier->keyboardType = UIKeyboardTypeEmailAddress;
  }

  NSString *capitals = [specifier sim_stringForKey:PSAutoCapsKey];
  if ([capitals isEqualToString:@"sentences"]) {
    specifier->autoCapsType = UITextAutocapitalizationTypeSentences;
  } else if ([capitals isEqualToString:@"words"]) {
    specifier->autoCapsType = UITextAutocapitalizationTypeWords;
  } else if ([capitals isEqualToString:@"all"]) {
    specifier->autoCapsType = UITextAutocapitalizationTypeAllCharacters;
  }

  const BOOL corrects = [specifier sim_flagForKey:PSAutoCorrectionKey fallback:YES] &&
                        ![specifier sim_flagForKey:@"noAutoCorrect" fallback:NO];
  specifier->autoCorrectionType = corrects ? UITextAutocorrectionTypeDefault : UITextAutocorrectionTypeNo;
}

void setUpValues(PSSpecifier *specifier) {
  if ([specifier propertyForKey:PSValuesDataSourceKey]) {
    [specifier sim_loadValuesAndTitles];
    return;
  }
  NSArray *values = [specifier propertyForKey:PSValidValuesKey];
  NSArray *titles = [specifier propertyForKey:PSValidTitlesKey];
  if (!values) values = titles;
  if (values) [specifier setValues:values titles:titles shortTitles:[specifier propertyForKey:PSShortTitlesKey]];
}

/// Replaces names of image files by images.
void setUpImages(PSSpecifier *specifier, NSBundle *bundle) {
  NSString *icon = [specifier sim_stringForKey:PSBundleIconPathKey];
  if (icon) [specifier setProperty:bundleImage(icon, bundle) forKey:PSIconImageKey];
  for (NSString *key in @[ PSSliderLeftImageKey, PSSliderRightImageKey ]) {
    NSString *name = [specifier sim_stringForKey:key];
    if (!name) continue;
    [specifier removePropertyForKey:key];
    [specifier setProperty:bundleImage(name, bundle) forKey:key];
  }
}

/// Makes the row open a bundle when it is tapped. NO with a log line when it cannot.
bool setUpBundle(PSSpecifier *specifier, NSDictionary *item) {
  if (!stringIn(item, PSBundlePathKey) && !stringIn(item, @"bundlePath")) return true;
  if (![specifier sim_flagForKey:PSBundleIsControllerKey fallback:NO]) {
    logPreferences(@"%@: a bundle whose rows are to stand on this page is not supported.", [specifier sim_label]);
    return false;
  }
  NSString *path = preferenceBundlePath(item);
  if (!path) {
    logPreferences(@"%@: there is no bundle \"%@\".", [specifier sim_label], [item objectForKey:PSBundlePathKey]);
    return false;
  }
  [specifier setProperty:path forKey:PSLazilyLoadedBundleKey];
  specifier->action = @selector(lazyLoadBundle:);
  return true;
}

}  // namespace

NSDictionary *specifierPropertyList(NSString *name, NSBundle *bundle) {
  NSString *path = [bundle pathForResource:name ofType:@"plist"];
  if (!path) {
    logPreferences(@"%@ holds no specifier list %@.plist.", [[bundle bundlePath] lastPathComponent], name);
    return nil;
  }
  NSDictionary *list = [NSDictionary dictionaryWithContentsOfFile:path];
  if (!list) logPreferences(@"The specifier list %@.plist is no dictionary or cannot be read.", name);
  return list;
}

NSMutableArray *specifiersOfPropertyList(NSDictionary *list, NSString *table, NSBundle *bundle, id target) {
  NSMutableArray *specifiers = [NSMutableArray array];
  id items = [list objectForKey:@"items"];
  if (items && ![items isKindOfClass:[NSArray class]]) {
    logPreferences(@"The specifier list %@: \"items\" is no array.", table);
    return specifiers;
  }
  id attributes = [list objectForKey:@"specifierAttributes"];
  for (id item in (NSArray *)items) {
    const bool shared = [item isKindOfClass:[NSDictionary class]] && [attributes isKindOfClass:[NSDictionary class]];
    PSSpecifier *specifier =
        specifierOfItem(shared ? itemWithAttributes(item, attributes) : item, table, bundle, target);
    if (specifier) [specifiers addObject:specifier];
  }
  assignIdentifiers(specifiers);
  return specifiers;
}

PSSpecifier *specifierOfItem(id item, NSString *table, NSBundle *bundle, id target) {
  NSString *fault = faultOfItem(item);
  if (fault) {
    logFaultOfItem(fault, item);
    return nil;
  }

  id confirmation = [item objectForKey:PSConfirmationKey];
  const bool confirms = [confirmation isKindOfClass:[NSDictionary class]];
  Class specifierClass = confirms ? [PSConfirmationSpecifier class] : [PSSpecifier class];
  PSSpecifier *specifier = [specifierClass preferenceSpecifierNamed:nil
                                                             target:target
                                                                set:NULL
                                                                get:NULL
                                                             detail:Nil
                                                               cell:typeOfItem(item)
                                                               edit:Nil];
  [[specifier properties] addEntriesFromDictionary:item];
  // By the untranslated label, so that code finds the row in every language.
  if (![specifier identifier]) [specifier setIdentifier:stringIn(item, PSTitleKey) ?: stringIn(item, PSKeyNameKey)];

  const Texts texts{bundle, stringIn(item, @"strings") ?: table};
  localize(specifier, texts);
  if (confirms) setUpConfirmation((PSConfirmationSpecifier *)specifier, confirmation, texts);
  [specifier setName:[specifier sim_stringForKey:PSTitleKey]];
  setUpSelectors(specifier);
  if (!setUpBundle(specifier, item)) return nil;
  setUpClasses(specifier);
  setUpKeyboard(specifier);
  setUpValues(specifier);
  setUpImages(specifier, bundle);
  if ([item objectForKey:@"requiredCapabilities"] || [item objectForKey:@"requiredCapabilitiesOr"]) {
    logPreferences(@"%@: required capabilities are not judged here; the row is shown.", [specifier sim_label]);
  }
  return specifier;
}

void assignIdentifiers(NSArray *specifiers) {
  NSMutableSet *taken = [NSMutableSet setWithCapacity:[specifiers count]];
  NSMutableDictionary *nextSuffix = [NSMutableDictionary dictionary];
  for (PSSpecifier *specifier in specifiers) {
    NSString *identifier = [specifier identifier] ?: [specifier sim_stringForKey:PSKeyNameKey] ?: [specifier name];
    if (!identifier) continue;
    NSString *unique = identifier;
    NSInteger suffix = [[nextSuffix objectForKey:identifier] integerValue];
    while ([taken containsObject:unique]) unique = [identifier stringByAppendingFormat:@".%ld", (long)suffix++];
    [nextSuffix setObject:@(suffix) forKey:identifier];
    [taken addObject:unique];
    if (![unique isEqualToString:[specifier identifier]]) [specifier setIdentifier:unique];
  }
}

id bundleImage(NSString *name, NSBundle *bundle) {
  UIImage *image = [UIImage imageNamed:name inBundle:bundle compatibleWithTraitCollection:nil];
  if (!image) logPreferences(@"%@ holds no image \"%@\".", [[bundle bundlePath] lastPathComponent], name);
  return image;
}

NSString *preferenceBundlePath(NSDictionary *item) {
  NSMutableArray *candidates = [NSMutableArray array];
  NSString *path = stringIn(item, @"bundlePath");
  NSString *name = stringIn(item, PSBundlePathKey);
  if (path) [candidates addObject:path];
  if (name) {
    NSString *folder = [name stringByAppendingPathExtension:@"bundle"];
    for (NSString *parent in @[ @"/var/jb/Library/PreferenceBundles", @"/System/Library/PreferenceBundles" ]) {
      [candidates addObject:[parent stringByAppendingPathComponent:folder]];
    }
  }
  for (NSString *candidate in candidates) {
    NSString *found = SIMDevicePath(candidate);
    BOOL isFolder = NO;
    if ([[NSFileManager defaultManager] fileExistsAtPath:found isDirectory:&isFolder] && isFolder) return found;
  }
  return nil;
}

}  // namespace sim
