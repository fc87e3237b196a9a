// Fuzzes the import of preset strings. The input is the text that the user pastes.
#include "base/Base64.hpp"

#include "Fuzzing.h"
#include "Values.h"
#import "theme/PresetStore.h"
#import "theme/PresetString.h"

#include <algorithm>
#include <cstring>
#include <random>
#include <vector>

using fuzzing::require;

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t capacity);

namespace {

NSString *const kName = @"stranger";

/// What a stored preset has to be: the decoded dictionary, in its file and once more as a string.
void checkStored(NSDictionary *decoded) {
  require(fuzzing::presets() == "stranger.plist", "a stored preset is one file");
  NSDictionary *stored = [NSDictionary dictionaryWithContentsOfFile:zuno::pathOfPreset(kName)];
  require(fuzzing::same(stored, decoded), "a stored preset reads back as it was decoded");
  NSString *text = zuno::presetStringFrom(stored);
  require(text != nil, "what came as a string can be sent as one");
  require(fuzzing::same(zuno::objectFromPresetString(text), decoded, fuzzing::Agreement::kJSON),
          "the string of a stored preset decodes to it");
}

void import(NSString *text) {
  id decoded = zuno::objectFromPresetString(text);
  const bool isDictionary = [decoded isKindOfClass:[NSDictionary class]];
  if (isDictionary && zuno::writePreset(decoded, kName)) {
    checkStored(decoded);
  } else {
    require(fuzzing::presets().empty(), "a refused string leaves nothing");
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
  fuzzing::start();
  return 0;
}

/// Mostly mutates the JSON inside the text: mutations of the text itself hardly ever stay base64.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t capacity,
                                               unsigned seed) {
  std::minstd_rand random(seed);
  const auto json = sim::base64Decoded({reinterpret_cast<const char *>(data), size}, sim::Unknown::refuse);
  if (!json || random() % 16 == 0) return LLVMFuzzerMutate(data, size, capacity);

  std::vector<std::uint8_t> mutated(std::max<std::size_t>(capacity / 4 * 3, json->size()));
  std::memcpy(mutated.data(), json->data(), json->size());
  const auto length = LLVMFuzzerMutate(mutated.data(), json->size(), mutated.size());
  const auto text = sim::base64Encoded({reinterpret_cast<const std::byte *>(mutated.data()), length});
  if (text.size() > capacity) return size;
  std::memcpy(data, text.data(), text.size());
  return text.size();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  @autoreleasepool {
    fuzzing::clearPresets();
    NSString *text = [[[NSString alloc] initWithBytes:data length:size encoding:NSUTF8StringEncoding] autorelease];
    @try {
      import(text);
    } @catch (NSException *exception) {
      require(false, [[NSString stringWithFormat:@"nothing is raised: %@", exception] UTF8String]);
    }
  }
  return 0;
}
