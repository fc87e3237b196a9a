"""Reads the programs that name a linked file's pointers: `dyld_info_command` and the opcodes of <mach-o/loader.h>."""

from dataclasses import dataclass

from . import CannotTurn

_POINTER = 1  # REBASE_TYPE_POINTER, BIND_TYPE_POINTER
_WEAK_IMPORT = 1
_NON_WEAK_DEFINITION = 8


@dataclass(frozen=True)
class Bind:
    """A pointer to another library's symbol. `ordinal` counts from 1 in load order; 0 and below are special."""

    address: int
    ordinal: int
    name: str
    optional: bool
    addend: int  # All 64 bits, signed.


class _Program:
    """A cursor over opcodes."""

    def __init__(self, data):
        self._data, self._position = data, 0

    def __bool__(self):
        return self._position < len(self._data)

    def byte(self):
        if not self:
            raise CannotTurn("has fixups that end early")
        self._position += 1
        return self._data[self._position - 1]

    def unsigned(self):
        value = shift = 0
        while True:
            byte = self.byte()
            value |= (byte & 0x7F) << shift
            shift += 7
            if byte < 0x80:
                return value

    def signed(self):
        value = shift = 0
        while True:
            byte = self.byte()
            value |= (byte & 0x7F) << shift
            shift += 7
            if byte < 0x80:
                return value - (1 << shift) if byte & 0x40 else value

    def text(self):
        end = self._data.find(b"\0", self._position)
        if end < 0:
            raise CannotTurn("has fixups that end early")
        start, self._position = self._position, end + 1
        return self._data[start:end].decode(errors="surrogateescape")


def _segment(segments, index):
    if index >= len(segments):
        raise CannotTurn(f"has fixups in segment {index}, which it lacks")
    return segments[index].address


def _only_pointers(kind):
    if kind != _POINTER:
        raise CannotTurn(f"has a fixup of the unknown kind {kind}")


def rebases(data, segments):
    """The address of every pointer into the file itself."""
    program, address = _Program(data), 0
    while program:
        byte = program.byte()
        opcode, immediate = byte & 0xF0, byte & 0x0F
        if opcode == 0x00:  # DONE
            break
        if opcode == 0x10:  # SET_TYPE_IMM
            _only_pointers(immediate)
        elif opcode == 0x20:  # SET_SEGMENT_AND_OFFSET_ULEB
            address = _segment(segments, immediate) + program.unsigned()
        elif opcode == 0x30:  # ADD_ADDR_ULEB
            address += program.unsigned()
        elif opcode == 0x40:  # ADD_ADDR_IMM_SCALED
            address += 8 * immediate
        elif opcode in (0x50, 0x60, 0x70, 0x80):  # DO_REBASE: IMM_TIMES, ULEB_TIMES, ADD_ADDR_ULEB, ULEB_TIMES_SKIPPING
            times = immediate if opcode == 0x50 else 1 if opcode == 0x70 else program.unsigned()
            skip = program.unsigned() if opcode in (0x70, 0x80) else 0
            for _ in range(times):
                yield address
                address = address + 8 + skip & 0xFFFFFFFFFFFFFFFF
        else:
            raise CannotTurn(f"has the unknown rebase opcode {byte:#x}")


def binds(data, segments, lazy=False):
    """Every pointer to another library's symbol. In the lazy program, DONE only ends a symbol."""
    program = _Program(data)
    address, ordinal, name, optional, addend = 0, 0, None, False, 0
    while program:
        byte = program.byte()
        opcode, immediate = byte & 0xF0, byte & 0x0F
        times = skip = 0
        if opcode == 0x00:  # DONE
            if not lazy:
                break
        elif opcode == 0x10:  # SET_DYLIB_ORDINAL_IMM
            ordinal = immediate
        elif opcode == 0x20:  # SET_DYLIB_ORDINAL_ULEB
            ordinal = program.unsigned()
        elif opcode == 0x30:  # SET_DYLIB_SPECIAL_IMM
            ordinal = immediate - 16 if immediate else 0
        elif opcode == 0x40:  # SET_SYMBOL_TRAILING_FLAGS_IMM
            if immediate & ~(_WEAK_IMPORT | _NON_WEAK_DEFINITION):
                raise CannotTurn(f"has a symbol with the unknown flags {immediate:#x}")
            name, optional = program.text(), bool(immediate & _WEAK_IMPORT)
        elif opcode == 0x50:  # SET_TYPE_IMM
            _only_pointers(immediate)
        elif opcode == 0x60:  # SET_ADDEND_SLEB
            addend = program.signed()
        elif opcode == 0x70:  # SET_SEGMENT_AND_OFFSET_ULEB
            address = _segment(segments, immediate) + program.unsigned()
        elif opcode == 0x80:  # ADD_ADDR_ULEB
            address = address + program.unsigned() & 0xFFFFFFFFFFFFFFFF
        elif opcode == 0x90:  # DO_BIND
            times = 1
        elif opcode == 0xA0:  # DO_BIND_ADD_ADDR_ULEB
            times, skip = 1, program.unsigned()
        elif opcode == 0xB0:  # DO_BIND_ADD_ADDR_IMM_SCALED
            times, skip = 1, 8 * immediate
        elif opcode == 0xC0:  # DO_BIND_ULEB_TIMES_SKIPPING_ULEB
            times, skip = program.unsigned(), program.unsigned()
        else:
            raise CannotTurn(f"has the unknown bind opcode {byte:#x}")
        for _ in range(times):
            if name is None:
                raise CannotTurn("has a fixup without a symbol")
            yield Bind(address, ordinal, name, optional, addend)
            address = address + 8 + skip & 0xFFFFFFFFFFFFFFFF
