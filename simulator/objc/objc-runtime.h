#pragma once

#include <objc/message.h>
#include <objc/runtime.h>
