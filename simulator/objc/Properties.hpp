// The properties of classes, of which GCC's runtime knows nothing.
#pragma once

#include "ModuleFormat.hpp"

namespace sim {

/// Remembers what properties `definition`, a class of the newer format, declares, for the functions of
/// <objc/runtime.h>. Any thread.
void noteProperties(const ClassDefinition& definition);

}  // namespace sim
