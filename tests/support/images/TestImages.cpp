#include "support/images/TestImages.hpp"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <algorithm>
#include <string_view>

namespace test_images {
namespace {

constexpr const char* kHeifBase64 =
    "AAAAHGZ0eXBoZWljAAAAAG1pZjFoZWljbWlhZgAAAa1tZXRhAAAAAAAAACFoZGxyAAAAAAAAAABwaWN0AAAAAAAAAAAAAAAAAAAAAA5waXRt"
    "AAAAAAACAAAAEGlkYXQAAAAAAEAAIAAAADhpbG9jAQAAAERAAAIAAQAAAAAAAAHRAAEAAAAAAAAAgQACAAEAAAAAAAAAAQAAAAAAAAAIAAAA"
    "OGlpbmYAAAAAAAIAAAAVaW5mZQIAAAEAAQAAaHZjMQAAAAAVaW5mZQIAAAAAAgAAZ3JpZAAAAADYaXBycAAAALZpcGNvAAAAdmh2Y0MBA3AA"
    "AAAAAAAAAAAe8AD8/fj4AAAPAyAAAQAYQAEMAf//A3AAAAMAkAAAAwAAAwAeugJAIQABACpCAQEDcAAAAwCQAAADAAADAB6gIIEFlurkprm4"
    "EBAwIAAAAwAgAAADACEiAAEABkQBwXPAiQAAABRpc3BlAAAAAAAAAEAAAABAAAAAFGlzcGUAAAAAAAAAQAAAACAAAAAQcGl4aQAAAAADCAgI"
    "AAAAGmlwbWEAAAAAAAAAAgABAoECAAICA4QAAAAaaXJlZgAAAAAAAAAOZGltZwACAAEAAQAAAIltZGF0AAAAfSgBrwT4cWTTt/+LD///9Uje"
    "y/tVFvfIP7rWlL/cg5//8oqf2nLXnf2/1pzJcR/c6NTK9cVbw4ae77oSTHoEwOSrCukAe0pDvDPnTWXjAkMZaI5kODDwDYOCrFFYp221FR+M"
    "gM0pxVUjLibMW2RjOpYTJ/RJROD8iJfrKBdc";

void appendNumber(File& file, std::uint32_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) file.push_back(std::uint8_t(number >> shift));
}

void appendChunk(File& file, std::string_view type, const File& content) {
  appendNumber(file, std::uint32_t(content.size()));
  const std::size_t start = file.size();
  file.insert(file.end(), type.begin(), type.end());
  file.insert(file.end(), content.begin(), content.end());
  std::uint32_t crc = 0xFFFFFFFF;
  for (std::size_t i = start; i < file.size(); ++i) {
    crc ^= file[i];
    for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320 : 0);
  }
  appendNumber(file, ~crc);
}

}  // namespace

sim::BitmapPtr bitmap(int width, int height, sim::Alpha alpha, const std::function<Pixel(int, int)>& colour) {
  const auto result = sim::Bitmap::make(width, height, alpha);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const Pixel pixel = colour(x, y);
      std::uint8_t* bytes = result->row(y) + x * 4;
      bytes[0] = std::uint8_t(pixel.red);
      bytes[1] = std::uint8_t(pixel.green);
      bytes[2] = std::uint8_t(pixel.blue);
      bytes[3] = std::uint8_t(pixel.alpha);
    }
  }
  return result;
}

Pixel at(const sim::Bitmap& bitmap, int x, int y) {
  const std::uint8_t* bytes = bitmap.row(y) + x * 4;
  return {bytes[0], bytes[1], bytes[2], bytes[3]};
}

sim::BitmapPtr marked(int width, int height) {
  return bitmap(width, height, sim::Alpha::ignored, [&](int x, int y) -> Pixel {
    if (y < height / 4) return {0, 255, 0};
    return x < width / 2 ? Pixel{255, 0, 0} : Pixel{0, 0, 255};
  });
}

File encoded(const sim::Bitmap& bitmap, const char* format) {
  GdkPixbuf* pixbuf = gdk_pixbuf_new_from_data(bitmap.bytes().data(), GDK_COLORSPACE_RGB, TRUE, 8, bitmap.width(),
                                               bitmap.height(), int(bitmap.bytesPerRow()), nullptr, nullptr);
  if (bitmap.alpha() == sim::Alpha::ignored) {
    GdkPixbuf* opaque = gdk_pixbuf_new(GDK_COLORSPACE_RGB, FALSE, 8, bitmap.width(), bitmap.height());
    for (int y = 0; y < bitmap.height(); ++y) {
      guchar* to = gdk_pixbuf_get_pixels(opaque) + std::size_t(gdk_pixbuf_get_rowstride(opaque)) * y;
      for (int x = 0; x < bitmap.width(); ++x) std::copy_n(bitmap.row(y) + x * 4, 3, to + x * 3);
    }
    g_object_unref(pixbuf);
    pixbuf = opaque;
  }
  gchar* bytes = nullptr;
  gsize length = 0;
  File file;
  if (gdk_pixbuf_save_to_buffer(pixbuf, &bytes, &length, format, nullptr, nullptr)) file.assign(bytes, bytes + length);
  g_free(bytes);
  g_object_unref(pixbuf);
  return file;
}

File gif() {
  return {'G', 'I', 'F', '8', '9', 'a', 1, 0, 1, 0, 0x80, 0, 0, 255,  0, 0, 0,  0,
          0,   ',', 0,   0,   0,   0,   1, 0, 1, 0, 0,    2, 2, 0x44, 1, 0, ';'};
}

File heif() {
  gsize length = 0;
  guchar* bytes = g_base64_decode(kHeifBase64, &length);
  File file(bytes, bytes + length);
  g_free(bytes);
  return file;
}

File withOrientation(const File& jpeg, int tag, bool bigEndian) {
  const auto high = std::uint8_t(tag >> 8);
  const auto low = std::uint8_t(tag);
  File exif = {0xFF, 0xE1, 0, 34, 'E', 'x', 'i', 'f', 0, 0};
  const File big = {'M', 'M', 0, 42, 0, 0, 0, 8, 0, 1, 0x01, 0x12, 0, 3, 0, 0, 0, 1, high, low, 0, 0, 0, 0, 0, 0};
  const File little = {'I', 'I', 42, 0, 8, 0, 0, 0, 1, 0, 0x12, 0x01, 3, 0, 1, 0, 0, 0, low, high, 0, 0, 0, 0, 0, 0};
  const File& structure = bigEndian ? big : little;
  exif.insert(exif.end(), structure.begin(), structure.end());
  File result(jpeg.begin(), jpeg.begin() + 2);
  result.insert(result.end(), exif.begin(), exif.end());
  result.insert(result.end(), jpeg.begin() + 2, jpeg.end());
  return result;
}

File pngHeader(std::uint32_t width, std::uint32_t height) {
  File file = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  File header;
  appendNumber(header, width);
  appendNumber(header, height);
  header.insert(header.end(), {8, 6, 0, 0, 0});
  appendChunk(file, "IHDR", header);
  appendChunk(file, "IDAT", {0x78, 0x01, 0x03, 0, 0, 0, 0, 1});
  appendChunk(file, "IEND", {});
  return file;
}

}  // namespace test_images
