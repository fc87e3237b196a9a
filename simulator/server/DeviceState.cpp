#include "server/DeviceState.hpp"

#include <utility>

namespace sim {
namespace {

template <typename Item>
void append(std::deque<Item>& items, Item item, std::size_t most) {
  items.push_back(std::move(item));
  if (items.size() > most) items.pop_front();
}

// The first bytes of the text, at most `longest`, no character of it cut in two.
std::string_view beginning(std::string_view text, std::size_t longest) {
  if (text.size() <= longest) return text;
  std::size_t end = longest;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return text.substr(0, end);
}

// What JavaScript and Foundation call the length of the text.
std::uint64_t utf16Units(std::string_view text) {
  std::uint64_t units = 0;
  for (const char byte : text) {
    const auto value = static_cast<unsigned char>(byte);
    units += (value & 0xC0) != 0x80;  // The first byte of a character.
    units += value >= 0xF0;           // Beyond the basic plane: a surrogate pair.
  }
  return units;
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
  if (line.size() > kLongestLogLine) line = std::string(beginning(line, kLongestLogLine)) + "\u2026";
  append(log_, std::move(line), kMostLogLines);
  didChange();
}

void DeviceState::setPasteboard(std::optional<std::string> string) {
  if (string == pasteboard_) return;
  pasteboard_ = std::move(string);
  pasteboardLength_ = pasteboard_ ? utf16Units(*pasteboard_) : 0;
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
                       {"pasteboardLength", nullptr},
                       {"appearance", nullptr},
                       {"display", display_.json()},
                       {"log", log_}};
  if (pasteboard_) {
    state["pasteboard"] = beginning(*pasteboard_, kLongestPasteboard);
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
