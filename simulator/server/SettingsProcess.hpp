// The keeper of the Settings process: starts it, asks it, and starts it again when it ends.
#pragma once

#include "server/ChildProcess.hpp"
#include "server/EventLoop.hpp"
#include "server/Http.hpp"
#include "server/Sandbox.hpp"
#include "wire/Messages.hpp"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace sim {

/// Main thread only.
class SettingsProcess final {
 public:
  using Clock = std::chrono::steady_clock;
  using Milliseconds = std::chrono::milliseconds;

  /// How long the keeper waits.
  struct Patience {
    Milliseconds answer{25'000};       // For the answer to a request: a photo of 100 million pixels takes its time.
    Milliseconds place{1'000};         // For the pages that are open, before a fresh start goes without them.
    Milliseconds firstAnswer{25'000};  // For the first one of a process, which loads its bundles before it.
    Milliseconds hung{30'000};         // With requests open and no answer to any of them, before the process is killed.
    Milliseconds close{3'000};         // For the process to end after its channel has, before it is killed.
    Milliseconds shortLife{3'000};     // A process that ended sooner counts as one that could not be started.
    Milliseconds firstPause{500};      // Before the third start in a row; doubles with each further one.
    Milliseconds longestPause{30'000};
    Milliseconds stop{3'000};  // For the process to end by itself when the simulator stops.
  };

  struct Settings {
    std::string program;
    std::string deviceFolder;
    Patience patience{};
    const Sandbox* sandbox = nullptr;  // What the program runs in; outlives the keeper.
    std::vector<std::string> arguments{};
    std::string name = "Settings";  // What people call the process, at the beginning of a sentence.
    bool isStartedAgain = true;     // Whether a process that ends by itself is.
  };

  /// What has happened on the device.
  using Post =
      std::variant<wire::Notification, wire::OpenURL, wire::Pasteboard, wire::Log, wire::Entering, wire::Raised>;

  /// How a process came to its end: a clause without its subject, as in "exited with status 1".
  struct End {
    std::string how;
    bool wasHung = false;
  };

  /// What the keeper tells its owner.
  struct Listener {
    std::function<std::vector<wire::Call>()> greeting;  // What a fresh process is told first.
    std::function<void(Post post)> posted;
    std::function<void(const std::string& line)> logged;
    std::function<void()> revisionChanged;
    std::function<void()> started;  // A fresh process has taken over; what was known of the old one's pictures is void.
    std::function<void(const End& end)> ended = {};  // One that is not started again, before its requests are answered.
  };

  /// `loop` must outlive the keeper.
  SettingsProcess(EventLoop& loop, Settings settings, Listener listener);
  ~SettingsProcess();
  SettingsProcess(const SettingsProcess&) = delete;
  SettingsProcess& operator=(const SettingsProcess&) = delete;

  /// Starts the first process, or one after `end`. A failure is told in the log, and tried again.
  void start();

  /// Ends the process at once, if there is one; what was asked is answered with 503 and `why`.
  void end(const std::string& why);

  /// Lets the process end by itself, as the simulator does; what was asked is answered with 503.
  void stop();

  bool isRunning() const noexcept { return child_ != nullptr; }

  /// Asks the process. `respond` gets the answer, or an error: 504 when none came in time, 500 when the process ended
  /// over it, 503 when there is no process, 502 when the answer is none.
  void request(wire::Call call, Respond respond);

  /// Tells the process something that has no answer. Dropped when there is none: a fresh one is greeted.
  void tell(wire::Call call);

  /// Kills the process and starts afresh. Open requests whose answer is a screen are answered with the fresh one.
  void respring();

  /// Asks the process which pages are open, as a text for `restart`. `respond` gets an error when it does not say so
  /// soon.
  void askPlace(Respond respond);

  /// Like `respring`, and has the fresh process open the pages of `place`, or its first one without it, before anything
  /// else is asked of it. `respond` gets the screen, or an error like that of `request`.
  void restart(std::optional<std::string> place, Respond respond);

  /// The newest revision of the screen that is known. Grows across all processes.
  std::uint64_t revision() const noexcept { return revision_; }

  /// Why there is no process at present, as a sentence.
  const std::optional<std::string>& failure() const noexcept { return failure_; }

 private:
  struct Pending {
    wire::Answer kind;
    Respond respond;
    EventLoop::Timer timeout;
  };

  void launch();
  void request(wire::Call call, Respond respond, Milliseconds patience);
  void endChild();
  void startAfresh(const std::function<void()>& first);
  ProgramCommand command(int channel) const;
  void send(wire::Request request);
  void flush();
  void channelReady();
  void channelClosed();
  void childEnded();
  void drain();
  bool receive();
  void take(wire::Report report);
  void answer(wire::Reply reply);
  void sawRevision(std::uint64_t revision);
  void watchForHang();
  void checkForHang();
  void detach();
  void ended(const End& end);
  void failPending(int status, const std::string& reason);

  EventLoop& loop_;
  const Settings settings_;
  const Listener listener_;

  std::unique_ptr<ChildProcess> child_;
  Clock::time_point launched_;
  bool hasAnswered_ = false;                  // The present process; so is the next.
  bool isClosed_ = false;                     // Its channel.
  std::map<std::uint64_t, Pending> pending_;  // By request number; of the present process alone.
  std::uint64_t lastRequest_ = 0;
  Clock::time_point waitingSince_;  // When the present wait for any answer began.
  EventLoop::Timer hangTimer_ = 0;
  EventLoop::Timer closeTimer_ = 0;
  EventLoop::Timer restartTimer_ = 0;
  int shortLives_ = 0;  // In a row.
  std::optional<std::string> failure_;
  std::uint64_t revision_ = 0;
};

}  // namespace sim
