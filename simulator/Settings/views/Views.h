// Views as the automation interface shows them.
#pragma once

#import <UIKit/UIKit.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "base/JsonText.hpp"

namespace sim {

class ImageStore;

/// Writes a view and everything in it: class, frame (points, in its superview), text, picture, colours, layer.
void writeView(JsonText &out, UIView *view, ImageStore &images);

/// The same of one of `childrenOf`: a view, or a layer that belongs to none, which is written as a view without texts.
void writeChild(JsonText &out, id child, ImageStore &images);

/// The same as `writeView`, of a view on which a finger can work the controls: each has an id, by which `controlInView`
/// finds it.
void writeTouchableView(JsonText &out, UIView *view, ImageStore &images);

/// The shown view with this number on `page`, on its table or among the headers and footers of that; nil when there is
/// none.
UIView *viewOnPage(UIViewController *page, std::uint32_t number);

/// The same as `writeView`; null for nil.
void writeOptionalView(JsonText &out, UIView *view, ImageStore &images);
/// The same as `writeTouchableView`; null for nil.
void writeOptionalTouchableView(JsonText &out, UIView *view, ImageStore &images);

/// What names the view in events.
std::string idOf(UIView *view);

/// The class's name.
std::string_view classNameOf(id object);

void writeFrame(JsonText &out, CGRect frame);

/// The tint that the view or one around it sets; nil for the system's own.
UIColor *ownTint(UIView *view);

/// "light" or "dark"; null for the one that is around.
void writeInterfaceStyle(JsonText &out, UIUserInterfaceStyle style);

/// "left", "center" and so on, for a text alignment.
const char *alignmentName(NSTextAlignment alignment);

}  // namespace sim
