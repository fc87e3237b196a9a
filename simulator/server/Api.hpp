// The calls of the automation interface. What they mean is described in docs/automation.md.
#pragma once

#include "server/PreferenceFiles.hpp"
#include "server/DeviceState.hpp"
#include "server/ImageCache.hpp"
#include "server/Router.hpp"
#include "server/SettingsProcess.hpp"
#include "server/WidgetStage.hpp"

#include <string_view>

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace sim {

/// Main thread only. What is handed over must outlive the interface.
class Api final {
 public:
  /// `install` brings the device folder up to date with what the build has now; it may throw Failure.
  Api(SettingsProcess& settings, WidgetStage& stage, DeviceState& device, PreferenceFiles& files, ImageCache& images,
      std::function<void()> install)
      : settings_(settings),
        stage_(stage),
        device_(device),
        files_(files),
        images_(images),
        install_(std::move(install)) {}

  /// Answers the call, now or later.
  void handle(Endpoint endpoint, Request request, Respond respond);

 private:
  void screen(const Respond& respond);
  void stage(const Request& request, Respond respond);
  void event(SettingsProcess* process, Request request, Respond respond);
  void image(const Request& request, Respond respond);
  void addPhoto(const Request& request, Respond respond);
  void pickFile(SettingsProcess* process, const Request& request, Respond respond);
  void shared(const Request& request, Respond respond);
  void device(const Respond& respond);
  void pasteboard(const Request& request, const Respond& respond);
  void pasteboardString(const Respond& respond);
  void appearance(const Request& request, const Respond& respond);
  void display(const Request& request, const Respond& respond);
  void builds(const Request& request, const Respond& respond);
  void reload(Respond respond);

  void ask(SettingsProcess* process, wire::Call call, Respond respond);
  void tell(const wire::Call& call);
  SettingsProcess* processOf(std::string_view identifier);

  SettingsProcess& settings_;
  WidgetStage& stage_;
  DeviceState& device_;
  PreferenceFiles& files_;
  ImageCache& images_;
  const std::function<void()> install_;
  std::optional<std::string> place_;  // The pages that were open before the last reload.
  bool isPlaceCurrent_ = false;       // Nobody has touched the device since.
};

/// What tells the Settings process whether the device is "light" or "dark".
wire::Appearance appearanceCall(std::string_view style);

/// What tells the Settings process what the screen is like.
wire::Display displayCall(const Display& display);

}  // namespace sim
