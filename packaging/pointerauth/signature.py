"""Renews the ad-hoc code signature that the linker wrote: <kern/cs_blobs.h> of the public XNU sources."""

import hashlib
import struct

from . import CannotTurn

_SUPER_BLOB = 0xFADE0CC0
_CODE_DIRECTORY = 0xFADE0C02
_HASHES = (32, 2, 0, 12)  # Of 32 bytes, SHA-256, no platform, pages of 2 to the 12th bytes.
_PAGE = 1 << 12


class Signature:
    """The form of a signature: one code directory without special slots. Raises CannotTurn for another one."""

    def __init__(self, blob):
        try:
            magic, _, count, kind, self._start = struct.unpack_from(">5I", blob)
            fields = struct.unpack_from(">9I4B", blob, self._start)
        except struct.error as error:
            raise CannotTurn("has a damaged signature") from error
        known = (magic, count, kind, fields[0]) == (_SUPER_BLOB, 1, 0, _CODE_DIRECTORY)
        if not known or fields[6] or fields[9:] != _HASHES:
            raise CannotTurn("has a signature of an unknown form")
        self._head = blob[: self._start + fields[4]]

    def size(self, limit):
        """How many bytes the signature of `limit` bytes of code takes."""
        return len(self._head) + 32 * -(-limit // _PAGE)

    def of(self, code):
        """The signature of `code`, which is everything before the signature itself."""
        hashes = [hashlib.sha256(code[start : start + _PAGE]).digest() for start in range(0, len(code), _PAGE)]
        head, total = bytearray(self._head), self.size(len(code))
        struct.pack_into(">I", head, 4, total)
        struct.pack_into(">I", head, self._start + 4, total - self._start)
        struct.pack_into(">2I", head, self._start + 28, len(hashes), len(code))
        return bytes(head) + b"".join(hashes)
