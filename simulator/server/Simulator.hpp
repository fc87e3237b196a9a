// The simulator as a whole: opens a device folder, keeps the Settings process, serves the page and the interface.
#pragma once

#include "device/AddressFile.hpp"
#include "device/DeviceFolder.hpp"
#include "server/Api.hpp"
#include "server/DeviceState.hpp"
#include "server/EventLoop.hpp"
#include "server/EventStreams.hpp"
#include "server/HttpServer.hpp"
#include "server/ImageCache.hpp"
#include "server/Options.hpp"
#include "server/PreferenceFiles.hpp"
#include "server/Router.hpp"
#include "server/SettingsProcess.hpp"
#include "server/StaticFiles.hpp"
#include "server/UploadFolder.hpp"
#include "server/WidgetStage.hpp"

#include <optional>
#include <string>
#include <vector>

namespace sim {

/// Main thread only, but for what the HTTP server hands over through the loop.
class Simulator final {
 public:
  /// Makes everything ready to run. Throws Failure with a sentence for the user.
  explicit Simulator(const Options& options, SettingsProcess::Patience patience = {});
  ~Simulator();
  Simulator(const Simulator&) = delete;
  Simulator& operator=(const Simulator&) = delete;

  /// "http://127.0.0.1:PORT/#t=TOKEN".
  const std::string& address() const noexcept { return address_; }

  EventLoop& loop() noexcept { return loop_; }

  /// Serves until the loop is stopped.
  void run();

 private:
  void readPage(const Options& options);
  SettingsProcess::Listener settingsListener();
  WidgetStage::Listener stageListener();
  std::vector<wire::Call> greeting() const;
  void posted(SettingsProcess::Post post);
  std::string asOnDevice(std::string line) const;
  void logged(const std::string& line);
  void publish();
  void takeKills();
  void keepStreamsAlive();

  EventLoop loop_;
  DeviceFolder folder_;
  UploadFolder uploads_;
  StaticFiles page_;
  Router router_{page_};
  EventStreams streams_;
  DeviceState device_;
  PreferenceFiles files_;
  ImageCache images_;
  std::optional<Sandbox> sandbox_;
  SettingsProcess settings_;
  WidgetStage stage_;
  Api api_;
  std::string address_;
  std::optional<AddressFile> addressFile_;
  std::optional<HttpServer> server_;
};

}  // namespace sim
