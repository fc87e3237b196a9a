"""The names that a Mach-O slice exports: the trie of <mach-o/loader.h>."""

from .macho import MachOError


def names(image):
    """Every exported name. Raises MachOError."""
    if image.exports_trie is None:
        return set()
    start, size = image.exports_trie
    trie = image.data[start : start + size]
    found, seen, waiting = set(), set(), [(0, b"")] if trie else []
    try:
        while waiting:
            node, prefix = waiting.pop()
            if node in seen:
                raise MachOError("the exports are damaged: a name leads back to where it began")
            seen.add(node)
            terminal, position = _unsigned(trie, node)
            if terminal:
                found.add(prefix.decode())
            position += terminal
            for _ in range(trie[position]):
                end = trie.index(b"\0", position + 1)
                child, following = _unsigned(trie, end + 1)
                waiting.append((child, prefix + trie[position + 1 : end]))
                position = following - 1
    except (IndexError, ValueError) as error:
        raise MachOError(f"the exports are damaged: {error}") from error
    return found


def _unsigned(data, position):
    """(number, where it ends)"""
    value = shift = 0
    while True:
        byte = data[position]
        value |= (byte & 0x7F) << shift
        position, shift = position + 1, shift + 7
        if byte < 0x80:
            return value, position
