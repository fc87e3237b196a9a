// What the simulator and the Settings process say to each other: one struct a message, and a table of their verbs. A
// message is added here, by its verb, its row in the table, its struct and its place in a variant; both processes and
// the stand-in of the tests are then compiled only when they deal with it.
#pragma once

#include "wire/Channel.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace sim::wire {

enum class Verb : std::uint8_t {
  unreadable,
  screen,
  event,
  pickFile,
  addPhoto,
  image,
  shared,
  pasteboard,
  appearance,
  display,
  place,
  reopen,
  loadWidgets,
  showWidget,
  callWidget,
  openPreferences,
  reply,
  changed,
  notification,
  openURL,
  log,
  entering,
  raised,
};

/// What a call that was done is answered with: nothing, the screen and {"path"} as JSON, a PNG file, any bytes, or JSON
/// of the call's own.
enum class Answer : std::uint8_t { none, screen, photo, picture, file, data };

struct VerbTraits {
  Verb verb;
  std::string_view name;         ///< In the header.
  Answer answer = Answer::none;  ///< Of a call of the simulator.
  bool describesScreen = false;  ///< A call likely to change the screen, which is described anew right after it.
};

inline constexpr std::array kVerbs{
    VerbTraits{Verb::unreadable, ""},
    // Calls of the simulator.
    VerbTraits{Verb::screen, "screen", Answer::screen, true},
    VerbTraits{Verb::event, "event", Answer::screen, true},
    VerbTraits{Verb::pickFile, "pickFile", Answer::screen, true},
    VerbTraits{Verb::addPhoto, "addPhoto", Answer::photo, true},
    VerbTraits{Verb::image, "image", Answer::picture},
    VerbTraits{Verb::shared, "shared", Answer::file},
    VerbTraits{Verb::pasteboard, "pasteboard"},
    VerbTraits{Verb::appearance, "appearance", Answer::none, true},
    VerbTraits{Verb::display, "display", Answer::none, true},
    VerbTraits{Verb::place, "place", Answer::file},
    VerbTraits{Verb::reopen, "reopen", Answer::screen, true},
    VerbTraits{Verb::loadWidgets, "loadWidgets", Answer::data, true},
    VerbTraits{Verb::showWidget, "showWidget", Answer::data, true},
    VerbTraits{Verb::callWidget, "callWidget", Answer::data, true},
    VerbTraits{Verb::openPreferences, "openPreferences", Answer::data, true},
    // Reports of the Settings process, which also reports the pasteboard.
    VerbTraits{Verb::reply, "reply"},
    VerbTraits{Verb::changed, "changed"},
    VerbTraits{Verb::notification, "notification"},
    VerbTraits{Verb::openURL, "openURL"},
    VerbTraits{Verb::log, "log"},
    VerbTraits{Verb::entering, "entering"},
    VerbTraits{Verb::raised, "raised"},
};

constexpr const VerbTraits& traitsOf(Verb verb) { return *std::ranges::find(kVerbs, verb, &VerbTraits::verb); }

/// What begins the identifiers of pictures and of shared items in the process of the stage, which numbers them on its
/// own.
inline constexpr std::string_view kStagePlace = "stage-";

/// What became of a call. Everything but `done` has changed nothing, and goes with a sentence for people.
enum class Outcome : std::uint8_t {
  done,
  malformed,  ///< The call is none.
  unknown,    ///< It is about something that is not there.
  stale,      ///< It is for another revision of the screen.
  refused,    ///< It cannot be done now.
  failed,     ///< The disk or the code of a page is at fault.
  diskFull,
  garbled,  ///< The reply is none; only the receiver finds that.
};

/// As in the header.
std::string_view nameOf(Outcome outcome);

// Each struct tells its fields to a codec: what `codec` names stands in the header, the `payload` are the bytes behind
// it. An optional one may be missing. Header texts are short; what may be long is payload.

