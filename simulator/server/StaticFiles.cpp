#include "server/StaticFiles.hpp"

#include "base/Failure.hpp"
#include "base/Files.hpp"

#include <array>
#include <utility>

namespace sim {
namespace {

std::string typeOf(const std::filesystem::path& file) {
  static constexpr std::array<std::pair<std::string_view, std::string_view>, 10> kTypes{{
      {".html", "text/html; charset=utf-8"},
      {".css", "text/css; charset=utf-8"},
      {".js", "text/javascript; charset=utf-8"},
      {".mjs", "text/javascript; charset=utf-8"},
      {".json", "application/json"},
      {".svg", "image/svg+xml"},
      {".png", "image/png"},
      {".ico", "image/x-icon"},
      {".otf", "font/otf"},
      {".woff2", "font/woff2"},
  }};
  for (const auto& [extension, type] : kTypes)
    if (file.extension() == extension) return std::string(type);
  return "application/octet-stream";
}

}  // namespace

void StaticFiles::addPage(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::recursive_directory_iterator item(folder, error);
  for (const std::filesystem::recursive_directory_iterator end; !error && item != end; item.increment(error)) {
    if (item->path().filename().string().starts_with('.')) {
      item.disable_recursion_pending();
      continue;
    }
    if (!item->is_regular_file(error)) continue;
    const std::string path = "/" + item->path().lexically_relative(folder).generic_string();
    if (!addFile(path, item->path())) throw Failure("Cannot read the page's file " + item->path().string() + ".");
  }
  if (error) throw Failure("Cannot read the page in " + folder.string() + ": " + error.message() + ".");

  const Response* index = find("/index.html");
  if (index == nullptr) throw Failure("The folder " + folder.string() + " holds no index.html.");
  entries_.insert_or_assign("/", *index);
}

bool StaticFiles::addFile(const std::string& path, const std::filesystem::path& file) {
  const auto content = readFile(file);
  if (!content) return false;
  Response response{
      200, typeOf(file), std::make_shared<const std::string>(content->text()), {{"Cache-Control", "no-cache"}}};
  entries_.insert_or_assign(path, std::move(response));
  return true;
}

const Response* StaticFiles::find(std::string_view path) const {
  const auto found = entries_.find(path);
  return found == entries_.end() ? nullptr : &found->second;
}

}  // namespace sim
