#include "wire/Channel.hpp"

#include "base/Json.hpp"

#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <utility>

namespace sim::wire {
namespace {

// A header's texts are names and paths; payloads are texts of at most 64 MiB, screens, PNGs, and shared files of at
// most 256 MiB. The limits only stop nonsense.
constexpr std::size_t kLongestLine = 1u << 20;
constexpr std::size_t kLongestPayload = 512u << 20;

std::string encodedHeader(const Message& message) {
  nlohmann::json header = message.header;
  if (message.payload) header["length"] = message.payload->size();
  std::string line = toText(header);
  line.push_back('\n');
  return line;
}

bool sendAll(int descriptor, const char* bytes, std::size_t count) {
  while (count > 0) {
    const ssize_t sent = ::send(descriptor, bytes, count, MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR) continue;
    if (sent <= 0) return false;
    bytes += sent;
    count -= static_cast<std::size_t>(sent);
  }
  return true;
}

}  // namespace

bool Channel::send(const Message& message) {
  const std::string line = encodedHeader(message);
  const std::string_view payload = message.payload ? *message.payload : std::string_view();
  return sendAll(descriptor(), line.data(), line.size()) && sendAll(descriptor(), payload.data(), payload.size());
}

void Channel::queue(const Message& message) {
  outgoing_ += encodedHeader(message);
  if (message.payload) outgoing_ += *message.payload;
}

bool Channel::flush() {
  bool alive = true;
  while (hasQueued()) {
    const ssize_t count =
        ::send(descriptor(), outgoing_.data() + sent_, outgoing_.size() - sent_, MSG_NOSIGNAL | MSG_DONTWAIT);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) alive = errno == EAGAIN || errno == EWOULDBLOCK;
    if (count <= 0) break;
    sent_ += static_cast<std::size_t>(count);
  }
  // At most as many bytes are moved as were sent; moving the rest at every call would be quadratic in a large message.
  if (2 * sent_ >= outgoing_.size()) outgoing_.erase(0, std::exchange(sent_, 0));
  return alive;
}

bool Channel::receive(std::vector<Message>& out) {
  char chunk[64 << 10];
  ssize_t count;
  do {
    count = ::recv(descriptor(), chunk, sizeof chunk, 0);
  } while (count < 0 && errno == EINTR);
  if (count <= 0) return false;

  const std::size_t scanned = buffer_.size();  // No line break stands before this.
  buffer_.append(chunk, static_cast<std::size_t>(count));
  std::size_t taken = 0;
  while (true) {
    if (partial_) {
      const std::size_t step = std::min(missing_, buffer_.size() - taken);
      partial_->payload->append(buffer_, taken, step);
      taken += step;
      missing_ -= step;
      if (missing_ > 0) break;
      out.push_back(std::move(*partial_));
      partial_.reset();
      continue;
    }
    const std::size_t end = buffer_.find('\n', std::max(scanned, taken));
    if (end == std::string::npos) {
      if (buffer_.size() - taken > kLongestLine) return false;
      break;
    }
    auto header = parseJson(std::string_view(buffer_).substr(taken, end - taken));
    taken = end + 1;
    if (!header || !header->is_object()) return false;
    Message message{*std::move(header), std::nullopt};
    const auto length = message.header.find("length");
    if (length != message.header.end()) {
      if (!length->is_number_unsigned() || length->get<std::size_t>() > kLongestPayload) return false;
      missing_ = length->get<std::size_t>();
      message.payload.emplace();
    }
    if (missing_ > 0) {
      partial_ = std::move(message);
    } else {
      out.push_back(std::move(message));
    }
  }
  buffer_.erase(0, taken);
  return true;
}

}  // namespace sim::wire
