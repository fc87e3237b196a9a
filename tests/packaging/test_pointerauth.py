"""The parts of the step after the link, each by itself: opcodes, chains, and the frame of a file."""

import struct
import unittest

import fixture  # noqa: F401  It makes the packages below packaging/ known.

from checker import fixups, macho
from checker.fixups import Imported
from pointerauth import CannotTurn, chains, opcodes
from pointerauth.chains import Bind, Import, Rebase
from pointerauth.image import Segment, load_commands, sections
from pointerauth.schema import Schema, carried, is_carried, split, split_addend
from pointerauth.signature import Signature


def uleb(number):
    result = b""
    while number > 0x7F:
        result, number = result + bytes([number & 0x7F | 0x80]), number >> 7
    return result + bytes([number])


class OpcodesTest(unittest.TestCase):
    SEGMENTS = [Segment("__TEXT", 0, 0x4000, 0, 0x4000), Segment("__DATA", 0x4000, 0x100000, 0x4000, 0x4000)]

    def rebased(self, program):
        return [address - 0x4000 for address in opcodes.rebases(b"\x11\x21\x00" + program, self.SEGMENTS)]

    def bound(self, program, **options):
        program = b"\x11\x40_name\0\x51\x71\x00" + program
        return [(found.address - 0x4000, found.ordinal, found.name, found.optional, found.addend)
                for found in opcodes.binds(program, self.SEGMENTS, **options)]  # fmt: skip

    def test_every_opcode_that_rebases(self):
        for program, wanted in (
            (b"", []), (b"\x53", [0, 8, 16]), (b"\x50\x51", [0]), (b"\x60" + uleb(130), [8 * n for n in range(130)]),
            (b"\x60\x00\x51", [0]), (b"\x30" + uleb(200) + b"\x51", [200]), (b"\x4f\x51", [120]),
            (b"\x51\x30\x08\x41\x51", [0, 24]), (b"\x70\x10\x51", [0, 24]), (b"\x80\x03\x08\x51", [0, 16, 32, 48]),
            (b"\x80\x00\x08\x51", [0]), (b"\x51\x00\x51", [0]), (b"\x51\x21" + uleb(0x3FF8) + b"\x51", [0, 0x3FF8]),
        ):  # fmt: skip
            with self.subTest(program.hex()):
                self.assertEqual(wanted, self.rebased(program))

    def test_every_opcode_that_binds(self):
        plain = (1, "_name", False, 0)
        for program, wanted in (
            (b"", []), (b"\x90", [(0, *plain)]), (b"\x90\x90", [(0, *plain), (8, *plain)]),
            (b"\x80" + uleb(200) + b"\x90", [(200, *plain)]),
            (b"\x90\x80" + b"\xf0" + b"\xff" * 8 + b"\x01\x90", [(0, *plain), (-8, *plain)]),
            (b"\xa0\x10\x90", [(0, *plain), (24, *plain)]), (b"\xb2\x90", [(0, *plain), (24, *plain)]),
            (b"\xc0\x02\x18\x90", [(0, *plain), (32, *plain), (64, *plain)]), (b"\xc0\x00\x18\x90", [(0, *plain)]),
            (b"\x1f\x90", [(0, 15, *plain[1:])]), (b"\x20" + uleb(300) + b"\x90", [(0, 300, *plain[1:])]),
            (b"\x30\x90", [(0, 0, *plain[1:])]), (b"\x3f\x90", [(0, -1, *plain[1:])]),
            (b"\x3e\x90", [(0, -2, *plain[1:])]), (b"\x41_may\0\x90", [(0, 1, "_may", True, 0)]),
            (b"\x48_own\0\x90", [(0, 1, "_own", False, 0)]), (b"\x60\x78\x90", [(0, 1, "_name", False, -8)]),
            (b"\x60" + uleb(0x1000) + b"\x90", [(0, 1, "_name", False, 0x1000)]),
            (b"\x90\x00\x90", [(0, *plain)]),
        ):  # fmt: skip
            with self.subTest(program.hex()):
                self.assertEqual(wanted, self.bound(program))

    def test_a_symbol_that_is_bound_lazily_ends_and_the_program_goes_on(self):
        self.assertEqual([0, 8], [found[0] for found in self.bound(b"\x90\x00\x90", lazy=True)])

    def test_programs_that_end_early(self):
        for read, program in (
            (self.rebased, b"\x30"), (self.rebased, b"\x30\x80"), (self.rebased, b"\x80\x01"),
            (self.bound, b"\x40_name"),
            (self.bound, b"\x60\xff"), (self.bound, b"\xc0\x01"),
        ):  # fmt: skip
            with self.subTest(program.hex()), self.assertRaisesRegex(CannotTurn, "has fixups that end early"):
                read(program)


