// The rules that keep everybody but the simulator's own page out, one by one, with the bytes that an intruder sends.
#include "support/plain/HttpClient.hpp"
#include "support/plain/RunningSimulator.hpp"
#include "support/plain/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace {

using test::HttpConnection;
using test::HttpRequest;
using test::HttpResponse;

constexpr std::size_t kLongestText = 72 << 20;  // Bytes of a body that may carry a text.

class LoopbackRulesTests : public ::testing::Test {
 protected:
  std::string host() const { return "127.0.0.1:" + std::to_string(simulator_.port()); }

  // A good request to the interface, for a test to spoil.
  HttpRequest request(const std::string& method = "GET", const std::string& target = "/api/device") const {
    return {method, target, simulator_.pageHeaders(), {}};
  }

  HttpRequest withHeader(const std::string& header) const {
    HttpRequest changed = request();
    changed.headers.push_back(header);
    return changed;
  }

  HttpRequest withHost(const std::vector<std::string>& lines) const {
    HttpRequest changed = request();
    std::erase_if(changed.headers, [](const std::string& line) { return line.starts_with("Host:"); });
    changed.headers.insert(changed.headers.begin(), lines.begin(), lines.end());
    return changed;
  }

  HttpRequest withToken(const std::vector<std::string>& lines) const {
    HttpRequest changed = request();
    std::erase_if(changed.headers, [](const std::string& line) { return line.starts_with("X-Sim-Token:"); });
    changed.headers.insert(changed.headers.begin(), lines.begin(), lines.end());
    return changed;
  }

  // A pasteboard change, for a test to spoil; the pasteboard must then stay empty.
  HttpRequest change(const std::vector<std::string>& headers, const std::string& body) const {
    HttpRequest changed{"PUT", "/api/device/pasteboard", simulator_.pageHeaders(), body};
    changed.headers.insert(changed.headers.end(), headers.begin(), headers.end());
    return changed;
  }

  HttpResponse send(const HttpRequest& request) const { return test::roundTrip(simulator_.port(), request.bytes()); }
  int status(const HttpRequest& request) const { return send(request).status; }

  void expectUntouched() const { EXPECT_EQ(simulator_.device()["pasteboard"], nullptr); }

  test::TemporaryFolder folder_;
  test::RunningSimulator simulator_{folder_.path() / "device"};
};

TEST_F(LoopbackRulesTests, TheGoodRequestIsAnswered) { EXPECT_EQ(status(request()), 200); }

