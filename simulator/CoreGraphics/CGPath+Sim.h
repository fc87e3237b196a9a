// The simulator's own form of a path.
#pragma once

#include <CoreGraphics/CGPath.h>
#include <CoreGraphics/Path.hpp>

namespace sim {

/// A path of those elements, at +1.
CGMutablePathRef createPath(Path path);
/// The elements of `path`, which must not be NULL; valid while it lives.
Path &pathOf(CGPathRef path);

constexpr Transform transformOf(const CGAffineTransform &t) noexcept { return {t.a, t.b, t.c, t.d, t.tx, t.ty}; }
constexpr Box boxOf(const CGRect &r) noexcept { return {r.origin.x, r.origin.y, r.size.width, r.size.height}; }

}  // namespace sim
