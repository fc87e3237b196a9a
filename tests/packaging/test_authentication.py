"""Rules about code for arm64e: what is signed and how, what the compiler asked for, and that the slices are the
same.
"""

import struct
import unittest

from fixture import INSTALL_NAME, SIGNED_SOURCE, PackageTest, device_code, executable, fat

from checker import assembly, fixups, macho
from checker.fixups import KEYS, Signed

WORDS = f"{INSTALL_NAME} (arm64e)"
SIGNED, BIND = 1 << 63, 1 << 62


class BothSlicesTest(PackageTest):
    def setUp(self):
        super().setUp()
        self.archs = ("arm64", "arm64e")
        self.slice, self.link_map = device_code("arm64e")
        (self.image,) = macho.slices(self.slice)
        self.fixups, _ = fixups.decode(self.image)

    def judged(self, rule, content=None):
        """The rule's problems with the slice for arm64e, or with another one in its place."""
        self.code = fat((0, device_code("arm64")[0]), (0x80000002, content or self.slice))
        return [sentence.removeprefix(WORDS + " ") for name, sentence in self.problems() if name == rule]

    def changed(self, address, change):
        """The slice with another word at an address."""
        place = self.image.offset(address)
        (word,) = struct.unpack_from("<Q", self.slice, place)
        return self.slice[:place] + struct.pack("<Q", change(word)) + self.slice[place + 8 :]

    def address(self, name, offset=0):
        return self.image.defined[name] + offset

    def target(self, address):
        return self.fixups[address].target


def unsigned(word):
    """The pointer without its signature: what it points to and how far the next one is stay."""
    low = word & (0xFFFFFF if word & BIND else 0xFFFFFFFF)
    return low | word & (BIND | 0x7FF << 51)


class WholeTest(BothSlicesTest):
    def test_both_slices_without_a_fault_have_no_problems(self):
        self.code = fat((0, device_code("arm64")[0]), (0x80000002, self.slice))
        self.assert_problems()

    def test_pointers_of_the_other_slice_are_read_as_well(self):
        (image,) = macho.slices(device_code("arm64")[0])
        found, _ = fixups.decode(image)
        functions = image.defined["_kFunctions"]
        self.assertEqual(image.defined["__Z5twicei"], found[functions].target)
        self.assertEqual("_outside", found[functions + 8].imported.name)
        self.assertGreater(len(found), 30)
        self.assertEqual({None}, {fixup.signed for fixup in found.values()})

    def test_an_import_that_only_the_chains_name_is_looked_for(self):
        start, size = self.image.chained_fixups
        place = self.slice.index(b"_outside\0", start, start + size)
        self.code, self.archs = self.slice[:place] + b"_nowhere" + self.slice[place + 8 :], ("arm64e",)
        sentence = f"{WORDS} expects _nowhere of /usr/lib/libSystem.B.dylib, which does not export it"
        self.assertIn(("undefined_symbols", sentence), self.problems())

    def test_each_kind_of_processor_has_to_be_there(self):
        for subtype, code, missing in ((0, device_code("arm64")[0], "arm64e"), (0x80000002, self.slice, "arm64")):
            self.code = fat((subtype, code))
            self.assertIn(("load_commands", f"{INSTALL_NAME} has no code for {missing}"), self.problems())

    def test_one_kind_is_enough_when_only_that_is_asked_for(self):
        self.archs, self.code = ("arm64e",), self.slice
        self.assert_problems()


class ChainsTest(BothSlicesTest):
    """Fixups that cannot be decoded are a problem of the symbols, which nobody can then look for."""

    def said_of(self, place, layout, *values):
        """What is said of the slice with other numbers at a place of its fixups."""
        start, _ = self.image.chained_fixups
        content = bytearray(self.slice)
        struct.pack_into(layout, content, start + place, *values)
        self.code, self.archs = bytes(content), ("arm64e",)
        return [sentence.removeprefix(f"{WORDS}: ") for rule, sentence in self.problems()
                if rule == "undefined_symbols" and sentence.startswith(f"{WORDS}: ")]  # fmt: skip

    def starts(self):
        """Where the first segment with pointers tells its form and its pages."""
        start, size = self.image.chained_fixups
        blob = self.slice[start : start + size]
        (image,) = struct.unpack_from("<I", blob, 4)
        offsets = struct.unpack_from(f"<{blob[image]}I", blob, image + 4)
        return image + next(offset for offset in offsets if offset)

    def test_tables_of_an_unknown_form(self):
        self.assertEqual(["the imports have the unknown form 9"], self.said_of(20, "<I", 9))
        self.assertEqual(["the names of the imports are compressed"], self.said_of(24, "<I", 1))
        self.assertRegex(self.said_of(16, "<I", 1 << 20)[0], "^the chained fixups are damaged: ")
        self.assertEqual(["the pointers have the unknown form 5"], self.said_of(self.starts() + 6, "<H", 5))

    def test_a_page_of_several_chains(self):
        self.assertEqual(["a page has several chains"], self.said_of(self.starts() + 22, "<H", 0x8000))

    def test_a_chain_that_leads_astray(self):
        place = self.starts()
        for first in (4, 0x3FF9):  # Not aligned; beyond the end of its page.
            self.assertRegex(self.said_of(place + 22, "<H", first)[0], "^a chain leads to 0x")


