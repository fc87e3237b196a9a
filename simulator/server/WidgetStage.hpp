// The stage: a process of its own in which one widget at a time is shown and told what a switcher tells it, so that one
// that crashes or hangs takes nothing along.
#pragma once

#include "server/Http.hpp"
#include "server/SettingsProcess.hpp"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace sim {

/// Main thread only.
class WidgetStage final {
 public:
  static constexpr std::size_t kMostCalls = 200;

  /// How long the code of a widget may take, at most: then it counts as hung and is ended.
  static constexpr std::chrono::milliseconds kPatience{5'000};

  /// What the stage tells its owner. `greeting`, `posted` and `logged` are as of `SettingsProcess`.
  struct Listener {
    std::function<std::vector<wire::Call>()> greeting;
    std::function<void(SettingsProcess::Post post)> posted;
    std::function<void(const std::string& line)> logged;
    std::function<void()> changed;  // The state of the stage, or its screen.
  };

  /// `settings` as of the process that shows the settings; `loop` must outlive the stage.
  WidgetStage(EventLoop& loop, SettingsProcess::Settings settings, Listener listener);

  /// Does what `action` says, and answers with the state of the stage after it; also when the widget was ended over it,
  /// which the state tells. What cannot be done is refused with an error.
  void perform(const nlohmann::json& action, Respond respond);

  /// The state, as the automation interface has it.
  nlohmann::json json() const;

  /// The process that has a widget on its screen; nullptr when there is none.
  SettingsProcess* process() noexcept { return shown_ ? &process_ : nullptr; }

  /// As of `SettingsProcess`.
  void tell(wire::Call call) { process_.tell(std::move(call)); }

  /// Takes the widget away and ends the process. What was asked is answered with 503 and `why`.
  void close(const std::string& why);

  /// Loads the widgets anew, whose code may have changed, unless the stage is closed; the one that was asked for last
  /// is shown again and told as many steps, also when earlier code of it could not be shown.
  void reload();

  void stop() { process_.stop(); }

 private:
  struct Fault {
    std::string widget;  // The path of its bundle on the device.
    std::string kind;    // "raised", "crashed" or "hung".
    std::string text;    // As a sentence.
  };
  struct Work {
    std::string widget;
    std::string doing;
  };
  struct Wanted {
    std::string widget;     // The path of its bundle on the device; empty for none.
    std::size_t steps = 0;  // How many it was told.
  };

  SettingsProcess::Listener listenerOf();
  void posted(SettingsProcess::Post post);
  void ended(const SettingsProcess::End& end);
  void found(std::string kind, const std::string& what);

  void end(const std::string& why);
  void start(Respond respond);
  void load(std::uint64_t run, Respond respond);
  void loaded(const Response& response, std::uint64_t run, Respond respond);
  void show(std::uint64_t run, Respond respond);
  void step(Respond respond);
  void stepUpToWanted();
  void call(std::string method, std::optional<bool> argument, Respond respond);
  void ask(wire::Call call, std::string method, std::optional<bool> argument, Respond respond);
  void note(const std::string& method, std::optional<bool> argument, const Response& response);

  void finish(const Respond& respond);
  void refuse(int status, const std::string& why, const Respond& respond);
  nlohmann::json* widgetAt(const std::string& path);
  bool shownImplements(const std::string& method) const;
  std::optional<std::size_t> nextStep() const;

  const Listener listener_;
  const SettingsProcess::Milliseconds patience_;
  SettingsProcess process_;

  std::uint64_t run_ = 0;  // Grows with each fresh start: what an earlier one is answered counts no more.
  bool isOpen_ = false;    // From a start to the next close, also when the process has ended meanwhile.
  bool isBusy_ = false;
  nlohmann::json widgets_;  // Null before the first load.
  nlohmann::json steps_ = nlohmann::json::array();
  std::map<std::string, Fault> refused_;  // Bundles that ended the load, by path; of this start alone.
  std::optional<std::string> shown_;      // The path of the bundle on the device.
  std::optional<Work> work_;              // Whose code runs, if any.
  std::optional<Fault> fault_;            // The last one, until the next start.
  std::size_t step_ = 0;                  // How many steps have been taken.
  Wanted wanted_;                         // What was asked for, whatever became of it.
  nlohmann::json isActivePage_;
  std::deque<nlohmann::json> calls_;  // Of the present widget, oldest first.
  std::uint64_t callCount_ = 0;
};

}  // namespace sim
