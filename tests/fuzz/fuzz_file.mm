// Fuzzes the import of preset files. The input is the file that the user picks; the same bytes stand as the preset of
// that name, which decides whether the file is accepted.
#include "Fuzzing.h"
#include "Values.h"
#import "core/DevicePaths.h"
#import "theme/PresetFileImport.h"
#import "theme/PresetStore.h"
#import "theme/PresetString.h"

using fuzzing::require;

namespace {

using Bytes = std::span<const std::uint8_t>;

NSString *const kName = @"Dark";

bool isAccepted(NSDictionary *preset) {
  id version = [preset objectForKey:@"ZunoPresetVersion"];
  return ([version isKindOfClass:[NSNumber class]] || [version isKindOfClass:[NSString class]]) &&
         [version intValue] >= 1;
}

void import(Bytes bytes) {
  NSString *picked = [zuno::preferencesFolder() stringByAppendingPathComponent:@"Dark.plist"];
  NSString *standing = zuno::pathOfPreset(kName);
  fuzzing::write(picked, bytes);
  fuzzing::write(standing, bytes);
  NSDictionary *preset = [NSDictionary dictionaryWithContentsOfFile:standing];
  const auto outcome = zuno::importPresetFile(picked);
  require(outcome == (isAccepted(preset) ? zuno::FileImport::kImported : zuno::FileImport::kInvalid),
          "a file is imported when its preset has a version of 1 or more");
  require(fuzzing::holds(standing, bytes), "the preset of that name stays as it was");
  if (outcome == zuno::FileImport::kImported) {
    require(fuzzing::presets() == "Dark.plist,Dark_1.plist", "an imported file is one new preset");
    require(fuzzing::holds(zuno::pathOfPreset(@"Dark_1"), bytes), "an imported file is copied byte for byte");
  } else {
    require(fuzzing::presets() == "Dark.plist", "a refused file leaves nothing");
  }
}

/// What may happen next to a preset that came as a file.
void use() {
  NSDictionary *preset = [NSDictionary dictionaryWithContentsOfFile:zuno::pathOfPreset(kName)];
  if (!preset) return;
  if (zuno::writePreset(preset, @"copy")) {
    NSDictionary *copy = [NSDictionary dictionaryWithContentsOfFile:zuno::pathOfPreset(@"copy")];
    require(fuzzing::same(copy, preset, fuzzing::Agreement::kXML), "a preset that is written again reads back equal");
  } else {
    require(!zuno::presetExists(@"copy"), "a preset that cannot be written leaves no file");
  }
  if (NSString *text = zuno::presetStringFrom(preset)) {
    require(fuzzing::same(zuno::objectFromPresetString(text), preset, fuzzing::Agreement::kJSON),
            "the string of a preset decodes to it");
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
  fuzzing::start();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  @autoreleasepool {
    fuzzing::clearPresets();
    @try {
      import({data, size});
      use();
    } @catch (NSException *exception) {
      require(false, [[NSString stringWithFormat:@"nothing is raised: %@", exception] UTF8String]);
    }
  }
  return 0;
}
