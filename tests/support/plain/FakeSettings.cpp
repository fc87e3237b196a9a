#include "support/plain/FakeSettings.hpp"

#include "base/Json.hpp"
#include "support/plain/TemporaryFolder.hpp"
#include "wire/Messages.hpp"

#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <variant>

namespace test {
namespace {

using nlohmann::json;
using sim::wire::Outcome;
namespace wire = sim::wire;

class FakeSettings {
 public:
  FakeSettings(std::filesystem::path device, int channel, std::uint64_t revision, bool isStage)
      : device_(std::move(device)), channel_(sim::Descriptor(channel)), revision_(revision), isStage_(isStage) {}

  int run() {
    std::ofstream(device_ / (isStage_ ? "fake/stage-starts" : "fake/starts"), std::ios::app) << revision_ << "\n";
    if (std::filesystem::exists(device_ / "fake/exit-at-start")) return 7;
    std::this_thread::sleep_for(std::chrono::milliseconds(std::atol(readText(device_ / "fake/slow-start").c_str())));
    std::vector<wire::Message> messages;
    while (channel_.receive(messages)) {
      for (wire::Message& message : messages) take(wire::decodeRequest(std::move(message)));
      messages.clear();
    }
    return 0;
  }

 private:
  void take(const wire::Request& request) {
    request_ = request.number;
    std::visit(wire::Overloaded{
                   [this](const wire::Screen&) { answer(screen()); },
                   [this](const wire::Event& call) { event(call); },
                   [this](const wire::PickFile& call) { upload(call.file, call.name, call.revision); },
                   [this](const wire::AddPhoto& call) { upload(call.file, call.name, {}); },
                   [this](const wire::Image& call) { image(call.id); },
                   [this](const wire::Shared& call) { shared(call.id); },
                   [this](const wire::Pasteboard& call) { pasteboard_ = orNull(call.string); },
                   [this](const wire::Appearance& call) { appearance_ = call.isDark ? "dark" : "light"; },
                   [this](const wire::Display& call) { display_ = {call.width, call.height, call.scale, call.left}; },
                   [this](const wire::Place&) { place(); },
                   [this](const wire::Reopen& call) { reopen(call.place); },
                   [this](const wire::LoadWidgets& call) { load(sim::parseJson(call.refused).value_or(json())); },
                   [this](const wire::ShowWidget& call) { show(call.path); },
                   [this](const wire::CallWidget& call) { callWidget(call); },
                   [this](const wire::OpenPreferences&) { ++revision_, answer(active()); },
                   [this](const wire::Unreadable&) { refuse(Outcome::malformed, "This is no call."); },
               },
               request.call);
  }

  template <typename Value>
  static json orNull(const std::optional<Value>& value) {
    return value ? json(*value) : json();
  }

  json screen() const {
    return {{"revision", revision_}, {"pasteboard", pasteboard_}, {"appearance", appearance_}, {"display", display_},
            {"reopened", reopened_}, {"stage", isStage_},         {"process", ::getpid()}};
  }

  void report(wire::Report report) { channel_.send(wire::encode(std::move(report))); }
  void answer(std::string content) { report(wire::Reply{request_, Outcome::done, revision_, std::move(content)}); }
  void answer(const json& content) { answer(sim::toText(content)); }
  void refuse(Outcome outcome, std::string why) { report(wire::Reply{request_, outcome, revision_, std::move(why)}); }

  // The place is how often this process has been tapped.
  void place() {
    if (std::filesystem::exists(device_ / "fake/hang-at-place")) ::pause();
    answer("place " + std::to_string(taps_));
  }

  void reopen(const std::string& place) {
    if (std::filesystem::exists(device_ / "fake/crash-at-reopen")) ::raise(SIGABRT);
    reopened_ = place;
    ++revision_;
    answer(screen());
  }

  void image(const std::string& id) {
    if (id == "none") return refuse(Outcome::unknown, "There is no such picture.");
    answer("picture " + id);
  }

  void shared(const std::string& id) {
    if (id == "none") return refuse(Outcome::unknown, "Nothing shares this.");
    if (id == "page") return answer(std::string("<!doctype html><script>1</script>"));
    answer(std::string(static_cast<std::size_t>(std::atoll(id.c_str())), 'x'));
  }

  void upload(const std::string& path, const std::optional<std::string>& name, std::optional<std::uint64_t> revision) {
    const std::filesystem::path file = device_.string() + path;
    const auto size = std::filesystem::file_size(file);
    std::string what;
    std::ifstream(file) >> std::setw(16) >> what;
    if (what == "crash") ::raise(SIGABRT);
    if (what == "hang") ::pause();
    if (what == "killall") return killall("backboardd");
    if (what == "refuse") return refuse(Outcome::refused, "This is no picture.");
    if (what == "fail") return refuse(Outcome::failed, "The disk is at fault.");
    if (what == "full") return refuse(Outcome::diskFull, "There is no room.");
    if (what == "keep") std::filesystem::rename(file, device_ / "fake/kept");
    answer(json{{"name", orNull(name)}, {"size", size}, {"revision", orNull(revision)}});
  }

