#include "server/Options.hpp"

#include <array>
#include <charconv>
#include <system_error>

namespace sim {
namespace {

std::uint16_t portIn(std::string_view text) {
  std::uint16_t port = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, port);
  if (error != std::errc{} || stop != end)
    throw UsageError("The port must be a number from 0 to 65535, not \"" + std::string(text) + "\".");
  return port;
}

bool sandboxIn(std::string_view text) {
  if (text != "auto" && text != "off")
    throw UsageError("The sandbox must be \"auto\" or \"off\", not \"" + std::string(text) + "\".");
  return text == "auto";
}

// An option that takes a path.
struct PathOption {
  std::string_view name;
  std::filesystem::path Options::* place;
};

constexpr std::array<PathOption, 4> kPathOptions{{
    {"--device", &Options::device},
    {"--install", &Options::install},
    {"--settings", &Options::settings},
    {"--web", &Options::web},
}};

std::filesystem::path* placeOf(std::string_view name, Options& options) {
  for (const PathOption& option : kPathOptions)
    if (option.name == name) return &(options.*option.place);
  return nullptr;
}

}  // namespace

Options parseOptions(int count, const char* const* arguments, Options options) {
  for (int i = 1; i < count; ++i) {
    const std::string_view name = arguments[i];
    if (name == "--help") {
      options.help = true;
      continue;
    }
    std::filesystem::path* place = placeOf(name, options);
    const bool isOther = name == "--port" || name == "--sandbox";
    if (place == nullptr && !isOther) throw UsageError("There is no option \"" + std::string(name) + "\".");
    if (++i == count || *arguments[i] == '\0') throw UsageError("The option " + std::string(name) + " needs a value.");
    if (place != nullptr) {
      *place = arguments[i];
    } else if (name == "--sandbox") {
      options.sandbox = sandboxIn(arguments[i]);
    } else {
      options.port = portIn(arguments[i]);
    }
  }
  return options;
}

Options defaultOptions(const std::filesystem::path& program) {
  const auto programs = program.parent_path();
  const auto build = programs.parent_path();
  const auto tree = build / "device-root";
  std::error_code error;
  Options options;
  options.install = std::filesystem::is_directory(tree, error) ? tree : std::filesystem::path();
  options.settings = programs / "settings";
  options.web = build / "page";
  return options;
}

std::string_view usage() {
  return "usage: simulator [OPTION VALUE]...\n"
         "  --device DIR     the folder that holds the device's files (device)\n"
         "  --port N         the port on 127.0.0.1; 0 is a free one (0)\n"
         "  --install DIR    a tree of files to install on the device (the build's device-root)\n"
         "  --settings FILE  the Settings program (beside the simulator)\n"
         "  --web DIR        the page's files (the build's page)\n"
         "  --sandbox WHEN   auto: Settings sees nothing of this computer but the device, where the system lets\n"
         "                   users make name spaces; off: only the frameworks map its paths (auto)\n"
         "  --help           shows this\n";
}

}  // namespace sim
