// Exceptions in code that is compiled with ARC: what the unwinder asks at each of its functions, and what its handlers
// call. Objective-C's exceptions are those of GCC's runtime, so that they pass through code of both kinds. In
// Objective-C a handler of everything catches C++'s as well; in Objective-C++ each handler catches what it names.
//
// Objective-C++ is linked with --wrap for the functions of C++'s runtime that are here, because that one knows no
// exceptions but its own.
#import <Foundation/Foundation.h>

#include <cxxabi.h>
#include <dlfcn.h>
#include <objc/objc-exception.h>
#include <objc/runtime.h>
#include <unwind.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <typeinfo>
#include <vector>

#include "UnwindTable.hpp"

namespace {

constexpr std::uint64_t classOf(const char (&name)[9]) {
  std::uint64_t value = 0;
  for (int index = 0; index < 8; ++index) value = value << 8 | static_cast<unsigned char>(name[index]);
  return value;
}

/// An exception as GCC's runtime throws it.
struct ObjectException {
  _Unwind_Exception header;
  id object;
};

bool isObject(std::uint64_t exceptionClass) { return exceptionClass == classOf("GNUCOBJC"); }

id objectOf(_Unwind_Exception *exception) { return reinterpret_cast<ObjectException *>(exception)->object; }

bool isKindOf(id object, const char *name) {
  Class wanted = objc_lookUpClass(name);
  if (!wanted) return false;
  for (Class each = object_getClass(object); each; each = class_getSuperclass(each)) {
    if (each == wanted) return true;
  }
  return false;
}

/// Whether a handler of Objective-C is for the exception. Its type is a class's name, "@id" for any object, or NULL for
/// whatever is thrown.
bool isForHandler(const void *type, bool isAnObject, id object) {
  if (!type) return true;
  if (!isAnObject) return false;
  const auto *name = static_cast<const char *>(type);
  return std::strcmp(name, "@id") == 0 || isKindOf(object, name);
}

/// An exception that a handler of this thread is at work on.
struct Caught {
  _Unwind_Exception *exception;
  const void *value;  // What the handler got.
  bool isAnObject;
  bool isThrownAgain;
};

thread_local std::vector<Caught> caught;

/// The object that is under way while the runtime of C++ looks for handlers.
thread_local id objectUnderWay = nil;

void *beginCatch(_Unwind_Exception *exception, void *(*beginForCxx)(void *)) {
  const bool isAnObject = isObject(exception->exception_class);
  void *value = isAnObject ? static_cast<void *>(objectOf(exception)) : beginForCxx(exception);
  caught.push_back({exception, value, isAnObject, false});
  return value;
}

void endCatch(void (*endForCxx)()) {
  const Caught last = caught.back();
  caught.pop_back();
  if (!last.isAnObject) {
    endForCxx();
  } else if (!last.isThrownAgain) {
    _Unwind_DeleteException(last.exception);
  }
}

/// Throws again what the innermost handler caught.
[[noreturn]] void throwAgain(void (*throwForCxx)()) {
  Caught &last = caught.back();
  if (!last.isAnObject) throwForCxx();
  last.isThrownAgain = true;
  _Unwind_Resume_or_Rethrow(last.exception);
  std::abort();
}

void install(_Unwind_Context *context, _Unwind_Exception *exception, std::uintptr_t pad, std::intptr_t filter) {
  _Unwind_SetGR(context, __builtin_eh_return_data_regno(0), reinterpret_cast<std::uintptr_t>(exception));
  _Unwind_SetGR(context, __builtin_eh_return_data_regno(1), static_cast<std::uintptr_t>(filter));
  _Unwind_SetIP(context, pad);
}

}  // namespace

// How Objective-C++ describes the classes that it catches. The compiler refers to this class by its name.
namespace gnustep::libobjc {

class __objc_class_type_info : public std::type_info {
 public:
  explicit __objc_class_type_info(const char *name) : std::type_info(name) {}
  ~__objc_class_type_info() override;
  bool __do_catch(const std::type_info *, void **value, unsigned) const override {
    if (!objectUnderWay || !isForHandler(name(), true, objectUnderWay)) return false;
    *value = objectUnderWay;
    return true;
  }
};

__objc_class_type_info::~__objc_class_type_info() = default;

}  // namespace gnustep::libobjc

