#import <Preferences/PropertyListFile.h>

#import <Foundation/SIMDevice.h>
#import <Preferences/PreferencesLog.h>

namespace sim {

id valueInFile(NSString *key, NSString *file) {
  return [[NSDictionary dictionaryWithContentsOfFile:file] objectForKey:key];
}

bool storeInFile(id value, NSString *key, NSString *file) {
  NSFileManager *files = [NSFileManager defaultManager];
  NSMutableDictionary *entries = [NSMutableDictionary dictionaryWithContentsOfFile:file];
  if (!entries && [files fileExistsAtPath:file]) {
    logPreferences(@"%@ holds no dictionary; \"%@\" was not stored.", [file lastPathComponent], key);
    return false;
  }
  if (!entries) entries = [NSMutableDictionary dictionary];
  [entries setObject:value forKey:key];
  [files createDirectoryAtPath:[file stringByDeletingLastPathComponent]
      withIntermediateDirectories:YES
                       attributes:nil
                            error:NULL];
  if ([entries writeToFile:file atomically:YES]) return true;
  logPreferences(@"%@ could not be written; \"%@\" was not stored.", [file lastPathComponent], key);
  return false;
}

NSString *preferenceFile(NSString *folder, NSString *name) {
  if ([name length] == 0 || [name rangeOfString:@"/"].location != NSNotFound) {
    logPreferences(@"\"%@\" is no preference domain.", name);
    return nil;
  }
  return SIMDevicePath([folder stringByAppendingPathComponent:[name stringByAppendingString:@".plist"]]);
}

}  // namespace sim
