#import <MobileCoreServices/MobileCoreServices.h>

#import <UIKit/UIKit.h>

#import "AppList/NorvikAppRecord+Sim.h"

@interface LSApplicationProxy (Sim)
- (instancetype)initWithIdentifier:(NSString *)identifier path:(NSString *)path;
@end

@implementation LSApplicationProxy
@synthesize applicationIdentifier = _applicationIdentifier;

+ (instancetype)applicationProxyForIdentifier:(NSString *)identifier {
  for (NorvikAppRecord *record in [NorvikAppRecord sim_installedApplications]) {
    if (![[record bundleIdentifier] isEqualToString:identifier]) continue;
    return [[[self alloc] initWithIdentifier:identifier path:[record sim_folder]] autorelease];
  }
  return [[[self alloc] initWithIdentifier:identifier path:nil] autorelease];
}

- (instancetype)initWithIdentifier:(NSString *)identifier path:(NSString *)path {
  if (!(self = [super init])) return nil;
  _applicationIdentifier = [identifier copy];
  _path = [path copy];
  _info = [[NSDictionary dictionaryWithContentsOfFile:[path stringByAppendingPathComponent:@"Info.plist"]] retain];
  return self;
}

- (void)dealloc {
  [_applicationIdentifier release];
  [_path release];
  [_info release];
  [super dealloc];
}

/// A text of the application's Info list; nil when there is none.
- (NSString *)sim_textForKey:(NSString *)key {
  id value = [_info objectForKey:key];
  return [value isKindOfClass:[NSString class]] ? value : nil;
}

- (NSString *)bundleIdentifier {
  return _applicationIdentifier;
}

- (NSString *)localizedName {
  if (!_path) return nil;
  return [self sim_textForKey:@"CFBundleDisplayName"]
             ?: [self sim_textForKey:@"CFBundleName"]
             ?: [[_path lastPathComponent] stringByDeletingPathExtension];
}

- (NSString *)localizedShortName {
  return [self sim_textForKey:@"CFBundleName"] ?: [self localizedName];
}

- (NSString *)itemName {
  return [self localizedName];
}

- (NSString *)shortVersionString {
  return [self sim_textForKey:@"CFBundleShortVersionString"];
}

- (NSString *)bundleVersion {
  return [self sim_textForKey:@"CFBundleVersion"];
}

- (NSString *)bundleExecutable {
  return [self sim_textForKey:@"CFBundleExecutable"];
}

- (NSString *)canonicalExecutablePath {
  NSString *name = [self bundleExecutable];
  return name ? [_path stringByAppendingPathComponent:name] : nil;
}

- (NSURL *)bundleURL {
  return _path ? [NSURL fileURLWithPath:_path isDirectory:YES] : nil;
}

- (NSString *)applicationType {
  if (!_path) return nil;
  NSString *parent = [[_path stringByDeletingLastPathComponent] lastPathComponent];
  return [parent isEqualToString:@"Applications"] ? @"System" : @"User";
}

- (BOOL)isInstalled {
  return _path != nil;
}

- (BOOL)isEqual:(id)other {
  return [other isKindOfClass:[LSApplicationProxy class]] &&
         [_applicationIdentifier isEqualToString:[other applicationIdentifier]];
}

- (NSUInteger)hash {
  return [_applicationIdentifier hash];
}

- (NSString *)description {
  return [NSString stringWithFormat:@"<%@ %p: %@>", [self class], self, _applicationIdentifier];
}

@end

@implementation LSApplicationWorkspace

+ (instancetype)defaultWorkspace {
  static LSApplicationWorkspace *workspace = [[LSApplicationWorkspace alloc] init];
  return workspace;
}

- (NSArray *)allApplications {
  NSMutableArray *proxies = [NSMutableArray array];
  for (NorvikAppRecord *record in [NorvikAppRecord sim_installedApplications]) {
    [proxies addObject:[[[LSApplicationProxy alloc] initWithIdentifier:[record bundleIdentifier]
                                                                  path:[record sim_folder]] autorelease]];
  }
  return proxies;
}

- (NSArray *)allInstalledApplications {
  return [self allApplications];
}

- (BOOL)applicationIsInstalled:(NSString *)identifier {
  return [[LSApplicationProxy applicationProxyForIdentifier:identifier] isInstalled];
}

- (BOOL)openApplicationWithBundleID:(NSString *)identifier {
  if (![self applicationIsInstalled:identifier]) return NO;
  NSLog(@"[simulator] The application %@ would be opened now.", identifier);
  return YES;
}

- (BOOL)openURL:(NSURL *)url {
  return [[UIApplication sharedApplication] openURL:url];
}

@end
