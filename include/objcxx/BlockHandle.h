// Ownership of blocks under manual retain/release. Used from Objective-C++ only.
#pragma once

#include <Block.h>

#include <utility>

namespace objcxx {

/// Owns one copy of a block of the type `Result (^)(Arguments...)`.
///
/// Made by `copyOf(block)`, which moves a stack block to the heap. Calling an empty handle is not allowed; test it
/// first. Blocks are never sent messages here: the copy is `Block_copy`, the end `Block_release`.
template <typename Result, typename... Arguments>
class [[nodiscard]] BlockHandle final {
 public:
  using Type = Result (^)(Arguments...);

  BlockHandle() noexcept = default;
  explicit BlockHandle(Type block) noexcept : block_(Block_copy(block)) {}
  BlockHandle(const BlockHandle &other) noexcept : BlockHandle(other.block_) {}
  BlockHandle(BlockHandle &&other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
  ~BlockHandle() { Block_release(block_); }
  BlockHandle &operator=(BlockHandle other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }

  Type get() const noexcept { return block_; }
  explicit operator bool() const noexcept { return block_ != nullptr; }
  Result operator()(Arguments... arguments) const { return block_(std::forward<Arguments>(arguments)...); }

 private:
  Type block_ = nullptr;
};

/// A handle on a heap copy of `block`; empty for nil.
template <typename Result, typename... Arguments>
[[nodiscard]] BlockHandle<Result, Arguments...> copyOf(Result (^block)(Arguments...)) noexcept {
  return BlockHandle<Result, Arguments...>(block);
}

}  // namespace objcxx
