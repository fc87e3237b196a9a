// On a device every folder is a bundle of its own. GNUstep takes two folders whose Info lists have the same identifier
// for one bundle and hands out whichever it met first. And the log says why code does not load, which GNUstep tells
// standard error, and nothing of how the frameworks are built.
#import <Foundation/Foundation.h>
#import <Foundation/NSBundle+Sim.h>

#include <dlfcn.h>
#import <objc/runtime.h>

#import "objc/ReplaceMethod.h"

#include <string_view>

namespace {

using InitWithPath = id (*)(id, SEL, NSString *);
using BundleIdentifier = NSString *(*)(id, SEL);
using Load = BOOL (*)(id, SEL);
using PathForResource = NSString *(*)(id, SEL, NSString *, NSString *, NSString *);
using StringsFile = id (*)(id, SEL);
using LocalizedString = NSString *(*)(id, SEL, NSString *, NSString *, NSString *);
using BundleForClass = NSBundle *(*)(id, SEL, Class);

InitWithPath originalInitWithPath = nullptr;
BundleIdentifier originalBundleIdentifier = nullptr;
Load originalLoad = nullptr;
BundleForClass originalBundleForClass = nullptr;
PathForResource originalPathForResource = nullptr;
StringsFile originalStringsFile = nullptr;
LocalizedString originalLocalizedString = nullptr;
const char kTexts = 0;
thread_local bool isInitialising = false;

id initWithPath(id self, SEL selector, NSString *path) {
  const bool nested = isInitialising;
  isInitialising = true;
  id bundle = originalInitWithPath(self, selector, path);
  isInitialising = nested;
  return bundle;
}

/// A bundle that is being made has no identifier by which another could be taken for it.
NSString *bundleIdentifier(id self, SEL selector) {
  return isInitialising ? nil : originalBundleIdentifier(self, selector);
}

/// What stands before the name of a class that code needs, in the symbol by which it needs it.
constexpr char kClassSymbol[] = "undefined symbol: __objc_class_name_";

/// Why the code of the bundle does not load.
NSString *loadProblem(NSBundle *bundle) {
  NSString *path = [bundle executablePath];
  if (!path) return @"its Info list names no CFBundleExecutable";
  // The loader's words at the first attempt went to standard error. Code that loads now stays: its classes are known.
  if (dlopen([path fileSystemRepresentation], RTLD_LAZY)) return @"the reason is not known";
  NSString *problem = [NSString stringWithUTF8String:dlerror()];
  const NSRange symbol = [problem rangeOfString:[NSString stringWithUTF8String:kClassSymbol]];
  if (symbol.length == 0) return problem;
  return [NSString stringWithFormat:@"there is no class %@", [problem substringFromIndex:NSMaxRange(symbol)]];
}

/// Why bundles are not to be loaded, by their paths.
NSMutableDictionary *refusedBundles() {
  static NSMutableDictionary *refused = [[NSMutableDictionary alloc] init];
  return refused;
}

BOOL load(id self, SEL selector) {
  NSString *refusal = [refusedBundles() objectForKey:[self bundlePath]];
  if (!refusal && originalLoad(self, selector)) return YES;
  NSLog(@"[Foundation] The code of %@ was not loaded: %@", [self bundlePath], refusal ?: loadProblem(self));
  return NO;
}

/// The folder of the file that holds the code or data at `address`; empty when there is none.
std::string_view folderOf(const void *address) {
  Dl_info found{};
  if (!address || dladdr(address, &found) == 0 || !found.dli_fname) return {};
  const std::string_view file = found.dli_fname;
  return file.substr(0, file.rfind('/') + 1);
}

/// The frameworks lie beside this one and count as the program's. GNUstep comes to the same, but newer ones look for a
/// version in the names of their libraries and tell the log that there is none.
NSBundle *bundleForClass(id self, SEL selector, Class kind) {
  const auto folder = folderOf(kind);
  if (!folder.empty() && folder == folderOf(kClassSymbol)) return [NSBundle mainBundle];
  return originalBundleForClass(self, selector, kind);
}

/// A resource may be named with the folders that it lies in, which GNUstep takes for a part of its name.
NSString *pathForResource(id self, SEL selector, NSString *name, NSString *type, NSString *folder) {
  NSString *inner = [name isAbsolutePath] ? @"" : [name stringByDeletingLastPathComponent];
  if ([inner length] == 0) return originalPathForResource(self, selector, name, type, folder);
  if ([[inner pathComponents] containsObject:@".."]) return nil;
  NSString *whole = [folder length] > 0 ? [folder stringByAppendingPathComponent:inner] : inner;
  return originalPathForResource(self, selector, [name lastPathComponent], type, whole);
}

/// Texts may stand in braces, as every property list does. What is none is left to GNUstep, which says so.
id stringsFile(id self, SEL selector) {
  NSData *data = [self dataUsingEncoding:NSUTF8StringEncoding];
  id list = [NSPropertyListSerialization propertyListWithData:data options:0 format:NULL error:NULL];
  return [list isKindOfClass:[NSDictionary class]] ? list : originalStringsFile(self, selector);
}

/// The texts of that table in the bundle, read once; nil where no file has any.
NSDictionary *textsOf(NSBundle *bundle, NSString *table) {
  @synchronized(bundle) {
    NSMutableDictionary *tables = objc_getAssociatedObject(bundle, &kTexts);
    if (!tables) {
      tables = [NSMutableDictionary dictionary];
      objc_setAssociatedObject(bundle, &kTexts, tables, OBJC_ASSOCIATION_RETAIN);
    }
    id known = [tables objectForKey:table];
    if (!known) {
      NSString *path = [bundle pathForResource:table ofType:@"strings"];
      NSData *data = path ? [NSData dataWithContentsOfFile:path] : nil;
      id list = data ? [NSPropertyListSerialization propertyListWithData:data options:0 format:NULL error:NULL] : nil;
      known = [list isKindOfClass:[NSDictionary class]] ? list : [NSNull null];
      [tables setObject:known forKey:table];
    }
    return [[(known == [NSNull null] ? nil : known) retain] autorelease];
  }
}

/// GNUstep takes UTF-8 without a mark before it for a fault of the file, and tells the log so.
NSString *localizedString(id self, SEL selector, NSString *key, NSString *value, NSString *table) {
  NSDictionary *texts = textsOf(self, [table length] > 0 ? table : @"Localizable");
  if (!texts) return originalLocalizedString(self, selector, key, value, table);
  NSString *text = key ? [texts objectForKey:key] : nil;
  if ([text isKindOfClass:[NSString class]]) return text;
  return [value length] > 0 ? value : key ?: @"";
}

template <typename Implementation>
Implementation replace(SEL selector, Implementation implementation, bool isOfClass = false,
                       const char *kind = "NSBundle") {
  // Without a message to the class: that would start Foundation before its defaults are set.
  id found = objc_getClass(kind);
  return sim::replaceMethod(isOfClass ? object_getClass(found) : (Class)found, selector, implementation);
}

}  // namespace

