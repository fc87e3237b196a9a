// CFBoolean and CFNumber are NSNumber. Truth values are numbers for Foundation and a type of their own here.
#pragma once

#import <CoreFoundation/CFBase.h>

CF_EXTERN_C_BEGIN

/// The type of the numbers that stand for YES and NO.
CFTypeID CFBooleanGetTypeID(void);
/// The type of all other numbers.
CFTypeID CFNumberGetTypeID(void);

CF_EXTERN_C_END
