"""Reads Mach-O files: the parts of an arm64 dynamic library that the package rules ask about."""

import struct
from dataclasses import dataclass, field

MH_DYLIB = 6
PLATFORM_IOS = 2

_FAT_MAGIC = 0xCAFEBABE
_MAGIC_64 = 0xFEEDFACF
_CPU_ARM64 = 0x0100000C
_CPU_SUBTYPE_ARM64E = 2

_LC_SEGMENT_64 = 0x19
_LC_SYMTAB = 0x2
_LC_ID_DYLIB = 0xD
_LC_LOAD_DYLIBS = {0xC, 0x80000018, 0x8000001F, 0x80000023}  # load, load weak, re-export, load upward
_LC_RPATH = 0x8000001C
_LC_CODE_SIGNATURE = 0x1D
_LC_BUILD_VERSION = 0x32
_LC_DYLD_INFO = {0x22, 0x80000022}
_LC_EXPORTS_TRIE = 0x80000033
_LC_CHAINED_FIXUPS = 0x80000034

_CHAINED_ARM64E = {1, 9, 12}  # arm64e, and its two user-land forms
_CHAINED_64 = {2, 6}  # 64-bit pointers, and the same as offsets


class MachOError(Exception):
    """The file is no Mach-O file for arm64, or it is damaged."""


@dataclass
class Section:
    name: str
    address: int
    size: int
    offset: int


@dataclass
class Undefined:
    """A symbol that another library must supply. `library` counts from 1 in load order; 0 and below name none."""

    name: str
    library: int
    weak: bool


@dataclass
class Slice:
    """The code for one kind of processor."""

    data: bytes
    arch: str
    subtype: int
    filetype: int
    install_name: str | None = None
    dylibs: list[str] = field(default_factory=list)
    rpaths: list[str] = field(default_factory=list)
    platform: int | None = None
    minimum: tuple[int, int] | None = None
    signature: tuple[int, int] | None = None  # offset, size
    sections: list[Section] = field(default_factory=list)
    undefined: list[Undefined] = field(default_factory=list)
    defined: dict[str, int] = field(default_factory=dict)  # External symbols, by name.
    exports_trie: tuple[int, int] | None = None  # offset, size
    chained_fixups: tuple[int, int] | None = None  # offset, size
    pointer_format: int | None = None

    def section(self, name):
        """The content's (address, size) of every section of this name."""
        return [(s.address, s.size) for s in self.sections if s.name == name]

    def offset(self, address):
        """Where in the file the byte at `address` lies."""
        for section in self.sections:
            if section.address <= address < section.address + section.size:
                return section.offset + address - section.address
        raise MachOError(f"address {address:#x} lies in no section")

    def read(self, layout, address):
        """The numbers of a struct layout at `address`."""
        return struct.unpack_from("<" + layout, self.data, self.offset(address))

    def pointer(self, address):
        """Where the pointer at `address` points once loaded; None for nil and for one into another library."""
        (raw,) = self.read("Q", address)
        if raw == 0:
            return None
        if self.pointer_format in _CHAINED_64:
            return None if raw >> 63 else raw & 0xFFFFFFFFF
        if self.pointer_format in _CHAINED_ARM64E:
            if raw >> 62 & 1:
                return None
            return raw & 0xFFFFFFFF if raw >> 63 else raw & 0x7FFFFFFFFFF
        return raw

    def bytes(self, address, size):
        start = self.offset(address)
        return self.data[start : start + size]

    def text(self, address):
        start = self.offset(address)
        return self.data[start : self.data.index(b"\0", start)].decode()


def slices(data):
    """Every slice of a file. Raises MachOError."""
    try:
        (magic,) = struct.unpack_from(">I", data)
        if magic != _FAT_MAGIC:
            return [_slice(data)]
        (count,) = struct.unpack_from(">I", data, 4)
        found = []
        for index in range(count):
            _, _, offset, size, _ = struct.unpack_from(">5I", data, 8 + 20 * index)
            if offset + size > len(data):
                raise MachOError("a slice reaches beyond the end of the file")
            found.append(_slice(data[offset : offset + size]))
        return found
    except (struct.error, IndexError, ValueError) as error:
        raise MachOError(f"damaged: {error}") from error


