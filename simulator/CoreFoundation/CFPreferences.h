// Preferences of applications, in the files that user defaults share. A change is in its file at once, and what another
// process has written is read by the next call. Values are property lists; any thread.
#pragma once

#import <CoreFoundation/CFBase.h>

CF_EXPORT const CFStringRef kCFPreferencesAnyApplication;
CF_EXPORT const CFStringRef kCFPreferencesCurrentApplication;
CF_EXPORT const CFStringRef kCFPreferencesAnyHost;
CF_EXPORT const CFStringRef kCFPreferencesCurrentHost;
CF_EXPORT const CFStringRef kCFPreferencesAnyUser;
CF_EXPORT const CFStringRef kCFPreferencesCurrentUser;

CF_EXTERN_C_BEGIN

/// The value for the application: of its own domain, the suites added to it, or the domain of all applications; each
/// asked for this user and device, this user, and all users. Owned by the caller; NULL when there is none.
CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef applicationID);
/// A truth value, a number, or one of the words "true", "false", "yes", "no", "1", "0". Otherwise, and when there is
/// none, false, and so at the address, which may be NULL.
Boolean CFPreferencesGetAppBooleanValue(CFStringRef key, CFStringRef applicationID,
                                        Boolean* keyExistsAndHasValidFormat);
/// A number, or a text that is a whole one. Otherwise, and when there is none, 0, and false at the address.
CFIndex CFPreferencesGetAppIntegerValue(CFStringRef key, CFStringRef applicationID,
                                        Boolean* keyExistsAndHasValidFormat);
/// For this user on any device. NULL removes it. What cannot be stored is told in the log.
void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef value, CFStringRef applicationID);
Boolean CFPreferencesAppSynchronize(CFStringRef applicationID);
/// Has the preferences of a suite searched after the application's own.
void CFPreferencesAddSuitePreferencesToApp(CFStringRef applicationID, CFStringRef suiteID);
void CFPreferencesRemoveSuitePreferencesFromApp(CFStringRef applicationID, CFStringRef suiteID);
/// Never: the device is nobody's to manage.
Boolean CFPreferencesAppValueIsForced(CFStringRef key, CFStringRef applicationID);

/// Of exactly one domain. Any user and current host together, and a user of another name than "mobile", have none.
CFPropertyListRef CFPreferencesCopyValue(CFStringRef key, CFStringRef applicationID, CFStringRef userName,
                                         CFStringRef hostName);
/// Those of the keys that there are; all for NULL. Owned by the caller.
CFDictionaryRef CFPreferencesCopyMultiple(CFArrayRef keysToFetch, CFStringRef applicationID, CFStringRef userName,
                                          CFStringRef hostName);
void CFPreferencesSetValue(CFStringRef key, CFPropertyListRef value, CFStringRef applicationID, CFStringRef userName,
                           CFStringRef hostName);
/// In one step. Both may be NULL; a key in both is set.
void CFPreferencesSetMultiple(CFDictionaryRef keysToSet, CFArrayRef keysToRemove, CFStringRef applicationID,
                              CFStringRef userName, CFStringRef hostName);
Boolean CFPreferencesSynchronize(CFStringRef applicationID, CFStringRef userName, CFStringRef hostName);
/// Owned by the caller; NULL when there are none.
CFArrayRef CFPreferencesCopyKeyList(CFStringRef applicationID, CFStringRef userName, CFStringRef hostName);

CF_EXTERN_C_END
