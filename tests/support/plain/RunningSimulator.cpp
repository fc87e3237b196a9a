#include "support/plain/RunningSimulator.hpp"

#include "base/Json.hpp"
#include "server/Options.hpp"
#include "server/Simulator.hpp"

#include <exception>
#include <future>
#include <optional>
#include <utility>
#include <vector>

namespace test {
namespace {

sim::Options optionsFor(const std::filesystem::path& device) {
  const std::filesystem::path files = device.parent_path() / "files";
  writeText(files / "web/index.html", "<!doctype html><title>Simulator</title>");
  writeText(files / "web/parts/list.js", "export {};");
  writeText(files / "web/.hidden", "hidden");
  const auto killall = files / "tree/var/jb/usr/bin/killall";
  std::filesystem::create_directories(killall.parent_path());
  std::filesystem::copy_file(BUILD_FOLDER "/device-root/var/jb/usr/bin/killall", killall,
                             std::filesystem::copy_options::overwrite_existing);
  sim::Options options;
  options.device = device;
  options.install = files / "tree";
  options.sandbox = false;  // The program is this one, which lies among others.
  options.settings = std::filesystem::read_symlink("/proc/self/exe");
  options.web = files / "web";
  return options;
}

}  // namespace

RunningSimulator::RunningSimulator(const std::filesystem::path& device, sim::SettingsProcess::Patience patience) {
  std::promise<std::string> promise;
  auto ready = promise.get_future();
  // The Settings process ends with the thread that started it, so the simulator lives on one thread from end to end.
  thread_ = std::thread([this, device, patience, promise = std::move(promise)]() mutable {
    std::optional<sim::Simulator> simulator;
    try {
      simulator.emplace(optionsFor(device), patience);
    } catch (...) {
      return promise.set_exception(std::current_exception());
    }
    loop_ = &simulator->loop();
    promise.set_value(simulator->address());
    simulator->run();
  });
  try {
    const std::string text = ready.get();
    const auto colon = text.rfind(':');
    port_ = static_cast<std::uint16_t>(std::stoi(text.substr(colon + 1)));
    token_ = text.substr(text.find("#t=") + 3);
  } catch (...) {
    thread_.join();
    throw;
  }
}

RunningSimulator::~RunningSimulator() {
  loop_.load()->stop();
  thread_.join();
}

std::vector<std::string> RunningSimulator::pageHeaders() const {
  return {"Host: 127.0.0.1:" + std::to_string(port_), "X-Sim-Token: " + token_, "Connection: close"};
}

HttpResponse RunningSimulator::get(const std::string& target) const {
  return roundTrip(port_, HttpRequest{"GET", target, pageHeaders(), {}}.bytes());
}

HttpResponse RunningSimulator::send(const std::string& method, const std::string& target,
                                    const nlohmann::json& body) const {
  HttpRequest request{method, target, pageHeaders(), sim::toText(body)};
  request.headers.push_back("Content-Type: application/json");
  request.headers.push_back("Content-Length: " + std::to_string(request.body.size()));
  return roundTrip(port_, request.bytes());
}

HttpResponse RunningSimulator::tap(const std::string& identifier) const {
  return send("POST", "/api/events", {{"type", "tap"}, {"id", identifier}});
}

}  // namespace test
