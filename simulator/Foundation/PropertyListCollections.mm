// The property-list files of NSDictionary and NSArray. GNUstep's own write a text format, lose emoji and store what a
// device refuses; these behave as on a device.
#import "Foundation/FileAccess.h"
#import "Foundation/PropertyListCoding.h"

namespace {

/// The path of a file URL; nil, with an error, for any other.
NSString *filePath(NSURL *url, NSError **error) {
  if ([url isFileURL]) return [url path];
  const NSInteger code = NSFileReadUnsupportedSchemeError;
  sim::report(error, sim::cocoaError(code, "The URL names no file"));
  return nil;
}

/// The property list of a file URL, autoreleased; nil with an error unless it is of the class `type`.
id propertyListAtURL(NSURL *url, Class type, NSError **error) {
  NSString *path = filePath(url, error);
  return path ? sim::propertyListInFile(path, type, error) : nil;
}

BOOL writeToURL(id root, NSURL *url, BOOL atomically, NSError **error) {
  NSString *path = filePath(url, error);
  return path && sim::writePropertyListToFile(root, path, atomically, error);
}

}  // namespace

// Replacing the methods of the classes is what this file is for.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

@implementation NSDictionary (PropertyListFiles)

- (id)initWithContentsOfFile:(NSString *)path {
  if (NSDictionary *content = sim::propertyListInFile(path, [NSDictionary class], nullptr)) {
    return [self initWithDictionary:content];
  }
  [self release];
  return nil;
}

- (id)initWithContentsOfURL:(NSURL *)url {
  return [self initWithContentsOfURL:url error:nullptr];
}

- (id)initWithContentsOfURL:(NSURL *)url error:(NSError **)error {
  if (NSDictionary *content = propertyListAtURL(url, [NSDictionary class], error)) {
    return [self initWithDictionary:content];
  }
  [self release];
  return nil;
}

+ (id)dictionaryWithContentsOfFile:(NSString *)path {
  return [[[self alloc] initWithContentsOfFile:path] autorelease];
}

+ (id)dictionaryWithContentsOfURL:(NSURL *)url {
  return [self dictionaryWithContentsOfURL:url error:nullptr];
}

+ (id)dictionaryWithContentsOfURL:(NSURL *)url error:(NSError **)error {
  return [[[self alloc] initWithContentsOfURL:url error:error] autorelease];
}

- (BOOL)writeToFile:(NSString *)path atomically:(BOOL)atomically {
  return sim::writePropertyListToFile(self, path, atomically, nullptr);
}

- (BOOL)writeToURL:(NSURL *)url atomically:(BOOL)atomically {
  return writeToURL(self, url, atomically, nullptr);
}

- (BOOL)writeToURL:(NSURL *)url error:(NSError **)error {
  return writeToURL(self, url, YES, error);
}

@end

@implementation NSArray (PropertyListFiles)

- (id)initWithContentsOfFile:(NSString *)path {
  if (NSArray *content = sim::propertyListInFile(path, [NSArray class], nullptr)) {
    return [self initWithArray:content];
  }
  [self release];
  return nil;
}

- (id)initWithContentsOfURL:(NSURL *)url {
  return [self initWithContentsOfURL:url error:nullptr];
}

- (id)initWithContentsOfURL:(NSURL *)url error:(NSError **)error {
  if (NSArray *content = propertyListAtURL(url, [NSArray class], error)) return [self initWithArray:content];
  [self release];
  return nil;
}

+ (id)arrayWithContentsOfFile:(NSString *)path {
  return [[[self alloc] initWithContentsOfFile:path] autorelease];
}

+ (id)arrayWithContentsOfURL:(NSURL *)url {
  return [self arrayWithContentsOfURL:url error:nullptr];
}

+ (id)arrayWithContentsOfURL:(NSURL *)url error:(NSError **)error {
  return [[[self alloc] initWithContentsOfURL:url error:error] autorelease];
}

- (BOOL)writeToFile:(NSString *)path atomically:(BOOL)atomically {
  return sim::writePropertyListToFile(self, path, atomically, nullptr);
}

- (BOOL)writeToURL:(NSURL *)url atomically:(BOOL)atomically {
  return writeToURL(self, url, atomically, nullptr);
}

- (BOOL)writeToURL:(NSURL *)url error:(NSError **)error {
  return writeToURL(self, url, YES, error);
}

@end