/// A message that nobody understands; in place of any other one.
struct Unreadable {
  static constexpr Verb kVerb = Verb::unreadable;
  static void fields(auto&, auto&) {}
};

/// Asks for the screen.
struct Screen {
  static constexpr Verb kVerb = Verb::screen;
  static void fields(auto&, auto&) {}
};

/// Asks to do what a finger does.
struct Event {
  static constexpr Verb kVerb = Verb::event;
  std::string body;  ///< The JSON text as the client sent it; nobody has looked at it yet.
  static void fields(auto& self, auto& codec) { codec.payload(self.body); }
};

/// Asks to pick an uploaded file in the document picker on the screen.
struct PickFile {
  static constexpr Verb kVerb = Verb::pickFile;
  std::string file;                       ///< Its path on the device.
  std::string name;                       ///< What it is called on the device.
  std::optional<std::uint64_t> revision;  ///< Of the screen that it is for; nothing for any.
  static void fields(auto& self, auto& codec) {
    codec("file", self.file);
    codec("name", self.name);
    codec("revision", self.revision);
  }
};

/// Asks to move an uploaded picture into the photo library.
struct AddPhoto {
  static constexpr Verb kVerb = Verb::addPhoto;
  std::string file;                 ///< Its path on the device.
  std::optional<std::string> name;  ///< What people call it.
  static void fields(auto& self, auto& codec) {
    codec("file", self.file);
    codec("name", self.name);
  }
};

/// Asks for a picture on the screen.
struct Image {
  static constexpr Verb kVerb = Verb::image;
  std::string id;
  static void fields(auto& self, auto& codec) { codec("id", self.id); }
};

/// Asks for the content of an item in the share sheet on the screen.
struct Shared {
  static constexpr Verb kVerb = Verb::shared;
  std::string id;
  static void fields(auto& self, auto& codec) { codec("id", self.id); }
};

/// Tells, in either direction, what the pasteboard holds.
struct Pasteboard {
  static constexpr Verb kVerb = Verb::pasteboard;
  std::optional<std::string> string;
  static void fields(auto& self, auto& codec) { codec.payload(self.string); }
};

/// Tells whether the device is dark.
struct Appearance {
  static constexpr Verb kVerb = Verb::appearance;
  bool isDark = false;
  static void fields(auto& self, auto& codec) { codec("isDark", self.isDark); }
};

/// Tells what the device's screen is like: its size and how far its edges are covered in points, its pixels a point.
struct Display {
  static constexpr Verb kVerb = Verb::display;
  int width = 0;
  int height = 0;
  int scale = 0;
  int top = 0;
  int left = 0;
  int bottom = 0;
  int right = 0;
  static void fields(auto& self, auto& codec) {
    codec("width", self.width);
    codec("height", self.height);
    codec("scale", self.scale);
    codec("top", self.top);
    codec("left", self.left);
    codec("bottom", self.bottom);
    codec("right", self.right);
  }
};

/// Asks which pages are open and how they were reached: a text for `Reopen`.
struct Place {
  static constexpr Verb kVerb = Verb::place;
  static void fields(auto&, auto&) {}
};

/// Asks a fresh process to open the pages that an earlier one had open.
struct Reopen {
  static constexpr Verb kVerb = Verb::reopen;
  std::string place;  ///< What that answered to `Place`.
  static void fields(auto& self, auto& codec) { codec.payload(self.place); }
};

/// Asks to have the widgets loaded by the bundle that loads them. Answered with the JSON array of them.
struct LoadWidgets {
  static constexpr Verb kVerb = Verb::loadWidgets;
  std::string
      refused;  ///< JSON object: why the code of some bundles is not to be loaded, by their paths on the device.
  static void fields(auto& self, auto& codec) { codec.payload(self.refused); }
};

/// Asks to set a widget up and to show it. Answered with its state, {"active"}, as JSON; so are the two below.
struct ShowWidget {
  static constexpr Verb kVerb = Verb::showWidget;
  std::string path;  ///< Of its bundle on the device.
  static void fields(auto& self, auto& codec) { codec("path", self.path); }
};

