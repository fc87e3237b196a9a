#import "Settings/controls/ControlAdapter.h"

namespace sim {
namespace {

std::string_view type(UIView *) { return "spinner"; }

void describe(JsonText &out, UIView *view, ImageStore &) {
  writeColor(out.name("color"), [(UIActivityIndicatorView *)view color]);
}

}  // namespace

extern const ControlAdapter kSpinner{
    .kind = [] { return [UIActivityIndicatorView class]; }, .type = type, .describe = describe};

}  // namespace sim
