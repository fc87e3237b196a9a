// Builds a JSON text piece by piece, without a tree of values in between.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

struct JsonFormat {
  bool isPretty = false;        // A line for each entry, two spaces for each level, " : " behind names.
  bool escapesSlashes = false;  // "/" becomes "\/".
};

/// A JSON text under construction. Commas are set as they are needed; that names and values alternate in objects, and
/// that everything opened is closed, is the caller's business. Everything beyond ASCII stands as it is.
class JsonText final {
 public:
  JsonText() = default;
  explicit JsonText(JsonFormat format) : format_(format) {}

  void beginObject() { open('{'); }
  void endObject() { close('}'); }
  void beginArray() { open('['); }
  void endArray() { close(']'); }

  /// Writes the name of the value that follows.
  JsonText& name(std::string_view name);

  void null() { plain("null"); }
  void flag(bool value) { plain(value ? "true" : "false"); }
  void integer(std::int64_t value);
  void natural(std::uint64_t value);
  /// The shortest form that reads back as the same number; null for what JSON has no number for.
  void number(double value);
  void number(float value);
  /// Bytes that are no UTF-8 become replacement characters.
  void string(std::string_view utf8);
  /// Leaves a string empty, for `fill`.
  void emptyString();
  /// Gives the strings left empty what they say, in order; all of them, in UTF-8 without anything to escape. Time is
  /// linear in the length of the text.
  void fill(const std::vector<std::string>& strings);

  const std::string& text() const& noexcept { return text_; }
  std::string text() && noexcept { return std::move(text_); }
  /// Takes back everything after the first `size` bytes, after which a value ended or was about to begin. Of a text
  /// that is not pretty.
  void truncate(std::size_t size);

 private:
  void newLine();
  void separate();
  void open(char bracket);
  void close(char bracket);
  void plain(std::string_view value);
  bool isEscaped(char character) const;

  JsonFormat format_;
  std::string text_;
  std::size_t depth_ = 0;           // Of a pretty text.
  std::vector<std::size_t> empty_;  // Where the strings left empty have their content.
};

}  // namespace sim
