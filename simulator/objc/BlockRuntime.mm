// The block runtime, to the public block ABI. Debian's runtime library does not retain the Objective-C objects that a
// block captures; this one does. As on a device, blocks are objects: they go into collections and `copy` properties.
#import <Foundation/Foundation.h>

#include <Block.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

#import "WeakReferences.h"

extern "C" void *_NSConcreteMallocBlock[32];  // Only this file makes blocks on the heap.

@interface NSBlock : NSObject
@end

@interface __NSStackBlock__ : NSBlock
@end

@interface __NSMallocBlock__ : NSBlock
@end

@interface __NSGlobalBlock__ : NSBlock
@end

// What a block has in front, as the compiler writes it down, are the classes themselves.
#define CLASS_OF_BLOCKS(SYMBOL, CLASS) __asm__(".globl " SYMBOL "\n.set " SYMBOL ", _OBJC_CLASS_" CLASS)
CLASS_OF_BLOCKS("_NSConcreteStackBlock", "__NSStackBlock__");
CLASS_OF_BLOCKS("_NSConcreteMallocBlock", "__NSMallocBlock__");
CLASS_OF_BLOCKS("_NSConcreteGlobalBlock", "__NSGlobalBlock__");

namespace {

enum BlockFlags : std::int32_t {
  kReferenceMask = 0xffff,
  kNeedsFree = 1 << 24,
  kHasCopyDispose = 1 << 25,
  kIsGlobal = 1 << 28,
};

// Field kinds, as the compiler passes them to _Block_object_assign and _Block_object_dispose.
enum FieldFlags : int {
  kFieldIsObject = 3,
  kFieldIsBlock = 7,
  kFieldIsByref = 8,
  kFieldIsWeak = 16,
  kByrefCaller = 128,  // The field belongs to a __block variable, which does not own what it points to.
};

struct Descriptor {
  std::uintptr_t reserved;
  std::uintptr_t size;
  void (*copy)(void *destination, const void *source);  // Only with kHasCopyDispose.
  void (*dispose)(const void *block);
};

struct BlockLiteral {
  void *isa;
  volatile std::int32_t flags;
  std::int32_t reserved;
  void (*invoke)(void);
  Descriptor *descriptor;
};

struct Byref {
  void *isa;
  Byref *forwarding;
  volatile std::int32_t flags;
  std::uint32_t size;
  void (*keep)(void *destination, void *source);  // Only with kHasCopyDispose.
  void (*destroy)(void *byref);
};

void *allocate(std::size_t size) {
  void *memory = std::malloc(size);
  if (!memory) std::abort();
  return memory;
}

void addReference(volatile std::int32_t &flags) { __atomic_add_fetch(&flags, 1, __ATOMIC_RELAXED); }

/// Whether that was the last one.
bool dropReference(volatile std::int32_t &flags) {
  return (__atomic_sub_fetch(&flags, 1, __ATOMIC_ACQ_REL) & kReferenceMask) == 0;
}

bool isBlock(const void *object) {
  const void *isa = *static_cast<void *const *>(object);
  return isa == _NSConcreteStackBlock || isa == _NSConcreteMallocBlock || isa == _NSConcreteGlobalBlock;
}

Byref *copyByref(Byref *source) {
  Byref *current = source->forwarding;
  if (current->flags & kNeedsFree) {
    addReference(current->flags);
    return current;
  }
  auto *copy = static_cast<Byref *>(allocate(source->size));
  std::memcpy(static_cast<void *>(copy), source, source->size);
  copy->isa = nullptr;
  copy->flags = (source->flags & ~kReferenceMask) | kNeedsFree | 2;  // One for the new holder, one for the stack frame.
  copy->forwarding = copy;
  source->forwarding = copy;
  if (source->flags & kHasCopyDispose) source->keep(copy, source);
  return copy;
}

void releaseByref(Byref *source) {
  Byref *byref = source->forwarding;
  if (!(byref->flags & kNeedsFree)) return;  // Never left the stack.
  if (!dropReference(byref->flags)) return;
  if (byref->flags & kHasCopyDispose) byref->destroy(byref);
  std::free(byref);
}

}  // namespace

extern "C" {

void *_Block_copy(const void *argument) {
  auto *source = const_cast<BlockLiteral *>(static_cast<const BlockLiteral *>(argument));
  if (!source || (source->flags & kIsGlobal)) return source;
  if (source->flags & kNeedsFree) {
    addReference(source->flags);
    return source;
  }
  auto *copy = static_cast<BlockLiteral *>(allocate(source->descriptor->size));
  std::memcpy(static_cast<void *>(copy), source, source->descriptor->size);
  copy->isa = _NSConcreteMallocBlock;
  copy->flags = (source->flags & ~kReferenceMask) | kNeedsFree | 1;
  if (source->flags & kHasCopyDispose) source->descriptor->copy(copy, source);
  return copy;
}

void _Block_release(const void *argument) {
  auto *block = const_cast<BlockLiteral *>(static_cast<const BlockLiteral *>(argument));
  if (!block || !(block->flags & kNeedsFree)) return;
  {
    const sim::WeakReferences::ReleaseGuard guard(block);
    if (!dropReference(block->flags)) return;
    guard.forget();
  }
  if (block->flags & kHasCopyDispose) block->descriptor->dispose(block);
  std::free(block);
}

void _Block_object_assign(void *destination, const void *object, const int flags) {
  auto **slot = static_cast<const void **>(destination);
  if (flags & kFieldIsByref) {
    *slot = copyByref(static_cast<Byref *>(const_cast<void *>(object)));
  } else if ((flags & kByrefCaller) || !object) {
    *slot = object;
  } else if ((flags & kFieldIsBlock) == kFieldIsBlock || isBlock(object)) {  // A block may be captured as `id`.
    *slot = _Block_copy(object);
  } else {
    *slot = [(id)object retain];
  }
}

void _Block_object_dispose(const void *object, const int flags) {
  if (flags & kFieldIsByref) {
    releaseByref(static_cast<Byref *>(const_cast<void *>(object)));
  } else if ((flags & kByrefCaller) || !object) {
    return;
  } else if ((flags & kFieldIsBlock) == kFieldIsBlock || isBlock(object)) {
    _Block_release(object);
  } else {
    [(id)object release];
  }
}

}  // extern "C"

/// Only the copies on the heap are counted: a block on the stack ends with its function whoever retains it, and one
/// that captures nothing lives as long as the program.
@implementation NSBlock

- (id)copy {
  return static_cast<id>(_Block_copy(self));
}

- (id)copyWithZone:(NSZone *)zone {
  return static_cast<id>(_Block_copy(self));
}

- (id)retain {
  return self;
}

- (oneway void)release {
}

- (id)autorelease {
  return self;
}

- (NSUInteger)retainCount {
  return 1;
}

- (void)dealloc {
  if (false) [super dealloc];  // _Block_release ends a block.
}

@end

@implementation __NSStackBlock__
@end

@implementation __NSGlobalBlock__
@end

@implementation __NSMallocBlock__

- (id)retain {
  return static_cast<id>(_Block_copy(self));
}

- (oneway void)release {
  _Block_release(self);
}

- (id)autorelease {
  [NSAutoreleasePool addObject:self];
  return self;
}

- (NSUInteger)retainCount {
  return static_cast<NSUInteger>(reinterpret_cast<BlockLiteral *>(self)->flags & kReferenceMask);
}

@end