class SignedPointersTest(BothSlicesTest):
    def places(self):
        """(address, how it is to be signed, the words for it) of one pointer of each kind."""
        page, meta = self.address("_OBJC_CLASS_$_SamplePage"), self.address("_OBJC_METACLASS_$_SamplePage")
        methods = self.target(self.target(page + 32) + 32)
        ((strings, _),) = self.image.section("__cfstring")
        block = next(a for a, f in self.fixups.items() if f.imported and f.imported.name == "__NSConcreteGlobalBlock")
        ((category, _),) = self.image.section("__objc_catlist")
        category = self.target(category)
        return [
            (page, "da", 0x6AE1, "the isa of class SamplePage"),
            (meta, "da", 0x6AE1, "the isa of metaclass SamplePage"),
            (page + 8, "da", 0xB5AB, "the superclass of class SamplePage"),
            (meta + 8, "da", 0xB5AB, "the superclass of metaclass SamplePage"),
            (page + 32, "da", 0x61F8, "the class_ro of class SamplePage"),
            (self.target(page + 32) + 32, "da", 0xC310, "the method list of class SamplePage"),
            (self.target(meta + 32) + 32, "da", 0xC310, "the method list of metaclass SamplePage"),
            (category + 16, "da", 0xC310, f"the method list of the category at {category:#x}"),
            (category + 24, "da", 0xC310, f"the method list of the category at {category:#x}"),
            (methods + 8 + 16, "ia", 0, "a method of class SamplePage"),
            (methods + 8 + 24 + 16, "ia", 0, "a method of class SamplePage"),
            (strings, "da", 0x6AE1, f"the isa of the constant object at {strings:#x}"),
            (block, "da", 0x6AE1, f"the isa of the constant object at {block:#x}"),
            (block + 16, "ia", 0, f"the code of the block at {block:#x}"),
        ]

    def test_one_of_each_kind_that_is_signed_otherwise(self):
        for address, key, discriminator, name in self.places():
            wanted = Signed(key, discriminator, True)
            self.assertEqual(wanted, self.fixups[address].signed, name)
            for bit, found in (
                (32, Signed(key, discriminator ^ 1, True)), (48, Signed(key, discriminator, False)),
                (50, Signed(KEYS[KEYS.index(key) ^ 2], discriminator, True)),
            ):  # fmt: skip
                with self.subTest(name=name, bit=bit):
                    content = self.changed(address, lambda word: word ^ 1 << bit)
                    problems = self.judged("signed_pointers", content)
                    self.assertEqual([f"signs {name} with {found}, not {wanted}"], problems)

    def test_one_of_each_kind_that_is_not_signed(self):
        for address, _, _, name in self.places():
            with self.subTest(name):
                problems = self.judged("signed_pointers", self.changed(address, unsigned))
                self.assertIn(f"does not sign {name}", problems)

    def test_each_entry_of_a_virtual_table(self):
        for name in ("__ZTV5Shape", "__ZTV6Square"):
            for slot in (self.address(name, 16), self.address(name, 24)):
                for bit in (48, 50):
                    problems = self.judged("signed_pointers", self.changed(slot, lambda word: word ^ 1 << bit))
                    self.assertEqual(1, len(problems), problems)
                    self.assertIn(f"signs the entry {slot:#x} of the virtual table {name} with", problems[0])
                same = self.changed(slot, lambda word: word & ~(0xFFFF << 32))
                self.assertEqual(1, len(self.judged("signed_pointers", same)))
                self.assertEqual(2, len(self.judged("signed_pointers", self.changed(slot, unsigned))))

    def test_a_plain_pointer_to_code(self):
        slot = self.address("_kFunctions")
        self.assertEqual([f"does not sign the pointer to code at {slot:#x}"],
                         self.judged("signed_pointers", self.changed(slot, unsigned)))  # fmt: skip

    def test_a_plain_pointer_to_a_stub_of_another_library_s_code(self):
        slot, ((stubs, _),) = self.address("_kFunctions"), self.image.section("__stubs")
        content = self.changed(slot, lambda word: unsigned(word) & ~0xFFFFFFFF | stubs)
        self.assertEqual([f"does not sign the pointer to code at {slot:#x}"], self.judged("signed_pointers", content))

    def test_a_constant_number_as_other_compilers_make_it(self):
        source = 'extern "C" int number __asm__("_OBJC_CLASS_$_NSConstantIntegerNumber");\n'
        source += "extern void *const kNumber[]; void *const kNumber[] = {&number, 0};\n"
        self.slice, self.link_map = device_code("arm64e", SIGNED_SOURCE + source)
        (image,) = macho.slices(self.slice)
        address = image.defined["_kNumber"]
        self.assertEqual([f"does not sign the isa of the constant object at {address:#x}"],
                         self.judged("signed_pointers"))

    def test_the_flag_of_signed_class_ro(self):
        ((info, _),) = self.image.section("__objc_imageinfo")
        content = self.changed(info, lambda word: word & ~(16 << 32))
        said = ["does not say in __objc_imageinfo that its class_ro are signed"]
        self.assertEqual(said, self.judged("signed_pointers", content))
        nowhere = self.slice.replace(b"__objc_imageinfo", b"__objc_imageinfx")
        self.assertEqual(said, self.judged("signed_pointers", nowhere))

    def test_code_that_only_says_that_it_is_for_arm64e(self):
        plain = executable()
        plain = plain[:8] + struct.pack("<I", 0x80000002) + plain[12:]
        self.assertEqual(["has no chained fixups of arm64e's form: nothing in it is signed"],
                         self.judged("signed_pointers", plain))  # fmt: skip

    def test_chains_of_the_form_that_came_before(self):
        content = bytearray(self.slice)
        for record in self.records():
            struct.pack_into("<H", content, record + 6, 1)
        self.assertEqual(["has no chained fixups of arm64e's form: nothing in it is signed"],
                         self.judged("signed_pointers", bytes(content)))  # fmt: skip

    def records(self):
        """Where the chained fixups describe each segment that has some."""
        start = self.image.chained_fixups[0]
        segments = start + struct.unpack_from("<I", self.slice, start + 4)[0]
        offsets = struct.unpack_from(f"<{self.slice[segments]}I", self.slice, segments + 4)
        return [segments + offset for offset in offsets if offset]

    def test_a_page_with_several_chains_and_names_that_are_compressed(self):
        page, names = self.records()[0] + 22, self.image.chained_fixups[0] + 24
        for place, layout, value, said in ((page, "<H", 0x8000, "a page has several chains"),
                                           (names, "<I", 1, "the names of the imports are compressed")):  # fmt: skip
            content = bytearray(self.slice)
            struct.pack_into(layout, content, place, value)
            self.assertEqual([f"cannot be judged: {said}"], self.judged("signed_pointers", bytes(content)))

    def test_chains_that_lead_astray_are_a_problem_and_no_crash(self):
        first = self.address("_OBJC_CLASS_$_SampleCell")
        for step in (3, 0x7FF):  # To a word between pointers, and beyond the page.
            content = self.changed(first, lambda word: word & ~(0x7FF << 51) | step << 51)
            self.assertNotEqual([], self.judged("signed_pointers", content))


