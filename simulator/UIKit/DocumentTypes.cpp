#include "DocumentTypes.hpp"

#include <algorithm>
#include <array>
#include <cctype>
#include <string>

namespace sim {
namespace {

/// A type, its parent, and the extensions of its files, each between two spaces. An extension stands at one type, or at
/// types of which none is another's parent.
struct Type {
  std::string_view name;
  std::string_view parent;
  std::string_view extensions;
};

constexpr std::array kTypes{
    Type{"public.item", "", ""},
    Type{"public.content", "", ""},
    Type{"public.data", "public.item", ""},
    Type{"public.text", "public.data", ""},
    Type{"public.plain-text", "public.text", " txt text log "},
    Type{"public.utf8-plain-text", "public.plain-text", ""},
    Type{"net.daringfireball.markdown", "public.plain-text", " md markdown "},
    Type{"public.comma-separated-values-text", "public.plain-text", " csv "},
    Type{"public.rtf", "public.text", " rtf "},
    Type{"public.html", "public.text", " html htm "},
    Type{"public.json", "public.text", " json "},
    Type{"public.xml", "public.text", " xml "},
    Type{"public.source-code", "public.plain-text", " c h m mm cpp swift js css "},
    Type{"com.apple.property-list", "public.data", " plist "},
    Type{"com.apple.xml-property-list", "com.apple.property-list", ""},
    Type{"com.apple.binary-property-list", "com.apple.property-list", ""},
    Type{"public.image", "public.data", ""},
    Type{"public.png", "public.image", " png "},
    Type{"public.jpeg", "public.image", " jpg jpeg "},
    Type{"public.heic", "public.image", " heic "},
    Type{"public.heif", "public.image", " heif "},
    Type{"public.tiff", "public.image", " tif tiff "},
    Type{"com.compuserve.gif", "public.image", " gif "},
    Type{"org.webmproject.webp", "public.image", " webp "},
    Type{"com.adobe.pdf", "public.data", " pdf "},
    Type{"public.archive", "public.data", ""},
    Type{"public.zip-archive", "public.archive", " zip "},
    Type{"org.gnu.gnu-zip-archive", "public.archive", " gz "},
    Type{"public.audiovisual-content", "public.data", ""},
    Type{"public.movie", "public.audiovisual-content", " mov mp4 m4v "},
    Type{"public.audio", "public.audiovisual-content", " mp3 m4a wav caf aiff "},
    Type{"public.font", "public.data", " ttf otf "},
};

const Type* typeNamed(std::string_view name) {
  const auto found = std::find_if(kTypes.begin(), kTypes.end(), [&](const Type& type) { return type.name == name; });
  return found == kTypes.end() ? nullptr : &*found;
}

bool conforms(const Type* type, std::string_view name) {
  for (; type; type = typeNamed(type->parent)) {
    if (type->name == name) return true;
  }
  return false;
}

/// " plist " for "Dark.PLIST"; "" without an extension.
std::string extensionOf(std::string_view fileName) {
  const auto dot = fileName.rfind('.');
  if (dot == std::string_view::npos || dot == 0 || dot + 1 == fileName.size()) return "";
  std::string extension = " " + std::string(fileName.substr(dot + 1)) + " ";
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char character) { return std::tolower(character); });
  return extension;
}

}  // namespace

bool isDocumentType(std::string_view type) { return typeNamed(type) != nullptr; }

bool isOfDocumentType(std::string_view fileName, std::string_view type) {
  if (type == "public.item" || type == "public.data" || type == "public.content") return true;
  const std::string extension = extensionOf(fileName);
  if (extension.empty()) return false;
  return std::any_of(kTypes.begin(), kTypes.end(), [&](const Type& each) {
    if (each.extensions.find(extension) == std::string_view::npos) return false;
    // A type below the file's, such as the binary property list, may be its own: the name does not tell.
    const Type* wanted = typeNamed(type);
    return conforms(&each, type) || (wanted && wanted->extensions.empty() && conforms(wanted, each.name));
  });
}

}  // namespace sim
