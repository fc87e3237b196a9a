// The Settings application as the automation interface sees it: a screen that can be read, and events that change it.
#pragma once

#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#import "Settings/ImageStore.h"
#import "Settings/JsonValues.h"
#import "Settings/PageTrail.h"
#import "Settings/ScreenDescription.h"
#include "wire/Messages.hpp"

namespace sim {

class Stage;

/// One run of the Settings application, from its root page on. Main thread only.
class Session final {
 public:
  /// Shows `root` as the first page of the application's window. The first screen has the revision `firstRevision`,
  /// which no earlier run has reached. With a `stage`, whose page the root is and which outlives the session, widgets
  /// can be shown.
  Session(UIViewController *root, std::uint64_t firstRevision, Stage *stage = nullptr);

  /// The screen as JSON, with its "revision".
  const std::string &screen() const { return text_; }
  std::uint64_t revision() const { return revision_; }

  /// Runs what waits on the main queue and describes the screen anew. True when it changed, and the revision with it.
  bool refresh();

  /// Does what `call` asks for and answers, to no request yet. A call that describes the screen is followed by
  /// everything that it put on the main queue; it is done also when a page's code raises on the way, which the log
  /// tells. What is malformed, names nothing or cannot be done now changes nothing.
  wire::Reply perform(const wire::Call &call);

  /// The PNG file of a picture on the screen, autoreleased; nil for an unknown identifier.
  NSData *pngOf(std::string_view identifier) const { return images_.pngOf(identifier); }

  /// Light or dark, from now on.
  void setDark(bool dark);

  /// The size of the screen and what corners and bars cover at its edges, in points, and its pixels a point, from now
  /// on. Any that is no screen is ignored.
  void setScreen(CGSize size, CGFloat scale, UIEdgeInsets safeArea);

 private:
  // One for each call. Those that are answered with the screen leave its content to `perform`.
  wire::Reply work(const wire::Unreadable &call);
  wire::Reply work(const wire::Screen &call);
  wire::Reply work(const wire::Event &call);
  wire::Reply work(const wire::PickFile &call);
  wire::Reply work(const wire::AddPhoto &call);
  wire::Reply work(const wire::Image &call);
  wire::Reply work(const wire::Shared &call);
  wire::Reply work(const wire::Pasteboard &call);
  wire::Reply work(const wire::Appearance &call);
  wire::Reply work(const wire::Display &call);
  wire::Reply work(const wire::Place &call);
  wire::Reply work(const wire::Reopen &call);
  wire::Reply work(const wire::LoadWidgets &call);
  wire::Reply work(const wire::ShowWidget &call);
  wire::Reply work(const wire::CallWidget &call);
  wire::Reply work(const wire::OpenPreferences &call);

  /// The beginning of the screen's text: what may change without the screen being another one.
  std::string head() const;

  Stage *const stage_;
  objcxx::Retained<UIWindow> window_;
  objcxx::Retained<UINavigationController> navigation_;
  PageNumbers numbers_;
  PageTrail trail_;
  ImageStore images_;
  std::uint64_t revision_;
  std::string text_;
  std::size_t headLength_ = 0;  // Bytes of `text_` that are the `head`; the rest is the description.
};

}  // namespace sim
