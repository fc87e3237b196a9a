// Which files a document picker offers for the types that it was asked for. Plain C++.
#pragma once

#include <string_view>

namespace sim {

/// Whether the simulator knows files of the uniform type identifier `type`, such as "public.json".
bool isDocumentType(std::string_view type);

/// Whether a file of that name is of the type, by its extension: a device goes by it too. The types' parents are those
/// of Apple's "System-Declared Uniform Type Identifiers". False for an unknown type.
bool isOfDocumentType(std::string_view fileName, std::string_view type);

}  // namespace sim
