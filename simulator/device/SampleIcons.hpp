// The icons of the sample apps.
#pragma once

#include <cairo.h>

namespace sim {

/// Draws an icon on a square of 60 units, from edge to edge: the system rounds the corners.
using DrawIcon = void (*)(cairo_t* context);

void drawMusicIcon(cairo_t* context);
void drawCameraIcon(cairo_t* context);
void drawPhotosIcon(cairo_t* context);
void drawMapsIcon(cairo_t* context);
void drawNotesIcon(cairo_t* context);
void drawMailIcon(cairo_t* context);
void drawClockIcon(cairo_t* context);
void drawWeatherIcon(cairo_t* context);
void drawCalendarIcon(cairo_t* context);
void drawMessagesIcon(cairo_t* context);
void drawFilesIcon(cairo_t* context);
void drawSettingsIcon(cairo_t* context);
void drawRecordIcon(cairo_t* context);
void drawBookIcon(cairo_t* context);
void drawOverviewIcon(cairo_t* context);
void drawTeaIcon(cairo_t* context);

}  // namespace sim
