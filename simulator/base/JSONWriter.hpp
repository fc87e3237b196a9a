// Writes a stream of values as JSON.
#pragma once

#include <cmath>
#include <string>
#include <utility>

#include "base/JsonText.hpp"
#include "base/ValueSink.hpp"

namespace sim {

/// Collects the JSON text of one value. Refuses dates, data and numbers that are not finite.
class JSONWriter final : public ValueSink {
 public:
  explicit JSONWriter(JsonFormat format) : text_(format) {}

  /// The text, once the value has ended.
  std::string finished() && { return std::move(text_).text(); }

  bool beginDictionary(std::size_t) override { return text_.beginObject(), true; }
  bool key(std::string_view text) override { return text_.name(text), true; }
  bool endDictionary() override { return text_.endObject(), true; }
  bool beginArray(std::size_t) override { return text_.beginArray(), true; }
  bool endArray() override { return text_.endArray(), true; }
  bool string(std::string_view text) override { return text_.string(text), true; }
  bool integer(std::int64_t value) override { return text_.integer(value), true; }
  bool unsignedInteger(std::uint64_t value) override { return text_.natural(value), true; }
  bool real(double value) override { return std::isfinite(value) && (text_.number(value), true); }
  bool boolean(bool value) override { return text_.flag(value), true; }
  bool date(double) override { return false; }
  bool data(std::span<const std::byte>) override { return false; }
  bool null() override { return text_.null(), true; }

 private:
  JsonText text_;
};

}  // namespace sim
