// Instance variables of classes of other files.
#pragma once

namespace sim {

/// Code of today reads the place of an instance variable from a variable. For a class of another file the file has one
/// of its own, which nobody has filled in: this does, in the file that holds `address`, for all classes that are known.
void fillIvarOffsets(const void* address);

}  // namespace sim
