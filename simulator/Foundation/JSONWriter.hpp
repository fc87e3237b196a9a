// Writes JSON.
#pragma once

#include <string>
#include <vector>

#include "Foundation/ValueSink.hpp"

namespace sim {

struct JSONFormat {
  bool pretty = false;         // A line for each entry, two spaces for each level, " : " behind keys.
  bool escapesSlashes = true;  // "/" becomes "\/".
};

/// Collects the JSON text of one value. Everything beyond ASCII stands as it is. Refuses dates, data and numbers that
/// are not finite.
class JSONWriter final : public ValueSink {
 public:
  explicit JSONWriter(JSONFormat format) : format_(format) {}

  /// The text, once the value has ended.
  std::string finished() && { return std::move(text_); }

  bool beginDictionary(std::size_t count) override;
  bool key(std::string_view text) override;
  bool endDictionary() override;
  bool beginArray(std::size_t count) override;
  bool endArray() override;
  bool string(std::string_view text) override;
  bool integer(std::int64_t value) override;
  bool unsignedInteger(std::uint64_t value) override;
  bool real(double value) override;
  bool boolean(bool value) override;
  bool date(double seconds) override;
  bool data(std::span<const std::byte> bytes) override;
  bool null() override;

 private:
  bool begin(char bracket);
  bool end(char bracket);
  void startEntry();
  void startValue();
  void newLine();
  void append(std::string_view text);
  bool scalar(std::string_view text);

  JSONFormat format_;
  std::string text_;
  std::vector<std::size_t> entries_;  // How many each open container has so far.
  bool afterKey_ = false;
};

}  // namespace sim
