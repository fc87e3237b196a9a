"""Writes chained fixups: <mach-o/fixup-chains.h>, pointer format DYLD_CHAINED_PTR_ARM64E_USERLAND24.

Each pointer that dyld has to set up holds, until then, what it is to become and how far the next one on its page of
16 KiB is away, in steps of 8 bytes:

             0          32        48  49   51      62    63
  rebase     | target 43 | high 8      | next 11 | bind | signed = 0     target: from the start of the file's image
  bind       | import 24, 0 | addend 19| next 11 | bind | signed = 0
  rebase     | target 32 | discriminator 16 | address 1 | key 2 | next 11 | 0 | 1
  bind       | import 24, 0 | discriminator 16 | address 1 | key 2 | next 11 | 1 | 1

The load command's data names the first pointer of every page, and the imports with their library and addend.
"""

import struct
from dataclasses import dataclass

from . import CannotTurn
from .schema import Schema

_PAGE = 0x4000
_USERLAND24 = 12
_NO_START = 0xFFFF
_IMPORT, _IMPORT_ADDEND, _IMPORT_ADDEND64 = 1, 2, 3

WEAK_LOOKUP = -3  # BIND_SPECIAL_DYLIB_WEAK_LOOKUP: the first definition in any library.


@dataclass(frozen=True)
class Import:
    """A symbol of another library, plus an addend."""

    ordinal: int
    name: str
    optional: bool
    addend: int = 0


@dataclass(frozen=True)
class Rebase:
    """A pointer into the file's own image."""

    target: int
    high: int = 0  # The topmost 8 bits.
    schema: Schema | None = None


@dataclass(frozen=True)
class Bind:
    """A pointer to an import. `addend` is 0 when it is signed: its import has the addend."""

    imported: Import
    addend: int = 0
    schema: Schema | None = None


def write(data, fixups, segments):
    """Writes `fixups`, by address, into the segments' bytes in `data`; returns the load command's data.

    Every address lies in one of the segments. Raises CannotTurn for one that is not aligned to 8 bytes.
    """
    imports = {}
    starts = [_write_segment(data, fixups, part, imports) for part in segments]
    return _payload(segments, starts, list(imports))


def _write_segment(data, fixups, part, imports):
    """Chains the pointers of one segment; returns the offset of the first pointer of each page."""
    inside = sorted(a for a in fixups if part.address <= a <= part.address + part.file_size - 8)
    starts = []
    for address, following in zip(inside, [*inside[1:], None]):
        offset = address - part.address
        if offset % 8:
            raise CannotTurn(f"has a pointer at {address:#x}, which is not aligned to 8 bytes")
        page = offset // _PAGE
        starts += [_NO_START] * (page + 1 - len(starts))
        if starts[page] == _NO_START:
            starts[page] = offset % _PAGE
        same_page = following is not None and (following - part.address) // _PAGE == page
        step = (following - address) // 8 if same_page else 0
        struct.pack_into("<Q", data, part.offset + offset, _word(fixups[address], imports) | step << 51)
    return starts


def _word(fixup, imports):
    if isinstance(fixup, Rebase):
        word = fixup.target | fixup.high << 43
    else:
        word = imports.setdefault(fixup.imported, len(imports)) | (fixup.addend & 0x7FFFF) << 32 | 1 << 62
    if fixup.schema:
        word |= fixup.schema.discriminator << 32 | fixup.schema.address << 48 | fixup.schema.key << 49 | 1 << 63
    return word


def _payload(segments, starts, imports):
    image = struct.pack("<I", len(segments))
    records, position = b"", _aligned(4 + 4 * len(segments))
    for part, pages in zip(segments, starts):
        if not pages:
            image += struct.pack("<I", 0)
            continue
        image += struct.pack("<I", position + len(records))
        size = 22 + 2 * len(pages)
        record = struct.pack("<IHHQIH", size, _PAGE, _USERLAND24, part.address, 0, len(pages))
        records += _padded(record + struct.pack(f"<{len(pages)}H", *pages))
    image = _padded(image) + records

    names, offsets = b"", {}
    for entry in imports:
        if entry.name not in offsets:
            offsets[entry.name] = len(names)
            names += entry.name.encode(errors="surrogateescape") + b"\0"
    form = _form(imports, len(names))
    table = b"".join(_import(form, entry, offsets[entry.name]) for entry in imports)
    head = 32  # 28 bytes and padding.
    symbols = head + len(image) + len(table)
    fields = struct.pack("<7I", 0, head, head + len(image), symbols, len(imports), form, 0)
    return _padded(_padded(fields) + image + table + names)


def _form(imports, names_size):
    if any(not -(1 << 31) <= entry.addend < 1 << 31 or entry.ordinal > 0xEF for entry in imports) or names_size >> 23:
        return _IMPORT_ADDEND64
    return _IMPORT_ADDEND if any(entry.addend for entry in imports) else _IMPORT


def _import(form, entry, name):
    if form == _IMPORT_ADDEND64:
        return struct.pack("<HHIq", entry.ordinal & 0xFFFF, entry.optional, name, entry.addend)
    facts = struct.pack("<I", entry.ordinal & 0xFF | entry.optional << 8 | name << 9)
    return facts if form == _IMPORT else facts + struct.pack("<i", entry.addend)


def _aligned(size):
    return -(-size // 8) * 8


def _padded(data):
    return data.ljust(_aligned(len(data)), b"\0")
