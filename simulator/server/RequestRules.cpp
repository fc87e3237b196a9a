#include "server/RequestRules.hpp"

#include "base/Failure.hpp"

#include <sys/random.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>

namespace sim {
namespace {

constexpr std::size_t kMostHeaders = 64;

bool isAlphanumeric(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string lowercase(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), [](unsigned char c) { return std::tolower(c); });
  return result;
}

// A registered name or an IPv4 address, or an IPv6 address in brackets; then an optional port.
bool isWellFormedHost(std::string_view host) {
  std::string_view name = host;
  std::string_view port;
  if (!host.empty() && host.front() == '[') {
    const auto end = host.find(']');
    if (end == std::string_view::npos) return false;
    const auto address = host.substr(1, end - 1);
    if (!std::ranges::all_of(
            address, [](char c) { return std::isxdigit(static_cast<unsigned char>(c)) || c == ':' || c == '.'; }))
      return false;
    name = "address";
    port = host.substr(end + 1);
  } else if (const auto colon = host.find(':'); colon != std::string_view::npos) {
    name = host.substr(0, colon);
    port = host.substr(colon);
  }
  const bool goodName = !name.empty() && std::ranges::all_of(name, [](char c) {
    return isAlphanumeric(c) || c == '-' || c == '.' || c == '_';
  });
  const bool goodPort = port.empty() || (port.size() >= 2 && port.size() <= 6 && port.front() == ':' &&
                                         std::ranges::all_of(port.substr(1), isDigit));
  return goodName && goodPort;
}

bool needsToken(std::string_view path) {
  const auto isBelow = [path](std::string_view folder) {
    return path == folder || (path.starts_with(folder) && path[folder.size()] == '/');
  };
  return isBelow("/api") || isBelow("/images") || isBelow("/shared");
}

}  // namespace

std::string makeToken() {
  std::array<unsigned char, 16> bytes{};
  if (::getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
    throw Failure::fromErrno("Cannot make the session's token", errno);
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string token;
  for (const unsigned char byte : bytes) {
    token += kDigits[byte >> 4];
    token += kDigits[byte & 15];
  }
  return token;
}

bool equalInConstantTime(std::string_view given, std::string_view expected) {
  unsigned difference = given.size() == expected.size() ? 0 : 1;
  for (std::size_t i = 0; i < given.size(); ++i) {
    const char other = expected.empty() ? '\0' : expected[i % expected.size()];
    difference |= static_cast<unsigned char>(given[i] ^ other);
  }
  return difference == 0;
}

RequestRules::RequestRules(std::uint16_t port, std::string token)
    : ownHosts_{"127.0.0.1:" + std::to_string(port), "localhost:" + std::to_string(port)}, token_(std::move(token)) {}

std::optional<Response> RequestRules::refusal(const RequestHead& head) const {
  if (auto refused = framingRefusal(head)) return refused;
  if (auto refused = hostRefusal(head)) return refused;
  if (auto refused = originRefusal(head)) return refused;
  if (head.method == "OPTIONS") return errorResponse(403, "Requests from other origins are refused.");
  return tokenRefusal(head);
}

std::optional<Response> RequestRules::framingRefusal(const RequestHead& head) const {
  if (head.headers.size() > kMostHeaders) return errorResponse(431, "The request has too many headers.");
  if (!head.path.starts_with('/')) return errorResponse(400, "The request's target is no path.");
  const auto lengths = head.values("Content-Length").size();
  const auto codings = head.values("Transfer-Encoding").size();
  if (lengths + codings > 1) return errorResponse(400, "The request says more than once how long its body is.");
  if (!head.values("Content-Encoding").empty()) return errorResponse(415, "Encoded bodies are refused.");
  return std::nullopt;
}

std::optional<Response> RequestRules::hostRefusal(const RequestHead& head) const {
  const auto hosts = head.values("Host");
  if (hosts.size() != 1) return errorResponse(403, "The request must have exactly one Host.");
  if (!isWellFormedHost(hosts.front())) return errorResponse(400, "The Host is malformed.");
  if (std::ranges::find(ownHosts_, lowercase(hosts.front())) == std::end(ownHosts_))
    return errorResponse(403, "The Host is not this simulator.");
  return std::nullopt;
}

std::optional<Response> RequestRules::originRefusal(const RequestHead& head) const {
  const auto origins = head.values("Origin");
  const auto isOwn = [this](std::string_view origin) {
    return origin == "http://" + ownHosts_[0] || origin == "http://" + ownHosts_[1];
  };
  if (origins.size() > 1 || !std::ranges::all_of(origins, isOwn))
    return errorResponse(403, "Requests from other origins are refused.");

  // The page itself holds no secret, and a link to it may stand anywhere.
  const bool isPage = head.path == "/" && (head.method == "GET" || head.method == "HEAD");
  const auto isFromHere = [](std::string_view site) { return site == "same-origin" || site == "none"; };
  if (!isPage && !std::ranges::all_of(head.values("Sec-Fetch-Site"), isFromHere))
    return errorResponse(403, "Requests from other origins are refused.");
  return std::nullopt;
}

std::optional<Response> RequestRules::tokenRefusal(const RequestHead& head) const {
  if (!needsToken(head.path)) return std::nullopt;
  const auto tokens = head.values("X-Sim-Token");
  if (tokens.size() != 1 || !equalInConstantTime(tokens.front(), token_))
    return errorResponse(403, "The request lacks this simulator's X-Sim-Token.");
  return std::nullopt;
}

}  // namespace sim
