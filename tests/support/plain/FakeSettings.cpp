#include "support/plain/FakeSettings.hpp"

#include "support/plain/TemporaryFolder.hpp"
#include "wire/Channel.hpp"

#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <string>
#include <thread>

namespace test {
namespace {

using nlohmann::json;

class FakeSettings {
 public:
  FakeSettings(std::filesystem::path device, int channel, std::uint64_t revision)
      : device_(std::move(device)), channel_(sim::Descriptor(channel)), revision_(revision) {}

  int run() {
    std::ofstream(device_ / "fake/starts", std::ios::app) << revision_ << "\n";
    if (std::filesystem::exists(device_ / "fake/exit-at-start")) return 7;
    std::this_thread::sleep_for(std::chrono::milliseconds(std::atol(readText(device_ / "fake/slow-start").c_str())));
    std::vector<sim::wire::Message> messages;
    while (channel_.receive(messages)) {
      for (const auto& message : messages) take(message.header);
      messages.clear();
    }
    return 0;
  }

 private:
  void take(const json& message) {
    const std::string verb = message.value("verb", "");
    if (verb == "pasteboard") pasteboard_ = message.at("string");
    if (verb == "appearance") appearance_ = message.at("style");
    if (verb == "display") {
      display_ = {message.at("width"), message.at("height"), message.at("scale"), message.at("safeArea").at("left")};
    }
    if (verb == "screen") answer(message, 200, screen());
    if (verb == "event") event(message);
    if (verb == "image") image(message);
    if (verb == "shared") shared(message);
    if (verb == "addPhoto" || verb == "pickFile") upload(message);
  }

  json screen() const {
    return {{"revision", revision_},
            {"pasteboard", pasteboard_},
            {"appearance", appearance_},
            {"display", display_},
            {"process", ::getpid()}};
  }

  void answer(const json& request, int status, const json& body) {
    channel_.send({{{"reply", request.at("request")}, {"status", status}, {"type", "application/json"}}, body.dump()});
  }

  void post(const json& post) { channel_.send({post, {}}); }

  void image(const json& request) {
    const std::string id = request.at("id");
    if (id == "none") return answer(request, 404, {{"error", "There is no such picture."}});
    channel_.send({{{"reply", request.at("request")}, {"status", 200}, {"type", "image/png"}}, "picture " + id});
  }

  void shared(const json& request) {
    const std::string id = request.at("id");
    if (id == "none") return answer(request, 404, {{"error", "Nothing shares this."}});
    const std::string type = id == "page" ? "text/html" : "application/octet-stream";
    channel_.send({{{"reply", request.at("request")}, {"status", 200}, {"type", type}},
                   std::string(static_cast<std::size_t>(std::atoll(id.c_str())), 'x')});
  }

  void upload(const json& request) {
    const std::filesystem::path file = request.at("file").get<std::string>();
    const auto size = std::filesystem::file_size(file);
    std::string what;
    std::ifstream(file) >> std::setw(16) >> what;
    if (what == "crash") ::raise(SIGABRT);
    if (what == "hang") ::pause();
    if (what == "killall") return killall();
    if (what == "refuse") return answer(request, 422, {{"error", "This is no picture."}});
    if (what == "keep") std::filesystem::rename(file, device_ / "fake/kept");
    answer(request, 200,
           {{"name", request.value("name", json())}, {"size", size}, {"revision", request.value("revision", json())}});
  }

  void event(const json& request) {
    const json& event = request.at("event");
    if (event.value("revision", revision_) != revision_)
      return answer(request, 409, {{"error", "The screen has changed."}});
    const std::string id = event.value("id", "");
    const auto colon = id.find(':');
    const std::string what = id.substr(0, colon);
    const std::string value = colon == std::string::npos ? "" : id.substr(colon + 1);
    if (what == "notify") post({{"post", "notification"}, {"name", value}});
    else if (what == "open") post({{"post", "openURL"}, {"url", value}});
    else if (what == "copy") post({{"post", "pasteboard"}, {"string", value}});
    else if (what == "clear") post({{"post", "pasteboard"}, {"string", nullptr}});
    else if (what == "log") post({{"post", "log"}, {"line", value}});
    else if (what == "change")
      return post({{"post", "changed"}, {"revision", ++revision_}}), answer(request, 200, json::object());
    else if (what == "crash") ::raise(SIGABRT);
    else if (what == "exit") ::_exit(3);
    else if (what == "hang") ::pause();
    else if (what == "slow") std::this_thread::sleep_for(std::chrono::milliseconds(std::stol(value)));
    else if (what == "garbage") ::send(channel_.descriptor(), "no message\n", 11, MSG_NOSIGNAL);
    else if (what == "malformed")
      return channel_.send({{{"reply", request.at("request")}, {"status", "fine"}}, {}}), void();
    else if (what == "killall") return killall();
    else return answer(request, 404, {{"error", "There is no \"" + id + "\" on the screen."}});
    ++revision_;
    answer(request, 200, screen());
  }

  void killall() {
    post({{"post", "notification"}, {"name", "before the respring"}});
    const std::string program = device_.string() + "/var/jb/usr/bin/killall";
    const char* arguments[] = {"killall", "-9", "backboardd", nullptr};
    pid_t process = 0;
    ::posix_spawn(&process, program.c_str(), nullptr, nullptr, const_cast<char* const*>(arguments), nullptr);
    ::pause();
  }

  std::filesystem::path device_;
  sim::wire::Channel channel_;
  std::uint64_t revision_;
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
                      std::strtoull(valueOf("--revision", count, arguments).c_str(), nullptr, 10))
      .run();
}

}  // namespace test
