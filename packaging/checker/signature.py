"""Verifies the ad-hoc code signature of a Mach-O slice: that it is there and that it fits every page of the code."""

import hashlib
import struct

_SUPER_BLOB = 0xFADE0CC0
_CODE_DIRECTORY = 0xFADE0C02
_DIRECTORY_SLOTS = {0, *range(0x1000, 0x1006)}  # The code directory and its alternatives with other hashes.
_HASHES = {1: "sha1", 2: "sha256"}


def problem(image):
    """A sentence about what is wrong with the slice's signature, or None."""
    if image.signature is None:
        return "has no code signature"
    start, size = image.signature
    blob = image.data[start : start + size]
    try:
        magic, length, count = struct.unpack_from(">3I", blob)
        if magic != _SUPER_BLOB:
            return "has a code signature of an unknown form"
        if length > size:
            return "has a code signature that is longer than its place"
        slots = [struct.unpack_from(">2I", blob, 12 + 8 * index) for index in range(count)]
        directories = [offset for kind, offset in slots if kind in _DIRECTORY_SLOTS]
        if not directories:
            return "has a code signature without a code directory"
        for offset in directories:
            fault = _directory_problem(image.data, blob[:length], offset, start)
            if fault:
                return fault
    except struct.error:
        return "has a damaged code signature"
    return None


def _directory_problem(data, blob, offset, signed):
    fields = struct.unpack_from(">9I4B", blob, offset)
    magic, length, _, _, hashes, _, _, count, limit, hash_size, hash_kind, _, page_bits = fields
    if magic != _CODE_DIRECTORY or hash_kind not in _HASHES:
        return "has a code directory of an unknown form"
    page = 1 << page_bits
    if limit != signed or count != -(-limit // page):
        return "has a code signature that does not cover the whole file"
    if offset + length > len(blob) or hashes + count * hash_size > length:
        return "has a code directory that ends early"
    for index in range(count):
        content = data[index * page : min((index + 1) * page, limit)]
        slot = offset + hashes + index * hash_size
        if hashlib.new(_HASHES[hash_kind], content).digest()[:hash_size] != blob[slot : slot + hash_size]:
            return f"was changed after it was signed (page {index})"
    return None
