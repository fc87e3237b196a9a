// A stand-in for the Settings process that does what a test tells it. The test program runs it when it is started with
// the arguments of the Settings process.
//
// Files in the device folder rule its start: "fake/exit-at-start" ends it, "fake/slow-start" holds the milliseconds
// that it waits. It adds a line with its first revision to "fake/starts".
//
// Its screen tells what it was told: {"revision", "pasteboard", "appearance", "process"}. Tapping an identifier makes
// it do something:
//   notify:NAME  open:URL  copy:TEXT  clear  log:LINE   post that
//   change              raises the revision, with the post, without an answer that tells it
//   crash  exit         end by a signal, end with status 3
//   hang                never answer again
//   slow:MILLISECONDS   answer later
//   garbage             write a line that is no message
//   nonsense            report what nobody understands
//   malformed           answer with an answer that is none
//   echo                answer with the event as it came
//   killall             post a notification, start the device's killall as a bundle does, and never answer
// Any other identifier is answered with 404. The picture N is the text "picture N"; "none" is not there. The shared
// file N has N bytes; "none" is not there, and "page" is HTML.
//
// What it does with an uploaded file is said by the file's first word: "crash", "hang", "killall" as above, "refuse"
// (422), "fail" (500), "full" (507), "keep" (moves it to "fake/kept"). Otherwise it answers with what it got: {"name",
// "size", "revision"}.
#pragma once

namespace test {

/// Whether the arguments are those of the Settings process.
bool isSettingsCommand(int count, const char* const* arguments);

int runFakeSettings(int count, const char* const* arguments);

}  // namespace test
