// What became of an event. Plain C++.
#pragma once

#include <string>
#include <utility>

namespace sim {

/// 200, or another status as in HTTP with a sentence that says why nothing was done.
struct EventResult {
  int status = 200;
  std::string error;
};

inline EventResult malformed(std::string why) { return {400, std::move(why)}; }
inline EventResult unknown() { return {404, "Nothing on the screen has this id."}; }
inline EventResult refused(std::string why) { return {422, std::move(why)}; }
/// Refused with the `problem` that there was, if any.
inline EventResult worked(const char* problem) { return problem ? refused(problem) : EventResult{}; }
/// Refused with `why` unless it was `performed`.
inline EventResult done(bool performed, const char* why) { return performed ? EventResult{} : refused(why); }

}  // namespace sim
