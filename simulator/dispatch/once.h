// What runs once.
#pragma once

#include <dispatch/base.h>

/// Zero until the block of `dispatch_once` has run. Must have static storage and start as zero.
typedef intptr_t dispatch_once_t;

/// Runs `block` the first time that it is called with this predicate, and never again. Callers on other threads wait
/// until it has run. Not recursive on one predicate.
DISPATCH_EXPORT void dispatch_once(dispatch_once_t* predicate, DISPATCH_NOESCAPE dispatch_block_t block);
DISPATCH_EXPORT void dispatch_once_f(dispatch_once_t* predicate, void* context, dispatch_function_t function);
