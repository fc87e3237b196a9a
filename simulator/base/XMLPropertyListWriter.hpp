// Writes property lists in the XML format.
#pragma once

#include <string>

#include "base/ValueSink.hpp"

namespace sim {

/// Collects the document of one value, laid out as a device lays it out. Refuses what XML 1.0 cannot hold: characters
/// below U+0020 other than tab, line feed and carriage return, U+FFFE and U+FFFF; dates beyond the year 9999; null.
class XMLPropertyListWriter final : public ValueSink {
 public:
  XMLPropertyListWriter();

  /// The whole document, once the value has ended.
  std::string finished() &&;
  /// Why a value was refused; empty when none was.
  const std::string& problem() const { return problem_; }

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
  bool begin(std::string_view name);
  bool end(std::string_view name);
  void indent();
  bool element(std::string_view name, std::string_view content);
  bool textElement(std::string_view name, std::string_view text);
  bool refuse(std::string problem);

  std::string document_;
  std::string problem_;
  std::size_t depth_ = 0;
  bool empty_ = false;  // The last thing written is the start of a container.
};

}  // namespace sim
