"""The frame of a Mach-O file for arm64e: its header, load commands, segments and sections (<mach-o/loader.h>)."""

import struct
from dataclasses import dataclass

from . import CannotTurn

ARM64E_VERSIONED = 0x80000002  # CPU_SUBTYPE_ARM64E with CPU_SUBTYPE_PTRAUTH_ABI, version 0: what iOS 14 and later load.

_MAGIC_64 = 0xFEEDFACF
_CPU_ARM64 = 0x0100000C


@dataclass(frozen=True)
class Header:
    cpu: int
    subtype: int
    filetype: int
    commands: int
    commands_size: int


@dataclass(frozen=True)
class Segment:
    name: str
    address: int
    size: int
    offset: int  # In the file.
    file_size: int


@dataclass(frozen=True)
class Section:
    name: str  # "__DATA,__const"
    address: int
    size: int
    offset: int
    relocation_offset: int
    relocations: int


def header(data):
    """The header of a 64-bit file for arm64. Raises CannotTurn."""
    if len(data) < 32:
        raise CannotTurn("is no 64-bit Mach-O file for arm64")
    magic, *rest = struct.unpack_from("<6I", data)
    found = Header(*rest)
    if magic != _MAGIC_64 or found.cpu != _CPU_ARM64:
        raise CannotTurn("is no 64-bit Mach-O file for arm64")
    return found


def load_commands(data):
    """(command, position, size) of every load command."""
    found, position = header(data), 32
    end = min(32 + found.commands_size, len(data))
    for _ in range(found.commands):
        if position + 8 > end:
            raise CannotTurn("has load commands that end early")
        command, size = struct.unpack_from("<II", data, position)
        if size < 8 or position + size > end:
            raise CannotTurn("has load commands that end early")
        yield command, position, size
        position += size


def segment(data, position):
    """The segment of the LC_SEGMENT_64 at `position`."""
    return Segment(_name(data, position + 8), *struct.unpack_from("<4Q", data, position + 24))


def sections(data, position):
    """The sections of the LC_SEGMENT_64 at `position`."""
    size, count = struct.unpack_from("<I", data, position + 4)[0], struct.unpack_from("<I", data, position + 64)[0]
    if 72 + 80 * count > size:
        raise CannotTurn("has load commands that end early")
    for index in range(count):
        start = position + 72 + 80 * index
        name = f"{_name(data, start + 16)},{_name(data, start)}"
        yield Section(name, *struct.unpack_from("<QQI4xII", data, start + 32))


def _name(data, position):
    return data[position : position + 16].rstrip(b"\0").decode(errors="replace")
