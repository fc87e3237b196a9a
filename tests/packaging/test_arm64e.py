"""The steps before and after the link for arm64e, on small objects of their own."""


import random
import re
import struct
import subprocess
import tempfile
import unittest
from pathlib import Path

from fixture import TREE, sdk_folder, write

from checker import exports, fixups, macho, signature
from checker.fixups import Signed
from pointerauth import CannotTurn
from pointerauth.image import load_commands, segment
from pointerauth.linked import finish
from pointerauth.objects import prepare

TARGET = "arm64e-apple-ios15.0"
HEAD = """
    .section __TEXT,__text,regular,pure_instructions
    .p2align 2
    .globl _code
_code:
    ret
    .section __DATA,__data
    .p2align 3
"""


def pointers(**values):
    """Assembly with one exported pointer for every keyword."""
    return HEAD + "".join(f"    .globl _{name}\n_{name}: .quad {value}\n" for name, value in values.items())


class Turned(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = Path(temporary.name)

    def run_tool(self, *command, **options):
        return subprocess.run([str(part) for part in command], capture_output=True, text=True, **options)

    def done(self, *command):
        result = self.run_tool(*command)
        self.assertEqual((0, ""), (result.returncode, result.stderr))

    def assembled(self, text, target=TARGET):
        """The bytes of an object file."""
        source = write(self.folder / "sample.s", text + "\n.subsections_via_symbols\n")
        self.done("clang-22", "-target", target, "-c", source, "-o", self.folder / "sample.o")
        return (self.folder / "sample.o").read_bytes()

    def linked(self, text, *link, target=TARGET, form="-dynamiclib"):
        """The bytes of what lld makes of assembly, before the last step."""
        prepared = write(self.folder / "prepared.o", prepare(self.assembled(text)))
        command = ["clang-22", "-target", target, "-isysroot", sdk_folder(), "-fuse-ld=lld", form]
        command += link or ("-Wl,-no_fixup_chains", "-Wl,-adhoc_codesign")
        self.done(*command, prepared, "-o", self.folder / "linked")
        return (self.folder / "linked").read_bytes()

    def finished(self, text, *link):
        """The slice, and its pointers by name: (fixup)."""
        (image,) = macho.slices(finish(self.linked(text, *link)))
        found, _ = fixups.decode(image)
        self.assertIsNone(signature.problem(image))
        return image, {name: found[address] for name, address in image.defined.items() if address in found}


class PointersTest(Turned):
    def test_pointers_into_the_file(self):
        image, found = self.finished(pointers(
            plain="_code", plus="_code+8", minus="_last-8", tagged="_code+0x3000000000000000",
            name="_code+0x8000000000000000", ia="_code@AUTH(ia,0)",
            ib="_code@AUTH(ib,65535,addr)", da="(_code+4)@AUTH(da,27361,addr)", db="(_last-8)@AUTH(db,1)", last="0",
        ))  # fmt: skip
        code, last = image.defined["_code"], image.defined["_last"]
        self.assertEqual({
            "_plain": (code, None), "_plus": (code + 8, None), "_minus": (last - 8, None),
            "_tagged": (code | 0x30 << 56, None), "_name": (code | 0x80 << 56, None),
            "_ia": (code, Signed("ia", 0, False)),
            "_ib": (code, Signed("ib", 65535, True)), "_da": (code + 4, Signed("da", 27361, True)),
            "_db": (last - 8, Signed("db", 1, False)),
        }, {name: (fixup.target, fixup.signed) for name, fixup in found.items()})  # fmt: skip

    def test_pointers_to_other_libraries(self):
        _, found = self.finished(pointers(
            plain="_outside", plus="_outside+16", minus="_outside-8", far="_outside+0x40000",
            name="_outside+0x8000000000000000", ia="_outside@AUTH(ia,0)",
            da="(_outside+16)@AUTH(da,27361,addr)", db="(_outside-8)@AUTH(db,65535,addr)", none="0",
        ))  # fmt: skip
        self.assertEqual({
            "_plain": (0, None), "_plus": (16, None), "_minus": (-8, None), "_far": (0x40000, None),
            "_name": (-1 << 63, None),
            "_ia": (0, Signed("ia", 0, False)), "_da": (16, Signed("da", 27361, True)),
            "_db": (-8, Signed("db", 65535, True)),
        }, {name: (fixup.addend, fixup.signed) for name, fixup in found.items()})  # fmt: skip
        self.assertEqual({("_outside", 1)}, {(f.imported.name, f.imported.library) for f in found.values()})

    def test_the_smallest_form_of_imports_that_holds_the_addends_is_taken(self):
        for value, form in (("_outside", 1), ("_outside+8", 1), ("(_outside+8)@AUTH(ia,0)", 2), ("_outside+0x80000", 2),
                            ("_outside-0x40000", 1), ("_outside-0x40008", 2),
                            ("_outside+0x1000000000", 3)):  # fmt: skip
            with self.subTest(value):
                image, found = self.finished(pointers(only=value))
                self.assertEqual(form, struct.unpack_from("<I", image.data, image.chained_fixups[0] + 20)[0])
                addend = int((re.search(r"[-+]\w+", value) or ["0"])[0], 0)
                self.assertEqual(addend, found["_only"].addend)

    def test_a_symbol_that_may_be_missing_stays_optional(self):
        _, found = self.finished(".weak_reference _optional\n" + pointers(one="_optional@AUTH(ia,0)", two="_outside"))
        self.assertEqual((True, False), (found["_one"].imported.optional, found["_two"].imported.optional))

    def test_a_weak_definition_is_looked_for_everywhere(self):
        weak = "    .globl _weak\n    .weak_definition _weak\n_weak: .quad 5\n"
        _, found = self.finished(pointers(plain="_weak", signed="_weak@AUTH(da,7,addr)") + weak)
        for name, signed in (("_plain", None), ("_signed", Signed("da", 7, True))):
            imported = found[name].imported
            self.assertEqual(("_weak", fixups.WEAK_LOOKUP), (imported.name, imported.library))
            self.assertEqual((signed, 0), (found[name].signed, found[name].addend))

    def test_lazy_pointers_become_imports_and_the_lazy_binder_is_not_needed(self):
        image, _ = self.finished("    .section __TEXT,__text\n    .p2align 2\n    .globl _call\n_call: b _outside\n")
        found, imports = fixups.decode(image)
        ((lazy, _),) = image.section("__la_symbol_ptr")
        self.assertEqual([("_outside", None)], [(found[lazy].imported.name, found[lazy].signed)])
        self.assertEqual(["_outside"], [imported.name for imported in imports])
        ((got, size),) = image.section("__got")
        self.assertEqual(bytes(size), image.bytes(got, size))

    def test_pages_without_pointers_and_pointers_at_both_ends_of_a_page(self):
        text = HEAD + "    .p2align 14\n    .globl _first, _end, _start, _far\n"
        text += "_first: .quad _code\n    .space 16368\n_end: .quad _code@AUTH(ia,1)\n_start: .quad _outside\n"
        text += "    .space 49152\n_far: .quad _outside@AUTH(da,2,addr)\n"
        image, found = self.finished(text)
        base = image.defined["_first"]
        places = [image.defined[name] - base for name in ("_end", "_start", "_far")]
        self.assertEqual([0x3FF8, 0x4000, 0x10008], places)
        self.assertEqual({base, *(base + place for place in places)}, set(fixups.decode(image)[0]))
        self.assertEqual(("_outside", Signed("da", 2, True)), (found["_far"].imported.name, found["_far"].signed))

    def test_several_segments(self):
        text = pointers(one="_code@AUTH(ia,1)")
        for index, segment in enumerate(("__EXTRA", "__MORE")):
            text += f"    .section {segment},__data\n    .p2align 3\n    .globl _in{index}\n_in{index}: .quad _one\n"
        image, found = self.finished(text)
        self.assertEqual([image.defined["_one"]] * 2, [found["_in0"].target, found["_in1"].target])
        self.assertEqual(Signed("ia", 1, False), found["_one"].signed)

    def test_a_file_without_pointers(self):
        image, found = self.finished(HEAD + "    .globl _none\n_none: .quad 7\n")
        self.assertEqual(({}, (7,)), (found, image.read("Q", image.defined["_none"])))


class FileTest(Turned):
    TEXT = pointers(one="_code@AUTH(ia,1)", two="_outside")

    def test_it_is_for_arm64e_of_the_versioned_convention(self):
        image, _ = self.finished(self.TEXT)
        self.assertEqual((0x80000002, "arm64e", 12), (image.subtype, image.arch, image.pointer_format))

    def test_symbols_exports_and_libraries_stay(self):
        (before,), (after, _) = macho.slices(self.linked(self.TEXT)), self.finished(self.TEXT)
        for what in ("defined", "undefined", "dylibs", "install_name", "platform", "minimum", "sections"):
            self.assertEqual(getattr(before, what), getattr(after, what), what)
        self.assertEqual({"_code", "_one", "_two"}, exports.names(after))
        self.assertEqual(macho.labels(before.data), macho.labels(after.data))

    def test_a_loadable_bundle_is_turned_as_well(self):
        (image,) = macho.slices(finish(self.linked(self.TEXT, form="-bundle")))
        self.assertEqual(8, image.filetype)

    def test_other_tools_read_it(self):
        write(self.folder / "finished", finish(self.linked(self.TEXT)))
        result = self.run_tool("llvm-objdump-22", "--macho", "--chained-fixups", self.folder / "finished")
        self.assertEqual((0, ""), (result.returncode, result.stderr))
        self.assertIn("pointer_format = 12 (DYLD_CHAINED_PTR_ARM64E_USERLAND24)", result.stdout)
        self.assertIn("_outside", result.stdout)

    def test_the_same_input_gives_the_same_bytes(self):
        linked = self.linked(self.TEXT)
        self.assertEqual(finish(linked), finish(linked))

    def test_the_runtime_is_told_that_class_ro_are_signed(self):
        def flags(signed):
            text = pointers(ro=0, isa=0, parent=0, cache=0, vtable=0)
            text += f"    .quad _ro{signed}\n" + "    .section __DATA,__objc_classlist\n    .quad _isa\n"
            text += "    .section __DATA,__objc_imageinfo\n    .long 0\n    .long 64\n"
            image, _ = self.finished(text)
            ((address, _),) = image.section("__objc_imageinfo")
            return image.read("II", address)[1]

        self.assertEqual((64 | 16, 64), (flags("@AUTH(da,25080,addr)"), flags("")))

    def test_one_class_ro_that_is_not_signed_leaves_the_runtime_untold(self):
        text = pointers(ro=0)
        for name, signed in (("first", "@AUTH(da,25080,addr)"), ("second", "")):
            text += f"_{name}: .quad 0, 0, 0, 0, _ro{signed}\n"
        text += "    .section __DATA,__objc_classlist\n    .quad _first, _second\n"
        text += "    .section __DATA,__objc_imageinfo\n    .long 0\n    .long 64\n"
        image, _ = self.finished(text)
        ((address, _),) = image.section("__objc_imageinfo")
        self.assertEqual(64, image.read("II", address)[1])

    def test_what_lies_behind_the_segments_is_moved_whole(self):
        """With symbols that fill several pages, and names of several lengths, which move the signature."""
        for length in range(1, 18, 4):
            text = HEAD + f"    .globl _{'n' * length}\n_{'n' * length}: .quad _code@AUTH(ia,1)\n"
            text += "".join(f"    .globl _symbol{n}\n_symbol{n}: .quad 0\n" for n in range(600))
            text += "    .section __TEXT,__text\n    .p2align 2\n    .globl _call\n_call: b _outside\n"
            before = self.linked(text)
            after = finish(before)
            tables = []
            for content in (before, after):
                commands = {command: position for command, position, _ in load_commands(content)}
                offset, count = struct.unpack_from("<2I", content, commands[0xB] + 56)  # The indirect symbols.
                starts, size = struct.unpack_from("<2I", content, commands[0x26] + 8)  # Where functions start.
                tables.append((content[offset : offset + 4 * count], content[starts : starts + size]))
            self.assertEqual(tables[0], tables[1])
            self.assertGreater(min(map(len, tables[0])), 0)
            (image,) = macho.slices(after)
            self.assertEqual(0, image.signature[0] % 16)
            self.assertIsNone(signature.problem(image))
            link_edit = next(segment(after, position) for command, position, _ in load_commands(after)
                             if command == 0x19 and segment(after, position).name == "__LINKEDIT")  # fmt: skip
            self.assertGreater(link_edit.file_size, 0x4000)
            self.assertEqual(-(-link_edit.file_size // 0x4000) * 0x4000, link_edit.size)
            self.assertEqual(len(after), link_edit.offset + link_edit.file_size)


class RefusedTest(Turned):
    TEXT = pointers(one="_code@AUTH(ia,1)", two="_outside", three="_code")

    def refused(self, step, content, words):
        with self.assertRaises(CannotTurn) as raised:
            step(bytes(content))
        self.assertIn(words, str(raised.exception))
        self.assertNotIn("\n", str(raised.exception))

    def relocation(self, content):
        """Where the facts of an object's first signed pointer stand."""
        for position in range(0, len(content) - 8, 4):
            if struct.unpack_from("<I", content, position + 4)[0] >> 24 == 0xBE:
                return position + 4
        self.fail("no signed pointer")

    def test_an_object_with_an_unknown_relocation(self):
        content = bytearray(self.assembled(self.TEXT))
        content[self.relocation(content) + 3] = 0xCE
        self.refused(prepare, content, "has a relocation of the unknown type 12 at __DATA,__data+0x0")

    def test_a_relocation_that_is_scattered(self):
        content = bytearray(self.assembled(self.TEXT))
        place = self.relocation(content) - 4
        (address,) = struct.unpack_from("<I", content, place)
        struct.pack_into("<I", content, place, address | 0x80000000)
        self.refused(prepare, content, "has a relocation of the unknown type 11 at __DATA,__data+-")

    def test_a_signed_pointer_of_an_unknown_form(self):
        whole = self.assembled(self.TEXT)
        place = self.relocation(whole) + 3
        for facts in (0xBC, 0xBF, 0xB6):  # Of four bytes, relative, without a symbol.
            content = bytearray(whole)
            content[place] = facts
            self.refused(prepare, content, "has a signed pointer of an unknown form at __DATA,__data+0x0")

    def test_a_signed_pointer_without_the_mark_of_one(self):
        text = bytearray(self.assembled(self.TEXT))
        place = text.index(struct.pack("<Q", 1 << 63 | 1 << 32))  # What it is signed with: ia, 1.
        for word in (1 << 32, 1 << 63 | 1 << 51 | 1 << 32):
            struct.pack_into("<Q", text, place, word)
            self.refused(prepare, text, "has a signed pointer of an unknown form at __DATA,__data+0x0")

    def test_a_difference_of_addresses_may_look_like_anything(self):
        text = pointers(one="_two-_one+0x80A8000000000000", two="0")
        content = self.assembled(text)
        self.assertEqual(content, prepare(content))

    def test_a_plain_pointer_that_looks_like_a_signed_one(self):
        content = self.assembled(pointers(one="_code+0x80A8000000000000"))
        self.refused(prepare, content, "has a plain pointer that would look like a signed one at __DATA,__data+0x0")

    def test_objects_for_other_processors(self):
        self.refused(prepare, self.assembled("", "arm64-apple-ios15.0"), "is not code for arm64e of the versioned")
        self.refused(prepare, self.assembled("", "x86_64-apple-macos12"), "is no 64-bit Mach-O file for arm64")
        old = bytearray(self.assembled(self.TEXT))
        struct.pack_into("<I", old, 8, 2)
        self.refused(prepare, old, "is not code for arm64e of the versioned calling convention")

    def test_what_is_no_object(self):
        self.refused(prepare, b"", "is no 64-bit Mach-O file for arm64")
        self.refused(prepare, self.linked(self.TEXT), "is of the file type 6, not an object file")

    def test_what_is_not_linked(self):
        self.refused(finish, b"\0" * 4096, "is no 64-bit Mach-O file for arm64")
        self.refused(finish, prepare(self.assembled(self.TEXT)), "is of the file type 1, neither a library nor")

    def test_a_file_that_was_linked_otherwise(self):
        chained = self.linked(pointers(one="_code"), "-Wl,-fixup_chains", target="arm64-apple-ios15.0")
        self.refused(finish, chained, "has chained fixups already; link it with -no_fixup_chains")
        unsigned = self.linked(self.TEXT, "-Wl,-no_fixup_chains", "-Wl,-no_adhoc_codesign")
        self.refused(finish, unsigned, "lacks a signature; link it with -adhoc_codesign")
        self.refused(finish, finish(self.linked(self.TEXT)), "has chained fixups already")

    def test_an_unknown_load_command(self):
        content = bytearray(self.linked(self.TEXT))
        struct.pack_into("<I", content, content.index(struct.pack("<2I", 0x1B, 24)), 0x31)
        self.refused(finish, content, "has the unknown load command 0x31")

    def command(self, content, wanted):
        """Where a load command stands."""
        return next(position for command, position, _ in load_commands(content) if command == wanted)

    def test_a_file_of_another_layout(self):
        whole = self.linked(self.TEXT)
        for place, layout, value, words in (
            (8, "<I", 2, "is linked for the unknown processor 0x2"),
            (32 + 24, "<Q", 0x4000, "is not laid out as lld does"),
            (self.command(whole, 0x1B), "<I", 0x1D, "lacks a signature"),  # A second one.
            (self.command(whole, 0x80000022), "<I", 0x22, None),  # The same without "required".
            *((self.command(whole, 0xB) + field, "<I", 1, "has tables in __LINKEDIT that lld does not make")
              for field in (36, 44, 52, 68, 76)),
        ):  # fmt: skip
            content = bytearray(whole)
            struct.pack_into(layout, content, place, value)
            with self.subTest(place=place, value=value):
                if words:
                    self.refused(finish, content, words)
                else:
                    self.assertEqual(finish(whole), finish(bytes(content)))

    def test_a_pointer_in_the_last_segment(self):
        whole = self.linked(self.TEXT)
        last = max(position for command, position, _ in load_commands(whole) if command == 0x19)
        index = [position for command, position, _ in load_commands(whole) if command == 0x19].index(last)
        program = bytes([0x11, 0x20 | index, 0x00, 0x51])
        content = bytearray(whole + program)
        struct.pack_into("<2I", content, self.command(whole, 0x80000022) + 8, len(whole), len(program))
        self.refused(finish, content, "where no segment has bytes")

    def test_a_pointer_that_is_not_aligned(self):
        text = HEAD + "    .byte 1\n_odd: .quad _code@AUTH(ia,1)\n    .no_dead_strip _odd\n"
        self.refused(finish, self.linked(text), "which is not aligned to 8 bytes")

    def test_a_pointer_that_leads_outside_the_file(self):
        for value in ("(_code-0x100000)@AUTH(ia,1)", "_code-0x100000", "(_code+0x100000)@AUTH(ia,1)"):
            with self.subTest(value):
                self.refused(finish, self.linked(pointers(one=value)), "points outside the file")

    def test_a_signature_of_another_form(self):
        for place in (27, 37):  # How many special slots there are; the kind of hash.
            content = bytearray(self.linked(self.TEXT))
            content[content.index(b"\xfa\xde\x0c\x02") + place] = 9
            self.refused(finish, content, "has a signature of an unknown form")

    def test_opcodes_that_are_unknown_or_endless(self):
        whole = self.linked(self.TEXT)
        info = whole.index(struct.pack("<2I", 0x80000022, 48))
        rebase, _, bind, _ = struct.unpack_from("<4I", whole, info + 8)
        for place, code, words in (
            (rebase, b"\xf0", "has the unknown rebase opcode 0xf0"),
            (bind, b"\xd0", "has the unknown bind opcode 0xd0"),
            (rebase, b"\x13", "has a fixup of the unknown kind 3"), (bind, b"\x90", "has a fixup without a symbol"),
            (rebase, b"\x2f\x00", "has fixups in segment 15, which it lacks"),
            (bind, b"\x44a\0", "with the unknown flags 0x4"),
        ):  # fmt: skip
            with self.subTest(words):
                self.refused(finish, whole[:place] + code + whole[place + len(code) :], words)
        times = b"\xff\xff\xff\xff\xff\xff\xff\x7f"
        for skip, words in ((b"\0", "where no segment has bytes"), (b"\xf8" + b"\xff" * 8 + b"\x01", "up twice")):
            with self.subTest(words):
                program = b"\x11\x40_outside\0\x51\x71\x00\xc0" + times + skip
                content = bytearray(whole + program)
                struct.pack_into("<2I", content, info + 16, len(whole), len(program))
                self.refused(finish, content, words)

    def test_damaged_files_are_refused_and_never_crash(self):
        numbers = random.Random(5)
        linked = self.linked(self.TEXT)
        for size in range(0, len(linked) - 1, len(linked) // 300):
            with self.assertRaises(CannotTurn, msg=size):
                finish(linked[:size])
        for step, whole in ((prepare, self.assembled(self.TEXT)), (finish, linked)):
            for _ in range(1500):
                content = bytearray(whole[: numbers.randrange(len(whole)) if numbers.random() < 0.2 else len(whole)])
                for _ in range(numbers.randrange(1, 4)):
                    place = numbers.randrange(min(2400, len(content) + 1))
                    content[place : place + 4] = numbers.randbytes(4)
                try:
                    step(bytes(content))
                except CannotTurn as error:
                    self.assertNotIn("\n", str(error))


class CommandTest(Turned):
    def arm64e(self, *arguments, **options):
        return self.run_tool(TREE / "packaging/arm64e", *arguments, **options)

    def test_it_writes_the_turned_file(self):
        linked = write(self.folder / "in", self.linked(RefusedTest.TEXT))
        linked.chmod(0o755)
        result = self.arm64e("finish", linked, self.folder / "out")
        self.assertEqual((0, "", ""), (result.returncode, result.stdout, result.stderr))
        self.assertEqual(finish(linked.read_bytes()), (self.folder / "out").read_bytes())
        self.assertEqual(0o755, (self.folder / "out").stat().st_mode & 0o777)

    def test_what_it_cannot_turn_leaves_what_was_there(self):
        kept = write(self.folder / "kept", "before")
        source = write(self.folder / "in", "x")
        result = self.arm64e("prepare", source, kept)
        sentence = f"packaging/arm64e: {source} is no 64-bit Mach-O file for arm64\n"
        self.assertEqual((1, "", sentence), (result.returncode, result.stdout, result.stderr))
        self.assertEqual("before", kept.read_text())
        self.assertEqual({"kept", "in"}, {path.name for path in self.folder.iterdir()})

    def test_files_that_cannot_be_read_or_written(self):
        source = write(self.folder / "in", self.assembled(RefusedTest.TEXT))
        for arguments, words in (
            ((self.folder / "absent", self.folder / "out"), "absent: No such file or directory\n"),
            ((source, self.folder / "absent/out"), "No such file or directory\n"),
        ):
            result = self.arm64e("prepare", *arguments)
            self.assertEqual((1, 1), (result.returncode, result.stderr.count("\n")))
            self.assertTrue(result.stderr.endswith(words), result.stderr)

    def test_arguments(self):
        self.assertEqual(2, self.arm64e("join", "a", "b").returncode)
        self.assertEqual(2, self.arm64e("finish").returncode)
