#include "server/Simulator.hpp"

#include "base/Failure.hpp"

#include <poll.h>

#include <chrono>
#include <cstdio>
#include <utility>

namespace sim {
namespace {

constexpr std::size_t kImageCacheBytes = 64 << 20;
constexpr std::chrono::seconds kKeepAlive{15};

// Where Debian keeps the font in which texts are measured, and the weights that the page uses.
constexpr std::string_view kFontFolder = "/usr/share/fonts/opentype/inter";
constexpr std::string_view kFonts[] = {"Inter-Regular.otf", "Inter-Medium.otf", "Inter-SemiBold.otf", "Inter-Bold.otf"};

std::optional<std::string> textIn(const nlohmann::json& message, const char* key) {
  const auto found = message.find(key);
  if (found == message.end() || !found->is_string()) return std::nullopt;
  return found->get<std::string>();
}

// Nothing where Settings is to run, or can only run, without one. The user is told of the latter.
std::optional<Sandbox> sandboxFor(const Options& options, const DeviceFolder& folder) {
  if (!options.sandbox) return std::nullopt;
  Sandbox sandbox(folder.path(), folder.ownFolder());
  const std::string problem = sandbox.problem();
  if (problem.empty()) return sandbox;
  std::fprintf(stderr, "Settings runs without a sandbox, its device paths mapped by the frameworks: %s.\n",
               problem.c_str());
  return std::nullopt;
}

}  // namespace

Simulator::Simulator(const Options& options, SettingsProcess::Patience patience)
    : folder_(options.device),
      uploads_(folder_.path(), folder_.ownDevicePath() + "/uploads"),
      device_([this] { publish(); }),
      files_(loop_, folder_.path(), preferenceFolders(), [this] { device_.filesChanged(); }),
      images_(kImageCacheBytes),
      sandbox_(sandboxFor(options, folder_)),
      settings_(loop_, {options.settings, folder_.path(), patience, sandbox_ ? &*sandbox_ : nullptr},
                settingsListener()),
      api_(settings_, device_, files_, images_) {
  readPage(options);
  folder_.install(options.install);
  Listener listener = listenOnLoopback(options.port);
  const std::string origin = "http://127.0.0.1:" + std::to_string(listener.port) + "/";
  const std::string token = makeToken();
  address_ = origin + "#t=" + token;
  folder_.lock().setAddress(origin);

  loop_.watch(folder_.backboardd().descriptor(), POLLIN, [this] { takeResprings(); });
  keepStreamsAlive();
  settings_.start();
  RequestRules rules(listener.port, token);
  server_.emplace(
      std::move(listener), std::move(rules), router_, streams_, uploads_,
      [this](Endpoint endpoint, Request request, Respond respond) {
        // Shared, since a task of the loop is copied.
        auto call = std::make_shared<std::pair<Request, Respond>>(std::move(request), std::move(respond));
        loop_.post([this, endpoint, call] { api_.handle(endpoint, std::move(call->first), std::move(call->second)); });
      });
}

Simulator::~Simulator() {
  loop_.unwatch(folder_.backboardd().descriptor());
  settings_.stop();  // Answers what waits for it, which takes the server.
}

void Simulator::run() { loop_.run(); }

void Simulator::readPage(const Options& options) {
  page_.addPage(options.web);
  if (!page_.addFile("/modules/htm-preact.mjs", options.modules / "htm/preact/standalone.module.js"))
    std::fprintf(stderr, "The page's module htm is not installed in %s; the page will stay empty.\n",
                 options.modules.c_str());
  for (const std::string_view font : kFonts)
    page_.addFile("/fonts/" + std::string(font), std::filesystem::path(kFontFolder) / font);
}

SettingsProcess::Listener Simulator::settingsListener() {
  return {
      .greeting =
          [this] {
            std::vector messages{displayMessage(device_.display()), pasteboardMessage(device_.pasteboard())};
            if (const auto& style = device_.appearance()) messages.push_back(appearanceMessage(*style));
            return messages;
          },
      .posted = [this](const nlohmann::json& post) { posted(post); },
      .logged = [this](const std::string& line) { logged(line); },
      .revisionChanged = [this] { publish(); },
      .started = [this] { images_.clear(); },
  };
}

void Simulator::posted(const nlohmann::json& post) {
  const auto kind = textIn(post, "post");
  if (kind == "notification") {
    if (auto name = textIn(post, "name")) device_.addNotification(*std::move(name));
  } else if (kind == "openURL") {
    if (auto url = textIn(post, "url")) device_.addOpenedUrl(*std::move(url));
  } else if (kind == "pasteboard") {
    device_.setPasteboard(textIn(post, "string"));
  } else if (kind == "log") {
    if (auto line = textIn(post, "line")) device_.addLogLine(*std::move(line));
  }
}

void Simulator::logged(const std::string& line) {
  std::fprintf(stderr, "%s\n", line.c_str());
  device_.addLogLine("[simulator] " + line);
}

void Simulator::publish() { streams_.publish({settings_.revision(), device_.sequence()}); }

void Simulator::takeResprings() {
  const int requests = folder_.backboardd().takeRequests();
  for (int i = 0; i < requests; ++i) device_.addRespring();
  if (requests > 0) settings_.respring();
}

void Simulator::keepStreamsAlive() {
  loop_.after(kKeepAlive, [this] {
    streams_.keepAlive();
    keepStreamsAlive();
  });
}

}  // namespace sim
