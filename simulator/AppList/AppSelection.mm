#import "AppList/AppSelection.h"

#import <Preferences/PropertyListFile.h>

namespace sim {
namespace {

NSString *const kFolder = @"/var/jb/var/mobile/Library/Preferences";

/// Takes out the first chosen application that is not installed. NO when all are.
bool makeRoom(NSMutableArray *chosen, NSSet *installed) {
  for (NSUInteger index = 0; index < [chosen count]; ++index) {
    id element = [chosen objectAtIndex:index];
    if (![element isKindOfClass:[NSString class]] || [installed containsObject:element]) continue;
    [chosen removeObjectAtIndex:index];
    return true;
  }
  return false;
}

NSInteger countOfStrings(NSArray *array) {
  NSInteger count = 0;
  for (id element in array) count += [element isKindOfClass:[NSString class]] ? 1 : 0;
  return count;
}

}  // namespace

AppSelection::AppSelection(NSString *identifier, NSString *key)
    : file_(objcxx::share(preferenceFile(kFolder, identifier))), key_(objcxx::adopt((NSString *)[key copy])) {}

NSArray *AppSelection::stored() const {
  id value = file_ && key_ ? valueInFile(key_.get(), file_.get()) : nil;
  if ([value isKindOfClass:[NSArray class]]) return value;
  return [value isKindOfClass:[NSString class]] ? @[ value ] : @[];
}

bool AppSelection::toggle(NSString *application, NSInteger limit, NSSet *installed) const {
  if (!file_ || !key_) return false;
  NSMutableArray *chosen = [NSMutableArray arrayWithArray:stored()];
  if ([chosen containsObject:application]) {
    [chosen removeObject:application];
  } else if (limit == 1) {
    [chosen setArray:@[ application ]];
  } else {
    while (limit > 0 && countOfStrings(chosen) >= limit) {
      if (!makeRoom(chosen, installed)) return false;
    }
    [chosen addObject:application];
  }
  return storeInFile(chosen, key_.get(), file_.get());
}

}  // namespace sim
