#include "UIKit/FontFamilies.hpp"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <iterator>

namespace sim {
namespace {

using enum Typeface;

// As the platform's list of its fonts names them: https://developer.apple.com/fonts/system-fonts/
constexpr FontFace kAmericanTypewriter[] = {{"AmericanTypewriter", 400, false},
                                            {"AmericanTypewriter-Light", 300, false},
                                            {"AmericanTypewriter-Semibold", 600, false},
                                            {"AmericanTypewriter-Bold", 700, false}};
constexpr FontFace kArial[] = {{"ArialMT", 400, false},
                               {"Arial-ItalicMT", 400, true},
                               {"Arial-BoldMT", 700, false},
                               {"Arial-BoldItalicMT", 700, true}};
constexpr FontFace kArialRoundedMTBold[] = {{"ArialRoundedMTBold", 700, false}};
constexpr FontFace kAvenir[] = {
    {"Avenir-Book", 400, false},        {"Avenir-BookOblique", 400, true},   {"Avenir-Roman", 400, false},
    {"Avenir-Oblique", 400, true},      {"Avenir-Light", 300, false},        {"Avenir-LightOblique", 300, true},
    {"Avenir-Medium", 500, false},      {"Avenir-MediumOblique", 500, true}, {"Avenir-Heavy", 800, false},
    {"Avenir-HeavyOblique", 800, true}, {"Avenir-Black", 900, false},        {"Avenir-BlackOblique", 900, true}};
constexpr FontFace kAvenirNext[] = {{"AvenirNext-Regular", 400, false},    {"AvenirNext-Italic", 400, true},
                                    {"AvenirNext-UltraLight", 100, false}, {"AvenirNext-UltraLightItalic", 100, true},
                                    {"AvenirNext-Medium", 500, false},     {"AvenirNext-MediumItalic", 500, true},
                                    {"AvenirNext-DemiBold", 600, false},   {"AvenirNext-DemiBoldItalic", 600, true},
                                    {"AvenirNext-Bold", 700, false},       {"AvenirNext-BoldItalic", 700, true},
                                    {"AvenirNext-Heavy", 800, false},      {"AvenirNext-HeavyItalic", 800, true}};
constexpr FontFace kBaskerville[] = {{"Baskerville", 400, false},          {"Baskerville-Italic", 400, true},
                                     {"Baskerville-SemiBold", 600, false}, {"Baskerville-SemiBoldItalic", 600, true},
                                     {"Baskerville-Bold", 700, false},     {"Baskerville-BoldItalic", 700, true}};
constexpr FontFace kChalkboardSE[] = {
    {"ChalkboardSE-Regular", 400, false}, {"ChalkboardSE-Light", 300, false}, {"ChalkboardSE-Bold", 700, false}};
constexpr FontFace kCochin[] = {{"Cochin", 400, false},
                                {"Cochin-Italic", 400, true},
                                {"Cochin-Bold", 700, false},
                                {"Cochin-BoldItalic", 700, true}};
constexpr FontFace kCourier[] = {{"Courier", 400, false},
                                 {"Courier-Oblique", 400, true},
                                 {"Courier-Bold", 700, false},
                                 {"Courier-BoldOblique", 700, true}};
constexpr FontFace kCourierNew[] = {{"CourierNewPSMT", 400, false},
                                    {"CourierNewPS-ItalicMT", 400, true},
                                    {"CourierNewPS-BoldMT", 700, false},
                                    {"CourierNewPS-BoldItalicMT", 700, true}};
constexpr FontFace kDidot[] = {{"Didot", 400, false}, {"Didot-Italic", 400, true}, {"Didot-Bold", 700, false}};
constexpr FontFace kFutura[] = {
    {"Futura-Medium", 500, false}, {"Futura-MediumItalic", 500, true}, {"Futura-Bold", 700, false}};
constexpr FontFace kGeorgia[] = {{"Georgia", 400, false},
                                 {"Georgia-Italic", 400, true},
                                 {"Georgia-Bold", 700, false},
                                 {"Georgia-BoldItalic", 700, true}};
constexpr FontFace kGillSans[] = {{"GillSans", 400, false},          {"GillSans-Italic", 400, true},
                                  {"GillSans-Light", 300, false},    {"GillSans-LightItalic", 300, true},
                                  {"GillSans-SemiBold", 600, false}, {"GillSans-SemiBoldItalic", 600, true},
                                  {"GillSans-Bold", 700, false},     {"GillSans-BoldItalic", 700, true}};
constexpr FontFace kHelvetica[] = {{"Helvetica", 400, false},       {"Helvetica-Oblique", 400, true},
                                   {"Helvetica-Light", 300, false}, {"Helvetica-LightOblique", 300, true},
                                   {"Helvetica-Bold", 700, false},  {"Helvetica-BoldOblique", 700, true}};
constexpr FontFace kHelveticaNeue[] = {{"HelveticaNeue", 400, false},
                                       {"HelveticaNeue-Italic", 400, true},
                                       {"HelveticaNeue-UltraLight", 100, false},
                                       {"HelveticaNeue-UltraLightItalic", 100, true},
                                       {"HelveticaNeue-Thin", 200, false},
                                       {"HelveticaNeue-ThinItalic", 200, true},
                                       {"HelveticaNeue-Light", 300, false},
                                       {"HelveticaNeue-LightItalic", 300, true},
                                       {"HelveticaNeue-Medium", 500, false},
                                       {"HelveticaNeue-MediumItalic", 500, true},
                                       {"HelveticaNeue-Bold", 700, false},
                                       {"HelveticaNeue-BoldItalic", 700, true}};
constexpr FontFace kHoeflerText[] = {{"HoeflerText-Regular", 400, false},
                                     {"HoeflerText-Italic", 400, true},
                                     {"HoeflerText-Black", 700, false},
                                     {"HoeflerText-BlackItalic", 700, true}};
constexpr FontFace kMarkerFelt[] = {{"MarkerFelt-Thin", 400, false}, {"MarkerFelt-Wide", 700, false}};
constexpr FontFace kMenlo[] = {{"Menlo-Regular", 400, false},
                               {"Menlo-Italic", 400, true},
                               {"Menlo-Bold", 700, false},
                               {"Menlo-BoldItalic", 700, true}};
constexpr FontFace kNoteworthy[] = {{"Noteworthy-Light", 400, false}, {"Noteworthy-Bold", 700, false}};
constexpr FontFace kOptima[] = {{"Optima-Regular", 400, false},
                                {"Optima-Italic", 400, true},
                                {"Optima-Bold", 700, false},
                                {"Optima-BoldItalic", 700, true},
                                {"Optima-ExtraBlack", 900, false}};
constexpr FontFace kPalatino[] = {{"Palatino-Roman", 400, false},
                                  {"Palatino-Italic", 400, true},
                                  {"Palatino-Bold", 700, false},
                                  {"Palatino-BoldItalic", 700, true}};
constexpr FontFace kTimesNewRoman[] = {{"TimesNewRomanPSMT", 400, false},
                                       {"TimesNewRomanPS-ItalicMT", 400, true},
                                       {"TimesNewRomanPS-BoldMT", 700, false},
                                       {"TimesNewRomanPS-BoldItalicMT", 700, true}};
constexpr FontFace kTrebuchetMS[] = {{"TrebuchetMS", 400, false},
                                     {"TrebuchetMS-Italic", 400, true},
                                     {"TrebuchetMS-Bold", 700, false},
                                     {"Trebuchet-BoldItalic", 700, true}};
constexpr FontFace kVerdana[] = {{"Verdana", 400, false},
                                 {"Verdana-Italic", 400, true},
                                 {"Verdana-Bold", 700, false},
                                 {"Verdana-BoldItalic", 700, true}};

constexpr FontFamily kFamilies[] = {{"American Typewriter", serif, kAmericanTypewriter},
                                    {"Arial", sans, kArial},
                                    {"Arial Rounded MT Bold", sans, kArialRoundedMTBold},
                                    {"Avenir", sans, kAvenir},
                                    {"Avenir Next", sans, kAvenirNext},
                                    {"Baskerville", serif, kBaskerville},
                                    {"Chalkboard SE", sans, kChalkboardSE},
                                    {"Cochin", serif, kCochin},
                                    {"Courier", mono, kCourier},
                                    {"Courier New", mono, kCourierNew},
                                    {"Didot", serif, kDidot},
                                    {"Futura", sans, kFutura},
                                    {"Georgia", serif, kGeorgia},
                                    {"Gill Sans", sans, kGillSans},
                                    {"Helvetica", sans, kHelvetica},
                                    {"Helvetica Neue", sans, kHelveticaNeue},
                                    {"Hoefler Text", serif, kHoeflerText},
                                    {"Marker Felt", sans, kMarkerFelt},
                                    {"Menlo", mono, kMenlo},
                                    {"Noteworthy", sans, kNoteworthy},
                                    {"Optima", sans, kOptima},
                                    {"Palatino", serif, kPalatino},
                                    {"Times New Roman", serif, kTimesNewRoman},
                                    {"Trebuchet MS", sans, kTrebuchetMS},
                                    {"Verdana", sans, kVerdana}};

bool isSame(std::string_view one, std::string_view other) {
  return std::ranges::equal(one, other,
                            [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
}

}  // namespace

std::span<const FontFamily> fontFamilies() { return kFamilies; }

const FontFamily* fontFamily(std::string_view name) {
  const auto found =
      std::ranges::find_if(kFamilies, [&](const FontFamily& family) { return isSame(family.name, name); });
  return found == std::end(kFamilies) ? nullptr : &*found;
}

NamedFont fontNamed(std::string_view name) {
  for (const FontFamily& family : kFamilies) {
    for (const FontFace& face : family.faces) {
      if (isSame(face.name, name)) return {&family, &face};
    }
  }
  const FontFamily* family = fontFamily(name);
  return {family, family ? &nearestFace(*family, 400, false) : nullptr};
}

const FontFace& nearestFace(const FontFamily& family, int weight, bool italic) {
  const auto distance = [&](const FontFace& face) {
    return std::abs(face.weight - weight) + (face.italic == italic ? 0 : 10'000);
  };
  return *std::ranges::min_element(family.faces, {}, distance);
}

FontShares sharesOf(Typeface typeface) {
  switch (typeface) {  // Of the fonts' tables hhea and OS/2, in parts of the em.
    case sans: return {1854 / 2048.0, -434 / 2048.0, 67 / 2048.0, 1409 / 2048.0, 1082 / 2048.0};
    case serif: return {1825 / 2048.0, -443 / 2048.0, 87 / 2048.0, 1341 / 2048.0, 940 / 2048.0};
    case mono: return {1705 / 2048.0, -615 / 2048.0, 0, 1349 / 2048.0, 1082 / 2048.0};
    case system: break;
  }
  return {0.9521484375, -0.2412109375, 0, 0.70458984375, 0.5263671875};
}

const char* fontFamilyOf(Typeface typeface) {
  switch (typeface) {
    case sans: return "Liberation Sans";
    case serif: return "Liberation Serif";
    case mono: return "Liberation Mono";
    case system: break;
  }
  return "Inter";
}

}  // namespace sim
