#import <AudioToolbox/AudioToolbox.h>

#import <Foundation/Foundation.h>

#include <mutex>
#include <set>

namespace {

/// Numbers of the sounds of files; those of the system lie below.
constexpr SystemSoundID kFirst = 0x1000;

std::mutex &mutex() {
  static auto *mutex = new std::mutex;
  return *mutex;
}

/// Under the mutex.
std::set<SystemSoundID> &sounds() {
  static auto *sounds = new std::set<SystemSoundID>;
  return *sounds;
}

}  // namespace

void AudioServicesPlaySystemSound(SystemSoundID sound) {
  static dispatch_once_t once;
  dispatch_once(&once, ^{
    NSLog(@"[simulator] The sound %u is played, which is not heard here; nor are those after it.", sound);
  });
}

void AudioServicesPlayAlertSound(SystemSoundID sound) { AudioServicesPlaySystemSound(sound); }

OSStatus AudioServicesCreateSystemSoundID(CFURLRef file, SystemSoundID *sound) {
  if (!file || !sound || ![[NSFileManager defaultManager] isReadableFileAtPath:[(NSURL *)file path]]) {
    return kAudioServicesSystemSoundUnspecifiedError;
  }
  const std::lock_guard lock(mutex());
  *sound = sounds().empty() ? kFirst : *sounds().rbegin() + 1;
  sounds().insert(*sound);
  return kAudioServicesNoError;
}

OSStatus AudioServicesDisposeSystemSoundID(SystemSoundID sound) {
  const std::lock_guard lock(mutex());
  return sounds().erase(sound) > 0 ? kAudioServicesNoError : kAudioServicesSystemSoundUnspecifiedError;
}
