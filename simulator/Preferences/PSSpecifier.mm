#import <Preferences/PSSpecifier+Sim.h>

#import <Foundation/Guarded.h>
#import <Foundation/NotCarried.h>
#import <Preferences/Living.hpp>
#import <Preferences/PreferencesLog.h>

namespace {

NSDictionary *titlesByValue(NSArray *values, NSArray *titles) {
  if (!titles) return nil;
  if ([values count] != [titles count]) {
    [NSException raise:NSInvalidArgumentException
                format:@"%lu values but %lu titles", (unsigned long)[values count], (unsigned long)[titles count]];
  }
  return [NSDictionary dictionaryWithObjects:titles forKeys:values];
}

}  // namespace

@implementation PSSpecifier
@synthesize name = _name;
@synthesize target;
@synthesize cellType;
@synthesize detailControllerClass;
@synthesize properties = _properties;
@synthesize values = _values;
@synthesize titleDictionary = _titleDict;
@synthesize shortTitleDictionary = _shortTitleDict;
@synthesize userInfo = _userInfo;
@synthesize buttonAction = _buttonAction;
@synthesize confirmationAction = _confirmationAction;
@synthesize confirmationCancelAction = _confirmationCancelAction;
@synthesize controllerLoadAction = _controllerLoadAction;

- (Class)editPaneClass {
  return editPaneClass;
}

- (void)setEditPaneClass:(Class)paneClass {
  if (paneClass) sim::notCarried(@"PSSpecifier.editPaneClass", @"No row opens a pane.");
  editPaneClass = paneClass;
}

+ (instancetype)preferenceSpecifierNamed:(NSString *)name
                                  target:(id)target
                                     set:(SEL)set
                                     get:(SEL)get
                                  detail:(Class)detail
                                    cell:(PSCellType)cell
                                    edit:(Class)edit {
  PSSpecifier *specifier = [[[self alloc] init] autorelease];
  [specifier setName:name];
  specifier->target = target;
  specifier->setter = set;
  specifier->getter = get;
  specifier->detailControllerClass = detail;
  specifier->cellType = cell;
  if (edit) [specifier setEditPaneClass:edit];
  return specifier;
}

+ (instancetype)groupSpecifierWithID:(NSString *)identifier name:(NSString *)name {
  PSSpecifier *group = [self preferenceSpecifierNamed:name
                                               target:nil
                                                  set:NULL
                                                  get:NULL
                                               detail:Nil
                                                 cell:PSGroupCell
                                                 edit:Nil];
  if (identifier) [group setIdentifier:identifier];
  return group;
}

+ (instancetype)emptyGroupSpecifier {
  return [self groupSpecifierWithID:nil name:nil];
}

+ (instancetype)groupSpecifierWithName:(NSString *)name {
  return [self groupSpecifierWithID:nil name:name];
}

+ (instancetype)groupSpecifierWithID:(NSString *)identifier {
  return [self groupSpecifierWithID:identifier name:nil];
}

+ (instancetype)groupSpecifierWithHeader:(NSString *)header footer:(NSString *)footer {
  PSSpecifier *group = [self groupSpecifierWithID:nil name:header];
  [group setProperty:footer forKey:PSFooterTextGroupKey];
  return group;
}

- (instancetype)init {
  if (!(self = [super init])) return nil;

  _properties = [[NSMutableDictionary alloc] init];
  sim::living<PSSpecifier>().insert(self);
  return self;
}

- (void)dealloc {
  sim::living<PSSpecifier>().erase(self);
  [_name release];
  [_values release];
  [_titleDict release];
  [_shortTitleDict release];
  [_userInfo release];
  [_properties release];
  [super dealloc];
}

- (NSString *)description {
  return [NSString stringWithFormat:@"<%@ %p: ID %@, Name '%@'>", [self class], self, [self identifier], _name];
}

- (NSString *)identifier {
  return [self sim_stringForKey:PSIDKey];
}

- (void)setIdentifier:(NSString *)identifier {
  if (identifier) {
    [_properties setObject:[[identifier copy] autorelease] forKey:PSIDKey];
  } else {
    [_properties removeObjectForKey:PSIDKey];
  }
}

- (void)setProperties:(NSDictionary *)properties {
  NSMutableDictionary *former = _properties;
  _properties = properties ? [properties mutableCopy] : [[NSMutableDictionary alloc] init];
  [former autorelease];
}

- (id)propertyForKey:(NSString *)key {
  return [_properties objectForKey:key];
}

- (void)setProperty:(id)property forKey:(NSString *)key {
  if (property) [_properties setObject:property forKey:key];
}

- (void)removePropertyForKey:(NSString *)key {
  [_properties removeObjectForKey:key];
}

- (void)setValues:(NSArray *)values titles:(NSArray *)titles {
  [self setValues:values titles:titles shortTitles:nil];
}

