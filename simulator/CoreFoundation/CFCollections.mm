// CFArray and CFDictionary.
#import <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>

#include <cstdio>
#include <cstdlib>

const CFArrayCallBacks kCFTypeArrayCallBacks{};
const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks{};
const CFDictionaryKeyCallBacks kCFCopyStringDictionaryKeyCallBacks{};
const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks{};

namespace {

/// Values that are no objects cannot be kept: what would come of them is told at once.
void expectObjects(bool areObjects, const char *function) {
  if (areObjects) return;
  std::fprintf(stderr, "%s: only call-backs of CoreFoundation's own types are carried by the simulator.\n", function);
  std::abort();
}

void expectObjects(const CFArrayCallBacks *callBacks, const char *function) {
  expectObjects(callBacks == &kCFTypeArrayCallBacks, function);
}

void expectObjects(const CFDictionaryKeyCallBacks *keys, const CFDictionaryValueCallBacks *values,
                   const char *function) {
  expectObjects((keys == &kCFTypeDictionaryKeyCallBacks || keys == &kCFCopyStringDictionaryKeyCallBacks) &&
                    values == &kCFTypeDictionaryValueCallBacks,
                function);
}

NSUInteger index(CFIndex index) { return static_cast<NSUInteger>(index); }

NSRange range(CFRange given) { return NSMakeRange(index(given.location), index(given.length)); }

CFIndex found(NSUInteger place) { return place == NSNotFound ? kCFNotFound : static_cast<CFIndex>(place); }

NSArray *of(CFArrayRef array) { return (NSArray *)array; }
NSMutableArray *of(CFMutableArrayRef array) { return (NSMutableArray *)array; }
NSDictionary *of(CFDictionaryRef dictionary) { return (NSDictionary *)dictionary; }
NSMutableDictionary *of(CFMutableDictionaryRef dictionary) { return (NSMutableDictionary *)dictionary; }

/// Foundation's, with what the comparison is told besides.
struct Comparison {
  CFComparatorFunction comparator;
  void *context;
};

NSComparisonResult compare(id one, id other, void *context) {
  const auto *how = static_cast<const Comparison *>(context);
  return static_cast<NSComparisonResult>(how->comparator((const void *)one, (const void *)other, how->context));
}

}  // namespace

CFArrayRef CFArrayCreate(CFAllocatorRef, const void **values, CFIndex count, const CFArrayCallBacks *callBacks) {
  expectObjects(callBacks, "CFArrayCreate");
  return (CFArrayRef)[[NSArray alloc] initWithObjects:reinterpret_cast<id *>(values) count:index(count)];
}

CFArrayRef CFArrayCreateCopy(CFAllocatorRef, CFArrayRef array) { return (CFArrayRef)[of(array) copy]; }

CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef, CFIndex, const CFArrayCallBacks *callBacks) {
  expectObjects(callBacks, "CFArrayCreateMutable");
  return (CFMutableArrayRef)[[NSMutableArray alloc] init];
}

CFMutableArrayRef CFArrayCreateMutableCopy(CFAllocatorRef, CFIndex, CFArrayRef array) {
  return (CFMutableArrayRef)[of(array) mutableCopy];
}

CFIndex CFArrayGetCount(CFArrayRef array) { return static_cast<CFIndex>([of(array) count]); }

const void *CFArrayGetValueAtIndex(CFArrayRef array, CFIndex place) {
  return (const void *)[of(array) objectAtIndex:index(place)];
}

void CFArrayGetValues(CFArrayRef array, CFRange given, const void **values) {
  [of(array) getObjects:reinterpret_cast<id *>(values) range:range(given)];
}

Boolean CFArrayContainsValue(CFArrayRef array, CFRange given, const void *value) {
  return [of(array) indexOfObject:(id)value inRange:range(given)] != NSNotFound;
}

CFIndex CFArrayGetFirstIndexOfValue(CFArrayRef array, CFRange given, const void *value) {
  return found([of(array) indexOfObject:(id)value inRange:range(given)]);
}

void CFArrayApplyFunction(CFArrayRef array, CFRange given, __attribute__((noescape)) CFArrayApplierFunction applier,
                          void *context) {
  for (id value in [of(array) subarrayWithRange:range(given)]) applier((const void *)value, context);
}

void CFArrayAppendValue(CFMutableArrayRef array, const void *value) { [of(array) addObject:(id)value]; }

void CFArrayInsertValueAtIndex(CFMutableArrayRef array, CFIndex place, const void *value) {
  [of(array) insertObject:(id)value atIndex:index(place)];
}

void CFArraySetValueAtIndex(CFMutableArrayRef array, CFIndex place, const void *value) {
  if (index(place) == [of(array) count]) return [of(array) addObject:(id)value];
  [of(array) replaceObjectAtIndex:index(place) withObject:(id)value];
}

