#include "server/DeviceState.hpp"

#include <utility>

namespace sim {
namespace {

template <typename Item>
void append(std::deque<Item>& items, Item item, std::size_t most) {
  items.push_back(std::move(item));
  if (items.size() > most) items.pop_front();
}

// Cuts before the first byte of a character, never within one.
void cut(std::string& text, std::size_t longest) {
  if (text.size() <= longest) return;
  std::size_t end = longest;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  text.resize(end);
  text += "\u2026";
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
  cut(line, kLongestLogLine);
  append(log_, std::move(line), kMostLogLines);
  didChange();
}

void DeviceState::setPasteboard(std::optional<std::string> string) {
  if (string == pasteboard_) return;
  pasteboard_ = std::move(string);
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

void DeviceState::filesChanged() { didChange(); }

nlohmann::json DeviceState::json() const {
  nlohmann::json notifications = nlohmann::json::array();
  for (const Notification& notification : notifications_)
    notifications.push_back({{"name", notification.name}, {"sequence", notification.number}});
  nlohmann::json state{{"sequence", sequence_},
                       {"notifications", std::move(notifications)},
                       {"resprings", resprings_},
                       {"openedURLs", openedUrls_},
                       {"pasteboard", nullptr},
                       {"appearance", nullptr},
                       {"display", display_.json()},
                       {"log", log_}};
  if (pasteboard_) state["pasteboard"] = *pasteboard_;
  if (appearance_) state["appearance"] = *appearance_;
  return state;
}

void DeviceState::didChange() {
  ++sequence_;
  changed_();
}

}  // namespace sim
