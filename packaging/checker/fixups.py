"""Decodes chained fixups: what dyld puts into every pointer of a slice. See <mach-o/fixup-chains.h>.

Reads what packaging/arm64e and the linkers write without sharing code with it.
"""

import struct
from dataclasses import dataclass

from .macho import MachOError

KEYS = ("ia", "ib", "da", "db")
WEAK_LOOKUP = -3  # The library of an import that is looked for in all of them.

_ARM64E = {1, 9, 12}
_PLAIN_64 = {2, 6}
_NO_START, _SEVERAL_STARTS = 0xFFFF, 0x8000


@dataclass(frozen=True)
class Signed:
    """What a pointer is signed with."""

    key: str
    discriminator: int
    address: bool

    def __str__(self):
        return f"({self.key}, {self.discriminator}{', address' if self.address else ''})"


@dataclass(frozen=True)
class Imported:
    name: str
    library: int  # Counts from 1 in load order; 0 and below are special.
    optional: bool


@dataclass(frozen=True)
class Fixup:
    """A pointer: into the slice, then `target` is an address, or to an import plus `addend`."""

    target: int | None
    imported: Imported | None
    addend: int
    signed: Signed | None


def decode(image):
    """(fixups by address, imports) of a slice; empty without chained fixups. Raises MachOError."""
    if image.chained_fixups is None:
        return {}, []
    start, size = image.chained_fixups
    blob = image.data[start : start + size]
    try:
        _, starts, imports, symbols, count, form, compressed = struct.unpack_from("<7I", blob)
        if compressed:
            raise MachOError("the names of the imports are compressed")
        imports = [_imported(blob, imports, symbols, form, index) for index in range(count)]
        found = {}
        for index in range(*struct.unpack_from("<I", blob, starts)):
            (offset,) = struct.unpack_from("<I", blob, starts + 4 + 4 * index)
            if offset:
                _walk(image, blob, starts + offset, imports, found)
        return found, [imported for imported, _ in imports]
    except (struct.error, IndexError, ValueError) as error:
        raise MachOError(f"the chained fixups are damaged: {error}") from error


def _imported(blob, table, symbols, form, index):
    """(import, addend) of one entry of the table."""
    if form == 3:
        library, facts, name, addend = struct.unpack_from("<HHIq", blob, table + 16 * index)
        library, optional = (library ^ 0x8000) - 0x8000, bool(facts & 1)
    elif form in (1, 2):
        (facts,) = struct.unpack_from("<I", blob, table + 4 * form * index)
        addend = struct.unpack_from("<i", blob, table + 8 * index + 4)[0] if form == 2 else 0
        library, optional, name = facts & 0xFF, bool(facts >> 8 & 1), facts >> 9
        library = library - 256 if library > 0xF0 else library
    else:
        raise MachOError(f"the imports have the unknown form {form}")
    begin = symbols + name
    return Imported(blob[begin : blob.index(b"\0", begin)].decode(errors="replace"), library, optional), addend


def _walk(image, blob, start, imports, found):
    """Follows the chains of one segment."""
    _, page_size, form, segment, _, pages = struct.unpack_from("<IHHQIH", blob, start)
    if form not in _ARM64E | _PLAIN_64:
        raise MachOError(f"the pointers have the unknown form {form}")
    stride = 8 if form in _ARM64E else 4
    for page in range(pages):
        (first,) = struct.unpack_from("<H", blob, start + 22 + 2 * page)
        if first == _NO_START:
            continue
        if first & _SEVERAL_STARTS:
            raise MachOError("a page has several chains")
        address = segment + page * page_size + first
        end = segment + (page + 1) * page_size
        while True:
            if address % 8 or address + 8 > end or address in found:
                raise MachOError(f"a chain leads to {address:#x}")
            (word,) = image.read("Q", address)
            found[address], step = _arm64e(word, form, imports) if form in _ARM64E else _plain(word, imports)
            if not step:
                break
            address += step * stride


def _arm64e(word, form, imports):
    bind, signed = word >> 62 & 1, word >> 63
    schema = Signed(KEYS[word >> 49 & 3], word >> 32 & 0xFFFF, bool(word >> 48 & 1)) if signed else None
    step = word >> 51 & 0x7FF
    if bind:
        imported, addend = imports[word & (0xFFFFFF if form == 12 else 0xFFFF)]
        inline = 0 if signed else ((word >> 32 & 0x7FFFF) ^ 0x40000) - 0x40000
        return Fixup(None, imported, addend + inline, schema), step
    target = word & 0xFFFFFFFF if signed else word & 0x7FFFFFFFFFF | (word >> 43 & 0xFF) << 56
    return Fixup(target, None, 0, schema), step


def _plain(word, imports):
    step = word >> 51 & 0xFFF
    if word >> 63:
        imported, addend = imports[word & 0xFFFFFF]
        return Fixup(None, imported, addend + (word >> 24 & 0xFF), None), step
    return Fixup(word & 0xFFFFFFFFF | (word >> 36 & 0xFF) << 56, None, 0, None), step
