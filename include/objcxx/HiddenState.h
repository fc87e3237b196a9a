// What a class keeps to itself in an object of C++. Its header names the object's type and holds it; C sees a pointer
// of the same size in its place.
//
//     SIM_STATE_TYPE(ButtonState);
//
//     @interface Button : NSObject {
//      @private
//       SIM_STATE(ButtonState, _state);
//     }
#pragma once

#if defined(__cplusplus)
#include <memory>
#define SIM_STATE_TYPE(Type) \
  namespace sim {            \
  struct Type;               \
  }                          \
  static_assert(true, "")
#define SIM_STATE(Type, name) std::unique_ptr<sim::Type> name
#else
#define SIM_STATE_TYPE(Type) struct Type
#define SIM_STATE(Type, name) struct Type* name
#endif