class RequestedPointersTest(BothSlicesTest):
    def test_every_signed_pointer_that_differs_is_found(self):
        """Each in turn, as the judge of the rule itself sees it: packages of all would take minutes."""
        from checker.requests import _problems

        self.assertEqual([], list(_problems(self.image, self.link_map)))
        signed = [address for address, found in self.fixups.items() if found.signed]
        self.assertGreater(len(signed), 30)
        for address in signed:
            for bit in (32, 48, 49, 50):
                (image,) = macho.slices(self.changed(address, lambda word: word ^ 1 << bit))
                self.assertEqual(1, len(list(_problems(image, self.link_map))), (hex(address), bit))
            (image,) = macho.slices(self.changed(address, unsigned))
            self.assertEqual(1, len(list(_problems(image, self.link_map))), hex(address))

    def test_every_pointer_that_leads_elsewhere_is_found(self):
        from checker.requests import _problems

        made = [s for name in ("__got", "__la_symbol_ptr") for s in self.image.section(name)]
        for address, found in self.fixups.items():
            if found.target is not None and not any(start <= address < start + size for start, size in made):
                (image,) = macho.slices(self.changed(address, lambda word: word ^ 8))
                self.assertEqual(1, len(list(_problems(image, self.link_map))), hex(address))

    def test_a_problem_reaches_the_package_s_judgement(self):
        slot = self.address("_OBJC_CLASS_$_SampleCell", 8)
        content = self.changed(slot, lambda word: word ^ 1 << 32)
        (problem,) = self.judged("requested_pointers", content)
        words = "signs the pointer to _OBJC_CLASS_$_SamplePage with (da, 46506, address), not (da, 46507, address),"
        self.assertIn(words + " at _OBJC_CLASS_$_SampleCell+8 of ", problem)

    def test_a_pointer_that_is_not_set_up(self):
        before, skipped = self.address("_OBJC_CLASS_$_SamplePage"), self.address("_OBJC_CLASS_$_SamplePage", 8)
        following = min(address for address in self.fixups if address > skipped)
        steps = (following - before) // 8
        content = self.changed(before, lambda word: word & ~(0x7FF << 51) | steps << 51)
        (problem,) = self.judged("requested_pointers", content)
        self.assertIn("does not set up the pointer to _OBJC_CLASS_$_PSListController at", problem)

    def test_a_pointer_that_nothing_asks_for(self):
        cache, between = self.address("_OBJC_CLASS_$_SampleCell", 16), self.address("_OBJC_CLASS_$_SampleCell", 24)
        self.assertNotIn(between, self.fixups)
        self.slice = self.changed(cache, lambda word: word & ~(0x7FF << 51) | 1 << 51)
        content = self.changed(between, lambda word: self.address("_OBJC_CLASS_$_SamplePage") | 1 << 51)
        self.assertEqual([f"sets up a pointer at {between:#x} in __objc_data that nothing asks for"],
                         self.judged("requested_pointers", content))  # fmt: skip

    def test_another_order_of_what_runs_first(self):
        ((start, _),) = self.image.section("__init_offsets")
        content = self.changed(start, lambda word: word + 4)
        self.assertEqual(["does not run the functions first that are to initialise it"],
                         self.judged("requested_pointers", content))  # fmt: skip

    def test_a_label_of_one_object_is_not_that_of_another(self):
        """Strings that the linker merges are not in its map, and each object numbers its own from the same
        beginning.
        """
        page = ("__attribute__((objc_root_class)) @interface NSObject { Class isa; } @end\n"
                "@interface NSString : NSObject @end\n")
        page += "@interface %s : NSObject @end\n@implementation %s\n- (id)text { return @\"%s\"; }\n@end\n"
        self.slice, self.link_map = device_code("arm64e", page % ("One", "One", "it\u2019s"),
                                                        page % ("Two", "Two", "plain"))
        self.assertIn("] l_.str\n", self.link_map.read_text())
        self.assertEqual([], self.judged("requested_pointers"))

    def test_assembly_that_is_not_there_is_a_problem(self):
        self.link_map = self.folder / "absent.map"
        (problem,) = self.judged("requested_pointers")
        self.assertIn("cannot be held against its assembly", problem)