- (void)setValues:(NSArray *)values titles:(NSArray *)titles shortTitles:(NSArray *)shortTitles {
  NSDictionary *longOnes = titlesByValue(values, titles);
  NSDictionary *shortOnes = titlesByValue(values, shortTitles);
  [self setValues:values];
  [self setTitleDictionary:longOnes];
  [self setShortTitleDictionary:shortOnes];
}

- (NSArray *)sim_arrayFromDataSource:(NSString *)key {
  SEL selector = sim::selectorNamed([self propertyForKey:key]);
  if (!selector) return nil;
  if (![target respondsToSelector:selector]) {
    sim::logPreferences(@"%@: %@ does not answer %@, named by \"%@\".", [self sim_label], [target class],
                        NSStringFromSelector(selector), key);
    return nil;
  }
  id array = [target performSelector:selector withObject:self];
  return [array isKindOfClass:[NSArray class]] ? array : nil;
}

- (void)loadValuesAndTitlesFromDataSource {
  NSArray *values = [self sim_arrayFromDataSource:PSValuesDataSourceKey];
  if (!values) return;
  [self setValues:values
           titles:[self sim_arrayFromDataSource:PSTitlesDataSourceKey] ?: values
      shortTitles:[self sim_arrayFromDataSource:PSShortTitlesDataSourceKey]];
}

- (BOOL)hasValidGetter {
  return getter && [target respondsToSelector:getter];
}

- (BOOL)hasValidSetter {
  return setter && [target respondsToSelector:setter];
}

- (id)performGetter {
  return [self hasValidGetter] ? [target performSelector:getter withObject:self] : nil;
}

- (void)performSetterWithValue:(id)value {
  if ([self hasValidSetter]) [target performSelector:setter withObject:value withObject:self];
}

#pragma mark - Sim

// Targets are not owned, and makers write the instance variable directly.
+ (void)sim_forgetTarget:(id)target {
  for (PSSpecifier *specifier : sim::living<PSSpecifier>()) {
    if (specifier->target == target) specifier->target = nil;
  }
}

- (id)sim_value {
  id value = nil;
  NSString *doing = [NSString stringWithFormat:@"asking the getter of %@", [self sim_label]];
  sim::guarded(doing, [&] { value = [self performGetter]; });
  return value;
}

- (void)sim_loadValuesAndTitles {
  NSString *doing = [NSString stringWithFormat:@"asking the data source of %@", [self sim_label]];
  sim::guarded(doing, [&] { [self loadValuesAndTitlesFromDataSource]; });
}

- (id)sim_valueOfClass:(Class)first orClass:(Class)second {
  id value = [self sim_value];
  if (!value || [value isKindOfClass:first] || (second && [value isKindOfClass:second])) return value;
  [self sim_reportValue:value];
  return nil;
}

- (void)sim_reportValue:(id)value {
  if ([self sim_isFirst:SIMSpecifierFaultValue]) {
    sim::logPreferences(@"%@: a value of class %@ is not what a %@ shows.", [self sim_label], [value class],
                        [self propertyForKey:PSTableCellClassKey] ?: @"cell of this type");
  }
}

- (BOOL)sim_isFirst:(SIMSpecifierFault)fault {
  const BOOL first = (_reported & fault) == 0;
  _reported |= fault;
  return first;
}

- (NSString *)sim_stringForKey:(NSString *)key {
  id value = [_properties objectForKey:key];
  return [value isKindOfClass:[NSString class]] ? value : nil;
}

- (BOOL)sim_flagForKey:(NSString *)key fallback:(BOOL)fallback {
  id value = [_properties objectForKey:key];
  const BOOL isFlag = [value isKindOfClass:[NSNumber class]] || [value isKindOfClass:[NSString class]];
  return isFlag ? [value boolValue] : fallback;
}

- (BOOL)sim_isEnabled {
  id value = [_properties objectForKey:PSEnabledKey];
  if (value && ![value respondsToSelector:@selector(boolValue)] && [self sim_isFirst:SIMSpecifierFaultEnabled]) {
    sim::logPreferences(@"%@: \"%@\" is no BOOL; the row is enabled.", [self sim_label], PSEnabledKey);
  }
  return [self sim_flagForKey:PSEnabledKey fallback:YES];
}

- (NSString *)sim_label {
  NSString *label = [self identifier] ?: [self name] ?: [self sim_stringForKey:PSKeyNameKey] ?: @"";
  return [NSString stringWithFormat:@"\"%@\"", label];
}
@end

namespace sim {

bool performAction(id target, SEL action, PSSpecifier *specifier) {
  if (!target || ![target respondsToSelector:action]) {
    logPreferences(@"%@: %@ does not answer the action %@.", [specifier sim_label],
                   target ? NSStringFromClass([target class]) : @"no target", NSStringFromSelector(action));
    return false;
  }
  [target performSelector:action withObject:specifier];
  return true;
}

SEL selectorNamed(id name) {
  const bool usable = [name isKindOfClass:[NSString class]] && [(NSString *)name length] > 0;
  return usable ? NSSelectorFromString(name) : NULL;
}

}  // namespace sim
