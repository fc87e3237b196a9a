// Which part of the server answers a request.
#pragma once

#include "server/Http.hpp"
#include "server/StaticFiles.hpp"

#include <cstddef>
#include <variant>

namespace sim {

enum class Endpoint {
  screen,
  events,
  device,
  pasteboard,
  pasteboardString,
  appearance,
  display,
  image,
  photos,
  pickedFile,
  shared,
  builds,
  reload,
  stage,
  stageScreen,
  stageEvents,
  stagePickedFile
};

/// What the body of a call is: nothing, a JSON text that is kept in memory, or a file.
enum class BodyKind { none, json, file };

/// A call that the main thread answers.
struct ApiCall {
  Endpoint endpoint;
  BodyKind body = BodyKind::none;
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

/// The opaque identifier at the end of "/images/<id>" and "/shared/<id>"; empty when there is none.
std::string_view identifierIn(std::string_view path);

}  // namespace sim
