// The open streams of server-sent events: tells every page which revision of the screen and which state of the device
// is the newest.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct MHD_Connection;
struct MHD_Response;

namespace sim {

/// What a stream tells. Both numbers only ever grow.
struct StreamState {
  std::uint64_t revision = 0;  // Of the screen.
  std::uint64_t sequence = 0;  // Of the device.

  bool operator==(const StreamState&) const = default;
};

/// The streams are written by the HTTP library's thread, which asks `read` for bytes; a stream without news is
/// suspended until `publish`. A stream always tells the newest state, so a slow reader skips what lies between.
class EventStreams final {
 public:
  static constexpr std::size_t kMostStreams = 32;

  EventStreams();
  ~EventStreams();
  EventStreams(const EventStreams&) = delete;
  EventStreams& operator=(const EventStreams&) = delete;

  /// The response that streams to `connection`, or null when too many streams are open. `lastEventId`: what the client
  /// has seen, as in the Last-Event-ID header; empty when nothing. HTTP thread.
  MHD_Response* open(MHD_Connection* connection, std::string_view lastEventId);

  /// Any thread.
  void publish(StreamState state);

  /// Writes a comment to every stream, which also finds the clients that have gone. Any thread.
  void keepAlive();

  /// Ends every stream and refuses new ones. Any thread.
  void close();

 private:
  struct Stream;

  static std::int64_t readCallback(void* context, std::uint64_t position, char* buffer, std::size_t size);
  static void freeCallback(void* context);
  std::int64_t read(Stream& stream, char* buffer, std::size_t size);
  void remove(const Stream& stream);
  void endAbandoned();
  void resume(Stream& stream);

  std::mutex mutex_;  // Guards everything below and the streams themselves. The HTTP library's own locks come after it.
  StreamState state_;
  std::vector<std::unique_ptr<Stream>> streams_;
  bool closed_ = false;
};

/// The identifier of an event: "REVISION.SEQUENCE".
std::string eventIdentifier(StreamState state);

/// The reverse of `eventIdentifier`; nothing for any other text.
std::optional<StreamState> parseEventIdentifier(std::string_view text);

}  // namespace sim