class ChainsTest(unittest.TestCase):
    ADDRESS, OFFSET = 0x20000, 0x80  # Where the pointers lie in memory, and where in the file.

    def decoded(self, found, size=0x10000):
        """(form of the imports, what is read of the chains, the load command's data) for pointers by offset."""
        parts = [Segment("__TEXT", 0, 0x4000, 0, 0), Segment("__DATA", self.ADDRESS, size, self.OFFSET, size),
                 Segment("__LINKEDIT", self.ADDRESS + size, 0x4000, self.OFFSET + size, 0)]  # fmt: skip
        data = bytearray(self.OFFSET + size)
        payload = chains.write(data, {self.ADDRESS + place: fixup for place, fixup in found.items()}, parts)
        image = macho.Slice(bytes(data) + payload, "arm64e", 0x80000002, 6)
        image.sections = [macho.Section("__data", self.ADDRESS, size, self.OFFSET)]
        image.chained_fixups = (len(data), len(payload))
        read, _ = fixups.decode(image)
        (form,) = struct.unpack_from("<I", payload, 20)
        return form, {address - self.ADDRESS: fixup for address, fixup in read.items()}, payload

    def imported(self, ordinal=1, name="_name", optional=False, addend=0):
        """(form, import, addend) as read, of one pointer to an import."""
        form, read, _ = self.decoded({0: Bind(Import(ordinal, name, optional, addend))})
        return form, read[0].imported, read[0].addend

    def test_the_last_word_of_a_segment(self):
        _, read, _ = self.decoded({0: Rebase(0x40), 0x10: Rebase(0x48)}, size=0x18)
        self.assertEqual({0: 0x40, 0x10: 0x48}, {place: fixup.target for place, fixup in read.items()})

    def test_the_form_of_imports_is_the_smallest_that_holds_every_field(self):
        for fields, form in (
            ({"ordinal": 0xEF}, 1), ({"ordinal": 0xF0}, 3), ({"ordinal": -3}, 1), ({"ordinal": 0x1234}, 3),
            ({"addend": (1 << 31) - 1}, 2), ({"addend": 1 << 31}, 3), ({"addend": -1 << 31}, 2),
            ({"addend": (-1 << 31) - 1}, 3), ({"addend": 1 << 40, "ordinal": -3}, 3),
        ):  # fmt: skip
            for optional in (False, True):
                with self.subTest(fields, optional=optional):
                    wanted = Imported("_name", fields.get("ordinal", 1), optional)
                    imported = self.imported(optional=optional, **fields)
                    self.assertEqual((form, wanted, fields.get("addend", 0)), imported)

    def test_names_that_are_longer_than_the_small_forms_reach(self):
        long, other = "_" + "a" * (1 << 23), "_other"
        form, read, _ = self.decoded({0: Bind(Import(1, long, False)), 8: Bind(Import(2, other, False))})
        self.assertEqual((3, long, other), (form, read[0].imported.name, read[8].imported.name))

    def test_a_name_is_there_once(self):
        found = {8 * n: Bind(Import(n + 1, "_the_name", False)) for n in range(3)}
        _, read, payload = self.decoded(found)
        self.assertEqual([1, 2, 3], [fixup.imported.library for fixup in read.values()])
        self.assertEqual(1, payload.count(b"_the_name"))

    def test_addends_in_the_pointer_itself(self):
        for addend in (-1 << 18, -1, 0, (1 << 18) - 1):
            _, read, _ = self.decoded({0: Bind(Import(1, "_name", False), addend)})
            self.assertEqual(addend, read[0].addend)

    def test_every_field_of_a_schema(self):
        for key in range(4):
            for address in (False, True):
                for fixup in (Rebase(0xFFFFFFF8, schema=Schema(key, 0xBEEF, address)),
                              Bind(Import(1, "_name", False), schema=Schema(key, 0xBEEF, address))):  # fmt: skip
                    _, read, _ = self.decoded({0: fixup, 0x3FF8: Rebase(8)})
                    self.assertEqual(fixups.Signed(fixups.KEYS[key], 0xBEEF, address), read[0].signed)
                    self.assertEqual(0xFFFFFFF8 if isinstance(fixup, Rebase) else None, read[0].target)

    def test_a_pointer_between_two_words(self):
        with self.assertRaisesRegex(CannotTurn, "0x20004, which is not aligned to 8 bytes"):
            self.decoded({4: Rebase(0)})


