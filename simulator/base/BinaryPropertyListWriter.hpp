// Writes property lists in the binary format.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "base/ValueSink.hpp"

namespace sim {

/// Collects the document of one value. Equal strings are stored once. Refuses null.
class BinaryPropertyListWriter final : public ValueSink {
 public:
  /// The whole document, once the value has ended.
  std::string finished() &&;

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
  struct Object {
    std::string bytes;                    // The marker and what follows it, references excepted.
    std::vector<std::size_t> references;  // Keys first, then values.
  };
  struct Frame {
    std::size_t object;
    std::vector<std::size_t> keys, values;
  };

  bool add(std::string bytes);
  bool begin();
  bool end(unsigned marker);
  std::size_t textObject(std::string_view text);
  void refer(std::size_t object);

  std::vector<Object> objects_;
  std::vector<Frame> open_;
  std::unordered_map<std::string, std::size_t> texts_;
};

}  // namespace sim
