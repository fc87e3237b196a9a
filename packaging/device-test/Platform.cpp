#include "Platform.hpp"

#include <sys/mman.h>

#include "Image.hpp"
#include "ObjectiveC.hpp"

namespace device_test {
namespace {

// A symbol without a stand-in has this many bytes of memory that nobody can touch. A virtual table fits.
constexpr std::uint64_t kForbiddenBytes = 0x100;
constexpr std::uint64_t kMostForbidden = 4096;

}  // namespace

Platform::Platform() : known_(systemStandIns()) {
  known_.merge(streamStandIns());
  known_.merge(objectiveCStandIns());
  void* const memory =
      mmap(nullptr, kForbiddenBytes * kMostForbidden, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (memory == MAP_FAILED) fail("no address space for the imports");
  forbidden_ = reinterpret_cast<std::uint64_t>(memory);
}

Platform::~Platform() { munmap(reinterpret_cast<void*>(forbidden_), kForbiddenBytes * kMostForbidden); }

std::uint64_t Platform::import(const std::string& symbol) {
  if (const auto found = known_.find(symbol); found != known_.end()) return found->second;
  if (const auto address = standInClass(symbol)) return known_[symbol] = address;
  if (missing_.size() == kMostForbidden) fail("the slice imports too many symbols");
  missing_.push_back(symbol);
  return known_[symbol] = forbidden_ + kForbiddenBytes * (missing_.size() - 1);
}

std::string Platform::missing(std::uint64_t address) const {
  const auto index = (address - forbidden_) / kForbiddenBytes;
  return address >= forbidden_ && index < missing_.size() ? missing_[index] : std::string();
}

}  // namespace device_test
