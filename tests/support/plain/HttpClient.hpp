// A client that sends exactly the bytes that a test wants.
#pragma once

#include "base/Descriptor.hpp"
#include "base/Json.hpp"

#include <nlohmann/json.hpp>

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace test {

struct HttpResponse {
  int status = 0;    // 0 when the server closed without a response.
  std::string head;  // The first line and the headers.
  std::string body;

  /// The header's value; empty when there is none.
  std::string header(std::string_view name) const;

  /// The body as JSON; discarded when it is none.
  nlohmann::json json() const { return sim::parseJson(body).value_or(nlohmann::json::value_t::discarded); }
};

/// One connection.
class HttpConnection final {
 public:
  explicit HttpConnection(std::uint16_t port);

  void send(std::string_view bytes);

  /// Reads on until `text` has arrived; false when the server closes before. Throws after 30 s.
  bool waitFor(std::string_view text);

  /// Reads on until the server closes. Throws after 30 s.
  void waitForEnd();

  /// What has arrived.
  const std::string& received() const noexcept { return received_; }
  void forget() { received_.clear(); }

 private:
  using Clock = std::chrono::steady_clock;

  bool readSome(Clock::time_point end);

  sim::Descriptor socket_;
  std::string received_;
};

/// Sends the bytes, reads until the server closes, and takes the last response apart.
HttpResponse roundTrip(std::uint16_t port, std::string_view bytes);

/// A request as the page sends it, unless a test changes it.
struct HttpRequest {
  std::string method = "GET";
  std::string target = "/";
  std::vector<std::string> headers;  // Whole lines without their ends.
  std::string body;

  std::string bytes() const;
};

}  // namespace test
