"""How a signed pointer is asked for in 64 bits, before the link and after it.

In an object file, bits 0 to 31 hold the addend, 32 to 47 the discriminator, 48 whether the address of the pointer
counts as well, 49 and 50 the key; 63 is set, and the bits between are clear. (LLVM: AArch64MachObjectWriter,
AArch64AuthMCExpr.)

A plain pointer may look the same: clang sets bit 63 of a type's name that is not unique. So the form that the linker
carries along unread has a mark in bits 51 to 55, which are clear in every pointer with a tag in its upper 8 bits, and
not all set, as in a small negative number.
"""

from typing import NamedTuple

_MARK = 0x15 << 51
_MARKED = 0xFFF << 51  # The bits that hold the mark and are otherwise clear.
_SIGNED = 1 << 63
_WORD = (1 << 64) - 1


class Schema(NamedTuple):
    """What a pointer is signed with."""

    key: int  # 0 to 3: IA, IB, DA, DB.
    discriminator: int  # 16 bits.
    address: bool  # Whether the pointer's own address is mixed in.


def is_asked_for(word):
    """Whether 64 bits of an object file can be those of a signed pointer."""
    return bool(word & _SIGNED) and not word & _MARKED


def carried(word):
    """The form for the linker of a signed pointer's 64 bits in an object file.

    Adding an address to all of them leaves the upper half as it is meant, also when the addend is negative.
    """
    return (word & ~0xFFFFFFFF | _MARK) + _extended(word, 32) & _WORD


def is_carried(word):
    return bool(word & _SIGNED) and word & _MARKED == _MARK


def split(word):
    """(schema or None, target) of the 64 bits of a pointer into the linked file."""
    if not is_carried(word):
        return None, word
    return Schema(word >> 49 & 3, word >> 32 & 0xFFFF, bool(word >> 48 & 1)), word & 0xFFFFFFFF


def split_addend(word):
    """(schema or None, signed addend) of the 64 bits of a pointer to another library."""
    addend = _extended(word, 32)
    schema, _ = split(word - addend & _WORD)
    return (None, _extended(word, 64)) if schema is None else (schema, addend)


def _extended(word, bits):
    word &= (1 << bits) - 1
    return word - (1 << bits) if word >> (bits - 1) else word
