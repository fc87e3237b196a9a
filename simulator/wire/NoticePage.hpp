// A page that tells something in place of what cannot be shown, with every field that pages have in the automation
// interface. Either process may be the one that has to tell it.
#pragma once

#include "base/JsonText.hpp"

#include <cstdint>
#include <string>
#include <string_view>

namespace sim::wire {

/// Writes what follows a page's bar: a single section without rows. `header` may be empty.
void writeNotice(JsonText& out, std::string_view header, std::string_view footer);

/// A whole screen with such a page, which is called "Settings".
std::string noticeScreen(std::uint64_t revision, std::string_view header, std::string_view footer);

}  // namespace sim::wire