def _slice(data):
    magic, cpu, subtype, filetype, count, _, _, _ = struct.unpack_from("<8I", data)
    if magic != _MAGIC_64 or cpu != _CPU_ARM64:
        raise MachOError("no 64-bit Mach-O file for arm64")
    arch = "arm64e" if subtype & 0xFFFFFF == _CPU_SUBTYPE_ARM64E else "arm64"
    found = Slice(data, arch, subtype, filetype)
    position = 32
    for _ in range(count):
        command, size = struct.unpack_from("<II", data, position)
        if size < 8 or position + size > len(data):
            raise MachOError("a load command reaches beyond the end of the file")
        _load_command(found, command, position)
        position += size
    return found


def _load_command(found, command, position):
    data = found.data
    if command == _LC_SEGMENT_64:
        _segment(found, position)
    elif command == _LC_SYMTAB:
        _symbols(found, position)
    elif command == _LC_ID_DYLIB:
        found.install_name = _string(data, position)
    elif command in _LC_LOAD_DYLIBS:
        found.dylibs.append(_string(data, position))
    elif command == _LC_RPATH:
        found.rpaths.append(_string(data, position))
    elif command == _LC_CODE_SIGNATURE:
        found.signature = struct.unpack_from("<II", data, position + 8)
    elif command == _LC_BUILD_VERSION:
        found.platform, minimum = struct.unpack_from("<II", data, position + 8)
        found.minimum = (minimum >> 16, minimum >> 8 & 0xFF)
    elif command == _LC_CHAINED_FIXUPS:
        found.chained_fixups = struct.unpack_from("<II", data, position + 8)
        found.pointer_format = _pointer_format(data, found.chained_fixups[0])
    elif command == _LC_EXPORTS_TRIE:
        found.exports_trie = struct.unpack_from("<II", data, position + 8)
    elif command in _LC_DYLD_INFO:
        found.exports_trie = struct.unpack_from("<II", data, position + 40)


def _string(data, position):
    (offset,) = struct.unpack_from("<I", data, position + 8)
    start = position + offset
    return data[start : data.index(b"\0", start)].decode()


def _segment(found, position):
    (count,) = struct.unpack_from("<I", found.data, position + 64)
    for index in range(count):
        start = position + 72 + 80 * index
        name = found.data[start : start + 16].rstrip(b"\0").decode()
        address, size, offset = struct.unpack_from("<QQI", found.data, start + 32)
        found.sections.append(Section(name, address, size, offset))


def labels(data):
    """(address, name) of every symbol that a file of one slice defines, for the linker too. Raises MachOError."""
    found = []
    try:
        position = 32
        for _ in range(struct.unpack_from("<I", data, 16)[0]):
            command, size = struct.unpack_from("<II", data, position)
            if command == _LC_SYMTAB:
                found += [(value, name) for name, kind, _, value in _table(data, position) if kind & 0x0E == 0x0E]
            position += size
    except (struct.error, ValueError) as error:
        raise MachOError(f"damaged: {error}") from error
    return found


def _table(data, position):
    """(name, kind, description, value) of each symbol in the table that a load command names; none for debuggers."""
    symbols, count, strings = struct.unpack_from("<3I", data, position + 8)
    for index in range(count):
        name, kind, _, description, value = struct.unpack_from("<IBBHQ", data, symbols + 16 * index)
        if not kind & 0xE0:
            start = strings + name
            yield data[start : data.index(b"\0", start)].decode(), kind, description, value


def _symbols(found, position):
    for name, kind, description, value in _table(found.data, position):
        external, undefined = kind & 0x01, kind & 0x0E == 0
        if external and not undefined:
            found.defined[name] = value
        elif external and not value:
            library = description >> 8
            library = library - 256 if library > 0xF0 else library
            found.undefined.append(Undefined(name, library, bool(description & 0x40)))


def _pointer_format(data, start):
    """The format of the chained pointers; a library has the same one in every segment."""
    (image,) = struct.unpack_from("<I", data, start + 4)
    image += start
    (count,) = struct.unpack_from("<I", data, image)
    for segment in struct.unpack_from(f"<{count}I", data, image + 4):
        if segment:
            return struct.unpack_from("<IHH", data, image + segment)[2]
    return None
