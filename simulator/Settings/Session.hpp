// The Settings application as the automation interface sees it: a screen that can be read, and events that change it.
#pragma once

#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "Settings/ImageStore.hpp"
#include "Settings/JsonValues.hpp"
#include "Settings/ScreenDescription.hpp"

namespace sim {

/// An answer: a status as in HTTP, and a JSON text.
struct Reply {
  int status = 200;
  std::string body;
};

/// One run of the Settings application, from its root page on. Main thread only.
class Session final {
 public:
  /// Shows `root` as the first page of the application's window. The first screen has the revision `firstRevision`,
  /// which no earlier run has reached.
  Session(UIViewController* root, std::uint64_t firstRevision);

  /// The screen as JSON, with its "revision".
  const std::string& screen() const { return text_; }
  std::uint64_t revision() const { return revision_; }

  /// Runs what waits on the main queue and describes the screen anew. True when it changed, and the revision with it.
  bool refresh();

  /// Does what `event` says, runs everything that this put on the main queue, and answers with the screen; so too when
  /// a page's code raises on the way, which the log tells. A malformed event, an id that names nothing and an event
  /// that cannot be done now change nothing and answer {"error"} with a status of the 400s.
  Reply perform(const Json& event);

  /// Moves the uploaded picture that `request` names into the photo library, and answers {"path"} with its place there.
  Reply addPhoto(const Json& request);

  /// Picks the uploaded file that `request` names in the document picker on the screen; answers like `perform`.
  Reply pickFile(const Json& request);

  /// The content of the item `identifier` of a share sheet on the screen, autoreleased. nil, with why at `problem`,
  /// when there is no such item or it is no file.
  NSData* sharedContentOf(std::string_view identifier, Reply& problem);

  /// The PNG file of a picture on the screen, autoreleased; nil for an unknown identifier.
  NSData* pngOf(std::string_view identifier) const { return images_.pngOf(identifier); }

  /// Light or dark, from now on.
  void setDark(bool dark);

  /// The size of the screen and what corners and bars cover at its edges, in points, and its pixels a point, from now
  /// on. Any that is no screen is ignored.
  void setScreen(CGSize size, CGFloat scale, UIEdgeInsets safeArea);

 private:
  template <typename Work>
  Reply performing(const Json& request, Work work);

  objcxx::Retained<UIWindow> window_;
  objcxx::Retained<UINavigationController> navigation_;
  PageNumbers numbers_;
  ImageStore images_;
  std::uint64_t revision_;
  std::string text_;
  std::size_t headLength_ = 0;  // Bytes of `text_` that hold the revision; the rest is the description.
};

}  // namespace sim
