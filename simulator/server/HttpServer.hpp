// The loopback HTTP server. It runs on one thread of its own, which checks, routes and reads requests; calls that need
// the main thread wait suspended for their response.
#pragma once

#include "base/Descriptor.hpp"
#include "server/EventStreams.hpp"
#include "server/Http.hpp"
#include "server/RequestRules.hpp"
#include "server/Router.hpp"
#include "server/UploadFolder.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>

struct MHD_Daemon;

namespace sim {

/// The loopback socket that the server listens on, bound before anything else is started.
struct Listener {
  Descriptor socket;
  std::uint16_t port = 0;
};

/// Binds 127.0.0.1 at `port`; 0 asks for a free one. Throws Failure when the port cannot be had.
Listener listenOnLoopback(std::uint16_t port);

class HttpServer final {
 public:
  /// Takes a call on the HTTP thread; `respond` may be called at any time on any thread, once.
  using Handler = std::function<void(Endpoint, Request, Respond)>;

  /// Starts serving. `router` and `streams` must outlive the server; so must `uploads`, which is the server's alone
  /// from now on. Throws Failure when the server cannot start.
  HttpServer(Listener listener, RequestRules rules, const Router& router, EventStreams& streams, UploadFolder& uploads,
             Handler handler);

  /// Answers what still waits with 503, ends the streams and the thread.
  ~HttpServer();
  HttpServer(const HttpServer&) = delete;
  HttpServer& operator=(const HttpServer&) = delete;

 private:
  struct Exchange;
  struct Callbacks;

  int begin(Exchange& exchange);
  std::optional<Response> prepareBody(Exchange& exchange);
  int finish(Exchange& exchange);
  int call(Exchange& exchange);
  int stream(Exchange& exchange);
  void respond(Exchange& exchange, Response response);

  RequestRules rules_;
  const Router& router_;
  EventStreams& streams_;
  UploadFolder& uploads_;  // HTTP thread.
  int openUploads_ = 0;    // HTTP thread.
  Handler handler_;
  MHD_Daemon* daemon_ = nullptr;

  std::mutex mutex_;  // Guards what follows and the responses of suspended exchanges.
  std::set<std::shared_ptr<Exchange>> waiting_;
  bool stopping_ = false;
};

}  // namespace sim
