// What happened on the device: shown in the panel beside the phone.
#pragma once

#include "server/Display.hpp"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace sim {

/// Something that a maker builds for the device, and why it was not built.
struct Build {
  struct Error {
    std::optional<std::string> file;  // As the maker knows it.
    std::optional<std::uint64_t> line;
    std::optional<std::uint64_t> column;
    std::string message;
  };

  std::string name;
  std::optional<std::string> sentence;
  std::vector<Error> errors;
};

/// Main thread only. Each change calls `changed` after it.
class DeviceState final {
 public:
  static constexpr std::size_t kMostNotifications = 1'000;
  static constexpr std::size_t kMostOpenedUrls = 1'000;
  static constexpr std::size_t kMostLogLines = 2'000;
  static constexpr std::size_t kMostBuilds = 20;             // That failed; of further ones nothing is kept.
  static constexpr std::size_t kMostErrors = 50;             // Of a build; the first ones are kept.
  static constexpr std::size_t kLongestLogLine = 8'192;      // Bytes.
  static constexpr std::size_t kLongestPasteboard = 65'536;  // Bytes that are shown; all are kept.

  explicit DeviceState(std::function<void()> changed) : changed_(std::move(changed)) {}

  void addNotification(std::string name);
  void addRespring();
  void addOpenedUrl(std::string url);
  void addLogLine(std::string line);
  void setPasteboard(std::optional<std::string> string);
  void setAppearance(std::string style);
  void setDisplay(const Display& display);
  /// What became of the newest attempt to build `build.name`; without a sentence it was built, and nothing is left of
  /// it.
  void setBuild(Build build);

  /// The preference files have changed; they are kept elsewhere. So is the stage.
  void filesChanged();
  void stageChanged();

  const std::optional<std::string>& pasteboard() const noexcept { return pasteboard_; }

  /// "light" or "dark"; nothing before the page has said it.
  const std::optional<std::string>& appearance() const noexcept { return appearance_; }

  const Display& display() const noexcept { return display_; }

  /// Grows with every change.
  std::uint64_t sequence() const noexcept { return sequence_; }

  /// Everything but the files and the stage, as the interface gives it: of a long pasteboard only its beginning.
  nlohmann::json json() const;

 private:
  struct Notification {
    std::string name;
    std::uint64_t number;  // From 1, counted over the whole run.
  };

  void didChange();

  std::function<void()> changed_;
  std::uint64_t sequence_ = 0;
  std::uint64_t notificationCount_ = 0;
  std::uint64_t resprings_ = 0;
  std::deque<Notification> notifications_;  // The newest ones, oldest first; so are the other two.
  std::deque<std::string> openedUrls_;
  std::deque<std::string> log_;
  std::optional<std::string> pasteboard_;
  std::uint64_t pasteboardLength_ = 0;         // UTF-16 units.
  std::map<std::string, Build> failedBuilds_;  // By name.
  std::optional<std::string> appearance_;
  Display display_ = kPhoneDisplay;
};

}  // namespace sim
