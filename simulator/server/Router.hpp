// Which part of the server answers a request.
#pragma once

#include "server/Http.hpp"
#include "server/StaticFiles.hpp"

#include <cstddef>
#include <variant>

namespace sim {

enum class Endpoint { screen, events, device, pasteboard, appearance, display, image };

/// A call that the main thread answers. `longestBody` is 0 for a call without a body.
struct ApiCall {
  Endpoint endpoint;
  std::size_t longestBody = 0;  // Bytes.
};

/// A request for the stream of server-sent events.
struct StreamCall {};

/// Immutable once the table of files is complete; any thread.
class Router final {
 public:
  /// `files` must outlive the router.
  explicit Router(const StaticFiles& files) : files_(files) {}

  /// The call, or the response at once: a file, or the refusal of an unknown path, method or type of body.
  std::variant<Response, ApiCall, StreamCall> route(const RequestHead& head) const;

 private:
  const StaticFiles& files_;
};

/// The opaque identifier at the end of "/images/<id>".
std::string_view imageIdentifier(std::string_view path);

}  // namespace sim
