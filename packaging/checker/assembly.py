"""Reads the pointers that a compiler asked for out of its assembly, and where the linker put them out of its map."""

import re
from dataclasses import dataclass, field

from .fixups import Signed

INITIALISERS = "__mod_init_func"  # The section of pointers to code that runs first; they have no labels.

_QUOTED = r'"(?:[^"\\]|\\.)*"'
_NAME = rf"(?:{_QUOTED}|[\w.$]+)"
_LABEL = re.compile(rf"^({_NAME}):")
_DIRECTIVE = re.compile(rf'^\s+(\.\w+)\s*((?:{_QUOTED}|[^";])*?)\s*(?:;.*)?$')
_POINTER = re.compile(rf"^\(?({_NAME})([+-]\d+)?\)?(?:@AUTH\((\w\w),(\d+)(,addr)?\))?$")
_SECTION = re.compile(r"^(\w+),(\w+)")
_ESCAPE = re.compile(rb"\\([0-7]{1,3}|.)")
_ESCAPED = {b"n": b"\n", b"t": b"\t", b"r": b"\r", b"b": b"\b", b"f": b"\f"}
_NUMBERS = {".quad": 8, ".long": 4, ".short": 2, ".byte": 1}


class AssemblyError(Exception):
    """The assembly or the map has a form that is not understood."""


@dataclass(frozen=True)
class Pointer:
    """A pointer that is asked for: to a symbol plus an addend."""

    symbol: str
    addend: int
    signed: Signed | None


@dataclass
class Record:
    """What follows a label in a section of data: its pointers by offset, or its text."""

    pointers: dict[int, Pointer] = field(default_factory=dict)
    text: bytes = b""


def records(assembly):
    """Every record of data and of text in an assembly file, by label. Raises AssemblyError.

    The functions that are to run when the code is loaded are the record INITIALISERS.
    """
    found, segment, name, offset = {}, None, None, 0
    for line in assembly.splitlines():
        label = _LABEL.match(line)
        if label:
            name, offset = _unquoted(label.group(1)).decode(), 0
            found[name] = Record()
            continue
        directive = _DIRECTIVE.match(line)
        if not directive:
            continue
        kind, value = directive.groups()
        section = _SECTION.match(value) if kind == ".section" else None
        if section:
            segment, name, offset = section.group(1), None, 0
            if section.group(2) == INITIALISERS:
                name = INITIALISERS
                found[name] = Record()
        elif kind in (".asciz", ".ascii") and name:
            found[name].text += _unquoted(value) + b"\0" * (kind == ".asciz")
        elif segment == "__TEXT":
            if kind == ".space" and name:
                found[name].text += bytes(int(value))
        elif kind in _NUMBERS:
            if kind == ".quad" and not re.fullmatch(r"-?\d+|0x[0-9a-fA-F]+", value):
                if name is None:
                    raise AssemblyError(f"a pointer without a label: {value}")
                found[name].pointers[offset] = _pointer(value)
            offset += _NUMBERS[kind]
        elif kind in (".space", ".zero"):
            offset += int(value.split(",")[0], 0)
        elif kind == ".p2align" and name != INITIALISERS:
            name = None  # What follows belongs to the next label.
    return found


def _pointer(text):
    match = _POINTER.match(text)
    if not match:
        raise AssemblyError(f"a pointer of an unknown form: {text}")
    symbol, addend, key, discriminator, address = match.groups()
    signed = Signed(key, int(discriminator), bool(address)) if key else None
    return Pointer(_unquoted(symbol).decode(), int(addend or 0), signed)


def _unquoted(text):
    """The bytes of a name or of a string, without its quotation marks."""
    raw = text.encode()
    if not raw.startswith(b'"'):
        return raw
    return _ESCAPE.sub(lambda m: bytes([int(m[1], 8)]) if m[1].isdigit() else _ESCAPED.get(m[1], m[1]), raw[1:-1])


@dataclass
class Map:
    """What the linker put where: `objects` by number; `places` and `sizes`, addresses and bytes, by (object, label)."""

    objects: dict[int, str]
    places: dict[tuple[int, str], int]
    sizes: dict[tuple[int, str], int]


def read_map(text):
    """The linker's map. Raises AssemblyError."""
    objects, places, sizes, part = {}, {}, {}, None
    for line in text.splitlines():
        if line.startswith("# "):
            part = line
        elif part == "# Object files:":
            match = re.match(r"\[\s*(\d+)\] (.*)", line)
            if match:
                objects[int(match[1])] = match[2]
        elif part == "# Address\tSize    \tFile  Name":
            match = re.match(r"0x([0-9A-F]+)\t0x([0-9A-F]+)\t\[\s*(\d+)\] (.*)", line)
            if match:
                key = int(match[3]), match[4]
                places[key], sizes[key] = int(match[1], 16), int(match[2], 16)
    if not objects or not places:
        raise AssemblyError("no map of the linker")
    return Map(objects, places, sizes)
