// A small Objective-C runtime that trusts no pointer: each isa, superclass, class_ro, method list and IMP is
// authenticated before it is used, and so is the isa of each constant string.
//
// Layouts and signing: the published sources of the Objective-C runtime, and clang's documentation of pointer
// authentication.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "Image.hpp"

namespace device_test {

/// The runtime's functions, and a Foundation of numbers, arrays and dictionaries that are made and never freed.
std::map<std::string, std::uint64_t> objectiveCStandIns();

/// The address of a class or metaclass for the symbol of one; 0 for other symbols.
std::uint64_t standInClass(const std::string& symbol);

/// Authenticates every class, category and constant string of the image. Ends the process at the first that is wrong.
void registerClasses(const Image& image);

/// Sends a message without arguments to a class of the image and answers the result, described as "2", "-20.0", "text",
/// "[one, two]" or "{key: value}" with sorted keys.
std::string describedResult(const Image& image, std::string_view className, const char* selector);

}  // namespace device_test