  void event(const wire::Event& call) {
    ++taps_;
    const json event = sim::parseJson(call.body).value_or(json());
    if (!event.is_object() || !event.value("type", json()).is_string())
      return refuse(Outcome::malformed, "This is no event.");
    if (event.value("revision", revision_) != revision_) return refuse(Outcome::stale, "The screen has changed.");
    const std::string id = event.value("id", "");
    const auto colon = id.find(':');
    const std::string what = id.substr(0, colon);
    const std::string value = colon == std::string::npos ? "" : id.substr(colon + 1);
    if (what == "notify") report(wire::Notification{value});
    else if (what == "open") report(wire::OpenURL{value});
    else if (what == "copy") report(wire::Pasteboard{value});
    else if (what == "clear") report(wire::Pasteboard{});
    else if (what == "log") report(wire::Log{value});
    else if (what == "change") return report(wire::Changed{revision_ + 1}), answer(json::object()), ++revision_, void();
    else if (what == "crash") ::raise(SIGABRT);
    else if (what == "exit") ::_exit(3);
    else if (what == "hang") ::pause();
    else if (what == "slow") std::this_thread::sleep_for(std::chrono::milliseconds(std::stol(value)));
    else if (what == "garbage") ::send(channel_.descriptor(), "no message\n", 11, MSG_NOSIGNAL);
    else if (what == "nonsense") channel_.send({{{"verb", "dance"}}, {}});
    else if (what == "malformed")
      return channel_.send({{{"verb", "reply"}, {"request", request_}, {"outcome", "fine"}}, {}}), void();
    else if (what == "echo") return answer(call.body);
    else if (what == "killall") return killall("backboardd");
    else if (what == "quit") return killall("Preferences");
    else return refuse(Outcome::unknown, "There is no \"" + id + "\" on the screen.");
    ++revision_;
    answer(screen());
  }

  // What a widget whose bundle is called "crash.init.bundle" does while it is made, and so on.
  void behave(const std::string& path, const std::string& when, const std::string& doing) {
    report(wire::Entering{path, doing});
    const std::string name = std::filesystem::path(path).filename();
    if (name.starts_with("crash." + when)) ::raise(SIGABRT);
    if (name.starts_with("hang." + when)) ::pause();
    if (name.starts_with("raise." + when)) {
      report(wire::Raised{"TestException", "as its name says"});
      return refuse(Outcome::failed, "It raised TestException.");
    }
  }

  // The lines of the file "fake/widgets" are the names of the bundles; "old.bundle" is one that the loader refuses.
  void load(const json& refused) {
    json widgets = json::array();
    std::ifstream names(device_ / "fake/widgets");
    for (std::string name; std::getline(names, name);) {
      const std::string path = "/widgets/" + name;
      const bool isRefused = refused.contains(path) || name == "old.bundle";
      if (!isRefused) behave(path, "init", "being made, with -init");
      if (!isRefused && name.starts_with("raise.init")) return;
      json methods = json::array();
      for (const char* method : {"one", "two:", "three"})
        methods.push_back({{"name", method}, {"implemented", std::string_view(method) != "three"}});
      widgets.push_back({{"path", path},
                         {"state", isRefused ? "refused" : "loaded"},
                         {"reason", isRefused ? json("It is not wanted.") : json()},
                         {"hasPreferences", true},
                         {"methods", methods}});
    }
    report(wire::Entering{"", ""});
    json steps = json::array();
    steps.push_back({{"method", "one"}, {"argument", nullptr}});
    steps.push_back({{"method", "three"}, {"argument", nullptr}});
    steps.push_back({{"method", "two:"}, {"argument", true}});
    answer(json{{"widgets", widgets}, {"steps", steps}});
  }

  json active() const { return {{"milliseconds", 1.5}, {"isActivePage", isActive_}}; }

  void show(const std::string& path) {
    shown_ = path;
    ++revision_;
    behave(path, "setup", "-setupWithFrame:");
    if (!path.starts_with("/widgets/raise.setup")) answer(active());
  }

  void callWidget(const wire::CallWidget& call) {
    if (call.method == "three") return refuse(Outcome::refused, "The widget does not implement -three.");
    if (call.argument) isActive_ = *call.argument;
    behave(shown_, call.method, "-" + call.method);
    if (!shown_.starts_with("/widgets/raise." + call.method)) answer(active());
  }

  void killall(const char* name) {
    report(wire::Notification{"before the respring"});
    const std::string program = device_.string() + "/var/jb/usr/bin/killall";
    const char* arguments[] = {"killall", "-9", name, nullptr};
    pid_t process = 0;
    ::posix_spawn(&process, program.c_str(), nullptr, nullptr, const_cast<char* const*>(arguments), nullptr);
    ::pause();
  }

  std::filesystem::path device_;
  wire::Channel channel_;
  std::uint64_t revision_;
  bool isStage_;
  bool isActive_ = false;      // The widget.
  std::string shown_;          // The path of its bundle.
  std::uint64_t request_ = 0;  // The number of the one at hand.
  int taps_ = 0;
  json reopened_;
  json pasteboard_ = "never told";
  json appearance_;
  json display_;
};

std::string valueOf(std::string_view option, int count, const char* const* arguments) {
  for (int i = 1; i + 1 < count; ++i)
    if (option == arguments[i]) return arguments[i + 1];
  return {};
}

}  // namespace

bool isSettingsCommand(int count, const char* const* arguments) {
  return !valueOf("--channel", count, arguments).empty();
}

int runFakeSettings(int count, const char* const* arguments) {
  const std::filesystem::path device = valueOf("--device", count, arguments);
  std::filesystem::create_directories(device / "fake");
  return FakeSettings(device, std::atoi(valueOf("--channel", count, arguments).c_str()),
                      std::strtoull(valueOf("--revision", count, arguments).c_str(), nullptr, 10),
                      valueOf("--role", count, arguments) == "stage")
      .run();
}

}  // namespace test
