#include "support/plain/HttpClient.hpp"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <strings.h>
#include <sys/socket.h>

#include <cstdlib>
#include <stdexcept>

namespace test {
namespace {

constexpr std::chrono::seconds kPatience{30};

}  // namespace

std::string HttpResponse::header(std::string_view name) const {
  for (std::size_t at = head.find("\r\n"); at != std::string::npos; at = head.find("\r\n", at + 2)) {
    const std::string_view line = std::string_view(head).substr(at + 2);
    if (line.size() > name.size() && line[name.size()] == ':' &&
        ::strncasecmp(line.data(), name.data(), name.size()) == 0) {
      const auto value = line.substr(name.size() + 2);
      return std::string(value.substr(0, value.find("\r\n")));
    }
  }
  return {};
}

HttpConnection::HttpConnection(std::uint16_t port) : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(port);
  if (::connect(socket_.get(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0)
    throw std::runtime_error("the server does not listen");
}

void HttpConnection::send(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::send(socket_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count <= 0) return;  // The server has closed; what it said tells why.
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

bool HttpConnection::readSome(Clock::time_point end) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
  pollfd ready{socket_.get(), POLLIN, 0};
  if (left.count() <= 0 || ::poll(&ready, 1, static_cast<int>(left.count())) <= 0)
    throw std::runtime_error("the server neither says what is waited for nor closes; it has said: " + received_);
  char buffer[16 << 10];
  const ssize_t count = ::recv(socket_.get(), buffer, sizeof buffer, 0);
  if (count <= 0) return false;
  received_.append(buffer, static_cast<std::size_t>(count));
  return true;
}

bool HttpConnection::waitFor(std::string_view text) {
  const auto end = Clock::now() + kPatience;
  while (received_.find(text) == std::string::npos)
    if (!readSome(end)) return false;
  return true;
}

void HttpConnection::waitForEnd() {
  const auto end = Clock::now() + kPatience;
  while (readSome(end)) {
  }
}

HttpResponse roundTrip(std::uint16_t port, std::string_view bytes) {
  HttpConnection connection(port);
  connection.send(bytes);
  connection.waitForEnd();
  const std::string& received = connection.received();
  HttpResponse response;
  std::size_t begin = 0;
  while (received.compare(begin, 12, "HTTP/1.1 100") == 0) begin = received.find("\r\n\r\n", begin) + 4;
  const auto end = received.find("\r\n\r\n", begin);
  if (end == std::string::npos) return response;
  response.head = received.substr(begin, end - begin + 2);
  response.body = received.substr(end + 4);
  response.status = std::atoi(response.head.c_str() + sizeof "HTTP/1.1");
  return response;
}

std::string HttpRequest::bytes() const {
  std::string text = method + " " + target + " HTTP/1.1\r\n";
  for (const std::string& header : headers) text += header + "\r\n";
  return text + "\r\n" + body;
}

}  // namespace test