extern "C" {

gnustep::libobjc::__objc_class_type_info __objc_id_type_info("@id");

_Unwind_Reason_Code __gxx_personality_v0(int, _Unwind_Action, _Unwind_Exception_Class, _Unwind_Exception *,
                                         _Unwind_Context *);

/// Asked by the unwinder at each function of Objective-C.
_Unwind_Reason_Code __gnustep_objc_personality_v0(int version, _Unwind_Action actions,
                                                  _Unwind_Exception_Class exceptionClass, _Unwind_Exception *exception,
                                                  _Unwind_Context *context) {
  if (version != 1) return _URC_FATAL_PHASE1_ERROR;
  sim::UnwindTable table(context);
  const auto pad = table.landingPad();
  if (!pad.address) return _URC_CONTINUE_UNWIND;
  const bool isAnObject = isObject(exceptionClass);
  const bool isForced = actions & _UA_FORCE_UNWIND;
  std::intptr_t handler = 0;
  bool cleansUp = !pad.actions;
  table.visitActions(pad, [&](std::intptr_t filter, const void *type) {
    if (filter == 0) cleansUp = true;
    if (filter <= 0 || isForced || !isForHandler(type, isAnObject, isAnObject ? objectOf(exception) : nil))
      return false;
    handler = filter;
    return true;
  });
  if (actions & _UA_SEARCH_PHASE) return handler ? _URC_HANDLER_FOUND : _URC_CONTINUE_UNWIND;
  if (!handler && !cleansUp) return _URC_CONTINUE_UNWIND;
  install(context, exception, pad.address, handler);
  return _URC_INSTALL_CONTEXT;
}

/// Asked by the unwinder at each function of Objective-C++. The runtime of C++ takes an object for an exception of a
/// language that it does not know, and asks the types of the handlers whether they are for it.
_Unwind_Reason_Code __gnustep_objcxx_personality_v0(int version, _Unwind_Action actions,
                                                    _Unwind_Exception_Class exceptionClass,
                                                    _Unwind_Exception *exception, _Unwind_Context *context) {
  objectUnderWay = isObject(exceptionClass) ? objectOf(exception) : nil;
  const _Unwind_Reason_Code answer = __gxx_personality_v0(version, actions, exceptionClass, exception, context);
  objectUnderWay = nil;
  return answer;
}

// Called by the handlers of Objective-C.

id objc_begin_catch(_Unwind_Exception *exception) {
  return static_cast<id>(beginCatch(exception, __cxxabiv1::__cxa_begin_catch));
}

void objc_end_catch() { endCatch(__cxxabiv1::__cxa_end_catch); }

void objc_exception_rethrow(_Unwind_Exception *) { throwAgain(__cxxabiv1::__cxa_rethrow); }

// Called by the handlers of Objective-C++ in place of the functions without the prefix.

void *__wrap___cxa_begin_catch(_Unwind_Exception *exception) {
  return beginCatch(exception, __cxxabiv1::__cxa_begin_catch);
}

void __wrap___cxa_end_catch() { endCatch(__cxxabiv1::__cxa_end_catch); }

void __wrap___cxa_rethrow() {
  if (caught.empty()) __cxxabiv1::__cxa_rethrow();
  throwAgain(__cxxabiv1::__cxa_rethrow);
}

_Unwind_Reason_Code __wrap__Unwind_Resume_or_Rethrow(_Unwind_Exception *exception) {
  if (!caught.empty() && caught.back().exception == exception) throwAgain(__cxxabiv1::__cxa_rethrow);
  return _Unwind_Resume_or_Rethrow(exception);
}

/// Before the function of this name in GCC's runtime, which lets an object end on its way, when the one who made it is
/// cleaned up. `@throw;` throws again whatever was caught, which need not be an object.
void objc_exception_throw(id object) {
  static auto *const next = reinterpret_cast<void (*)(id)>(dlsym(RTLD_NEXT, "objc_exception_throw"));
  if (!caught.empty() && !caught.back().isAnObject && caught.back().value == object) {
    throwAgain(__cxxabiv1::__cxa_rethrow);
  }
  next([[object retain] autorelease]);
  std::abort();
}

}  // extern "C"
