"""Before the link: the relocations of signed pointers become plain ones, which the linker knows."""

import struct

from . import CannotTurn
from .image import ARM64E_VERSIONED, header, load_commands, sections
from .schema import carried, is_asked_for, is_carried

_MH_OBJECT = 1
_LC_SEGMENT_64 = 0x19

# <mach-o/arm64/reloc.h>; the last one is LLVM's ARM64_RELOC_AUTHENTICATED_POINTER.
_UNSIGNED, _SUBTRACTOR, _AUTHENTICATED = 0, 1, 11


def prepare(data):
    """An arm64e object file with plain relocations, as bytes. The signing facts stay in the pointers' upper halves.

    Raises CannotTurn for what is no arm64e object, for a relocation of an unknown type or form, and for a plain pointer
    that could not be told from a signed one after the link.
    """
    found = header(data)
    if found.filetype != _MH_OBJECT:
        raise CannotTurn(f"is of the file type {found.filetype}, not an object file")
    if found.subtype != ARM64E_VERSIONED:
        raise CannotTurn("is not code for arm64e of the versioned calling convention")
    turned = bytearray(data)
    try:
        for command, position, _ in load_commands(data):
            if command == _LC_SEGMENT_64:
                for section in sections(data, position):
                    _turn_section(turned, section)
    except struct.error as error:
        raise CannotTurn(f"is damaged: {error}") from error
    return bytes(turned)


def _turn_section(data, section):
    before = None
    for index in range(section.relocations):
        position = section.relocation_offset + 8 * index
        address, facts = struct.unpack_from("<iI", data, position)
        kind, external, size, relative = facts >> 28, facts >> 27 & 1, facts >> 25 & 3, facts >> 24 & 1
        where = f"at {section.name}+{address:#x}"
        if address < 0 or kind > _AUTHENTICATED:
            raise CannotTurn(f"has a relocation of the unknown type {kind} {where}")
        if kind in (_UNSIGNED, _AUTHENTICATED) and size == 3 and before != _SUBTRACTOR:
            place = section.offset + address
            (word,) = struct.unpack_from("<Q", data, place)
            if kind == _UNSIGNED and is_carried(word):
                raise CannotTurn(f"has a plain pointer that would look like a signed one {where}")
            if kind == _AUTHENTICATED:
                if relative or not external or not is_asked_for(word):
                    raise CannotTurn(f"has a signed pointer of an unknown form {where}")
                struct.pack_into("<Q", data, place, carried(word))
                struct.pack_into("<I", data, position + 4, facts & 0x0FFFFFFF)
        elif kind == _AUTHENTICATED:
            raise CannotTurn(f"has a signed pointer of an unknown form {where}")
        before = kind
