#include "CoreGraphics/ImageHeader.hpp"

#include <algorithm>

#include "CoreGraphics/ByteReader.hpp"

namespace sim {
namespace {

using Header = std::optional<ImageHeader>;

constexpr Orientation orientationOf(std::uint32_t tag) noexcept {
  return tag >= 1 && tag <= 8 ? Orientation(tag) : Orientation::up;
}

struct TiffFields {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  Orientation orientation = Orientation::up;
};

// The first directory of a TIFF structure: a TIFF file, or what follows "Exif" in other files.
std::optional<TiffFields> readTiffFields(Bytes bytes) noexcept {
  Endian endian;
  if (hasText(bytes, 0, std::string_view("II*\0", 4))) endian = Endian::little;
  else if (hasText(bytes, 0, std::string_view("MM\0*", 4))) endian = Endian::big;
  else return std::nullopt;

  const std::size_t directory = number(bytes, 4, 4, endian);
  const std::size_t count = number(bytes, directory, 2, endian);
  TiffFields fields;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t entry = directory + 2 + i * 12;
    if (entry + 12 > bytes.size()) break;
    const bool isShort = number(bytes, entry + 2, 2, endian) == 3;
    const std::uint32_t value = number(bytes, entry + 8, isShort ? 2 : 4, endian);
    switch (number(bytes, entry, 2, endian)) {
      case 256: fields.width = value; break;
      case 257: fields.height = value; break;
      case 274: fields.orientation = orientationOf(value); break;
    }
  }
  return fields;
}

Orientation exifOrientation(Bytes exif) noexcept {
  const auto fields = readTiffFields(exif);
  return fields ? fields->orientation : Orientation::up;
}

Header readPng(Bytes bytes) noexcept {
  if (number(bytes, 8, 4, Endian::big) != 13 || !hasText(bytes, 12, "IHDR")) return std::nullopt;
  ImageHeader header{.format = ImageFormat::png,
                     .width = number(bytes, 16, 4, Endian::big),
                     .height = number(bytes, 20, 4, Endian::big)};
  const std::uint32_t colourType = number(bytes, 25, 1, Endian::big);
  if (colourType == 4 || colourType == 6) header.alpha = Alpha::straight;
  for (std::size_t chunk = 8; chunk + 12 <= bytes.size();) {
    const std::size_t length = number(bytes, chunk, 4, Endian::big);
    if (length > bytes.size() - chunk - 12) return std::nullopt;
    if (hasText(bytes, chunk + 4, "IEND")) return header;
    if (hasText(bytes, chunk + 4, "tRNS")) header.alpha = Alpha::straight;
    if (hasText(bytes, chunk + 4, "eXIf")) header.orientation = exifOrientation(part(bytes, chunk + 8, length));
    chunk += 12 + length;
  }
  return std::nullopt;
}

// Whether the entropy-coded data that starts at `scan` is closed by an end-of-image marker.
bool hasEndOfImage(Bytes bytes, std::size_t scan) noexcept {
  for (std::size_t i = bytes.size(); i >= scan + 2; --i) {
    if (bytes[i - 2] == 0xFF && bytes[i - 1] == 0xD9) return true;
  }
  return false;
}

Header readJpeg(Bytes bytes) noexcept {
  ImageHeader header{.format = ImageFormat::jpeg};
  std::size_t position = 2;
  while (position + 4 <= bytes.size()) {
    if (bytes[position] != 0xFF) return std::nullopt;
    const std::uint8_t marker = bytes[position + 1];
    if (marker == 0xFF) {  // Fill bytes may stand before a marker.
      ++position;
      continue;
    }
    if (marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7)) {  // Markers without a segment.
      position += 2;
      continue;
    }
    const std::size_t segment = position + 4;
    const std::size_t length = number(bytes, position + 2, 2, Endian::big);
    if (length < 2) return std::nullopt;
    const bool isFrame = marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
    if (isFrame) {
      header.height = number(bytes, segment + 1, 2, Endian::big);
      header.width = number(bytes, segment + 3, 2, Endian::big);
    } else if (marker == 0xE1 && hasText(bytes, segment, std::string_view("Exif\0\0", 6))) {
      header.orientation = exifOrientation(part(bytes, segment + 6, length > 8 ? length - 8 : 0));
    } else if (marker == 0xDA) {
      if (header.width == 0 || !hasEndOfImage(bytes, position)) return std::nullopt;
      return header;
    }
    position += 2 + length;
  }
  return std::nullopt;
}

Header readGif(Bytes bytes) noexcept {
  if (bytes.size() < 13) return std::nullopt;
  return ImageHeader{.format = ImageFormat::gif,
                     .width = number(bytes, 6, 2, Endian::little),
                     .height = number(bytes, 8, 2, Endian::little),
                     .alpha = Alpha::straight};
}

