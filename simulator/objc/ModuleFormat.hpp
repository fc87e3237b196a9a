// What the compilers write down of the classes of a source. GCC's runtime reads version 8 of the format; compilers of
// code with ARC and non-fragile instance variables write a newer one, whose structures begin with the same fields.
#pragma once

#include <cstdint>

namespace sim {

struct ProtocolDefinition;

struct ProtocolList {
  ProtocolList* next;
  unsigned long count;
  ProtocolDefinition* all[];
};

struct ProtocolDefinition {
  std::uintptr_t version;  // Until the runtime knows the protocol, and makes it the pointer to its class.
  const char* name;
  ProtocolList* protocols;
};

struct PropertyDefinition {
  const char* name;  // Or, behind a zero and the distance to the name in a byte, the attributes and then the name.
  unsigned char attributes[4];
  const char* getter;
  const char* getterTypes;
  const char* setter;
  const char* setterTypes;
};

struct PropertyList {
  int count;
  PropertyList* next;
  PropertyDefinition all[];
};

struct IvarDefinition {
  const char* name;
  const char* type;
  int offset;  // In bytes; in the newer format from the end of the superclass's own.
};

struct IvarList {
  int count;
  IvarDefinition all[];
};

/// A metaclass has the same form.
struct ClassDefinition {
  ClassDefinition* metaclass;
  const char* superclass;  // By name; the runtime replaces it by the class.
  const char* name;
  long version;
  unsigned long flags;
  long instanceSize;  // In bytes; zero or less in the newer format: what it has beyond its superclass, negated.
  IvarList* ivars;
  void* methods;
  void* dispatchTable;
  void* subclasses;
  void* siblings;
  ProtocolList* protocols;
  void* extra;
  // What follows is in the newer format only.
  long abi;
  int** ivarOffsets;  // The variables that code which was compiled elsewhere reads, in the order of `ivars`.
  PropertyList* properties;
};

struct CategoryDefinition {
  const char* category;
  const char* className;
  void* instanceMethods;
  void* classMethods;
  ProtocolList* protocols;
};

struct Definitions {
  unsigned long selectorCount;
  void* selectors;
  unsigned short classCount;
  unsigned short categoryCount;
  void* all[];  // Classes, categories, and a pointer to constant objects.
};

struct Module {
  unsigned long version;
  unsigned long size;  // Of this structure, in bytes.
  const char* name;
  Definitions* definitions;
};

/// Makes a module of the newer format one that GCC's runtime reads, and lays out, also in modules of the older one, the
/// classes that were waiting for a superclass. Before the runtime gets the module; one module at a time. Whether it was
/// of the newer format.
bool prepareModule(Module& module);

}  // namespace sim
