// The simulator's command line.
#pragma once

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace sim {

struct Options {
  std::filesystem::path device = "device";
  std::filesystem::path install;   // Empty: nothing to install.
  std::filesystem::path settings;  // The Settings program.
  std::filesystem::path web;       // The page's folder.
  std::uint16_t port = 0;          // 0: a free one.
  bool sandbox = true;             // Whether Settings runs in a sandbox where one is possible.
  bool help = false;
};

/// A command line that cannot be understood; the reason is for the user.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Reads the arguments (with the program's name first). What is not given stands as in `defaults`. Throws UsageError.
Options parseOptions(int count, const char* const* arguments, Options defaults);

/// The options where the build puts things. `program` is the simulator's own executable.
Options defaultOptions(const std::filesystem::path& program);

std::string_view usage();

}  // namespace sim
