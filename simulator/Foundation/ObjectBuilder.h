// Makes Foundation objects of a stream of values.
#pragma once

#import <Foundation/Foundation.h>

#include <objcxx/Retained.h>

#include "base/ValueSink.hpp"

#include <vector>

namespace sim {

enum class Mutability { immutable, containers, containersAndLeaves };

/// Collects one value as objects. Takes everything that a stream can hold; of equal keys the last one counts.
class ObjectBuilder final : public ValueSink {
 public:
  explicit ObjectBuilder(Mutability mutability) : mutability_(mutability) {}

  /// The finished object, autoreleased; nil while there is none.
  id finished();

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
  using Objects = std::vector<objcxx::Retained<NSObject>>;
  struct Frame {
    std::size_t keys, values;  // Where the container's own begin in the two stacks.
  };

  bool begin();
  bool push(id owned);

  Mutability mutability_;
  Objects keys_, values_;
  std::vector<Frame> open_;
};

}  // namespace sim
