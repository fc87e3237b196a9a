// The message channel between the simulator (the server) and the Settings process: JSON headers, one a line, each
// followed by as many raw bytes as its "length" says; one without a "length" has none.
#pragma once

#include "base/Descriptor.hpp"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace sim::wire {

/// One message as the channel sees it: a JSON object, and the bytes that follow it, if any. What it means is said in
/// Messages.hpp.
struct Message {
  nlohmann::json header;
  std::optional<std::string> payload;
};

/// One end of a connected stream socket. Not thread-safe: one reader and one
/// writer at a time, which may be different threads.
class Channel final {
 public:
  /// `descriptor`: a connected stream socket.
  explicit Channel(Descriptor descriptor) noexcept : descriptor_(std::move(descriptor)) {}
  Channel(const Channel&) = delete;
  Channel& operator=(const Channel&) = delete;

  int descriptor() const noexcept { return descriptor_.get(); }

  /// Writes the whole message, waiting as long as the peer does not read. Strings that are no UTF-8 are sent with
  /// replacement characters. False when the peer is gone; never raises SIGPIPE.
  bool send(const Message& message);

  /// Takes the message for sending without waiting. A channel is used either with `send` or with `queue` and `flush`.
  void queue(const Message& message);

  /// Sends as many of the queued bytes as the peer takes now. False when the peer is gone.
  bool flush();

  /// Whether bytes wait for `flush`.
  bool hasQueued() const noexcept { return sent_ < outgoing_.size(); }

  /// Reads whatever has arrived, waiting for at least one byte, and appends each complete message to `out`.
  /// False when the peer has closed, within a message too, or sent a line that is no JSON object, is absurdly long or
  /// claims an absurd length.
  bool receive(std::vector<Message>& out);

 private:
  Descriptor descriptor_;
  std::string outgoing_;            // Bytes queued.
  std::size_t sent_ = 0;            // How many of them have been sent.
  std::string buffer_;              // Bytes received and not yet taken.
  std::optional<Message> partial_;  // A header whose payload is still arriving.
  std::size_t missing_ = 0;         // Payload bytes still to come for `partial_`.
};

}  // namespace sim::wire
