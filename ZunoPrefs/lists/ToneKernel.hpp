// The pixel walk of the icon tone test. Used by both list editors.
#pragma once

#include <cstdint>
#include <span>

namespace zuno {

/// Counts the dark groups of four bytes in `bytes`.
///
/// A group is dark when its luminance b0 × 0.299 + b1 × 0.587 + b2 × 0.114, computed in fused double precision and
/// rounded to single precision, is less than 150.0; its fourth byte is ignored. The count is exactly that of this
/// definition for every input.
///
/// The walk visits a last, incomplete group too. Its missing bytes count as 0, as if zeros followed the buffer; nothing
/// past the end of `bytes` is read. An empty span, a null one included, has no groups.
///
/// Exact for up to 8 GiB, which holds every buffer whose length is a 32-bit signed integer. Never fails, keeps no
/// reference to `bytes` and allocates nothing. Any thread.
std::int32_t countDarkGroups(std::span<const std::uint8_t> bytes) noexcept;

}  // namespace zuno
