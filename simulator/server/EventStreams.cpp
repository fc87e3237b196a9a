#include "server/EventStreams.hpp"

#include <microhttpd.h>
#include <poll.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <utility>

namespace sim {

struct EventStreams::Stream {
  EventStreams* owner;  // Not owned; outlives the stream.
  MHD_Connection* connection;
  std::optional<StreamState> told;  // What the client knows.
  std::string unsent;
  bool suspended = false;
  bool ended = false;
};

namespace {

std::string event(std::string_view name, StreamState state, std::string_view field, std::uint64_t value) {
  std::string text = "id: " + eventIdentifier(state);
  text += "\nevent: ";
  text += name;
  text += "\ndata: {\"";
  text += field;
  text += "\":" + std::to_string(value) + "}\n\n";
  return text;
}

std::string news(const std::optional<StreamState>& told, StreamState state) {
  std::string text;
  if (!told || told->revision != state.revision) text += event("screen", state, "revision", state.revision);
  if (!told || told->sequence != state.sequence) text += event("device", state, "sequence", state.sequence);
  return text;
}

bool hasHungUp(MHD_Connection* connection) {
  const MHD_ConnectionInfo* info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD);
  if (info == nullptr) return false;
  pollfd socket{info->connect_fd, POLLRDHUP, 0};
  return ::poll(&socket, 1, 0) > 0;
}

}  // namespace

EventStreams::EventStreams() = default;
EventStreams::~EventStreams() = default;

MHD_Response* EventStreams::open(MHD_Connection* connection, std::string_view lastEventId) {
  const std::lock_guard lock(mutex_);
  if (streams_.size() >= kMostStreams) endAbandoned();
  const auto open = std::ranges::count_if(streams_, [](const auto& stream) { return !stream->ended; });
  if (closed_ || static_cast<std::size_t>(open) >= kMostStreams) return nullptr;

  auto stream = std::make_unique<Stream>(
      Stream{.owner = this, .connection = connection, .told = parseEventIdentifier(lastEventId), .unsent = {}});
  // The first bytes go out at once, so that the client knows that it is connected.
  stream->unsent = "retry: 1000\n\n";
  MHD_Response* response =
      MHD_create_response_from_callback(MHD_SIZE_UNKNOWN, 4096, &readCallback, stream.get(), &freeCallback);
  if (response != nullptr) streams_.push_back(std::move(stream));
  return response;
}

void EventStreams::publish(StreamState state) {
  const std::lock_guard lock(mutex_);
  if (state == state_) return;
  state_ = state;
  for (const auto& stream : streams_) resume(*stream);
}

void EventStreams::keepAlive() {
  const std::lock_guard lock(mutex_);
  for (const auto& stream : streams_) {
    if (stream->unsent.empty()) stream->unsent = ":\n\n";
    resume(*stream);
  }
}

void EventStreams::close() {
  const std::lock_guard lock(mutex_);
  closed_ = true;
  for (const auto& stream : streams_) {
    stream->ended = true;
    resume(*stream);
  }
}

std::int64_t EventStreams::readCallback(void* context, std::uint64_t, char* buffer, std::size_t size) {
  auto* stream = static_cast<Stream*>(context);
  return stream->owner->read(*stream, buffer, size);
}

void EventStreams::freeCallback(void* context) {
  const auto* stream = static_cast<Stream*>(context);
  stream->owner->remove(*stream);
}

std::int64_t EventStreams::read(Stream& stream, char* buffer, std::size_t size) {
  const std::lock_guard lock(mutex_);
  if (stream.ended) return MHD_CONTENT_READER_END_OF_STREAM;
  if (stream.told != state_) {
    stream.unsent += news(stream.told, state_);
    stream.told = state_;
  }
  if (stream.unsent.empty()) {
    // Suspended under the lock, so that a resumption cannot come before it.
    MHD_suspend_connection(stream.connection);
    stream.suspended = true;
    return 0;
  }
  const std::size_t count = std::min(size, stream.unsent.size());
  std::memcpy(buffer, stream.unsent.data(), count);
  stream.unsent.erase(0, count);
  return static_cast<std::int64_t>(count);
}

void EventStreams::remove(const Stream& stream) {
  const std::lock_guard lock(mutex_);
  std::erase_if(streams_, [&stream](const auto& candidate) { return candidate.get() == &stream; });
}

// A suspended connection does not notice that its client has gone.
void EventStreams::endAbandoned() {
  for (const auto& stream : streams_) {
    if (!stream->suspended || !hasHungUp(stream->connection)) continue;
    stream->ended = true;
    resume(*stream);
  }
}

void EventStreams::resume(Stream& stream) {
  if (!std::exchange(stream.suspended, false)) return;
  MHD_resume_connection(stream.connection);
}

std::string eventIdentifier(StreamState state) {
  return std::to_string(state.revision) + "." + std::to_string(state.sequence);
}

std::optional<StreamState> parseEventIdentifier(std::string_view text) {
  StreamState state;
  const char* end = text.data() + text.size();
  const auto revision = std::from_chars(text.data(), end, state.revision);
  if (revision.ec != std::errc{} || revision.ptr == end || *revision.ptr != '.') return std::nullopt;
  const auto sequence = std::from_chars(revision.ptr + 1, end, state.sequence);
  if (sequence.ec != std::errc{} || sequence.ptr != end) return std::nullopt;
  return state;
}

}  // namespace sim
