// Entry point of the simulator.
#include "base/Failure.hpp"
#include "server/Options.hpp"
#include "server/Simulator.hpp"

#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>

#include <cerrno>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <system_error>

namespace {

// Takes the signals that ask for the end out of normal delivery; gives a descriptor that tells of them. To be called
// before any other thread is started.
sim::Descriptor takeEndSignals() {
  sigset_t signals;
  ::sigemptyset(&signals);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) ::sigaddset(&signals, signal);
  ::sigprocmask(SIG_BLOCK, &signals, nullptr);
  ::signal(SIGPIPE, SIG_IGN);
  sim::Descriptor descriptor(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
  if (!descriptor) throw sim::Failure::fromErrno("Cannot wait for signals", errno);
  return descriptor;
}

void run(const sim::Options& options) {
  const sim::Descriptor signals = takeEndSignals();
  sim::Simulator simulator(options);
  simulator.loop().watch(signals.get(), POLLIN, [&simulator] { simulator.loop().stop(); });
  std::printf("%s\n", simulator.address().c_str());
  std::fflush(stdout);
  simulator.run();
  simulator.loop().unwatch(signals.get());
}

}  // namespace

int main(int count, char** arguments) {
  try {
    const auto program = std::filesystem::read_symlink("/proc/self/exe");
    const sim::Options options = sim::parseOptions(count, arguments, sim::defaultOptions(program));
    if (options.help) {
      std::fputs(sim::usage().data(), stdout);
    } else {
      run(options);
    }
    return 0;
  } catch (const sim::UsageError& error) {
    std::fprintf(stderr, "%s\n%s", error.what(), sim::usage().data());
    return 2;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
