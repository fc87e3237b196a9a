// Which values somebody has set of an instance, among those that appearance proxies set too.
#pragma once

#import <Foundation/Foundation.h>

#include <objcxx/Retained.h>

#include <string>

namespace sim {

/// From now on calls of `setter` are noted, of instances of `owner` and of whatever else has the method from the same
/// class. Nothing for a class without it, and for one whose arguments no function of ours can hand on, such as large
/// structures: then no value of it ever counts as set.
void watchSetter(Class owner, SEL setter);

/// What names the value that `call` sets: the setter, and the arguments after the first, which say which of several it
/// is ("forState:").
std::string valueKey(NSInvocation *call);

/// Whether it is the system that sets a value of `object` just now, not its maker or a proxy.
bool isSetBySystem(NSObject *object);

/// The same call with arguments of its own, which it retains. An invocation has large structures until it has been
/// forwarded or invoked: libffi puts others in their place.
objcxx::Retained<NSInvocation> copyOfCall(NSInvocation *call);

/// Sets the value on `object`, for a proxy, unless it was set of `object` by anybody but the system.
void play(NSInvocation *call, NSObject *object);

}  // namespace sim
