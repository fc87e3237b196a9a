#include "server/DeviceState.hpp"

#include "base/UTF8.hpp"

#include <utility>

namespace sim {
namespace {

template <typename Item>
void append(std::deque<Item>& items, Item item, std::size_t most) {
  items.push_back(std::move(item));
  if (items.size() > most) items.pop_front();
}

template <typename Value>
nlohmann::json orNull(const std::optional<Value>& value) {
  return value ? nlohmann::json(*value) : nlohmann::json();
}

nlohmann::json jsonOf(const Build& build) {
  nlohmann::json errors = nlohmann::json::array();
  for (const Build::Error& error : build.errors)
    errors.push_back({{"file", orNull(error.file)},
                      {"line", orNull(error.line)},
                      {"column", orNull(error.column)},
                      {"message", error.message}});
  return {{"name", build.name}, {"sentence", orNull(build.sentence)}, {"errors", std::move(errors)}};
}

}  // namespace

void DeviceState::addNotification(std::string name) {
  append(notifications_, Notification{std::move(name), ++notificationCount_}, kMostNotifications);
  didChange();
}

void DeviceState::addRespring() {
  ++resprings_;
  didChange();
}

void DeviceState::addOpenedUrl(std::string url) {
  append(openedUrls_, std::move(url), kMostOpenedUrls);
  didChange();
}

void DeviceState::addLogLine(std::string line) {
  if (line.size() > kLongestLogLine) line = std::string(beginningOf(line, kLongestLogLine)) + "\u2026";
  append(log_, std::move(line), kMostLogLines);
  didChange();
}

void DeviceState::setPasteboard(std::optional<std::string> string) {
  if (string == pasteboard_) return;
  pasteboard_ = std::move(string);
  pasteboardLength_ = pasteboard_ ? utf16Length(*pasteboard_) : 0;
  didChange();
}

void DeviceState::setAppearance(std::string style) {
  if (appearance_ == style) return;
  appearance_ = std::move(style);
  didChange();
}

void DeviceState::setDisplay(const Display& display) {
  if (display_ == display) return;
  display_ = display;
  didChange();
}

void DeviceState::setBuild(Build build) {
  if (!build.sentence) {
    if (failedBuilds_.erase(build.name) > 0) didChange();
    return;
  }
  if (!failedBuilds_.contains(build.name) && failedBuilds_.size() >= kMostBuilds) return;
  if (build.errors.size() > kMostErrors) build.errors.resize(kMostErrors);
  failedBuilds_.insert_or_assign(build.name, std::move(build));
  didChange();
}

void DeviceState::filesChanged() { didChange(); }

void DeviceState::stageChanged() { didChange(); }

nlohmann::json DeviceState::json() const {
  nlohmann::json notifications = nlohmann::json::array();
  for (const Notification& notification : notifications_)
    notifications.push_back({{"name", notification.name}, {"sequence", notification.number}});
  nlohmann::json state{{"sequence", sequence_},
                       {"notifications", std::move(notifications)},
                       {"resprings", resprings_},
                       {"openedURLs", openedUrls_},
                       {"pasteboard", nullptr},
                       {"pasteboardLength", nullptr},
                       {"appearance", nullptr},
                       {"display", display_.json()},
                       {"log", log_},
                       {"builds", nlohmann::json::array()}};
  for (const auto& [name, build] : failedBuilds_) state["builds"].push_back(jsonOf(build));
  if (pasteboard_) {
    state["pasteboard"] = beginningOf(*pasteboard_, kLongestPasteboard);
    state["pasteboardLength"] = pasteboardLength_;
  }
  if (appearance_) state["appearance"] = *appearance_;
  return state;
}

void DeviceState::didChange() {
  ++sequence_;
  changed_();
}

}  // namespace sim
