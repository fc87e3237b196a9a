// The Settings process: hosts the settings bundles of a device folder, driven by the simulator over a channel.
#import <Foundation/Foundation.h>
#import <Foundation/Guarded.h>
#import <Foundation/PreferenceDomain.h>
#import <Foundation/SIMDevice.h>

#include <fcntl.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string_view>
#include <utility>

#import "Settings/Service.h"
#import "Settings/SettingsRootController.h"
#import "Settings/stage/Stage.h"

namespace {

/// After messages that do not ask for the screen, such as a run of pictures: when to look whether it has changed.
constexpr NSTimeInterval kQuietSeconds = 0.05;

struct Options {
  const char *device = nullptr;
  int channel = -1;
  unsigned long long revision = 1;
  bool isStage = false;  // Whether it shows widgets in place of the settings.
};

std::optional<Options> parse(int count, char **arguments) {
  Options options;
  for (int index = 1; index + 1 < count; index += 2) {
    const std::string_view name = arguments[index];
    const char *value = arguments[index + 1];
    if (name == "--device") {
      options.device = value;
    } else if (name == "--channel") {
      options.channel = std::atoi(value);
    } else if (name == "--revision") {
      options.revision = std::strtoull(value, nullptr, 10);
    } else if (name == "--role" && std::string_view(value) == "stage") {
      options.isStage = true;
    } else {
      return std::nullopt;
    }
  }
  if (count % 2 == 0 || !options.device || options.channel < 0) return std::nullopt;
  return options;
}

}  // namespace

/// Wakes the run loop when the simulator has sent something.
@interface ChannelWatcher : NSObject {
 @public
  BOOL arrived;
}
@end

@implementation ChannelWatcher

- (void)receivedEvent:(void *)data type:(RunLoopEventType)type extra:(void *)extra forMode:(NSString *)mode {
  arrived = YES;
}

@end

int main(int count, char **arguments) {
  const auto options = parse(count, arguments);
  if (!options) {
    std::fputs("usage: settings --device DIR --channel DESCRIPTOR [--revision N] [--role stage]\n", stderr);
    return 2;
  }
  std::signal(SIGPIPE, SIG_IGN);
  @autoreleasepool {
    SIMStartFoundation();
    SIMSetDeviceFolder([NSString stringWithUTF8String:options->device]);

    // Programs that a bundle starts must not keep the channel open.
    (void)::fcntl(options->channel, F_SETFD, FD_CLOEXEC);
    sim::wire::Channel channel{sim::Descriptor(options->channel)};
    sim::reportDeviceEvents(channel);
    std::optional<sim::Stage> stage;
    if (options->isStage) sim::setApplicationIdentifier(@"com.apple.springboard");  // Where widgets run on a device.
    if (options->isStage) stage.emplace([&](sim::wire::Report report) { sim::send(channel, std::move(report)); });
    UIViewController *root = stage ? stage->page() : [[[SettingsRootController alloc] init] autorelease];
    sim::Session session(root, options->revision, stage ? &*stage : nullptr);
    sim::Service service(channel, session);

    ChannelWatcher *watcher = [[[ChannelWatcher alloc] init] autorelease];
    NSRunLoop *loop = [NSRunLoop currentRunLoop];
    [loop addEvent:reinterpret_cast<void *>(static_cast<intptr_t>(channel.descriptor()))
              type:ET_RDESC
           watcher:(id<RunLoopEvents>)watcher
           forMode:NSDefaultRunLoopMode];
    bool open = true;
    while (open) {
      @autoreleasepool {
        watcher->arrived = NO;
        NSDate *limit =
            service.owesAnnouncement() ? [NSDate dateWithTimeIntervalSinceNow:kQuietSeconds] : [NSDate distantFuture];
        sim::guarded(@"running the main run loop", [&] { [loop runMode:NSDefaultRunLoopMode beforeDate:limit]; });
        // Messages are served when everything else that woke the loop, a timer or a queued block, has run.
        if (watcher->arrived) {
          open = service.serve();
        } else {
          service.announce();
        }
      }
    }
    // The frameworks go on using the channel while objects go away; the process simply ends.
    std::_Exit(0);
  }
}
