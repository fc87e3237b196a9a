// A look at a property list before the library reads it, which trusts its input too much: it walks nested collections
// on the stack and makes a copy of an object for each reference to it.
#pragma once

#include <string_view>

namespace sim {

/// Whether reading `bytes` as a property list (XML or binary) takes a sensible amount of stack and memory: at most 512
/// levels, and at most a million values and 512 MiB once every reference is followed. Says nothing about whether the
/// rest of it is well-formed.
bool isSafePropertyList(std::string_view bytes);

}  // namespace sim
