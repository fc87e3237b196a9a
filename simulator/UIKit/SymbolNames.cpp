#include "UIKit/SymbolNames.hpp"

#include <algorithm>

namespace sim {
namespace {

struct Renamed {
  std::string_view symbol;
  std::string_view drawing;
};

/// What the two sets call differently, with all that begins with it: "questionmark.circle" is "question_circle". The
/// drawings go by no other name.
constexpr Renamed kRenamed[] = {
    {"antenna.radiowaves.left.and.right", "antenna_radiowaves_left_right"},
    {"arrow.down.right.and.arrow.up.left", "arrow_down_right_arrow_up_left"},
    {"arrow.left.and.right", "arrow_left_right"},
    {"arrow.up.and.down", "arrow_up_down"},
    {"arrow.up.left.and.arrow.down.right", "arrow_up_left_arrow_down_right"},
    {"bitcoinsign", "bitcoin"},
    {"bubble.left.and.bubble.right", "bubble_left_bubble_right"},
    {"circle.lefthalf.filled", "circle_lefthalf_fill"},
    {"circle.righthalf.filled", "circle_righthalf_fill"},
    {"doc.text.magnifyingglass", "doc_text_search"},
    {"dollarsign", "money_dollar"},
    {"dot.radiowaves.left.and.right", "dot_radiowaves_left_right"},
    {"ellipsis.bubble", "ellipses_bubble"},
    {"eurosign", "money_euro"},
    {"gearshape", "gear_alt"},
    {"icloud.and.arrow.down", "cloud_download"},
    {"icloud.and.arrow.up", "cloud_upload"},
    {"infinity", "infinite"},
    {"ipad", "device_tablet_portrait"},
    {"ipad.landscape", "device_tablet_landscape"},
    {"iphone", "device_phone_portrait"},
    {"iphone.landscape", "device_phone_landscape"},
    {"laptopcomputer", "device_laptop"},
    {"magnifyingglass", "search"},
    {"mappin", "map_pin"},
    {"mappin.and.ellipse", "map_pin_ellipse"},
    {"minus.magnifyingglass", "zoom_out"},
    {"pawprint.fill", "paw"},
    {"pencil.and.ellipsis.rectangle", "pencil_ellipsis_rectangle"},
    {"plus.magnifyingglass", "zoom_in"},
    {"questionmark", "question"},
    {"rectangle.and.paperclip", "rectangle_paperclip"},
    {"rublesign", "money_rubl"},
    {"square.and.arrow.down", "square_arrow_down"},
    {"square.and.arrow.down.on.square", "square_arrow_down_on_square"},
    {"square.and.arrow.up", "square_arrow_up"},
    {"square.and.arrow.up.on.square", "square_arrow_up_on_square"},
    {"square.and.pencil", "square_pencil"},
    {"sterlingsign", "money_pound"},
    {"tablecells", "table"},
    {"tablecells.badge.ellipsis", "table_badge_more"},
    {"video", "videocam"},
    {"wand.and.rays", "wand_rays"},
    {"wand.and.stars", "wand_stars"},
    {"xmark.bin", "bin_xmark"},
    {"yensign", "money_yen"},
};

/// Symbols that another's drawing shows, with all that begins with them.
constexpr Renamed kShared[] = {
    {"arrow.backward", "arrow_left"},
    {"arrow.forward", "arrow_right"},
    {"arrow.triangle.2.circlepath", "arrow_2_circlepath"},
    {"bell.badge", "bell"},
    {"chevron.backward", "chevron_left"},
    {"chevron.forward", "chevron_right"},
    {"dial.max", "dial"},
    {"dial.min", "dial"},
    {"icloud", "cloud"},
    {"line.3.horizontal", "line_horizontal_3"},
    {"network", "globe"},
    {"paintbrush.pointed", "paintbrush"},
    {"speaker.wave.1", "speaker_1"},
    {"speaker.wave.2", "speaker_2"},
    {"speaker.wave.3", "speaker_3"},
    {"wrench.and.screwdriver", "wrench"},
};

/// Drawings of what is no symbol, with all that begin with them.
constexpr std::string_view kNoSymbols[] = {
    "alt",
    "arrow_down_to_line_alt",
    "arrow_left_to_line_alt",
    "arrow_right_to_line_alt",
    "arrow_swap",
    "arrow_up_to_line_alt",
    "bars",
    "calendar_today",
    "chat_bubble",
    "chart_bar_alt_fill",
    "chart_bar_circle",
    "chart_bar_square",
    "checkmark_2",
    "checkmark_alt",
    "device",
    "doc_chart",
    "doc_checkmark",
    "doc_person",
    "download_circle",
    "drop_triangle",
    "ellipsis_vertical",
    "expand",
    "floppy_disk",
    "funnel",
    "gamecontroller_alt_fill",
    "gift_alt",
    "graph",
    "grid",
    "house_alt",
    "layers",
    "list_number_rtl",
    "logo",
    "menu",
    "money",
    "music_albums",
    "person_2_alt",
    "person_alt",
    "person_circle",
    "poultry_leg",
    "resize",
    "rocket",
    "scissors_alt",
    "sort",
    "speaker_slash_fill_rtl",
    "speaker_slash_rtl",
    "speaker_zzz_fill_rtl",
    "speaker_zzz_rtl",
    "square_arrow_left",
    "square_arrow_right",
    "square_favorites",
    "square_list",
    "status",
    "sticker",
    "textformat_alt",
    "tickets",
    "today",
    "upload_circle",
    "wallet",
};

/// Whether `text` is `stem`, or that and more words.
bool beginsWith(std::string_view text, std::string_view stem, char separator) {
  return text.starts_with(stem) && (text.size() == stem.size() || text[stem.size()] == separator);
}

std::string withUnderscores(std::string_view text) {
  std::string result(text);
  std::replace(result.begin(), result.end(), '.', '_');
  return result;
}

}  // namespace

std::string symbolDrawingName(std::string_view name) {
  if (name.find('_') != std::string_view::npos) return {};
  Renamed longest;
  const auto look = [&](const Renamed& each) {
    if (each.symbol.size() > longest.symbol.size() && beginsWith(name, each.symbol, '.')) longest = each;
  };
  std::for_each(std::begin(kRenamed), std::end(kRenamed), look);
  std::for_each(std::begin(kShared), std::end(kShared), look);
  if (!longest.symbol.empty())
    return std::string(longest.drawing) + withUnderscores(name.substr(longest.symbol.size()));

  const std::string drawing = withUnderscores(name);
  const auto is = [&](std::string_view stem) { return beginsWith(drawing, stem, '_'); };
  const bool isOther =
      std::any_of(std::begin(kNoSymbols), std::end(kNoSymbols), is) ||
      std::any_of(std::begin(kRenamed), std::end(kRenamed), [&](const Renamed& each) { return is(each.drawing); });
  return isOther ? std::string() : drawing;
}

}  // namespace sim