TEST_F(LoopbackRulesTests, ListensOnLoopbackAlone) {
  ifaddrs* list = nullptr;
  ASSERT_EQ(::getifaddrs(&list), 0);
  // Every address of 127/8 reaches a socket that listens on all of them.
  std::vector<in_addr_t> others{htonl(INADDR_LOOPBACK + 1)};
  for (const ifaddrs* entry = list; entry != nullptr; entry = entry->ifa_next) {
    if (entry->ifa_addr == nullptr || entry->ifa_addr->sa_family != AF_INET) continue;
    const auto address = reinterpret_cast<const sockaddr_in*>(entry->ifa_addr)->sin_addr.s_addr;
    if (address != htonl(INADDR_LOOPBACK)) others.push_back(address);
  }
  ::freeifaddrs(list);
  for (const in_addr_t other : others) {
    const sim::Descriptor socket(::socket(AF_INET, SOCK_STREAM, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(simulator_.port());
    address.sin_addr.s_addr = other;
    EXPECT_NE(::connect(socket.get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  }
}

TEST_F(LoopbackRulesTests, RefusesARequestWithoutHost) {
  EXPECT_EQ(status(withHost({})), 400);
  HttpRequest old = withHost({});
  std::string bytes = old.bytes();
  bytes.replace(bytes.find("HTTP/1.1"), 8, "HTTP/1.0");
  EXPECT_EQ(test::roundTrip(simulator_.port(), bytes).status, 403);
}

TEST_F(LoopbackRulesTests, RefusesTwoHosts) {
  EXPECT_EQ(status(withHost({"Host: " + host(), "Host: " + host()})), 403);
  EXPECT_EQ(status(withHost({"Host: evil.test", "Host: " + host()})), 403);
}

TEST_F(LoopbackRulesTests, TakesBothOfItsNames) {
  EXPECT_EQ(status(withHost({"Host: localhost:" + std::to_string(simulator_.port())})), 200);
  EXPECT_EQ(status(withHost({"Host: LocalHost:" + std::to_string(simulator_.port())})), 200);
}

TEST_F(LoopbackRulesTests, RefusesAReboundName) {
  const std::string port = std::to_string(simulator_.port());
  for (const std::string& name :
       {"rebind.test:" + port, "127.0.0.1.nip.test:" + port, std::string("127.0.0.1"), std::string("localhost"),
        "127.0.0.2:" + port, "[::1]:" + port, std::string("127.0.0.1:1")}) {
    EXPECT_EQ(status(withHost({"Host: " + name})), 403) << name;
    // What a rebound page sends: an Origin that equals its Host.
    HttpRequest rebound = withHost({"Host: " + name});
    rebound.headers.push_back("Origin: http://" + name);
    EXPECT_EQ(status(rebound), 403) << name;
  }
}

TEST_F(LoopbackRulesTests, RefusesAReboundNameForThePageToo) {
  EXPECT_EQ(status({"GET", "/", {"Host: rebind.test:" + std::to_string(simulator_.port()), "Connection: close"}, {}}),
            403);
}

TEST_F(LoopbackRulesTests, AMalformedHostIsABadRequest) {
  for (const std::string& name : {"127.0.0.1:80:90", "user@127.0.0.1", "127.0.0.1:", "127.0.0.1:http", "a b", "[::1",
                                  "[x]", "127.0.0.1:1234567", "%31", "http://127.0.0.1"})
    EXPECT_EQ(status(withHost({"Host: " + name})), 400) << name;
}

TEST_F(LoopbackRulesTests, AcceptsItsOwnOrigin) {
  EXPECT_EQ(status(withHeader("Origin: http://" + host())), 200);
  EXPECT_EQ(status(withHeader("Origin: http://localhost:" + std::to_string(simulator_.port()))), 200);
}

TEST_F(LoopbackRulesTests, RefusesEveryOtherOrigin) {
  for (const std::string& origin :
       {std::string("null"), std::string("http://evil.test"), "https://" + host(), std::string("http://127.0.0.1:1"),
        std::string("http://127.0.0.1"), std::string(), "http://" + host() + "/", "http://" + host() + ".evil.test"})
    EXPECT_EQ(status(withHeader("Origin: " + origin)), 403) << origin;
  HttpRequest two = withHeader("Origin: http://" + host());
  two.headers.push_back("Origin: http://" + host());
  EXPECT_EQ(status(two), 403);
}

TEST_F(LoopbackRulesTests, RefusesRequestsOfOtherSites) {
  EXPECT_EQ(status(withHeader("Sec-Fetch-Site: same-origin")), 200);
  EXPECT_EQ(status(withHeader("Sec-Fetch-Site: none")), 200);
  for (const std::string site : {"same-site", "cross-site", "", "other"})
    EXPECT_EQ(status(withHeader("Sec-Fetch-Site: " + site)), 403) << site;
}

TEST_F(LoopbackRulesTests, ALinkToThePageMayStandAnywhereButItsPartsMayNot) {
  const std::vector<std::string> headers{"Host: " + host(), "Sec-Fetch-Site: cross-site", "Connection: close"};
  EXPECT_EQ(status({"GET", "/", headers, {}}), 200);
  EXPECT_EQ(status({"GET", "/parts/list.js", headers, {}}), 403);
  EXPECT_EQ(status({"POST", "/", headers, {}}), 403);
}

TEST_F(LoopbackRulesTests, EveryCallNeedsTheToken) {
  for (const std::string target : {"/api", "/api/screen", "/api/device", "/api/stream", "/api/nothing", "/images/1",
                                   "/images", "/shared/1", "/shared"}) {
    HttpRequest without = withToken({});
    without.target = target;
    EXPECT_EQ(status(without), 403) << target;
  }
  EXPECT_EQ(status({"GET", "/", {"Host: " + host(), "Connection: close"}, {}}), 200);
}

TEST_F(LoopbackRulesTests, RefusesAWrongToken) {
  const std::string& token = simulator_.token();
  std::string other = token;
  other.back() = other.back() == '0' ? '1' : '0';
  for (const std::string& wrong :
       {other, std::string(), token.substr(1), token + "0", token + token, std::string(32, '0')})
    EXPECT_EQ(status(withToken({"X-Sim-Token: " + wrong})), 403) << wrong;
  EXPECT_EQ(status(withToken({"X-Sim-Token: " + token, "X-Sim-Token: " + token})), 403);
}

TEST_F(LoopbackRulesTests, TheTokenHas128BitsAndIsNewEachTime) {
  EXPECT_EQ(simulator_.token().size(), 32u);
  EXPECT_EQ(simulator_.token().find_first_not_of("0123456789abcdef"), std::string::npos);
  test::TemporaryFolder other;
  EXPECT_NE(test::RunningSimulator(other.path() / "device").token(), simulator_.token());
}

TEST_F(LoopbackRulesTests, RefusesPreflights) {
  for (const std::string target : {"/api/events", "/", "/parts/list.js"}) {
    HttpRequest preflight = request("OPTIONS", target);
    preflight.headers.push_back("Access-Control-Request-Method: POST");
    const HttpResponse response = send(preflight);
    EXPECT_EQ(response.status, 403) << target;
    EXPECT_EQ(response.header("Access-Control-Allow-Origin"), "");
  }
}

TEST_F(LoopbackRulesTests, StateChangesTakePostOrPutAlone) {
  for (const std::string method : {"GET", "HEAD", "POST", "DELETE", "PATCH", "TRACE"}) {
    HttpRequest wrong = change({"Content-Type: application/json", "Content-Length: 14"}, "{\"string\":\"x\"}");
    wrong.method = method;
    const HttpResponse response = send(wrong);
    EXPECT_EQ(response.status, 405) << method;
    EXPECT_EQ(response.header("Allow"), "PUT") << method;
  }
  EXPECT_EQ(status(request("POST", "/api/screen")), 405);
  EXPECT_EQ(status(request("GET", "/api/events")), 405);
  EXPECT_EQ(status(request("PUT", "/")), 405);
  expectUntouched();
}

TEST_F(LoopbackRulesTests, BodiesMustBeJsonByTheirType) {
  const std::string body = "{\"string\":\"x\"}";
  const std::string length = "Content-Length: " + std::to_string(body.size());
  for (const std::string type : {"text/plain", "application/x-www-form-urlencoded", "multipart/form-data",
                                 "application/jsonx", "text/plain; a=application/json", ""})
    EXPECT_EQ(status(change({length, "Content-Type: " + type}, body)), 415) << type;
  EXPECT_EQ(status(change({length}, body)), 415);
  EXPECT_EQ(status(change({length, "Content-Type: application/json", "Content-Type: text/plain"}, body)), 415);
  EXPECT_EQ(status(change({length, "Content-Type: application/json", "Content-Encoding: gzip"}, body)), 415);
  expectUntouched();
  EXPECT_EQ(status(change({length, "Content-Type: application/json; charset=utf-8"}, body)), 200);
  EXPECT_EQ(simulator_.device()["pasteboard"], "x");
}

TEST_F(LoopbackRulesTests, BodiesAreLimited) {
  const std::string type = "Content-Type: application/json";
  const std::string style = "{\"style\":\"dark\"}";
  const auto appearance = [&](std::size_t size) {
    HttpRequest changed = change({type, "Content-Length: " + std::to_string(size)}, style);
    changed.target = "/api/device/appearance";
    changed.body.resize(size, ' ');
    return changed;
  };
  EXPECT_EQ(status(appearance((1 << 20) + 1)), 413);
  EXPECT_EQ(simulator_.device()["appearance"], nullptr);
  EXPECT_EQ(status(appearance(1 << 20)), 200);
  EXPECT_EQ(status(change({type, "Content-Length: " + std::to_string(kLongestText + 1)}, "{}")), 413);
  EXPECT_EQ(status(change({type, "Content-Length: 18446744073709551615"}, "{}")), 413);
  expectUntouched();
}

TEST_F(LoopbackRulesTests, ATextOf64MebibytesPasses) {
  const std::string text(64 << 20, 'x');
  const std::string body = "{\"string\":\"" + text + "\"}";
  const std::string length = "Content-Length: " + std::to_string(body.size());
  EXPECT_EQ(status(change({"Content-Type: application/json", length}, body)), 200);
  EXPECT_EQ(simulator_.device()["pasteboardLength"], text.size());
  EXPECT_EQ(simulator_.device()["pasteboard"].get<std::string>().size(), 65'536u);
  EXPECT_EQ(simulator_.get("/api/device/pasteboard/string").json()["string"].get<std::string>(), text);
}

TEST_F(LoopbackRulesTests, BodiesInChunksAreLimitedToo) {
  const std::vector<std::string> headers{"Content-Type: application/json", "Transfer-Encoding: chunked"};
  const std::string chunk = "100000\r\n" + std::string(1 << 20, ' ') + "\r\n";
  std::string chunks;
  for (std::size_t sent = 0; sent <= kLongestText; sent += 1 << 20) chunks += chunk;
  EXPECT_EQ(status(change(headers, chunks + "0\r\n\r\n")), 413);
  expectUntouched();
  EXPECT_EQ(status(change(headers, "e\r\n{\"string\":\"x\"}\r\n0\r\n\r\n")), 200);
}

TEST_F(LoopbackRulesTests, AnEndlessBodyEndsTheConnection) {
  HttpConnection connection(simulator_.port());
  connection.send(change({"Content-Type: application/json", "Transfer-Encoding: chunked"}, {}).bytes());
  const std::string chunk = "100000\r\n" + std::string(1 << 20, ' ') + "\r\n";
  for (std::size_t sent = 0; sent < 2 * kLongestText; sent += 1 << 20) connection.send(chunk);
  connection.waitForEnd();
  expectUntouched();
}

TEST_F(LoopbackRulesTests, RefusesTwoLengthsOfOneBody) {
  const std::string type = "Content-Type: application/json";
  const std::string body = "{\"string\":\"x\"}";
  EXPECT_EQ(
      status(change({type, "Content-Length: 14", "Transfer-Encoding: chunked"}, "e\r\n" + body + "\r\n0\r\n\r\n")),
      400);
  EXPECT_EQ(status(change({type, "Content-Length: 14", "Content-Length: 14"}, body)), 400);
  EXPECT_EQ(status(change({type, "Content-Length: 14", "Content-Length: 0"}, body)), 400);
  EXPECT_EQ(status(change({type, "Content-Length: -1"}, body)), 400);
  EXPECT_EQ(status(change({type, "Content-Length: 14x"}, body)), 400);
  expectUntouched();
}

TEST_F(LoopbackRulesTests, HeadersAreLimited) {
  HttpRequest many = request();
  for (int i = 0; i < 70; ++i) many.headers.push_back("X-Number-" + std::to_string(i) + ": x");
  EXPECT_EQ(status(many), 431);
  for (int i = 0; i < 5000; ++i) many.headers.push_back("X-More-" + std::to_string(i) + ": x");
  EXPECT_EQ(status(many), 431);
  EXPECT_EQ(status(withHeader("X-Long: " + std::string(100'000, 'x'))), 431);
  HttpRequest longTarget = request();
  longTarget.target = "/" + std::string(100'000, 'x');
  EXPECT_EQ(status(longTarget), 414);
}

TEST_F(LoopbackRulesTests, NoPathLeavesTheTable) {
  for (const std::string target : {"/../server/main.cpp", "/parts/../index.html", "/parts/%2e%2e/index.html",
                                   "/..%2f..%2fetc/passwd", "//etc/passwd", "/parts", "/parts/", "/.hidden",
                                   "/parts/list.js%00", "/index.html/", "/%69ndex.html", "/parts\\list.js"})
    EXPECT_EQ(status({"GET", target, {"Host: " + host(), "Connection: close"}, {}}), 404) << target;
}

TEST_F(LoopbackRulesTests, RefusesTargetsThatAreNoPaths) {
  for (const std::string& target : {"http://" + host() + "/", std::string("*"), std::string("evil.test:80")})
    EXPECT_EQ(status({"GET", target, {"Host: " + host(), "Connection: close"}, {}}), 400) << target;
}

TEST_F(LoopbackRulesTests, NonsenseIsABadRequestOrTheEnd) {
  for (const std::string& bytes :
       {std::string("\r\n\r\n\r\n"), std::string("GET\r\n\r\n"), std::string("\x16\x03\x01\x02"),
        std::string(10'000, '\0'), std::string("GET / HTTP/9.9\r\n\r\n"), std::string()}) {
    HttpConnection connection(simulator_.port());
    connection.send(bytes);
  }
  EXPECT_EQ(status(request()), 200);
}

TEST_F(LoopbackRulesTests, EveryResponseForbidsWhatAPageDoesNotNeed) {
  for (const HttpResponse& response :
       {simulator_.get("/"), simulator_.get("/parts/list.js"), simulator_.get("/api/device"),
        simulator_.get("/nothing"), send(withHost({"Host: evil.test"}))}) {
    const std::string policy = response.header("Content-Security-Policy");
    EXPECT_TRUE(policy.starts_with("default-src 'self'; img-src 'self' blob:;")) << response.head;
    EXPECT_NE(policy.find("frame-ancestors 'none'"), std::string::npos);
    EXPECT_EQ(response.header("Cross-Origin-Resource-Policy"), "same-origin");
    EXPECT_EQ(response.header("Cross-Origin-Opener-Policy"), "same-origin");
    EXPECT_EQ(response.header("X-Content-Type-Options"), "nosniff");
    EXPECT_EQ(response.header("Referrer-Policy"), "no-referrer");
    EXPECT_EQ(response.header("Access-Control-Allow-Origin"), "");
    EXPECT_EQ(response.header("Set-Cookie"), "");
  }
}

TEST_F(LoopbackRulesTests, ThePagesFilesHaveTheirTypes) {
  EXPECT_EQ(simulator_.get("/").header("Content-Type"), "text/html; charset=utf-8");
  EXPECT_EQ(simulator_.get("/index.html").body, simulator_.get("/").body);
  EXPECT_EQ(simulator_.get("/parts/list.js").header("Content-Type"), "text/javascript; charset=utf-8");
  EXPECT_EQ(simulator_.get("/parts/list.js?version=2").status, 200);
  EXPECT_EQ(simulator_.get("/fonts/Inter-Regular.otf").header("Content-Type"), "font/otf");
  const HttpResponse head = send(request("HEAD", "/"));
  EXPECT_EQ(head.status, 200);
  EXPECT_EQ(head.body, "");
}

TEST_F(LoopbackRulesTests, OpenStreamsAreLimitedAndAClosedOneMakesRoom) {
  HttpRequest stream = request("GET", "/api/stream");
  std::erase(stream.headers, "Connection: close");
  std::vector<HttpConnection> open;
  open.reserve(32);
  for (int i = 0; i < 32; ++i) {
    open.emplace_back(simulator_.port()).send(stream.bytes());
    ASSERT_TRUE(open.back().waitFor("event: screen"));
  }
  EXPECT_EQ(status(request("GET", "/api/stream")), 503);
  EXPECT_EQ(status(request()), 200) << "other requests are answered all the same";

  open.pop_back();
  HttpConnection next(simulator_.port());
  next.send(stream.bytes());
  ASSERT_TRUE(next.waitFor("\r\n\r\n"));
  EXPECT_TRUE(next.received().starts_with("HTTP/1.1 200")) << next.received();
}

}  // namespace