void CFArrayRemoveValueAtIndex(CFMutableArrayRef array, CFIndex place) { [of(array) removeObjectAtIndex:index(place)]; }

void CFArrayRemoveAllValues(CFMutableArrayRef array) { [of(array) removeAllObjects]; }

void CFArrayAppendArray(CFMutableArrayRef array, CFArrayRef other, CFRange given) {
  [of(array) addObjectsFromArray:[of(other) subarrayWithRange:range(given)]];
}

void CFArraySortValues(CFMutableArrayRef array, CFRange given, CFComparatorFunction comparator, void *context) {
  Comparison how{comparator, context};
  NSArray *sorted = [[of(array) subarrayWithRange:range(given)] sortedArrayUsingFunction:compare context:&how];
  [of(array) replaceObjectsInRange:range(given) withObjectsFromArray:sorted];
}

CFDictionaryRef CFDictionaryCreate(CFAllocatorRef, const void **keys, const void **values, CFIndex count,
                                   const CFDictionaryKeyCallBacks *keyCallBacks,
                                   const CFDictionaryValueCallBacks *valueCallBacks) {
  expectObjects(keyCallBacks, valueCallBacks, "CFDictionaryCreate");
  return (CFDictionaryRef)[[NSDictionary alloc] initWithObjects:reinterpret_cast<id *>(values)
                                                        forKeys:reinterpret_cast<id *>(keys)
                                                          count:index(count)];
}

CFDictionaryRef CFDictionaryCreateCopy(CFAllocatorRef, CFDictionaryRef dictionary) {
  return (CFDictionaryRef)[of(dictionary) copy];
}

CFMutableDictionaryRef CFDictionaryCreateMutable(CFAllocatorRef, CFIndex, const CFDictionaryKeyCallBacks *keyCallBacks,
                                                 const CFDictionaryValueCallBacks *valueCallBacks) {
  expectObjects(keyCallBacks, valueCallBacks, "CFDictionaryCreateMutable");
  return (CFMutableDictionaryRef)[[NSMutableDictionary alloc] init];
}

CFMutableDictionaryRef CFDictionaryCreateMutableCopy(CFAllocatorRef, CFIndex, CFDictionaryRef dictionary) {
  return (CFMutableDictionaryRef)[of(dictionary) mutableCopy];
}

CFIndex CFDictionaryGetCount(CFDictionaryRef dictionary) { return static_cast<CFIndex>([of(dictionary) count]); }

Boolean CFDictionaryContainsKey(CFDictionaryRef dictionary, const void *key) {
  return CFDictionaryGetValue(dictionary, key) != nullptr;
}

Boolean CFDictionaryContainsValue(CFDictionaryRef dictionary, const void *value) {
  return [[of(dictionary) allValues] containsObject:(id)value];
}

const void *CFDictionaryGetValue(CFDictionaryRef dictionary, const void *key) {
  return (const void *)[of(dictionary) objectForKey:(id)key];
}

Boolean CFDictionaryGetValueIfPresent(CFDictionaryRef dictionary, const void *key, const void **value) {
  const void *present = CFDictionaryGetValue(dictionary, key);
  if (present && value) *value = present;
  return present != nullptr;
}

void CFDictionaryGetKeysAndValues(CFDictionaryRef dictionary, const void **keys, const void **values) {
  CFIndex place = 0;
  for (id key in of(dictionary)) {
    if (keys) keys[place] = (const void *)key;
    if (values) values[place] = (const void *)[of(dictionary) objectForKey:key];
    ++place;
  }
}

void CFDictionaryApplyFunction(CFDictionaryRef dictionary,
                               __attribute__((noescape)) CFDictionaryApplierFunction applier, void *context) {
  for (id key in of(dictionary)) applier((const void *)key, (const void *)[of(dictionary) objectForKey:key], context);
}

void CFDictionaryAddValue(CFMutableDictionaryRef dictionary, const void *key, const void *value) {
  if (!CFDictionaryContainsKey(dictionary, key)) CFDictionarySetValue(dictionary, key, value);
}

void CFDictionarySetValue(CFMutableDictionaryRef dictionary, const void *key, const void *value) {
  [of(dictionary) setObject:(id)value forKey:(id)key];
}

void CFDictionaryReplaceValue(CFMutableDictionaryRef dictionary, const void *key, const void *value) {
  if (CFDictionaryContainsKey(dictionary, key)) CFDictionarySetValue(dictionary, key, value);
}

void CFDictionaryRemoveValue(CFMutableDictionaryRef dictionary, const void *key) {
  [of(dictionary) removeObjectForKey:(id)key];
}

void CFDictionaryRemoveAllValues(CFMutableDictionaryRef dictionary) { [of(dictionary) removeAllObjects]; }
