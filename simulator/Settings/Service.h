// Serves a session over the channel to the simulator.
#pragma once

#import <Foundation/Foundation.h>

#import "Settings/Session.h"
#include "wire/Channel.hpp"

namespace sim {

/// Answers the simulator's requests, and tells it what happens on the device: notifications, opened addresses, the
/// pasteboard, the log. Main thread only.
class Service final {
 public:
  /// `channel` and `session` are not owned and outlive the service.
  Service(wire::Channel& channel, Session& session) : channel_(channel), session_(session) {}

  /// Reads what has arrived and answers it. False when the simulator is gone.
  bool serve();

  /// Describes the screen and tells the simulator when it has changed.
  void announce();

  /// Whether messages were served since the screen was last described: it may have changed meanwhile.
  bool owesAnnouncement() const { return owesAnnouncement_; }

 private:
  void handle(const wire::Request& request);

  wire::Channel& channel_;
  Session& session_;
  bool owesAnnouncement_ = false;
};

/// Sends `report` through `channel`. Any thread that knows of Objective-C.
void send(wire::Channel& channel, wire::Report report);

/// Sends everything that happens on the device through `channel` (not owned; it outlives the process's use of the
/// frameworks), from now on.
void reportDeviceEvents(wire::Channel& channel);

}  // namespace sim
