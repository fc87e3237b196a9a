// What a fresh device holds: apps and photos, drawn by the simulator itself, and the package tool.
#pragma once

#include "device/Installer.hpp"

#include <vector>

namespace sim {

/// The sample apps and photos, and a package tool that asks that of this computer. Nothing is drawn before it is asked
/// for. Their edition is this program's build.
std::vector<ShippedFile> sampleContent();

}  // namespace sim
