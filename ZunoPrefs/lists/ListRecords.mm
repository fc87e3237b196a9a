#import "lists/ListRecords.h"

namespace zuno {
namespace {

/// The record's identifier, nil when it has none or one that is no string.
NSString *identifierOf(id<ZunoListRecord> record) {
  NSString *identifier = [record bundleIdentifier];
  return [identifier isKindOfClass:[NSString class]] ? identifier : nil;
}

}  // namespace

NSMutableArray *recordsNamed(id stored, NSArray *records, NSUInteger limit) {
  NSMutableArray *found = [NSMutableArray array];
  if (![stored isKindOfClass:[NSArray class]]) return found;

  NSMutableDictionary *byIdentifier = [NSMutableDictionary dictionaryWithCapacity:[records count]];
  for (id<ZunoListRecord> record in records) {
    NSString *identifier = identifierOf(record);
    if (!identifier) continue;
    NSMutableArray *sharing = [byIdentifier objectForKey:identifier];
    if (sharing) {
      [sharing addObject:record];
    } else {
      [byIdentifier setObject:[NSMutableArray arrayWithObject:record] forKey:identifier];
    }
  }
  for (id identifier in (NSArray *)stored) {
    if (![identifier isKindOfClass:[NSString class]]) continue;
    for (id<ZunoListRecord> record in [byIdentifier objectForKey:identifier]) {
      if ([found count] >= limit) return found;
      [found addObject:record];
    }
  }
  return found;
}

NSMutableArray *recordsNotIn(NSArray *enabled, NSArray *records) {
  NSMutableSet *listed = [NSMutableSet setWithArray:identifiersOf(enabled)];
  NSMutableArray *others = [NSMutableArray array];
  for (id<ZunoListRecord> record in records) {
    NSString *identifier = identifierOf(record);
    if (identifier && [listed containsObject:identifier]) continue;
    if (identifier) [listed addObject:identifier];
    [others addObject:record];
  }
  return others;
}

NSArray *identifiersOf(NSArray *records) {
  NSMutableArray *identifiers = [NSMutableArray arrayWithCapacity:[records count]];
  for (id<ZunoListRecord> record in records) {
    if (NSString *identifier = identifierOf(record)) [identifiers addObject:identifier];
  }
  return identifiers;
}

}  // namespace zuno
