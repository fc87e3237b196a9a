#include "server/HttpServer.hpp"

#include "base/Failure.hpp"
#include "server/RequestBody.hpp"

#include <arpa/inet.h>
#include <microhttpd.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <utility>

namespace sim {
namespace {

constexpr unsigned kMostConnections = 128;
constexpr unsigned kIdleSeconds = 30;
constexpr std::size_t kConnectionMemory = 32 << 10;  // Bytes; bounds the request's first line and headers.
constexpr int kMostUploads = 8;  // At once; each may take up as much of the disk as a file may have.

constexpr std::string_view kStopping = "The simulator is stopping.";

constexpr std::pair<const char*, const char*> kSecurityHeaders[] = {
    {"Content-Security-Policy",
     "default-src 'self'; img-src 'self' blob:; object-src 'none'; base-uri 'none'; form-action 'none'; "
     "frame-ancestors 'none'"},
    {"Cross-Origin-Resource-Policy", "same-origin"},
    {"Cross-Origin-Opener-Policy", "same-origin"},
    {"X-Content-Type-Options", "nosniff"},
    {"Referrer-Policy", "no-referrer"},
};

bool has(const Response& response, std::string_view name) {
  return std::ranges::any_of(response.headers, [name](const auto& header) { return header.first == name; });
}

void addHeaders(MHD_Response* made, const Response& response) {
  for (const auto& [name, value] : kSecurityHeaders) MHD_add_response_header(made, name, value);
  MHD_add_response_header(made, "Content-Type", response.type.c_str());
  if (!has(response, "Cache-Control")) MHD_add_response_header(made, "Cache-Control", "no-store");
  for (const auto& [name, value] : response.headers) MHD_add_response_header(made, name.c_str(), value.c_str());
}

MHD_Result queue(MHD_Connection* connection, const Response& response) {
  auto* shared =
      new std::shared_ptr<const std::string>(response.body ? response.body : std::make_shared<const std::string>());
  const auto forget = [](void* context) { delete static_cast<std::shared_ptr<const std::string>*>(context); };
  MHD_Response* made = MHD_create_response_from_buffer_with_free_callback_cls(
      (*shared)->size(), const_cast<char*>((*shared)->data()), forget, shared);  // The library only reads the bytes.
  if (made == nullptr) {
    forget(shared);
    return MHD_NO;
  }
  addHeaders(made, response);
  const MHD_Result queued = MHD_queue_response(connection, static_cast<unsigned>(response.status), made);
  MHD_destroy_response(made);
  return queued;
}

RequestHead headOf(MHD_Connection* connection, const char* path, const char* method) {
  RequestHead head{method, path, {}};
  const auto collect = [](void* context, MHD_ValueKind, const char* key, std::size_t keySize, const char* value,
                          std::size_t valueSize) {
    static_cast<RequestHead*>(context)->headers.emplace_back(std::string(key, keySize),
                                                             std::string(value ? value : "", valueSize));
    return MHD_YES;
  };
  MHD_get_connection_values_n(connection, MHD_HEADER_KIND, collect, &head);
  return head;
}

// Paths are compared as they are sent.
std::size_t leaveEscaped(void*, MHD_Connection*, char* text) { return std::strlen(text); }

}  // namespace

// One request, from its first line to the end of its response.
struct HttpServer::Exchange : std::enable_shared_from_this<Exchange> {
  MHD_Connection* connection = nullptr;
  Request request;
  std::optional<ApiCall> call;  // Nothing for a stream.
  RequestBody body;
  bool isUpload = false;
  std::optional<Response> response;
};

// What the HTTP library calls, on the HTTP thread.
struct HttpServer::Callbacks {
  static MHD_Result access(void* context, MHD_Connection* connection, const char* path, const char* method, const char*,
                           const char* upload, std::size_t* uploadSize, void** state) {
    auto& server = *static_cast<HttpServer*>(context);
    if (*state == nullptr) {
      auto* begun = new std::shared_ptr<Exchange>(std::make_shared<Exchange>());
      *state = begun;
      (*begun)->connection = connection;
      (*begun)->request.head = headOf(connection, path, method);
      return static_cast<MHD_Result>(server.begin(**begun));
    }
    Exchange& exchange = **static_cast<std::shared_ptr<Exchange>*>(*state);
    if (*uploadSize > 0) return exchange.body.take({upload, std::exchange(*uploadSize, 0)}) ? MHD_YES : MHD_NO;
    return static_cast<MHD_Result>(server.finish(exchange));
  }

  static void complete(void* context, MHD_Connection*, void** state, MHD_RequestTerminationCode) {
    auto* ended = static_cast<std::shared_ptr<Exchange>*>(*state);
    if (ended != nullptr && (*ended)->isUpload) --static_cast<HttpServer*>(context)->openUploads_;
    delete ended;
    *state = nullptr;
  }
};

Listener listenOnLoopback(std::uint16_t port) {
  Listener listener{Descriptor(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)), port};
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(port);
  const int yes = 1;
  const int socket = listener.socket.get();
  ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  socklen_t size = sizeof address;
  if (::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 || ::listen(socket, SOMAXCONN) != 0 ||
      ::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
    if (errno == EADDRINUSE)
      throw Failure("Port " + std::to_string(port) + " is in use by another program; choose another with --port.");
    throw Failure::fromErrno("Cannot listen on port " + std::to_string(port) + " of 127.0.0.1", errno);
  }
  listener.port = ntohs(address.sin_port);
  return listener;
}