class SchemaTest(unittest.TestCase):
    def test_plain_words_stay(self):
        for word in (0, 1, (1 << 64) - 1, 1 << 63, 0x80F8000000000000, (1 << 64) - 8, 0x9000000000001000,
                     0xC0A8000000000000, 0x81A8000000000000, 0x00A8000000000000):  # fmt: skip
            self.assertEqual((None, word), split(word))
            self.assertEqual((None, word - (1 << 64) if word >> 63 else word), split_addend(word))
            self.assertFalse(is_carried(word))

    def test_addends_of_both_signs_are_carried(self):
        for addend in (0, 8, -8, (1 << 31) - 1, -1 << 31):
            word = carried(1 << 63 | 2 << 49 | 1 << 48 | 0xFFFF << 32 | addend & 0xFFFFFFFF)
            self.assertEqual((Schema(2, 0xFFFF, True), addend), split_addend(word))
            address = 0x80000000
            self.assertEqual((Schema(2, 0xFFFF, True), address + addend), split(word + address & (1 << 64) - 1))


class SignatureTest(unittest.TestCase):
    def test_its_lengths_are_those_of_its_parts(self):
        directory = struct.pack(">9I4B", 0xFADE0C02, 0, 0x20400, 2, 96, 88, 0, 1, 1, 32, 2, 0, 12).ljust(96, b"a")
        blob = struct.pack(">5I", 0xFADE0CC0, 0, 1, 0, 20) + directory + bytes(32)
        for size in (1, 4096, 4097, 3 * 4096):
            made = Signature(blob).of(bytes(size))
            pages = -(-size // 4096)
            self.assertEqual((20 + 96 + 32 * pages, 96 + 32 * pages),
                             (struct.unpack_from(">I", made, 4)[0], struct.unpack_from(">I", made, 24)[0]))  # fmt: skip
            signed = (Signature(blob).size(size), *struct.unpack_from(">2I", made, 48))
            self.assertEqual((len(made), pages, size), signed)


class FrameTest(unittest.TestCase):
    """Load commands that reach beyond their bounds."""

    def file(self, *commands, size=None, magic=0xFEEDFACF):
        body = b"".join(commands)
        head = struct.pack("<8I", magic, 0x0100000C, 0x80000002, 6, len(commands),
                           len(body) if size is None else size, 0, 0)
        return head + body + bytes(64)

    def segment(self, count, room):
        """A segment that says it has `count` sections, and room for some."""
        return struct.pack("<2I16s4Q4I", 0x19, 72 + 80 * room, b"__DATA", 0, 0, 0, 0, 0, 0, count, 0) + bytes(80 * room)

    def test_sections_fill_their_segment_and_no_more(self):
        self.assertEqual(2, len(list(sections(self.file(self.segment(2, 2)), 32))))
        with self.assertRaisesRegex(CannotTurn, "has load commands that end early"):
            list(sections(self.file(self.segment(3, 2)), 32))

    def test_commands_end_where_the_header_says(self):
        command = struct.pack("<4I", 0x1B, 16, 0, 0)
        self.assertEqual([(0x1B, 32, 16), (0x1B, 48, 16)], list(load_commands(self.file(command, command))))
        for content in (self.file(command, command, size=24), self.file(command, struct.pack("<4I", 0x1B, 24, 0, 0)),
                        self.file(struct.pack("<4I", 0x1B, 7, 0, 0))):  # fmt: skip
            with self.assertRaisesRegex(CannotTurn, "has load commands that end early"):
                list(load_commands(content))

    def test_files_of_another_kind(self):
        for magic in (0xFEEDFACE, 0xCFFAEDFE, 0xCAFEBABE):
            with self.assertRaisesRegex(CannotTurn, "is no 64-bit Mach-O file for arm64"):
                list(load_commands(self.file(magic=magic)))


if __name__ == "__main__":
    unittest.main()
