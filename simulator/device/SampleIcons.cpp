#include "device/SampleIcons.hpp"

#include "device/Canvas.hpp"

#include <cmath>
#include <numbers>

namespace sim {
namespace {

constexpr double kSide = 60;
constexpr double kTurn = 2 * std::numbers::pi;

void ground(cairo_t* context, Color top, Color bottom) { fillGradient(context, top, bottom, kSide); }

void fill(cairo_t* context, Color color, double opacity = 1) {
  setColor(context, color, opacity);
  cairo_fill(context);
}

void stroke(cairo_t* context, Color color, double width) {
  setColor(context, color);
  cairo_set_line_width(context, width);
  cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
  cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
  cairo_stroke(context);
}

void circle(cairo_t* context, double x, double y, double radius) {
  cairo_new_sub_path(context);
  cairo_arc(context, x, y, radius, 0, kTurn);
}

void ellipse(cairo_t* context, double x, double y, double halfWidth, double halfHeight, double angle) {
  cairo_save(context);
  cairo_translate(context, x, y);
  cairo_rotate(context, angle);
  cairo_scale(context, halfWidth, halfHeight);
  circle(context, 0, 0, 1);
  cairo_restore(context);
}

void roundedBox(cairo_t* context, double x, double y, double width, double height, double radius) {
  cairo_new_sub_path(context);
  cairo_arc(context, x + width - radius, y + radius, radius, -kTurn / 4, 0);
  cairo_arc(context, x + width - radius, y + height - radius, radius, 0, kTurn / 4);
  cairo_arc(context, x + radius, y + height - radius, radius, kTurn / 4, kTurn / 2);
  cairo_arc(context, x + radius, y + radius, radius, kTurn / 2, kTurn * 3 / 4);
  cairo_close_path(context);
}

void line(cairo_t* context, double x1, double y1, double x2, double y2) {
  cairo_move_to(context, x1, y1);
  cairo_line_to(context, x2, y2);
}

void hand(cairo_t* context, double turns, double length, Color color, double width) {
  const double angle = turns * kTurn;
  line(context, 30, 30, 30 + length * std::sin(angle), 30 - length * std::cos(angle));
  stroke(context, color, width);
}

}  // namespace

void drawMusicIcon(cairo_t* context) {
  ground(context, 0xFB5C74, 0xE0243F);
  line(context, 24, 42, 24, 18);
  cairo_line_to(context, 42, 14);
  cairo_line_to(context, 42, 38);
  stroke(context, 0xFFFFFF, 3.6);
  ellipse(context, 20, 42.5, 5.8, 4.6, -0.3);
  ellipse(context, 38, 38.5, 5.8, 4.6, -0.3);
  fill(context, 0xFFFFFF);
}

void drawCameraIcon(cairo_t* context) {
  ground(context, 0xDADCE0, 0xAEB2B9);
  roundedBox(context, 20, 15, 20, 12, 3);
  roundedBox(context, 10, 20, 40, 27, 5);
  fill(context, 0x2C2E33);
  circle(context, 30, 33.5, 9.5);
  fill(context, 0xDADCE0);
  circle(context, 30, 33.5, 7.2);
  fill(context, 0x2C2E33);
  circle(context, 44.5, 25, 1.8);
  fill(context, 0xF2C230);
}

void drawPhotosIcon(cairo_t* context) {
  ground(context, 0xFFFFFF, 0xF0F1F5);
  cairo_save(context);
  roundedBox(context, 9, 13, 42, 34, 6);
  cairo_clip(context);
  fillGradient(context, 0x7FC8F8, 0xFDE8C9, 50);
  circle(context, 39, 23, 5);
  fill(context, 0xFFF3B0);
  cairo_move_to(context, 3, 50);
  cairo_line_to(context, 21, 24);
  cairo_line_to(context, 39, 50);
  fill(context, 0x7C5CC4);
  cairo_move_to(context, 22, 50);
  cairo_line_to(context, 38, 33);
  cairo_line_to(context, 58, 50);
  fill(context, 0xE8598B);
  cairo_restore(context);
}

void drawMapsIcon(cairo_t* context) {
  ground(context, 0xCDE8C4, 0xA9D59A);
  line(context, -5, 46, 65, 24);
  stroke(context, 0xFFFFFF, 9);
  line(context, 18, -5, 30, 65);
  stroke(context, 0xF7D774, 7);
  cairo_move_to(context, 40, 42);
  cairo_curve_to(context, 30, 30, 31, 26, 31, 22);
  cairo_arc(context, 40, 21, 9, kTurn / 2, kTurn);
  cairo_curve_to(context, 49, 26, 50, 30, 40, 42);
  fill(context, 0xE5453B);
  circle(context, 40, 21, 3.6);
  fill(context, 0xFFFFFF);
}

void drawNotesIcon(cairo_t* context) {
  ground(context, 0xFFFFFF, 0xF6F5F0);
  cairo_rectangle(context, 0, 0, kSide, 16);
  fill(context, 0xF7CE46);
  for (int i = 0; i < 4; ++i) {
    line(context, 10, 26 + 8 * i, i == 3 ? 34 : 50, 26 + 8 * i);
    stroke(context, 0xC9C7BF, 2);
  }
}

void drawMailIcon(cairo_t* context) {
  ground(context, 0x5AC8FA, 0x1272E6);
  roundedBox(context, 9, 17, 42, 27, 4);
  fill(context, 0xFFFFFF);
  cairo_move_to(context, 11.5, 20);
  cairo_line_to(context, 30, 34);
  cairo_line_to(context, 48.5, 20);
  stroke(context, 0x1B78E8, 2.4);
}

void drawClockIcon(cairo_t* context) {
  ground(context, 0x2C2C30, 0x0B0B0D);
  circle(context, 30, 30, 23);
  fill(context, 0xFFFFFF);
  for (int i = 0; i < 12; ++i) {
    const double angle = i * kTurn / 12;
    circle(context, 30 + 19.5 * std::sin(angle), 30 - 19.5 * std::cos(angle), i % 3 == 0 ? 1.5 : 0.9);
    fill(context, 0x3A3A3E);
  }
  hand(context, 10.15 / 12, 11, 0x1C1C1E, 2.6);
  hand(context, 9.0 / 60, 16, 0x1C1C1E, 2.2);
  hand(context, 35.0 / 60, 17, 0xF2811D, 1.1);
  circle(context, 30, 30, 1.8);
  fill(context, 0xF2811D);
}

void drawWeatherIcon(cairo_t* context) {
  ground(context, 0x1E6FD0, 0x63B6F2);
  circle(context, 23, 24, 10);
  fill(context, 0xFFD23F);
  circle(context, 27, 40, 8);
  circle(context, 37, 35, 10.5);
  circle(context, 46, 40, 8);
  roundedBox(context, 20, 38, 33, 10, 5);
  fill(context, 0xFFFFFF);
}

void drawCalendarIcon(cairo_t* context) {
  ground(context, 0xFFFFFF, 0xF4F4F6);
  cairo_rectangle(context, 0, 0, kSide, 17);
  fill(context, 0xE5453B);
  for (int row = 0; row < 4; ++row)
    for (int column = 0; column < 5; ++column) {
      if (row == 3 && column > 2) continue;
      roundedBox(context, 9.5 + 8.8 * column, 23 + 8.4 * row, 6, 5.6, 1.4);
      fill(context, row == 1 && column == 3 ? 0xE5453B : 0xC6C7CC);
    }
}

void drawMessagesIcon(cairo_t* context) {
  ground(context, 0x67E36B, 0x22B83A);
  ellipse(context, 30, 28, 20, 16.5, 0);
  fill(context, 0xFFFFFF);
  cairo_move_to(context, 18, 38);
  cairo_curve_to(context, 19, 43, 16, 47, 12.5, 49);
  cairo_curve_to(context, 19, 49, 25, 47, 28, 43);
  cairo_close_path(context);
  fill(context, 0xFFFFFF);
}

void drawFilesIcon(cairo_t* context) {
  ground(context, 0xFFFFFF, 0xEEF1F6);
  roundedBox(context, 9, 16, 20, 12, 3.5);
  fill(context, 0x2F83E0);
  roundedBox(context, 9, 20, 42, 27, 4);
  fill(context, 0x54AEF5);
}

void drawSettingsIcon(cairo_t* context) {
  ground(context, 0xB4B7BE, 0x6E7178);
  for (int i = 0; i < 10; ++i) {
    cairo_save(context);
    cairo_translate(context, 30, 30);
    cairo_rotate(context, i * kTurn / 10);
    roundedBox(context, -3.4, -23, 6.8, 9, 1.6);
    cairo_restore(context);
    fill(context, 0x2F3136);
  }
  circle(context, 30, 30, 17.5);
  fill(context, 0x2F3136);
  circle(context, 30, 30, 12.5);
  fill(context, 0xB9BCC3);
  circle(context, 30, 30, 4.5);
  fill(context, 0x2F3136);
}

void drawRecordIcon(cairo_t* context) {
  ground(context, 0x6B46C1, 0x2D1B69);
  circle(context, 30, 30, 21);
  fill(context, 0x15101F);
  for (const double radius : {17.5, 14.5, 11.5}) {
    circle(context, 30, 30, radius);
    stroke(context, 0x3C3350, 0.8);
  }
  circle(context, 30, 30, 8);
  fill(context, 0xF6AD55);
  circle(context, 30, 30, 1.8);
  fill(context, 0x15101F);
}

void drawBookIcon(cairo_t* context) {
  ground(context, 0xF59E42, 0xD9661F);
  cairo_move_to(context, 30, 19);
  cairo_curve_to(context, 24, 14, 16, 14, 10, 16);
  cairo_line_to(context, 10, 43);
  cairo_curve_to(context, 16, 41, 24, 41, 30, 46);
  cairo_curve_to(context, 36, 41, 44, 41, 50, 43);
  cairo_line_to(context, 50, 16);
  cairo_curve_to(context, 44, 14, 36, 14, 30, 19);
  fill(context, 0xFFFFFF);
  line(context, 30, 20, 30, 44);
  stroke(context, 0xE3802F, 1.6);
}

void drawOverviewIcon(cairo_t* context) {
  ground(context, 0x2BB3A3, 0x0E7C7B);
  for (int row = 0; row < 2; ++row)
    for (int column = 0; column < 2; ++column) {
      roundedBox(context, 12 + 19 * column, 12 + 19 * row, 16, 16, 4);
      fill(context, 0xFFFFFF, row == column ? 1 : 0.6);
    }
}

void drawTeaIcon(cairo_t* context) {
  ground(context, 0xF8E9D2, 0xE9CFA6);
  circle(context, 44, 33, 6);
  stroke(context, 0x7A4B2A, 3);
  cairo_move_to(context, 13, 25);
  cairo_line_to(context, 43, 25);
  cairo_curve_to(context, 43, 40, 38, 46, 28, 46);
  cairo_curve_to(context, 18, 46, 13, 40, 13, 25);
  fill(context, 0x7A4B2A);
  for (int i = 0; i < 3; ++i) {
    const double x = 20 + 8 * i;
    cairo_move_to(context, x, 21);
    cairo_curve_to(context, x - 3, 18, x + 3, 15, x, 11);
    stroke(context, 0xB98A5E, 2);
  }
}

}  // namespace sim
