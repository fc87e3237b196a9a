// What became of an event. Plain C++.
#pragma once

#include "wire/Messages.hpp"

#include <string>
#include <utility>

namespace sim {

using wire::Outcome;

/// Unless it was done, a sentence says why not.
struct EventResult {
  Outcome outcome = Outcome::done;
  std::string error;
};

inline EventResult malformed(std::string why) { return {Outcome::malformed, std::move(why)}; }
inline EventResult unknown() { return {Outcome::unknown, "Nothing on the screen has this id."}; }
inline EventResult refused(std::string why) { return {Outcome::refused, std::move(why)}; }
/// Refused with the `problem` that there was, if any.
inline EventResult worked(const char* problem) { return problem ? refused(problem) : EventResult{}; }
/// Refused with `why` unless it was `performed`.
inline EventResult done(bool performed, const char* why) { return performed ? EventResult{} : refused(why); }

}  // namespace sim
