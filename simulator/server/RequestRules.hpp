// The rules that every request must meet before it is routed. They keep web pages of other origins, rebound names and
// other local ports away from the device folder.
#pragma once

#include "server/Http.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace sim {

/// A fresh token of 128 random bits as 32 hexadecimal digits. Throws Failure when the system gives no random bytes.
std::string makeToken();

/// Whether the texts are equal, in a time that depends on the length of `given` alone.
bool equalInConstantTime(std::string_view given, std::string_view expected);

/// Immutable after construction; any thread.
class RequestRules final {
 public:
  RequestRules(std::uint16_t port, std::string token);

  /// The refusal of a request that breaks a rule, or nothing.
  std::optional<Response> refusal(const RequestHead& head) const;

 private:
  std::optional<Response> framingRefusal(const RequestHead& head) const;
  std::optional<Response> hostRefusal(const RequestHead& head) const;
  std::optional<Response> originRefusal(const RequestHead& head) const;
  std::optional<Response> tokenRefusal(const RequestHead& head) const;

  std::string ownHosts_[2];
  std::string token_;
};

}  // namespace sim
