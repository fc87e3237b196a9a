// What a drawing context is made of. Included by the sources of CGContext only.
#pragma once

#import <CoreGraphics/CGContext.h>
#import <CoreGraphics/RGBA.hpp>

#include <cairo.h>

#include <vector>

namespace sim {

/// What cairo does not keep by itself.
struct DrawState {
  RGBA fill{0, 0, 0, 1};
  RGBA stroke{0, 0, 0, 1};
  double alpha = 1;
  cairo_operator_t blend = CAIRO_OPERATOR_OVER;
  cairo_filter_t filter = CAIRO_FILTER_GOOD;
};

}  // namespace sim

@interface SIMContext : NSObject {
 @public
  cairo_t *_cairo;  // Owned.
  BOOL _opaque;
  sim::DrawState _state;
  std::vector<sim::DrawState> _saved;
}
@end

namespace sim {

inline SIMContext *contextObject(CGContextRef context) { return (SIMContext *)context; }

}  // namespace sim
