// Restarting the user interface of the device.
#pragma once

namespace zuno {

/// Kills the daemon that draws the user interface, so that the system restarts it and the switcher starts again with
/// the current settings. Does not wait; a failure is not reported.
void respring();

}  // namespace zuno
