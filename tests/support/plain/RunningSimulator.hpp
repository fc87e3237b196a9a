// A whole simulator on a thread of its own, with a Settings process that does what a test tells it.
#pragma once

#include "server/SettingsProcess.hpp"
#include "support/plain/HttpClient.hpp"
#include "support/plain/TemporaryFolder.hpp"

#include <nlohmann/json.hpp>

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>
#include <thread>

namespace sim {
class EventLoop;
}

namespace test {

class RunningSimulator final {
 public:
  /// The folder is made when it is missing; killall is installed in it. Throws what the simulator throws.
  explicit RunningSimulator(const std::filesystem::path& device, sim::SettingsProcess::Patience patience = {});
  ~RunningSimulator();
  RunningSimulator(const RunningSimulator&) = delete;
  RunningSimulator& operator=(const RunningSimulator&) = delete;

  std::uint16_t port() const noexcept { return port_; }
  const std::string& token() const noexcept { return token_; }

  /// The headers that the page sends with each call, "Connection: close" among them.
  std::vector<std::string> pageHeaders() const;

  HttpResponse get(const std::string& target) const;
  HttpResponse send(const std::string& method, const std::string& target, const nlohmann::json& body) const;
  HttpResponse tap(const std::string& identifier) const;
  nlohmann::json device() const { return get("/api/device").json(); }

 private:
  std::uint16_t port_ = 0;
  std::string token_;
  std::atomic<sim::EventLoop*> loop_ = nullptr;
  std::thread thread_;
};

}  // namespace test