class AssemblyTest(unittest.TestCase):
    """What is read out of a compiler's assembly."""

    def pointers(self, text, label):
        return {offset: (pointer.symbol, pointer.addend, pointer.signed)
                for offset, pointer in assembly.records(text)[label].pointers.items()}  # fmt: skip

    def test_the_functions_that_run_first_are_one_record_whatever_lies_between(self):
        text = "\t.section\t__DATA,__mod_init_func,mod_init_funcs\n"
        text += "\t.p2align\t3, 0x0\n\t.quad\t_first\n\t.p2align\t3, 0x0\n\t.quad\t_second@AUTH(ia,0)\n"
        self.assertEqual({0: ("_first", 0, None), 8: ("_second", 0, Signed("ia", 0, False))},
                         self.pointers(text, assembly.INITIALISERS))  # fmt: skip

    def test_what_is_aligned_anew_belongs_to_the_next_label(self):
        text = "\t.section\t__DATA,__data\n_one:\n\t.quad\t_target\n\t.p2align\t3, 0x0\n"
        self.assertEqual({0: ("_target", 0, None)}, self.pointers(text, "_one"))
        with self.assertRaisesRegex(assembly.AssemblyError, "a pointer without a label: _lost"):
            assembly.records(text + "\t.quad\t_lost\n")
        with self.assertRaisesRegex(assembly.AssemblyError, "a pointer without a label: _lost"):
            assembly.records(text + "\t.section\t__DATA,__const\n\t.quad\t_lost\n")

    def test_offsets_count_everything_that_takes_room(self):
        text = "\t.section\t__DATA,__data\n_one:\n\t.byte\t1\n\t.short\t1\n\t.space\t1\n\t.long\t0\n"
        text += "\t.zero\t0x8\n\t.quad\t-5\n\t.quad\t0x10\n\t.quad\t_target-16 ; a remark\n"
        self.assertEqual({32: ("_target", -16, None)}, self.pointers(text, "_one"))

    def test_names_in_quotation_marks(self):
        text = '\t.section\t__DATA,__const\n"-[A b]":\n\t.quad\t("+[A \\303\\266]"+8)@AUTH(da,27361,addr)\n'
        self.assertEqual({0: ("+[A \u00f6]", 8, Signed("da", 27361, True))}, self.pointers(text, "-[A b]"))

    def test_a_pointer_of_an_unknown_form_is_refused(self):
        for form in ("_a-_b", "_a@GOT", "_a@AUTH(ia)", "_a@AUTH(ia,1,adr)"):
            with self.assertRaisesRegex(assembly.AssemblyError, "a pointer of an unknown form: "):
                assembly.records(f"\t.section\t__DATA,__data\n_one:\n\t.quad\t{form}\n")

    def test_a_map_names_objects_and_places(self):
        objects = "# Object files:\n[  0] linker synthesized\n[ 12] /a b/one.o\n"
        places = "# Symbols:\n# Address\tSize    \tFile  Name\n0x00004164\t0x0000001E\t[ 12] -[A b:]\n"
        found = assembly.read_map(objects + places)
        self.assertEqual({0: "linker synthesized", 12: "/a b/one.o"}, found.objects)
        self.assertEqual({(12, "-[A b:]"): 0x4164}, found.places)
        self.assertEqual({(12, "-[A b:]"): 0x1E}, found.sizes)
        for text in ("", objects, places):
            with self.assertRaisesRegex(assembly.AssemblyError, "no map of the linker"):
                assembly.read_map(text)

    def test_text_is_read_byte_for_byte(self):
        text = '\t.section\t__TEXT,__cstring,cstring_literals\nl_.str:\n\t.asciz\t"a\\"b\\n\\\\\\t\\303\\0014"\n'
        text += 'l_.two:\n\t.ascii\t"x;y"\n\t.space\t2\n'
        records = assembly.records(text)
        self.assertEqual(b'a"b\n\\\t\xc3\x014\0', records["l_.str"].text)
        self.assertEqual(b"x;y\0\0", records["l_.two"].text)


