// Messages as the compiler sends them that writes code with ARC: it calls a function that finds the method and goes on
// to it. GCC's runtime only finds.
#include <objc/message.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

// Every register that may hold an argument is kept while objc_msg_lookup runs, which may send messages of its own and
// raise. nil answers zero in each register that may hold a result.
#if defined(__x86_64__)
#define SEND(NAME, RECEIVER, SELECTOR, NIL)                                                                      \
  ".text\n.globl " NAME "\n.type " NAME ", @function\n.p2align 4\n" NAME ":\n"                                   \
  ".cfi_startproc\n"                                                                                             \
  "  test %" RECEIVER ", %" RECEIVER "\n"                                                                        \
  "  jz 1f\n"                                                                                                    \
  "  push %rbp\n"                                                                                                \
  ".cfi_def_cfa_offset 16\n.cfi_offset %rbp, -16\n"                                                              \
  "  mov %rsp, %rbp\n"                                                                                           \
  ".cfi_def_cfa_register %rbp\n"                                                                                 \
  "  sub $192, %rsp\n"                                                                                           \
  "  mov %rdi, (%rsp)\n  mov %rsi, 8(%rsp)\n  mov %rdx, 16(%rsp)\n  mov %rcx, 24(%rsp)\n"                        \
  "  mov %r8, 32(%rsp)\n  mov %r9, 40(%rsp)\n  mov %rax, 48(%rsp)\n  mov %r10, 56(%rsp)\n"                       \
  "  movaps %xmm0, 64(%rsp)\n  movaps %xmm1, 80(%rsp)\n  movaps %xmm2, 96(%rsp)\n  movaps %xmm3, 112(%rsp)\n"    \
  "  movaps %xmm4, 128(%rsp)\n  movaps %xmm5, 144(%rsp)\n  movaps %xmm6, 160(%rsp)\n  movaps %xmm7, 176(%rsp)\n" \
  "  mov %" SELECTOR ", %rax\n"                                                                                  \
  "  mov %" RECEIVER ", %rdi\n"                                                                                  \
  "  mov %rax, %rsi\n"                                                                                           \
  "  call objc_msg_lookup@PLT\n"                                                                                 \
  "  mov %rax, %r11\n"                                                                                           \
  "  mov (%rsp), %rdi\n  mov 8(%rsp), %rsi\n  mov 16(%rsp), %rdx\n  mov 24(%rsp), %rcx\n"                        \
  "  mov 32(%rsp), %r8\n  mov 40(%rsp), %r9\n  mov 48(%rsp), %rax\n  mov 56(%rsp), %r10\n"                       \
  "  movaps 64(%rsp), %xmm0\n  movaps 80(%rsp), %xmm1\n  movaps 96(%rsp), %xmm2\n  movaps 112(%rsp), %xmm3\n"    \
  "  movaps 128(%rsp), %xmm4\n  movaps 144(%rsp), %xmm5\n  movaps 160(%rsp), %xmm6\n  movaps 176(%rsp), %xmm7\n" \
  "  leave\n"                                                                                                    \
  ".cfi_def_cfa %rsp, 8\n"                                                                                       \
  "  jmp *%r11\n"                                                                                                \
  "1:\n" NIL "  ret\n"                                                                                           \
  ".cfi_endproc\n.size " NAME ", .-" NAME "\n"

// clang-format off
__asm__(
  SEND("objc_msgSend", "rdi", "rsi",
       "  xor %eax, %eax\n  xor %edx, %edx\n  pxor %xmm0, %xmm0\n  pxor %xmm1, %xmm1\n")
  SEND("objc_msgSend_fpret", "rdi", "rsi", "  fldz\n")
  // The first argument is where a large result goes. What is there stays, and the compiler sees to zeros.
  SEND("objc_msgSend_stret", "rsi", "rdx", "  mov %rdi, %rax\n")
);
// clang-format on
#elif defined(__aarch64__)
// clang-format off
__asm__(
  ".text\n.globl objc_msgSend\n.type objc_msgSend, %function\n.p2align 4\nobjc_msgSend:\n"
  ".cfi_startproc\n"
  "  cbz x0, 1f\n"
  "  stp x29, x30, [sp, #-224]!\n"
  ".cfi_def_cfa_offset 224\n.cfi_offset x29, -224\n.cfi_offset x30, -216\n"
  "  mov x29, sp\n"
  "  stp x0, x1, [sp, #16]\n  stp x2, x3, [sp, #32]\n  stp x4, x5, [sp, #48]\n  stp x6, x7, [sp, #64]\n"
  "  str x8, [sp, #80]\n"
  "  stp q0, q1, [sp, #96]\n  stp q2, q3, [sp, #128]\n  stp q4, q5, [sp, #160]\n  stp q6, q7, [sp, #192]\n"
  "  bl objc_msg_lookup\n"
  "  mov x16, x0\n"
  "  ldp x0, x1, [sp, #16]\n  ldp x2, x3, [sp, #32]\n  ldp x4, x5, [sp, #48]\n  ldp x6, x7, [sp, #64]\n"
  "  ldr x8, [sp, #80]\n"
  "  ldp q0, q1, [sp, #96]\n  ldp q2, q3, [sp, #128]\n  ldp q4, q5, [sp, #160]\n  ldp q6, q7, [sp, #192]\n"
  "  ldp x29, x30, [sp], #224\n"
  ".cfi_def_cfa_offset 0\n.cfi_restore x29\n.cfi_restore x30\n"
  "  br x16\n"
  "1:\n"
  "  mov x1, #0\n  movi v0.2d, #0\n  movi v1.2d, #0\n  movi v2.2d, #0\n  movi v3.2d, #0\n"
  "  ret\n"
  ".cfi_endproc\n.size objc_msgSend, .-objc_msgSend\n"
  // The place of a large result has a register of its own.
  ".globl objc_msgSend_stret\n.set objc_msgSend_stret, objc_msgSend\n"
  ".globl objc_msgSend_fpret\n.set objc_msgSend_fpret, objc_msgSend\n"
);
// clang-format on
#else
#error "Messages are not known on this processor."
#endif

namespace {

/// What the compiler takes a method from, when it sends a message to super.
struct Slot {
  void *owner;
  void *cachedFor;
  const char *types;
  int version;
  IMP method;
  const Slot *next;
};

constexpr std::size_t kBuckets = 1024;
std::array<std::atomic<const Slot *>, kBuckets> slots;

/// The slot of `method`, one and the same for good: the compiler may look up several before it reads the first.
const Slot *slotOf(IMP method) {
  auto &bucket = slots[(reinterpret_cast<std::uintptr_t>(method) >> 4) % kBuckets];
  const Slot *first = bucket.load(std::memory_order_acquire);
  Slot *made = nullptr;
  while (true) {
    for (const Slot *slot = first; slot; slot = slot->next) {
      if (slot->method != method) continue;
      delete made;
      return slot;
    }
    if (!made) made = new Slot{nullptr, nullptr, nullptr, 0, method, nullptr};
    made->next = first;
    if (bucket.compare_exchange_weak(first, made, std::memory_order_acq_rel)) return made;
  }
}

}  // namespace

/// Called by compiled code for a message to super.
extern "C" const void *objc_slot_lookup_super(struct objc_super *super, SEL selector) {
  return slotOf(objc_msg_lookup_super(super, selector));
}
