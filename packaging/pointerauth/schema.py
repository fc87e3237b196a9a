"""How a signed pointer is asked for in 64 bits: the form of object files, which the linker carries along unread.

Bits 0 to 31 hold the addend or, once linked, the target; 32 to 47 the discriminator; 48 whether the address of the
pointer counts as well; 49 and 50 the key; 63 is set. The bits between are clear. (LLVM: AArch64MachObjectWriter and
`AArch64AuthMCExpr`; the same places as in `dyld_chained_ptr_arm64e_auth_rebase` of <mach-o/fixup-chains.h>.)
"""

from typing import NamedTuple

KEYS = ("ia", "ib", "da", "db")
_CLEAR = 0xFFF << 51
_SIGNED = 1 << 63
_WORD = (1 << 64) - 1


class Schema(NamedTuple):
    """What a pointer is signed with."""

    key: int  # An index into KEYS.
    discriminator: int  # 16 bits.
    address: bool  # Whether the pointer's own address is mixed in.


def is_signed(word):
    """Whether 64 bits ask for a signed pointer. No plain address or small negative number looks like that."""
    return bool(word & _SIGNED) and not word & _CLEAR


def split(word):
    """(schema or None, low 32 bits or the whole word) of 64 bits of an object file or of a linked pointer."""
    if not is_signed(word):
        return None, word
    return Schema(word >> 49 & 3, word >> 32 & 0xFFFF, bool(word >> 48 & 1)), word & 0xFFFFFFFF


def split_sum(word):
    """(schema or None, signed addend) of 64 bits that `carried` made and to which nothing was added."""
    addend = _extended(word, 32)
    schema, _ = split(word - addend & _WORD)
    return (None, _extended(word, 64)) if schema is None else (schema, addend)


def carried(word):
    """The 64 bits of a signed pointer so that adding an address to all of them leaves the upper half as it is meant.

    A negative addend would otherwise carry into the discriminator.
    """
    return (word & ~0xFFFFFFFF) + _extended(word, 32) & _WORD


def _extended(word, bits):
    word &= (1 << bits) - 1
    return word - (1 << bits) if word >> (bits - 1) else word
