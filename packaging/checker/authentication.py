"""The rule that what the platform authenticates is signed as it expects, in code for arm64e.

Keys, discriminators and address diversity: the runtime's objc-ptrauth.h and objc-runtime-new.h, the blocks runtime's
description of its layout, and clang's page "Pointer Authentication" with PointerAuthOptions.h.
"""

import struct
from pathlib import Path

from . import fixups, macho
from .assembly import AssemblyError, read_map
from .fixups import Signed

ISA = Signed("da", 0x6AE1, True)
SUPERCLASS = Signed("da", 0xB5AB, True)
CLASS_RO = Signed("da", 0x61F8, True)
METHOD_LIST = Signed("da", 0xC310, True)
FUNCTION = Signed("ia", 0, True)  # An Objective-C method, a block's code.

_ARM64E_FORMS = {9, 12}  # Of chained fixups, those of user processes with the versioned calling convention.
_SIGNED_CLASS_RO = 0x10  # In the flags of __objc_imageinfo.
_RELATIVE_LIST = 0x80000000
_CODE = {"__text", "__stubs", "__auth_stubs", "__objc_stubs"}
# Pointers that code loads and does not expect to be signed.
_LOADED_BY_CODE = {"__got", "__auth_got", "__la_symbol_ptr", "__nl_symbol_ptr", "__objc_classrefs", "__objc_superrefs"}
_RUN_BY_DYLD = {"__mod_init_func", "__mod_term_func"}
_CONSTANT_OBJECTS = ("___CFConstantStringClassReference", "__NSConcreteGlobalBlock", "_OBJC_CLASS_$_NSConstant")


def signed_pointers(subject):
    """In code for arm64e, every pointer that the platform authenticates is signed as it expects."""
    for words, _, image in subject.images:
        if image.arch == "arm64e":
            try:
                yield from (f"{words} {problem}" for problem in _Judge(image, _tables(subject, image)).problems())
            except (macho.MachOError, AssemblyError, OSError, struct.error, ValueError) as error:
                yield f"{words} cannot be judged: {error}"


def _tables(subject, image):
    """(name, address, size) of the virtual tables: of all with the linker's map, else the first entry of those
    exported.
    """
    if subject.link_map is None:
        return [(name, address, 24) for name, address in image.defined.items() if name.startswith("__ZTV")]
    placed = read_map(Path(subject.link_map).read_text(encoding="utf-8"))
    tables = [key for key in placed.places if key[1].startswith("__ZTV")]
    return [(key[1], placed.places[key], placed.sizes[key]) for key in tables]


class _Judge:
    """What one slice signs, against what is expected."""

    def __init__(self, image, tables):
        self._image, self._tables = image, tables
        self._fixups, _ = fixups.decode(image)

    def problems(self):
        if self._image.pointer_format not in _ARM64E_FORMS:
            yield "has no chained fixups of arm64e's form: nothing in it is signed"
            return
        yield from self._classes()
        for category in self._targets("__objc_catlist"):
            for slot in (category + 16, category + 24):
                yield from self._methods(slot, f"the category at {category:#x}")
        yield from self._constant_objects()
        yield from self._virtual_tables()
        for address, found in self._fixups.items():
            plain = self._is_code(found) and not found.signed
            if plain and self._section(address) not in _LOADED_BY_CODE | _RUN_BY_DYLD:
                yield f"does not sign the pointer to code at {address:#x}"

    def _section(self, address):
        return next((s.name for s in self._image.sections if s.address <= address < s.address + s.size), None)

    def _is_code(self, found):
        return found.target is not None and self._section(found.target) in _CODE

    def _target(self, address, name):
        found = self._fixups.get(address)
        if found is None or found.target is None:
            raise macho.MachOError(f"{name} points nowhere in the slice")
        return found.target

    def _targets(self, section):
        """Where the pointers of a section point."""
        for address, size in self._image.section(section):
            for slot in range(address, address + size, 8):
                yield self._target(slot, f"the entry {slot:#x} of {section}")

    def _expect(self, address, schema, name):
        """A problem unless the pointer at `address` is nil or signed as it is to be."""
        found = self._fixups.get(address)
        if found is not None and found.signed != schema:
            yield f"signs {name} with {found.signed}, not {schema}" if found.signed else f"does not sign {name}"

    def _classes(self):
        classes = list(self._targets("__objc_classlist"))
        for address in classes:
            name = self._target(self._class_ro(address) + 24, f"the name of the class at {address:#x}")
            name = self._image.text(name)
            yield from self._class(address, f"class {name}")
            yield from self._class(self._target(address, f"the isa of class {name}"), f"metaclass {name}")
        flags = [self._image.read("II", address)[1] for address, _ in self._image.section("__objc_imageinfo")]
        if classes and not all(word & _SIGNED_CLASS_RO for word in flags or [0]):
            yield "does not say in __objc_imageinfo that its class_ro are signed"

    def _class_ro(self, address):
        return self._target(address + 32, f"the class_ro of the class at {address:#x}") & ~7

    def _class(self, address, name):
        yield from self._expect(address, ISA, f"the isa of {name}")
        yield from self._expect(address + 8, SUPERCLASS, f"the superclass of {name}")
        yield from self._expect(address + 32, CLASS_RO, f"the class_ro of {name}")
        yield from self._methods(self._class_ro(address) + 32, name)

    def _methods(self, slot, name):
        if slot not in self._fixups:
            return
        yield from self._expect(slot, METHOD_LIST, f"the method list of {name}")
        methods = self._target(slot, f"the method list of {name}")
        flags, count = self._image.read("II", methods)
        if not flags & _RELATIVE_LIST:  # The offsets of a relative list point to code without dyld's help.
            for index in range(count):
                yield from self._expect(methods + 8 + (flags & 0xFFFC) * index + 16, FUNCTION, f"a method of {name}")

    def _constant_objects(self):
        for address, found in self._fixups.items():
            kind = found.imported.name if found.imported else ""
            if not kind.startswith(_CONSTANT_OBJECTS) or self._section(address) in _LOADED_BY_CODE:
                continue
            yield from self._expect(address, ISA, f"the isa of the constant object at {address:#x}")
            if kind == "__NSConcreteGlobalBlock":
                yield from self._expect(address + 16, FUNCTION, f"the code of the block at {address:#x}")

    def _virtual_tables(self):
        """Each entry has a discriminator of its own, made of the name of the function that it first overrode."""
        for name, address, size in self._tables:
            for slot in range(address, address + size, 8):
                found = self._fixups.get(slot)
                if found is None or self._is_type(found):
                    continue
                signed = found.signed
                if not signed or signed.key != "ia" or not signed.address or not signed.discriminator:
                    yield f"signs the entry {slot:#x} of the virtual table {name} with {signed or 'nothing'}"

    def _is_type(self, found):
        """Whether an entry of a virtual table is the pointer to the description of its type."""
        if found.imported:
            return found.imported.name.startswith("__ZTI")
        return not found.signed and not self._is_code(found)
