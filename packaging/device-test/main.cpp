// Loads an arm64e slice of the settings bundle as a device does, signs its pointers with the processor's instructions,
// and calls what it can of it.
//
//   device-test SLICE SAMPLES            the tests
//   device-test SLICE SAMPLES --altered  the tests again and again, each time with one pointer signed in another way:
//                                        they have to fail
//
// Runs on aarch64 Linux with pointer authentication. Exit status 0, or 1 and one sentence.
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <ucontext.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "Image.hpp"
#include "Platform.hpp"
#include "Tests.hpp"

namespace device_test {
namespace {

// A wrong signature passes once in 128 times; with new keys each time, not three times one after another.
constexpr int kRounds = 3;

const Platform* current = nullptr;

void reportFault(int, siginfo_t* info, void* context) {
  const auto address = reinterpret_cast<std::uint64_t>(info->si_addr);
  const auto missing = current ? current->missing(address) : std::string();
  if (!missing.empty()) fail("nothing stands in for " + missing);
  char text[128];
  std::snprintf(text, sizeof text, "a pointer does not authenticate (at %#llx, for %#llx)",
                static_cast<unsigned long long>(static_cast<ucontext_t*>(context)->uc_mcontext.pc),
                static_cast<unsigned long long>(address));
  fail(text);
}

void catchFaults() {
  static char stack[1 << 16];
  const stack_t alternate{.ss_sp = stack, .ss_flags = 0, .ss_size = sizeof stack};
  sigaltstack(&alternate, nullptr);
  struct sigaction action{};
  action.sa_sigaction = reportFault;
  action.sa_flags = SA_SIGINFO | SA_ONSTACK;
  for (const int signal : {SIGSEGV, SIGBUS, SIGILL, SIGTRAP}) sigaction(signal, &action, nullptr);
}

std::vector<std::uint8_t> contentsOf(const char* path) {
  std::vector<std::uint8_t> bytes;
  std::FILE* const file = std::fopen(path, "rb");
  if (!file) fail(std::string(path) + " cannot be read");
  std::uint8_t chunk[1 << 16];
  for (std::size_t size; (size = std::fread(chunk, 1, sizeof chunk, file)) > 0;)
    bytes.insert(bytes.end(), chunk, chunk + size);
  std::fclose(file);
  return bytes;
}

using Bytes = std::vector<std::uint8_t>;

/// One way to sign a pointer otherwise.
void alter(Schema& schema, std::size_t way) {
  switch (way % 3) {
    case 0: schema.discriminator ^= 1; break;
    case 1: schema.key = static_cast<Key>(static_cast<int>(schema.key) ^ 1); break;
    default: schema.hasAddress = !schema.hasAddress;
  }
}

/// Loads the slice with keys that no process had before and tests it; `altered` is the index of a fixup.
void run(const Bytes& slice, const Bytes& samples, Depth depth, const std::size_t* altered = nullptr) {
  if (prctl(PR_PAC_RESET_KEYS, 0, 0, 0, 0) != 0) fail("the processor does not authenticate pointers");
  Image image(slice);
  Platform platform;
  current = &platform;
  if (altered) alter(*image.fixups()[*altered].schema, *altered);
  image.link([&](const std::string& symbol) { return platform.import(symbol); });
  for (const auto& shown : {testClasses(image), testTone(image, depth), testLookUp(image, samples, depth)}) {
    if (depth == Depth::kThorough) std::printf("device-test: %s\n", shown.c_str());
  }
  current = nullptr;
}

bool failsInAnotherProcess(const Bytes& slice, const Bytes& samples, const std::size_t* altered) {
  const pid_t child = fork();
  if (child < 0) fail("no process can be started");
  if (child == 0) {
    std::freopen("/dev/null", "w", stderr);
    for (int round = 0; round < kRounds; ++round) run(slice, samples, Depth::kQuick, altered);
    std::_Exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return status != 0;
}

/// Whether the tests use the pointer: what the runtime reads, and the variants of the tone kernel.
bool isUsed(const Image& image, const Fixup& fixup) {
  const auto lies = [&](const char* segment, const char* section) {
    const auto bytes = image.section(segment, section);
    return image.at(fixup.offset) >= bytes.data() && image.at(fixup.offset) < bytes.data() + bytes.size();
  };
  return lies("__DATA_CONST", "__cfstring") || lies("__DATA", "__objc_const") || lies("__DATA", "__objc_data");
}

void runAltered(const Bytes& slice, const Bytes& samples) {
  run(slice, samples, Depth::kQuick);  // Also leaves the emulator with translated code, which the processes then share.
  if (failsInAnotherProcess(slice, samples, nullptr)) fail("the slice as it is does not pass");
  const Image image(slice);
  std::size_t used = 0, others = 0;
  for (std::size_t i = 0; i < image.fixups().size(); ++i) {
    const auto& fixup = image.fixups()[i];
    if (!fixup.schema) continue;
    const bool fails = failsInAnotherProcess(slice, samples, &i);
    if (isUsed(image, fixup)) {
      ++used;
      if (!fails) fail("a pointer at " + decimal(fixup.offset) + " is signed otherwise and nothing notices");
    } else {
      others += fails;
    }
  }
  if (used == 0 || others == 0) fail("the slice has no signed pointers to alter");
  std::printf(
      "device-test: each of %zu pointers that the runtime reads, signed otherwise, is noticed, and %zu of the code's\n",
      used, others);
}

}  // namespace
}  // namespace device_test

int main(int argc, char** argv) {
  using namespace device_test;
  const bool altered = argc == 4 && std::strcmp(argv[3], "--altered") == 0;
  if (argc != 3 && !altered) fail("usage: device-test SLICE SAMPLES [--altered]");
  catchFaults();
  const auto slice = contentsOf(argv[1]), samples = contentsOf(argv[2]);
  if (altered) {
    runAltered(slice, samples);
  } else {
    for (int round = 0; round < kRounds; ++round) run(slice, samples, Depth::kQuick);
    run(slice, samples, Depth::kThorough);
  }
}
