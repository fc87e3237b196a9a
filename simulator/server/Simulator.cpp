#include "server/Simulator.hpp"

#include "base/Failure.hpp"

#include <poll.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <string_view>
#include <utility>
#include <vector>

namespace sim {
namespace {

constexpr std::size_t kImageCacheBytes = 64 << 20;
constexpr std::chrono::seconds kKeepAlive{15};

// Where Debian keeps the fonts in which texts are measured, and the weights that the page uses.
struct FontFolder {
  std::string_view path;
  std::vector<std::string_view> files;
};
const std::array kFonts{
    FontFolder{"/usr/share/fonts/opentype/inter",
               {"Inter-Regular.otf", "Inter-Medium.otf", "Inter-SemiBold.otf", "Inter-Bold.otf", "Inter-Italic.otf"}},
    FontFolder{"/usr/share/fonts/truetype/liberation",
               {"LiberationSans-Regular.ttf", "LiberationSans-Italic.ttf", "LiberationSans-Bold.ttf",
                "LiberationSans-BoldItalic.ttf", "LiberationSerif-Regular.ttf", "LiberationSerif-Italic.ttf",
                "LiberationSerif-Bold.ttf", "LiberationSerif-BoldItalic.ttf", "LiberationMono-Regular.ttf",
                "LiberationMono-Italic.ttf", "LiberationMono-Bold.ttf", "LiberationMono-BoldItalic.ttf"}},
};

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
      stage_(loop_, {options.settings, folder_.path(), patience, sandbox_ ? &*sandbox_ : nullptr}, stageListener()),
      api_(settings_, stage_, device_, files_, images_, [this, tree = options.install] { folder_.install(tree); }) {
  readPage(options);
  folder_.install(options.install);
  Listener listener = listenOnLoopback(options.port);
  const std::string origin = "http://127.0.0.1:" + std::to_string(listener.port) + "/";
  const std::string token = makeToken();
  address_ = origin + "#t=" + token;
  folder_.lock().setAddress(origin);
  addressFile_.emplace(folder_.ownFolder() / "address", address_);

  loop_.watch(folder_.backboardd().descriptor(), POLLIN, [this] { takeKills(); });
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
  stage_.stop();
}

void Simulator::run() { loop_.run(); }

void Simulator::readPage(const Options& options) {
  page_.addPage(options.web);
  for (const auto& [folder, files] : kFonts) {
    for (const std::string_view font : files) {
      page_.addFile("/fonts/" + std::string(font), std::filesystem::path(folder) / font);
    }
  }
}

SettingsProcess::Listener Simulator::settingsListener() {
  return {
      .greeting = [this] { return greeting(); },
      .posted =
          [this](SettingsProcess::Post post) {
            if (const auto* pasteboard = std::get_if<wire::Pasteboard>(&post)) stage_.tell(*pasteboard);
            posted(std::move(post));
          },
      .logged = [this](const std::string& line) { logged(line); },
      .revisionChanged = [this] { publish(); },
      .started = [this] { images_.clear(); },
  };
}

WidgetStage::Listener Simulator::stageListener() {
  return {
      .greeting = [this] { return greeting(); },
      .posted =
          [this](SettingsProcess::Post post) {
            if (const auto* pasteboard = std::get_if<wire::Pasteboard>(&post)) settings_.tell(*pasteboard);
            posted(std::move(post));
          },
      .logged = [this](const std::string& line) { logged(line); },
      .changed = [this] { device_.stageChanged(); },
  };
}

std::vector<wire::Call> Simulator::greeting() const {
  std::vector<wire::Call> calls{displayCall(device_.display()), wire::Pasteboard{device_.pasteboard()}};
  if (const auto& style = device_.appearance()) calls.push_back(appearanceCall(*style));
  return calls;
}

void Simulator::posted(SettingsProcess::Post post) {
  std::visit(wire::Overloaded{
                 [this](wire::Notification& each) { device_.addNotification(std::move(each.name)); },
                 [this](wire::OpenURL& each) { device_.addOpenedUrl(std::move(each.url)); },
                 [this](wire::Pasteboard& each) { device_.setPasteboard(std::move(each.string)); },
                 [this](wire::Log& each) { device_.addLogLine(asOnDevice(std::move(each.line))); },
                 [](auto&) {},  // Of widgets, which are the stage's.
             },
             post);
}

// Without the device folder before the paths in it.
std::string Simulator::asOnDevice(std::string line) const {
  const std::string folder = folder_.path().string() + "/";
  for (std::size_t place = 0; (place = line.find(folder, place)) != std::string::npos; ++place)
    line.replace(place, folder.size(), "/");
  return line;
}

void Simulator::logged(const std::string& line) {
  std::fprintf(stderr, "%s\n", line.c_str());
  device_.addLogLine("[simulator] " + line);
}

void Simulator::publish() { streams_.publish({settings_.revision(), device_.sequence()}); }

void Simulator::takeKills() {
  const KillRequests requests = folder_.backboardd().takeRequests();
  for (int i = 0; i < requests.userInterface; ++i) device_.addRespring();
  if (requests.userInterface > 0) stage_.close("The device resprang.");
  else if (requests.settings > 0) logged("Settings was ended by killall, and is started afresh.");
  if (requests != KillRequests()) settings_.respring();
}

void Simulator::keepStreamsAlive() {
  loop_.after(kKeepAlive, [this] {
    streams_.keepAlive();
    keepStreamsAlive();
  });
}

}  // namespace sim
