#include "server/PreferenceFiles.hpp"

#include "base/Failure.hpp"
#include "base/Files.hpp"
#include "server/PropertyListJson.hpp"

#include <poll.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <set>
#include <string_view>
#include <utility>

namespace sim {
namespace {

constexpr std::uint32_t kChanges = IN_CLOSE_WRITE | IN_ATTRIB | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO |
                                   IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
constexpr std::chrono::milliseconds kRetry{500};  // Until a folder that is gone is looked for again.
constexpr off_t kLongestFile = 64 << 20;          // Bytes.

bool isPropertyListName(std::string_view name) { return name.ends_with(".plist"); }

bool equal(const std::timespec& a, const std::timespec& b) { return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec; }

std::vector<std::string> propertyListsIn(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  std::error_code error;
  std::filesystem::directory_iterator item(folder, error);
  for (; !error && item != std::filesystem::directory_iterator(); item.increment(error)) {
    std::string name = item->path().filename().string();
    if (isPropertyListName(name)) names.push_back(std::move(name));
  }
  return names;
}

}  // namespace

bool PreferenceFiles::Stamp::operator==(const Stamp& other) const noexcept {
  return device == other.device && inode == other.inode && size == other.size && equal(modified, other.modified) &&
         equal(changed, other.changed);
}

PreferenceFiles::PreferenceFiles(EventLoop& loop, std::filesystem::path root, std::vector<std::string> folders,
                                 std::function<void()> changed)
    : loop_(loop),
      root_(std::move(root)),
      folders_(std::move(folders)),
      changed_(std::move(changed)),
      inotify_(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {
  if (!inotify_) throw Failure::fromErrno("Cannot watch the preference files", errno);
  loop_.watch(inotify_.get(), POLLIN, [this] { takeEvents(); });
  watchMissing();
}

PreferenceFiles::~PreferenceFiles() {
  loop_.cancel(retryTimer_);
  loop_.unwatch(inotify_.get());
}

// A folder may be removed and made again at any time.
void PreferenceFiles::watchMissing() {
  bool isComplete = true;
  for (const std::string& folder : folders_) {
    if (std::ranges::any_of(watches_, [&folder](const auto& watch) { return watch.second == folder; })) continue;
    const int watch = ::inotify_add_watch(inotify_.get(), (root_.string() + folder).c_str(), kChanges);
    if (watch >= 0) watches_[watch] = folder;
    isComplete = isComplete && watch >= 0;
  }
  if (isComplete) return;
  retryTimer_ = loop_.after(kRetry, [this] {
    const std::size_t before = watches_.size();
    watchMissing();
    if (watches_.size() > before) changed_();
  });
}

void PreferenceFiles::takeEvents() {
  alignas(inotify_event) char buffer[16 << 10];
  bool hasNews = false;
  bool lostFolder = false;
  ssize_t count;
  while ((count = ::read(inotify_.get(), buffer, sizeof buffer)) > 0) {
    for (ssize_t at = 0; at < count;) {
      const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
      at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
      const bool isGone = (event->mask & (IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED | IN_UNMOUNT)) != 0;
      const bool isOverflow = (event->mask & IN_Q_OVERFLOW) != 0;
      hasNews = hasNews || isOverflow || isGone || (event->len > 0 && isPropertyListName(event->name));
      if (!isGone || watches_.erase(event->wd) == 0) continue;
      ::inotify_rm_watch(inotify_.get(), event->wd);
      lostFolder = true;
    }
  }
  if (lostFolder) {
    loop_.cancel(retryTimer_);
    watchMissing();
  }
  if (hasNews) changed_();
}

nlohmann::json PreferenceFiles::json() {
  std::set<std::string> paths;
  for (const std::string& folder : folders_)
    for (const std::string& name : propertyListsIn(root_.string() + folder)) paths.insert(folder + "/" + name);
  std::erase_if(known_, [&paths](const auto& entry) { return !paths.contains(entry.first); });

  nlohmann::json files = nlohmann::json::array();
  for (const std::string& path : paths) {
    const std::string file = root_.string() + path;
    struct stat status{};
    if (::lstat(file.c_str(), &status) != 0) continue;  // Gone since the folder was read.
    const Stamp stamp{status.st_dev, status.st_ino, status.st_size, status.st_mtim, status.st_ctim};
    auto [entry, isNew] = known_.try_emplace(path);
    if (isNew || !(entry->second.stamp == stamp)) entry->second = {stamp, read(path, file)};
    files.push_back(entry->second.json);
  }
  return files;
}

nlohmann::json PreferenceFiles::read(const std::string& path, const std::filesystem::path& file) {
  const auto failed = [&path](std::string_view error) {
    return nlohmann::json{{"path", path}, {"content", nullptr}, {"error", error}};
  };
  struct stat status{};
  if (::lstat(file.c_str(), &status) != 0) return failed("The file cannot be read.");
  if (S_ISDIR(status.st_mode)) return failed("This is a folder.");
  if (!S_ISREG(status.st_mode)) return failed("This is no regular file.");
  if (status.st_size == 0) return failed("The file is empty.");
  if (status.st_size > kLongestFile) return failed("The file is too large to be shown.");

  const auto bytes = readFile(file);
  if (!bytes) return failed("The file cannot be read.");
  const char* problem = nullptr;
  auto content = propertyListJson(bytes->bytes(), &problem);
  if (!content) return failed(problem);
  return {{"path", path}, {"content", std::move(*content)}, {"error", nullptr}};
}

}  // namespace sim