#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

@implementation NSBundle (Device)

+ (void)load {
  originalBundleIdentifier = replace(@selector(bundleIdentifier), bundleIdentifier);
  originalLoad = replace(@selector(load), load);
  originalInitWithPath = replace(@selector(initWithPath:), initWithPath);
  originalPathForResource = replace(@selector(pathForResource:ofType:inDirectory:), pathForResource);
  originalLocalizedString = replace(@selector(localizedStringForKey:value:table:), localizedString);
  originalStringsFile = replace(@selector(propertyListFromStringsFileFormat), stringsFile, false, "NSString");
  originalBundleForClass = replace(@selector(bundleForClass:), bundleForClass, true);
}

+ (void)sim_refuseBundleAtPath:(NSString *)path because:(NSString *)reason {
  [refusedBundles() setObject:reason forKey:path];
}

- (NSURL *)URLForResource:(NSString *)name withExtension:(NSString *)extension {
  NSString *path = [self pathForResource:name ofType:extension inDirectory:nil];
  return path ? [NSURL fileURLWithPath:path] : nil;
}

+ (NSBundle *)bundleWithIdentifier:(NSString *)identifier {
  for (NSArray *bundles in @[ [NSBundle allBundles], [NSBundle allFrameworks] ]) {
    for (NSBundle *bundle in bundles) {
      if ([[bundle bundleIdentifier] isEqualToString:identifier]) return bundle;
    }
  }
  return nil;
}

@end

#pragma clang diagnostic pop
