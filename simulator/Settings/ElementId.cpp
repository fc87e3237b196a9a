#include "Settings/ElementId.hpp"

#include <array>
#include <charconv>
#include <cstddef>

namespace sim {
namespace {

struct Form {
  ElementKind kind;
  std::string_view word;
  bool hasRow;
  bool hasIndex;
};

constexpr std::array kForms{
    Form{ElementKind::kBack, "back", false, false},
    Form{ElementKind::kButton, "button", false, true},
    Form{ElementKind::kRow, "row", true, false},
    Form{ElementKind::kSwipe, "swipe", true, true},
    Form{ElementKind::kAlertAction, "action", false, true},
    Form{ElementKind::kAlertField, "field", false, true},
    Form{ElementKind::kSheetItem, "item", false, true},
    Form{ElementKind::kSheetColor, "color", false, false},
    Form{ElementKind::kView, "view", false, false},
};

/// Takes a decimal number, without sign or leading zeros, from the front of `text`.
std::optional<std::uint32_t> takeNumber(std::string_view& text) {
  std::uint32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const auto length = static_cast<std::size_t>(end - text.data());
  if (error != std::errc() || (length > 1 && text.front() == '0')) return std::nullopt;
  text.remove_prefix(length);
  return value;
}

std::optional<std::uint32_t> takeDottedNumber(std::string_view& text) {
  if (text.empty() || text.front() != '.') return std::nullopt;
  text.remove_prefix(1);
  return takeNumber(text);
}

}  // namespace

std::string ElementId::text() const {
  const Form& form = kForms[static_cast<std::size_t>(kind)];
  std::string text(form.word);
  text += std::to_string(owner);
  if (form.hasRow) text += '.' + std::to_string(row);
  if (form.hasIndex) text += '.' + std::to_string(index);
  return text;
}

std::optional<ElementId> ElementId::parse(std::string_view text) {
  for (const Form& form : kForms) {
    if (text.substr(0, form.word.size()) != form.word) continue;
    std::string_view rest = text.substr(form.word.size());
    ElementId id;
    id.kind = form.kind;
    const auto owner = takeNumber(rest);
    if (!owner) return std::nullopt;
    id.owner = *owner;
    if (form.hasRow) {
      const auto row = takeDottedNumber(rest);
      if (!row) return std::nullopt;
      id.row = *row;
    }
    if (form.hasIndex) {
      const auto index = takeDottedNumber(rest);
      if (!index) return std::nullopt;
      id.index = *index;
    }
    return rest.empty() ? std::optional(id) : std::nullopt;
  }
  return std::nullopt;
}

}  // namespace sim
