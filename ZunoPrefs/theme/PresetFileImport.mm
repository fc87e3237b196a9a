#import "theme/PresetFileImport.h"

#import "core/DevicePaths.h"
#import "theme/PresetStore.h"

namespace zuno {
namespace {

bool isPresetFile(NSString *path) {
  id version = [[NSDictionary dictionaryWithContentsOfFile:path] objectForKey:@"ZunoPresetVersion"];
  return [version respondsToSelector:@selector(intValue)] && [version intValue] >= 1;
}

}  // namespace

FileImport importPresetFile(NSString *path) {
  NSFileManager *files = [NSFileManager defaultManager];
  NSString *name = [path lastPathComponent];
  NSString *destination = [presetsFolder() stringByAppendingPathComponent:name];
  if (![[destination lowercaseString] hasSuffix:@".plist"] || !isPresetFile(destination)) return FileImport::kInvalid;

  NSString *base = [name stringByDeletingPathExtension];
  for (int number = 1; [files fileExistsAtPath:destination]; ++number) {
    destination =
        [presetsFolder() stringByAppendingPathComponent:[NSString stringWithFormat:@"%@_%d.plist", base, number]];
  }
  return copyWhole(path, destination) ? FileImport::kImported : FileImport::kCopyFailed;
}

}  // namespace zuno