/// Asks to send the widget on the stage a message.
struct CallWidget {
  static constexpr Verb kVerb = Verb::callWidget;
  std::string method;            ///< Its selector.
  std::optional<bool> argument;  ///< For a method that takes one.
  static void fields(auto& self, auto& codec) {
    codec("method", self.method);
    codec("argument", self.argument);
  }
};

/// Asks to open the list of preferences that the widget on the stage brings along.
struct OpenPreferences {
  static constexpr Verb kVerb = Verb::openPreferences;
  static void fields(auto&, auto&) {}
};

/// Answers a request.
struct Reply {
  static constexpr Verb kVerb = Verb::reply;
  std::uint64_t request = 0;  ///< Its number.
  Outcome outcome = Outcome::done;
  std::uint64_t revision = 0;  ///< Of the screen as it is now.
  std::string content;         ///< As the verb's `answer` says; otherwise why it was not done, as a sentence.
  static void fields(auto& self, auto& codec) {
    codec("request", self.request);
    codec("outcome", self.outcome);
    codec("revision", self.revision);
    codec.payload(self.content);
  }
};

/// Tells that the screen has changed by itself.
struct Changed {
  static constexpr Verb kVerb = Verb::changed;
  std::uint64_t revision = 0;
  static void fields(auto& self, auto& codec) { codec("revision", self.revision); }
};

/// Tells of a Darwin notification.
struct Notification {
  static constexpr Verb kVerb = Verb::notification;
  std::string name;
  static void fields(auto& self, auto& codec) { codec.payload(self.name); }
};

/// Tells of an address that was opened.
struct OpenURL {
  static constexpr Verb kVerb = Verb::openURL;
  std::string url;
  static void fields(auto& self, auto& codec) { codec.payload(self.url); }
};

/// Tells of a line in the log.
struct Log {
  static constexpr Verb kVerb = Verb::log;
  std::string line;
  static void fields(auto& self, auto& codec) { codec.payload(self.line); }
};

/// Tells that the code of a widget is about to run: should the process end or hang, this is where.
struct Entering {
  static constexpr Verb kVerb = Verb::entering;
  std::string widget;  ///< The path of its bundle on the device.
  std::string doing;   ///< What it is at, as "-viewDidAppear" or "being loaded".
  static void fields(auto& self, auto& codec) {
    codec("widget", self.widget);
    codec("doing", self.doing);
  }
};

/// Tells that the code of a widget has raised an exception that it did not catch.
struct Raised {
  static constexpr Verb kVerb = Verb::raised;
  std::string name;
  std::string reason;
  static void fields(auto& self, auto& codec) {
    codec("name", self.name);
    codec.payload(self.reason);
  }
};

/// What the simulator says.
using Call = std::variant<Unreadable, Screen, Event, PickFile, AddPhoto, Image, Shared, Pasteboard, Appearance, Display,
                          Place, Reopen, LoadWidgets, ShowWidget, CallWidget, OpenPreferences>;

/// A call that is to be answered, or with the number 0 one that is not.
struct Request {
  std::uint64_t number = 0;
  Call call;
};

/// What the Settings process says.
using Report = std::variant<Unreadable, Reply, Changed, Notification, OpenURL, Pasteboard, Log, Entering, Raised>;

const VerbTraits& traitsOf(const Call& call);

Message encode(Request request);
Message encode(Report report);

/// `Unreadable` for an unknown verb, and when a field or the payload is missing or of another kind; then too with the
/// request's number, if there is one. Other fields are ignored.
Request decodeRequest(Message message);

/// Likewise; but a reply whose number can be read is `Outcome::garbled`.
Report decodeReport(Message message);

/// Makes one function object of several, for std::visit.
template <typename... Functions>
struct Overloaded : Functions... {
  using Functions::operator()...;
};

}  // namespace sim::wire
