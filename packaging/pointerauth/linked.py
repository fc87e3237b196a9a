"""After the link: a library or loadable bundle that lld linked for arm64e gets signed pointers and a new signature."""

import struct
from dataclasses import replace

from . import CannotTurn, chains, opcodes
from .image import ARM64E_VERSIONED, header, load_commands, sections, segment
from .schema import split, split_addend
from .signature import Signature

_MH_DYLIB, _MH_BUNDLE = 6, 8
_PAGE = 0x4000

_SEGMENT_64, _SYMTAB, _DYSYMTAB, _CODE_SIGNATURE = 0x19, 0x2, 0xB, 0x1D
_DYLD_INFO = {0x22, 0x80000022}
_EXPORTS_TRIE, _CHAINED_FIXUPS = 0x80000033, 0x80000034
# Segment split, function starts, data in code, code sign requirements, optimisation hints: an offset and a size.
_LINK_EDIT_DATA = {0x1E, 0x26, 0x29, 0x2B, 0x2E}
# Libraries and how they are loaded, identifier, versions, folders to search, encryption: nothing of __LINKEDIT.
_PLAIN = {0xC, 0xD, 0x12, 0x13, 0x14, 0x15, 0x1B, 0x20, 0x24, 0x25, 0x2A, 0x2C, 0x2D, 0x2F, 0x30, 0x32,
          0x80000018, 0x8000001C, 0x8000001F, 0x80000023}  # fmt: skip
_KNOWN = {_SEGMENT_64, _SYMTAB, _DYSYMTAB, _CODE_SIGNATURE} | _DYLD_INFO | _LINK_EDIT_DATA | _PLAIN

_LAZY_BINDER = "dyld_stub_binder"
_SIGNED_CLASS_RO = 1 << 4  # In the flags of __objc_imageinfo.


def finish(data):
    """The finished file for what lld linked with -no_fixup_chains from objects that `prepare` made.

    Raises CannotTurn when the file has another form than lld gives it, or a pointer that the chains cannot express.
    """
    try:
        linked = _Linked(data)
        fixups = _fixups(linked)
        body = bytearray(data[: linked.segments[-1].offset])
        _mark_signed_classes(body, linked, fixups)
        payload = chains.write(body, fixups, linked.segments)
        return _assembled(linked, body, payload)
    except struct.error as error:
        raise CannotTurn(f"is damaged: {error}") from error


class _Linked:
    """What the linker made: `segments`, `sections`, and the positions of load commands that occur once."""

    def __init__(self, data):
        self.data = data
        found = header(data)
        if found.filetype not in (_MH_DYLIB, _MH_BUNDLE):
            raise CannotTurn(f"is of the file type {found.filetype}, neither a library nor a loadable bundle")
        if found.subtype not in (0, ARM64E_VERSIONED):  # lld writes 0 for arm64e as well.
            raise CannotTurn(f"is linked for the unknown processor {found.subtype:#x}")
        self.commands = list(load_commands(data))
        self.segments, self.sections = [], []
        for command, position, size in self.commands:
            if command == _SEGMENT_64 and size >= 72:
                self.segments.append(segment(data, position))
                self.sections += sections(data, position)
            elif command in (_CHAINED_FIXUPS, _EXPORTS_TRIE):
                raise CannotTurn("has chained fixups already; link it with -no_fixup_chains")
            elif command not in _KNOWN:
                raise CannotTurn(f"has the unknown load command {command:#x}")
        if any(part.offset + part.file_size > len(data) for part in self.segments):
            raise CannotTurn("ends early")
        if not self.segments or self.segments[0].address or self.segments[-1].name != "__LINKEDIT":
            raise CannotTurn("is not laid out as lld does: from address 0, with __LINKEDIT at the end")
        self.dyld_info = self._position(_DYLD_INFO, 48, "fixups as opcodes; link it with -no_fixup_chains")
        self.code_signature = self._position({_CODE_SIGNATURE}, 16, "a signature; link it with -adhoc_codesign")

    def _position(self, kinds, size, what):
        found = [position for command, position, length in self.commands if command in kinds and length >= size]
        if len(found) != 1:
            raise CannotTurn(f"lacks {what}")
        return found[0]

    def range(self, position):
        """The bytes whose offset and size stand at `position`."""
        offset, size = struct.unpack_from("<II", self.data, position)
        return self.part(offset, size)

    def part(self, offset, size):
        if offset + size > len(self.data):
            raise CannotTurn("ends early")
        return self.data[offset : offset + size]

    def word(self, address):
        """The 64 bits at an address, which is that of a pointer: none lies in __LINKEDIT."""
        for part in self.segments[:-1]:
            if part.address <= address <= part.address + part.file_size - 8:
                return struct.unpack_from("<Q", self.data, part.offset + address - part.address)[0]
        raise CannotTurn(f"has a pointer at {address:#x}, where no segment has bytes")


