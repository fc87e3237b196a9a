#include "VisualFormat.hpp"

#include <charconv>
#include <optional>

namespace sim {
namespace {

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '$'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

class Parser final {
 public:
  explicit Parser(std::string_view text) : text_(text) {}

  std::variant<VisualFormat, VisualFormatError> parse() {
    while (!text_.empty() && text_.back() == ' ') text_.remove_suffix(1);
    while (take(" ")) {
    }
    if (take("V:")) format_.isVertical = true;
    else (void)take("H:");
    if (take("|")) format_.views.emplace_back();
    else if (!parseView()) return failure();
    while (!error_ && position_ < text_.size()) {
      if (!parseGap()) return failure();
      if (take("|")) {
        format_.views.emplace_back();
        break;
      }
      if (!parseView()) return failure();
    }
    if (error_) return failure();
    if (position_ < text_.size()) return fail("Expected the end of the format after the superview"), failure();
    if (format_.views.size() == 1 && format_.views.front().name.empty()) {
      return fail("Expected a view in the format"), failure();
    }
    return std::move(format_);
  }

 private:
  VisualFormatError failure() const { return *error_; }

  bool fail(std::string reason) {
    if (!error_) error_ = VisualFormatError{position_, std::move(reason)};
    return false;
  }

  bool take(std::string_view token) {
    if (text_.substr(position_).substr(0, token.size()) != token) return false;
    position_ += token.size();
    return true;
  }

  char next() const { return position_ < text_.size() ? text_[position_] : '\0'; }

  std::string name() {
    const std::size_t start = position_;
    while (isLetter(next()) || (position_ > start && (isDigit(next()) || next() == '.'))) ++position_;
    return std::string(text_.substr(start, position_ - start));
  }

  bool parseView() {
    if (!take("[")) return fail("Expected a view, in brackets, or the superview, '|'");
    VisualView view;
    view.name = name();
    if (view.name.empty()) return fail("Expected the name of a view");
    if (take("(")) {
      if (!parsePredicates(view.sizes)) return false;
    }
    if (!take("]")) return fail("Expected a ']' after the view");
    format_.views.push_back(std::move(view));
    return true;
  }

  bool parseGap() {
    VisualGap gap;
    if (take("-")) {
      if (next() == '[' || next() == '|') {
        gap.isStandard = true;
      } else {
        if (take("(")) {
          if (!parsePredicates(gap.distances)) return false;
        } else {
          VisualPredicate distance;
          if (!parseValue(distance.value)) return fail("Expected a distance, a view or the superview after '-'");
          if (take("@") && !parseValue(distance.priority)) return fail("Expected a priority after '@'");
          gap.distances.push_back(std::move(distance));
        }
        if (!take("-")) return fail("Expected a '-' after the distance");
      }
    }
    format_.gaps.push_back(std::move(gap));
    return true;
  }

  /// After "(" and with ")".
  bool parsePredicates(std::vector<VisualPredicate>& predicates) {
    do {
      VisualPredicate predicate;
      if (take("<=")) predicate.relation = -1;
      else if (take(">=")) predicate.relation = 1;
      else (void)take("==");
      if (!parseValue(predicate.value)) return fail("Expected a number or a name");
      if (take("@") && !parseValue(predicate.priority)) return fail("Expected a priority after '@'");
      predicates.push_back(std::move(predicate));
    } while (take(","));
    return take(")") || fail("Expected a ',' or a ')'");
  }

  bool parseValue(std::variant<double, std::string>& value) {
    if (isLetter(next())) {
      value = name();
      return true;
    }
    const std::string_view rest = text_.substr(position_);
    double number = 0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number, std::chars_format::fixed);
    const std::size_t sign = next() == '-' ? 1 : 0;
    const bool startsWithDigit = sign < rest.size() && (isDigit(rest[sign]) || rest[sign] == '.');  // Not "inf".
    if (error != std::errc() || !startsWithDigit) return false;
    position_ += static_cast<std::size_t>(end - rest.data());
    value = number;
    return true;
  }

  std::string_view text_;
  std::size_t position_ = 0;
  VisualFormat format_;
  std::optional<VisualFormatError> error_;
};

}  // namespace

std::variant<VisualFormat, VisualFormatError> parseVisualFormat(std::string_view text) { return Parser(text).parse(); }

}  // namespace sim
