// Methods of Foundation's classes that are replaced.
#pragma once

#import <Foundation/Foundation.h>

namespace sim {

/// Puts `implementation` in the place of the method that instances of `owner` have for `selector`, of its own or of a
/// superclass, which then has it too. For a method of the class itself `owner` is the metaclass. The former
/// implementation; null, and nothing is changed, when there is none.
///
/// Sends no message and so starts no class. The runtime's own method_setImplementation writes to the dispatch table of
/// the class, which is one that all classes share until the first message: they would all have the method.
IMP replaceMethod(Class owner, SEL selector, IMP implementation);

/// The same for functions of the method's type.
template <typename Function>
Function* replaceMethod(Class owner, SEL selector, Function* implementation) {
  // Every implementation is stored as a function of any arguments; the way there and back leads over void *.
  IMP former = replaceMethod(owner, selector, reinterpret_cast<IMP>(reinterpret_cast<void*>(implementation)));
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(former));
}

}  // namespace sim