def _fixups(linked):
    """What each pointer becomes, by address.

    The four programs come in the order of what counts more. A lazy pointer is first one into the file, to code that
    looks its symbol up: it becomes an ordinary import, and nothing needs the function that binds lazily any more.
    """
    rebase, bind, weak, lazy = (linked.range(linked.dyld_info + 8 + 8 * index) for index in range(4))
    segments = linked.segments
    fixups = _once((address, _rebase(linked, address)) for address in opcodes.rebases(rebase, segments))
    imports = _once((found.address, _bind(linked, found)) for found in opcodes.binds(bind, segments))
    fixups |= {address: found for address, found in imports.items() if found.imported.name != _LAZY_BINDER}
    fixups |= _once((found.address, _bind(linked, found)) for found in opcodes.binds(lazy, segments, lazy=True))
    weak_binds = (replace(found, ordinal=chains.WEAK_LOOKUP) for found in opcodes.binds(weak, segments))
    return fixups | _once((found.address, _bind(linked, found)) for found in weak_binds)


def _once(pairs):
    found = {}
    for address, fixup in pairs:
        if address in found:
            raise CannotTurn(f"sets the pointer at {address:#x} up twice")
        found[address] = fixup
    return found


def _rebase(linked, address):
    schema, target = split(linked.word(address))
    high = 0
    if schema is None:
        target, high = target & (1 << 56) - 1, target >> 56
    if target > linked.segments[-1].address:
        raise CannotTurn(f"has a pointer at {address:#x} that points outside the file")
    return chains.Rebase(target, high, schema)


def _bind(linked, found):
    linked.word(found.address)  # There has to be one.
    schema, addend = split_addend(found.addend)
    inline = schema is None and -(1 << 18) <= addend < 1 << 18
    imported = chains.Import(found.ordinal, found.name, found.optional, 0 if inline else addend)
    return chains.Bind(imported, addend if inline else 0, schema)


def _mark_signed_classes(body, linked, fixups):
    """Sets the flag that has the runtime insist on signed class_ro pointers, when those of all classes are signed.

    clang asks for it ("Objective-C Enforce ClassRO Pointer Signing" in its intermediate code), but its assembler output
    has no place for it yet, and the linker makes the flags anew.
    """
    lists = [s for s in linked.sections if s.name.split(",")[1] == "__objc_classlist"]
    classes = [fixups.get(slot) for s in lists for slot in range(s.address, s.address + s.size, 8)]
    data = [fixups.get(found.target + 32) for found in classes if isinstance(found, chains.Rebase)]
    if data and all(found and found.schema for found in data):
        for section in linked.sections:
            if section.name.split(",")[1] == "__objc_imageinfo" and section.size >= 8:
                (flags,) = struct.unpack_from("<I", body, section.offset + 4)
                struct.pack_into("<I", body, section.offset + 4, flags | _SIGNED_CLASS_RO)


def _assembled(linked, body, payload):
    """The file with new load commands and a new __LINKEDIT: fixups, exports, what else there was, signature."""
    start = len(body)
    link_edit = bytearray()

    def place(content, alignment=8):
        link_edit.extend(bytes(-len(link_edit) % alignment))
        link_edit.extend(content)
        return start + len(link_edit) - len(content)

    exports = linked.range(linked.dyld_info + 40)
    new = struct.pack("<4I", _CHAINED_FIXUPS, 16, place(payload), len(payload))
    new += struct.pack("<4I", _EXPORTS_TRIE, 16, place(exports) if exports else 0, len(exports))

    moved = bytearray(linked.data[: 32 + sum(size for _, _, size in linked.commands)])
    for offset, size, position in sorted(_link_edit_parts(linked)):
        struct.pack_into("<I", moved, position, place(linked.part(offset, size)))

    signed = start + len(link_edit) + -len(link_edit) % 16
    signature = Signature(linked.range(linked.code_signature + 8))
    struct.pack_into("<II", moved, linked.code_signature + 8, signed, signature.size(signed))
    total = signed + signature.size(signed) - start
    for command, position, _ in linked.commands:
        if command == _SEGMENT_64 and segment(linked.data, position).name == "__LINKEDIT":
            struct.pack_into("<Q", moved, position + 32, -(-total // _PAGE) * _PAGE)
            struct.pack_into("<Q", moved, position + 48, total)

    commands = b"".join(new if position == linked.dyld_info else moved[position : position + size]
                        for _, position, size in linked.commands)  # fmt: skip
    struct.pack_into("<I", moved, 8, ARM64E_VERSIONED)
    struct.pack_into("<II", moved, 16, len(linked.commands) + 1, len(commands))
    body[: len(moved)] = (bytes(moved[:32]) + commands).ljust(len(moved), b"\0")
    code = bytes(body + link_edit).ljust(signed, b"\0")
    return code + signature.of(code)


def _link_edit_parts(linked):
    """(offset, size, where the offset stands in the load commands) of what else lies in __LINKEDIT."""
    parts = []
    for command, position, size in linked.commands:
        if command in _LINK_EDIT_DATA and size >= 16:
            parts.append((_number(linked, position + 12), position + 8))
        elif command == _SYMTAB and size >= 24:
            parts.append((16 * _number(linked, position + 12), position + 8))
            parts.append((_number(linked, position + 20), position + 16))
        elif command == _DYSYMTAB and size >= 80:
            if any(_number(linked, position + field) for field in (36, 44, 52, 68, 76)):
                raise CannotTurn("has tables in __LINKEDIT that lld does not make")
            parts.append((4 * _number(linked, position + 60), position + 56))
    return [(_number(linked, position), size, position) for size, position in parts if size]


def _number(linked, position):
    return struct.unpack_from("<I", linked.data, position)[0]
