// The public interface of the block runtime; the implementation is objc/BlockRuntime.mm.
#pragma once

#if defined(__cplusplus)
extern "C" {
#endif

/// Moves a stack block to the heap, or adds a reference to one that lies there already; NULL gives NULL. The copy
/// retains the objects and blocks that it captured. Balance with `_Block_release`. Any thread.
void* _Block_copy(const void* block);

/// Gives up one reference; the last one releases what the block captured. NULL and global blocks are ignored. Any
/// thread.
void _Block_release(const void* block);

// Called by code that the compiler makes.
void _Block_object_assign(void* destination, const void* object, const int flags);
void _Block_object_dispose(const void* object, const int flags);
extern void* _NSConcreteStackBlock[32];
extern void* _NSConcreteGlobalBlock[32];

#if defined(__cplusplus)
}
#endif

#define Block_copy(...) ((__typeof(__VA_ARGS__))_Block_copy((const void*)(__VA_ARGS__)))
#define Block_release(...) _Block_release((const void*)(__VA_ARGS__))