class SameSlicesTest(BothSlicesTest):
    def other(self, source):
        self.code = fat((0, device_code("arm64", source)[0]), (0x80000002, self.slice))
        return [sentence for name, sentence in self.problems() if name == "same_slices"]

    def test_a_method_that_one_slice_lacks(self):
        lacking = SIGNED_SOURCE.replace("- (void)more {}", "- (void)less {}").replace("+ (void)shared {}", "")
        self.assertEqual([
            f"{INSTALL_NAME} (arm64) lacks the method more of (More, which is in the slice for arm64e",
            f"{INSTALL_NAME} (arm64) lacks the method shared of +SamplePage, which is in the slice for arm64e",
            f"{INSTALL_NAME} (arm64e) lacks the method less of (More, which is in the slice for arm64",
        ], sorted(self.other(lacking)))  # fmt: skip

    def test_a_class_and_an_export_that_one_slice_lacks(self):
        more = "@interface Extra : NSObject @end\n@implementation Extra @end\nint extra() { return 1; }\n"
        more = SIGNED_SOURCE + more
        problems = self.other(more)
        for what in ("the class Extra", "the export _OBJC_CLASS_$_Extra", "the export __Z5extrav"):
            self.assertIn(f"{INSTALL_NAME} (arm64e) lacks {what}, which is in the slice for arm64", problems)
