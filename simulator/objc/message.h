// Messages sent by functions, as a device's headers declare them: cast to the type of the method.
#pragma once

#include <objc/objc.h>
#include <objc/runtime.h>
#include_next <objc/message.h>

#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wincompatible-library-redeclaration"
OBJC_EXPORT void objc_msgSend(void);
OBJC_EXPORT void objc_msgSend_stret(void);
OBJC_EXPORT void objc_msgSend_fpret(void);
#pragma clang diagnostic pop