HttpServer::HttpServer(Listener listener, RequestRules rules, const Router& router, EventStreams& streams,
                       UploadFolder& uploads, Handler handler)
    : rules_(std::move(rules)), router_(router), streams_(streams), uploads_(uploads), handler_(std::move(handler)) {
  // The library closes the socket when it stops. Not its epoll loop: with libmicrohttpd 0.9.75 that one missed, in a
  // third of the runs or more, that a client had gone in the middle of a body, and kept the file until the time limit.
  daemon_ = MHD_start_daemon(MHD_USE_POLL_INTERNAL_THREAD | MHD_ALLOW_SUSPEND_RESUME, 0, nullptr, nullptr,
                             &Callbacks::access, this, MHD_OPTION_LISTEN_SOCKET, listener.socket.release(),
                             MHD_OPTION_NOTIFY_COMPLETED, &Callbacks::complete, this, MHD_OPTION_UNESCAPE_CALLBACK,
                             &leaveEscaped, nullptr, MHD_OPTION_CONNECTION_LIMIT, kMostConnections,
                             MHD_OPTION_CONNECTION_TIMEOUT, kIdleSeconds, MHD_OPTION_CONNECTION_MEMORY_LIMIT,
                             kConnectionMemory, MHD_OPTION_STRICT_FOR_CLIENT, 1, MHD_OPTION_END);
  if (daemon_ == nullptr) throw Failure::fromErrno("Cannot start the HTTP server", errno);
}

HttpServer::~HttpServer() {
  {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
    for (const auto& exchange : std::exchange(waiting_, {})) {
      exchange->response = errorResponse(503, kStopping);
      MHD_resume_connection(exchange->connection);
    }
  }
  streams_.close();
  MHD_stop_daemon(daemon_);
}

// The headers have arrived: refuses, or goes on to read the body.
int HttpServer::begin(Exchange& exchange) {
  MHD_Connection* connection = exchange.connection;
  const RequestHead& head = exchange.request.head;
  if (const auto refused = rules_.refusal(head)) return queue(connection, *refused);

  const auto decision = router_.route(head);
  if (const auto* response = std::get_if<Response>(&decision)) return queue(connection, *response);
  if (const auto* call = std::get_if<ApiCall>(&decision)) exchange.call = *call;
  if (const auto refused = prepareBody(exchange)) return queue(connection, *refused);
  return MHD_YES;
}

// Makes room for what is announced, or refuses it.
std::optional<Response> HttpServer::prepareBody(Exchange& exchange) {
  const std::size_t longest = exchange.call ? exchange.call->longestBody : 0;
  const auto lengths = exchange.request.head.values("Content-Length");
  if (!lengths.empty() && std::strtoull(std::string(lengths.front()).c_str(), nullptr, 10) > longest)
    return tooLongResponse();
  if (!exchange.call || exchange.call->body != BodyKind::file) {
    exchange.body = RequestBody(longest);
    return std::nullopt;
  }

  if (openUploads_ >= kMostUploads) return errorResponse(503, "Too many files are on their way already.");
  auto begun = uploads_.begin();
  if (const int* error = std::get_if<int>(&begun)) return notStoredResponse(*error);
  exchange.body = RequestBody(longest, std::get<UploadPtr>(std::move(begun)));
  exchange.isUpload = true;
  ++openUploads_;
  return std::nullopt;
}

// The request is there as a whole, or the response to a call is.
int HttpServer::finish(Exchange& exchange) {
  std::optional<Response> response;
  {
    const std::lock_guard lock(mutex_);
    response = std::move(exchange.response);
  }
  if (response) return queue(exchange.connection, *response);
  if (const auto refused = exchange.body.finish(exchange.request)) return queue(exchange.connection, *refused);
  return exchange.call ? call(exchange) : stream(exchange);
}

int HttpServer::call(Exchange& exchange) {
  const auto shared = exchange.shared_from_this();
  {
    const std::lock_guard lock(mutex_);
    if (stopping_) return queue(exchange.connection, errorResponse(503, kStopping));
    // Suspended under the lock, so that the response cannot come before it.
    MHD_suspend_connection(exchange.connection);
    waiting_.insert(shared);
  }
  handler_(exchange.call->endpoint, std::move(exchange.request),
           [this, shared](Response response) { respond(*shared, std::move(response)); });
  return MHD_YES;
}

int HttpServer::stream(Exchange& exchange) {
  const auto seen = exchange.request.head.values("Last-Event-ID");
  MHD_Response* made = streams_.open(exchange.connection, seen.empty() ? std::string_view{} : seen.front());
  if (made == nullptr) return queue(exchange.connection, errorResponse(503, "Too many event streams are open."));
  addHeaders(made, Response{200, "text/event-stream", nullptr, {}});
  const MHD_Result queued = MHD_queue_response(exchange.connection, MHD_HTTP_OK, made);
  MHD_destroy_response(made);
  return queued;
}

void HttpServer::respond(Exchange& exchange, Response response) {
  const std::lock_guard lock(mutex_);
  if (waiting_.erase(exchange.shared_from_this()) == 0) return;
  exchange.response = std::move(response);
  MHD_resume_connection(exchange.connection);
}

}  // namespace sim
