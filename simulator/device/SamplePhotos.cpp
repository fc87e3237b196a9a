#include "device/SamplePhotos.hpp"

#include "device/Canvas.hpp"

#include <cmath>
#include <cstdint>
#include <numbers>

namespace sim {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;

void disc(cairo_t* context, double x, double y, double radius, Color color, double opacity = 1) {
  setColor(context, color, opacity);
  cairo_arc(context, x, y, radius, 0, kTurn);
  cairo_fill(context);
}

// A line of hills from the left to the right; everything below it takes the colour. `phase` tells hills apart, in
// radians.
void hills(cairo_t* context, double width, double height, double crest, double rise, double phase, Color color) {
  cairo_move_to(context, 0, height);
  for (double x = 0; x <= width; x += width / 160) {
    const double t = x / width * kTurn;
    const double y =
        std::sin(t * 0.8 + phase) + 0.45 * std::sin(t * 2.1 + phase * 1.7) + 0.2 * std::sin(t * 4.7 + phase);
    cairo_line_to(context, x, crest - rise * y);
  }
  cairo_line_to(context, width, height);
  cairo_close_path(context);
  setColor(context, color);
  cairo_fill(context);
}

void peak(cairo_t* context, double x, double base, double halfWidth, double rise, Color color, Color snow) {
  cairo_move_to(context, x - halfWidth, base);
  cairo_line_to(context, x, base - rise);
  cairo_line_to(context, x + halfWidth, base);
  cairo_close_path(context);
  setColor(context, color);
  cairo_fill(context);
  const double cap = 0.28;
  cairo_move_to(context, x, base - rise);
  cairo_line_to(context, x - halfWidth * cap, base - rise * (1 - cap));
  cairo_line_to(context, x - halfWidth * cap * 0.35, base - rise * (1 - cap * 0.75));
  cairo_line_to(context, x + halfWidth * cap * 0.1, base - rise * (1 - cap * 1.15));
  cairo_line_to(context, x + halfWidth * cap * 0.5, base - rise * (1 - cap * 0.8));
  cairo_line_to(context, x + halfWidth * cap, base - rise * (1 - cap));
  cairo_close_path(context);
  setColor(context, snow);
  cairo_fill(context);
}

// Stars at places that look random and are the same in every build.
void stars(cairo_t* context, double width, double height, int count) {
  std::uint32_t state = 20'011;
  const auto next = [&state] {
    state = state * 1'664'525u + 1'013'904'223u;
    return (state >> 8) / 16'777'216.0;
  };
  for (int i = 0; i < count; ++i) {
    const double x = next() * width;
    const double y = next() * height;
    disc(context, x, y, 1 + 3 * next() * next(), 0xFFFFFF, 0.35 + 0.65 * next());
  }
}

std::string dusk() {
  return drawnPng(1170, 2532, [](cairo_t* context) {
    fillGradient(context, 0x2B2F77, 0xF7A072, 1900);
    disc(context, 800, 1330, 130, 0xFFE2A8);
    hills(context, 1170, 2532, 1560, 90, 0.3, 0x8E5B8C);
    hills(context, 1170, 2532, 1790, 110, 1.9, 0x5B3F73);
    hills(context, 1170, 2532, 2060, 120, 3.4, 0x33284F);
  });
}

std::string night() {
  return drawnPng(1170, 2532, [](cairo_t* context) {
    fillGradient(context, 0x050B1F, 0x1D3B5C, 2532);
    stars(context, 1170, 1700, 260);
    disc(context, 320, 520, 110, 0xF3EFD9);
    disc(context, 372, 486, 100, 0x0A1530);
    hills(context, 1170, 2532, 1900, 110, 2.6, 0x10263D);
    hills(context, 1170, 2532, 2160, 90, 0.9, 0x081523);
  });
}

std::string mountains() {
  return drawnPng(1600, 1200, [](cairo_t* context) {
    fillGradient(context, 0x4E9BD6, 0xDDF0FA, 900);
    peak(context, 430, 980, 560, 640, 0x6A7F98, 0xF7FAFC);
    peak(context, 1150, 980, 660, 740, 0x56697F, 0xFFFFFF);
    hills(context, 1600, 1200, 900, 40, 1.2, 0x4C8A57);
    hills(context, 1600, 1200, 1040, 35, 3.0, 0x2F6B41);
  });
}

std::string sea() {
  return drawnPng(1600, 1200, [](cairo_t* context) {
    fillGradient(context, 0x8FD3F4, 0xFFF3DC, 720);
    disc(context, 1180, 300, 95, 0xFFF7D6);
    cairo_rectangle(context, 0, 640, 1600, 560);
    setColor(context, 0x1F7FA8);
    cairo_fill(context);
    hills(context, 1600, 1200, 760, 10, 0.4, 0x2A93B8);
    hills(context, 1600, 1200, 880, 14, 2.2, 0x44AEC6);
    hills(context, 1600, 1200, 1060, 22, 4.0, 0xF1DDB0);
  });
}

std::string dunes() {
  return drawnPng(1600, 1200, [](cairo_t* context) {
    fillGradient(context, 0xF9C58D, 0xFCE9CF, 700);
    disc(context, 360, 260, 80, 0xFFFFFF, 0.85);
    hills(context, 1600, 1200, 640, 70, 0.2, 0xE2A35F);
    hills(context, 1600, 1200, 800, 80, 2.4, 0xCB8242);
    hills(context, 1600, 1200, 980, 70, 4.1, 0xA9622D);
  });
}

std::string meadow() {
  return drawnPng(1200, 1600, [](cairo_t* context) {
    fillGradient(context, 0xBFE3F7, 0xF4FBE8, 1000);
    hills(context, 1200, 1600, 900, 60, 3.7, 0x9CC98A);
    hills(context, 1200, 1600, 1060, 70, 1.1, 0x6FAE5E);
    hills(context, 1200, 1600, 1270, 50, 5.0, 0x43833F);
    for (int i = 0; i < 14; ++i)
      disc(context, 60 + i * 84, 1420 + 70 * std::sin(i * 2.3), 20,
           i % 3 == 0   ? 0xF4D03F
           : i % 3 == 1 ? 0xFFFFFF
                        : 0xE8604C);
  });
}

}  // namespace

const std::vector<SamplePhoto>& samplePhotos() {
  static const std::vector<SamplePhoto> photos{
      {"IMG_0001.PNG", &dusk}, {"IMG_0002.PNG", &night}, {"IMG_0003.PNG", &mountains},
      {"IMG_0004.PNG", &sea},  {"IMG_0005.PNG", &dunes}, {"IMG_0006.PNG", &meadow},
  };
  return photos;
}

}  // namespace sim
