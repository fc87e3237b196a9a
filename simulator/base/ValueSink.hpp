// Property lists and JSON pass through this library as a stream of values: readers and the object walker produce it,
// writers and the object builder consume it. A reader of single values can be one more sink.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace sim {

/// What went wrong, for a developer to read; nothing when all went well.
using Problem = std::optional<std::string>;

/// Containers may lie this deep in one another, the outermost included; deeper ones are refused.
inline constexpr std::size_t kMaximumDepth = 512;

/// Consumes one value, depth first. Inside a dictionary each value follows its key. Texts are valid UTF-8; texts and
/// bytes are lent for the call only. A sink that answers false ends the stream, which then never gets to its end.
class ValueSink {
 public:
  virtual ~ValueSink() = default;

  /// `count` is the number of entries, or 0 when the source does not know it.
  virtual bool beginDictionary(std::size_t count) = 0;
  virtual bool key(std::string_view text) = 0;
  virtual bool endDictionary() = 0;
  virtual bool beginArray(std::size_t count) = 0;
  virtual bool endArray() = 0;
  virtual bool string(std::string_view text) = 0;
  virtual bool integer(std::int64_t value) = 0;
  /// Only for values beyond the range of `integer`.
  virtual bool unsignedInteger(std::uint64_t value) = 0;
  virtual bool real(double value) = 0;
  virtual bool boolean(bool value) = 0;
  /// Seconds since 1 January 2001, 00:00 UTC. Property lists only.
  virtual bool date(double seconds) = 0;
  /// Property lists only.
  virtual bool data(std::span<const std::byte> bytes) = 0;
  /// JSON only.
  virtual bool null() = 0;
};

}  // namespace sim
