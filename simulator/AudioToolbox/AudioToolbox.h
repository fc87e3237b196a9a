// The part of AudioToolbox that the simulator carries: sounds of the system, which it does not play.
#pragma once

#import <CoreFoundation/CoreFoundation.h>

typedef SInt32 OSStatus;
typedef UInt32 SystemSoundID;

enum {
  kAudioServicesNoError = 0,
  kAudioServicesBadSystemSoundIDError = -1501,
  kAudioServicesSystemSoundUnspecifiedError = -1500,
  kSystemSoundID_Vibrate = 0x00000FFF,
};

CF_EXTERN_C_BEGIN

/// Says once in the device log that it is not heard. Any thread.
void AudioServicesPlaySystemSound(SystemSoundID sound);
void AudioServicesPlayAlertSound(SystemSoundID sound);
/// Gives the sound of a file that there is a number.
OSStatus AudioServicesCreateSystemSoundID(CFURLRef file, SystemSoundID* sound);
OSStatus AudioServicesDisposeSystemSoundID(SystemSoundID sound);

CF_EXTERN_C_END
