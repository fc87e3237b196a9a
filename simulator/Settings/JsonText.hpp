// Builds a JSON text piece by piece, without a tree of values in between. Plain C++.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace sim {

/// A JSON text under construction. Commas are set as they are needed; that names and values alternate in objects, and
/// that everything opened is closed, is the caller's business.
class JsonText final {
 public:
  void beginObject() { open('{'); }
  void endObject() { text_ += '}'; }
  void beginArray() { open('['); }
  void endArray() { text_ += ']'; }

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

  const std::string& text() const noexcept { return text_; }
  /// Takes back everything after the first `size` bytes, after which a value ended or was about to begin.
  void truncate(std::size_t size) { text_.resize(size); }

 private:
  void separate();
  void open(char bracket);
  void plain(std::string_view value);

  std::string text_;
};

}  // namespace sim