Header readTiff(Bytes bytes) noexcept {
  const auto fields = readTiffFields(bytes);
  if (!fields) return std::nullopt;
  return ImageHeader{.format = ImageFormat::tiff,
                     .width = fields->width,
                     .height = fields->height,
                     .alpha = Alpha::straight,
                     .orientation = fields->orientation};
}

Header readWebp(Bytes bytes) noexcept {
  if (number(bytes, 4, 4, Endian::little) > bytes.size() - 8) return std::nullopt;
  ImageHeader header{.format = ImageFormat::webp};
  for (std::size_t chunk = 12; chunk + 8 <= bytes.size();) {
    const std::size_t length = number(bytes, chunk + 4, 4, Endian::little);
    const Bytes body = part(bytes, chunk + 8, length);
    if (body.size() != length) return std::nullopt;
    if (hasText(bytes, chunk, "VP8X")) {
      header.width = number(body, 4, 3, Endian::little) + 1;
      header.height = number(body, 7, 3, Endian::little) + 1;
      if (number(body, 0, 1, Endian::little) & 0x10) header.alpha = Alpha::straight;
    } else if (hasText(bytes, chunk, "VP8 ") && header.width == 0) {
      header.width = number(body, 6, 2, Endian::little) & 0x3FFF;
      header.height = number(body, 8, 2, Endian::little) & 0x3FFF;
    } else if (hasText(bytes, chunk, "VP8L") && header.width == 0) {
      const std::uint32_t bits = number(body, 1, 4, Endian::little);
      header.width = (bits & 0x3FFF) + 1;
      header.height = (bits >> 14 & 0x3FFF) + 1;
      if (bits >> 28 & 1) header.alpha = Alpha::straight;
    } else if (hasText(bytes, chunk, "EXIF")) {
      const std::size_t prefix = hasText(body, 0, std::string_view("Exif\0\0", 6)) ? 6 : 0;
      header.orientation = exifOrientation(part(body, prefix));
    }
    chunk += 8 + length + (length & 1);
  }
  if (header.width == 0) return std::nullopt;
  return header;
}

// The size of the largest image property below `boxes`; false when a box does not fit into its parent.
bool readHeifBoxes(Bytes boxes, int depth, ImageHeader& header) noexcept {
  for (std::size_t position = 0; position < boxes.size();) {
    if (boxes.size() - position < 8) return false;
    std::uint64_t length = number(boxes, position, 4, Endian::big);
    std::size_t prefix = 8;
    if (length == 1) {
      length = std::uint64_t(number(boxes, position + 8, 4, Endian::big)) << 32 |
               number(boxes, position + 12, 4, Endian::big);
      prefix = 16;
    } else if (length == 0) {
      length = boxes.size() - position;
    }
    if (length < prefix || length > boxes.size() - position) return false;
    const Bytes body = part(boxes, position + prefix, std::size_t(length) - prefix);
    const bool isMeta = hasText(boxes, position + 4, "meta");
    if (isMeta || hasText(boxes, position + 4, "iprp") || hasText(boxes, position + 4, "ipco")) {
      if (depth < 4 && !readHeifBoxes(part(body, isMeta ? 4 : 0), depth + 1, header)) return false;
    } else if (hasText(boxes, position + 4, "ispe")) {
      const std::int64_t width = number(body, 4, 4, Endian::big);
      const std::int64_t height = number(body, 8, 4, Endian::big);
      if (double(width) * height > double(header.width) * header.height) {
        header.width = width;
        header.height = height;
      }
    }
    position += std::size_t(length);
  }
  return true;
}

Header readHeif(Bytes bytes) noexcept {
  constexpr std::string_view brands[] = {"heic", "heix", "heim", "heis", "hevc", "hevx", "mif1", "msf1"};
  if (std::none_of(std::begin(brands), std::end(brands), [&](auto brand) { return hasText(bytes, 8, brand); })) {
    return std::nullopt;
  }
  ImageHeader header{.format = ImageFormat::heif, .alpha = Alpha::straight};
  if (!readHeifBoxes(bytes, 0, header) || header.width == 0) return std::nullopt;
  return header;
}

Header readAny(Bytes bytes) noexcept {
  if (hasText(bytes, 0, "\x89PNG\r\n\x1a\n")) return readPng(bytes);
  if (hasText(bytes, 0, "\xff\xd8\xff")) return readJpeg(bytes);
  if (hasText(bytes, 0, "GIF87a") || hasText(bytes, 0, "GIF89a")) return readGif(bytes);
  if (hasText(bytes, 0, "RIFF") && hasText(bytes, 8, "WEBP")) return readWebp(bytes);
  if (hasText(bytes, 4, "ftyp")) return readHeif(bytes);
  return readTiff(bytes);
}

}  // namespace

std::optional<ImageHeader> readImageHeader(std::span<const std::uint8_t> bytes) noexcept {
  const Header header = readAny(bytes);
  if (!header || header->width <= 0 || header->height <= 0) return std::nullopt;
  return header;
}

}  // namespace sim
