"""Rules about the executable: load commands, signature, undefined symbols."""

import struct
import unittest
from types import SimpleNamespace
from unittest import mock

from fixture import EXTRA, INSTALL_NAME, LINK, PREFERENCES, SOURCE, PackageTest, executable, fat, write

from checker import exports, fixups, macho

WORDS = f"{INSTALL_NAME} (arm64)"


def linked(*link):
    """The link options with some replaced: pairs of what is there and what comes instead."""
    options = list(LINK)
    for old, new in zip(link[::2], link[1::2]):
        options[options.index(old)] = new
    return tuple(options)


def as_subtype(image, subtype):
    return image[:8] + struct.pack("<I", subtype) + image[12:]


class LoadCommandsTest(PackageTest):
    def test_a_file_that_is_no_code_is_found(self):
        self.code = b"#!/bin/sh\n" * 10
        self.assertIn(("load_commands", f"{INSTALL_NAME}: no 64-bit Mach-O file for arm64"), self.problems())

    def test_a_loadable_bundle_is_no_library(self):
        self.code = executable(form="-bundle", link=tuple(LINK[2:]))
        self.assert_problems(
            f"load_commands: {WORDS} is of the file type 8, not a dynamic library",
            f"load_commands: {WORDS} says that it is None",
        )

    def test_the_install_name_is_where_the_package_puts_it(self):
        self.code = executable(link=linked(INSTALL_NAME, "/Library/PreferenceBundles/Sample.bundle/Sample"))
        self.assert_problems(
            f"load_commands: {WORDS} says that it is /Library/PreferenceBundles/Sample.bundle/Sample"
        )

    def test_the_platform_is_that_of_devices(self):
        position = self.code.index(struct.pack("<2I", 0x32, 32)) + 8  # In the command that names the platform.
        self.code = self.code[:position] + struct.pack("<I", 7) + self.code[position + 4 :]
        self.assert_problems(
            f"load_commands: {WORDS} is not built for iOS devices",
            f"load_commands: {WORDS} was changed after it was signed (page 0)",
        )

    def test_the_minimum_version_is_the_one_of_info(self):
        self.code = executable(target="arm64-apple-ios16.0")
        self.assert_problems(f"load_commands: {WORDS} needs iOS 16.0, but Info.plist says 15.0")

    def test_a_library_that_nobody_knows_is_found(self):
        write(self.folder / "libodd.tbd", EXTRA.replace("libextra", "libodd"))
        self.code = executable(link=(*LINK, f"-L{self.folder}", "-Wl,-needed-lodd"))
        self.assert_problems(
            f"load_commands: {WORDS} loads /var/jb/usr/lib/libodd.dylib, which neither the SDK nor the link stubs know"
        )

    def test_a_library_that_is_to_be_loaded_and_is_not_is_found(self):
        self.code = executable(link=linked("-Wl,-needed-lextra", "-Wl,-dead_strip"))
        self.assert_problems(f"load_commands: {WORDS} does not load /var/jb/usr/lib/libextra.dylib")

    def test_libraries_are_searched_below_the_root_of_the_jailbreak_only(self):
        allowed = [f"{root}/{folder}" for root in ("/var/jb", "@loader_path/.jbroot")
                   for folder in ("usr/lib", "Library/Frameworks")]  # fmt: skip
        options = [f"-Wl,-rpath,{path}" for path in (*allowed, "/usr/local/lib")]
        self.code = executable(link=(*LINK, *options))
        self.assert_problems(f"load_commands: {WORDS} searches /usr/local/lib for libraries")

    def test_code_for_arm64_is_needed(self):
        self.code = as_subtype(executable(), 0x80000002)
        found = self.problems()
        self.assertIn(("load_commands", f"{INSTALL_NAME} has no code for arm64"), found)

    def test_code_of_the_old_arm64e_convention_is_found(self):
        old = fat((0, executable()), (2, as_subtype(executable(), 2)))
        new = fat((0, executable()), (0x80000002, as_subtype(executable(), 0x80000002)))
        sentence = "has the old arm64e calling convention, which iOS 14 and later do not load"
        for code, expected in ((old, True), (new, False)):
            self.code = code
            problem = ("load_commands", f"{INSTALL_NAME} (arm64e) {sentence}")
            self.assertEqual(expected, problem in self.problems())

    def test_every_slice_is_judged(self):
        other = executable(target="arm64-apple-ios16.0")
        self.code = fat((0, executable()), (0, other))
        self.assert_problems(
            f"load_commands: {INSTALL_NAME} has several slices for one kind of processor",
            f"load_commands: {WORDS} needs iOS 16.0, but Info.plist says 15.0",
        )


class SignatureTest(PackageTest):
    def test_code_without_a_signature_is_found(self):
        self.code = executable(signed=False)
        self.assert_problems(f"load_commands: {WORDS} has no code signature")

    def test_code_that_was_changed_after_signing_is_found(self):
        position = self.code.index(b"SampleCell")
        self.code = self.code[:position] + b"samplecell" + self.code[position + 10 :]
        self.root_list = {}
        self.assert_problems(f"load_commands: {WORDS} was changed after it was signed (page {position // 4096})")

    def test_a_change_in_the_last_page_is_found(self):
        (image,) = macho.slices(self.code)
        last = image.signature[0] - 1
        self.code = self.code[:last] + bytes([self.code[last] ^ 1]) + self.code[last + 1 :]
        self.assertIn(("load_commands", f"{WORDS} was changed after it was signed (page {last // 4096})"),
                      self.problems())

    def test_lengths_that_do_not_fit_are_found(self):
        whole, signature = self.code, self.code.index(b"\xfa\xde\x0c\xc0")
        directory = self.code.index(b"\xfa\xde\x0c\x02")
        for place, change, said in (
            (signature + 4, 0x1000, "has a code signature that is longer than its place"),
            (signature + 4, -32, "has a code directory that ends early"),
            (directory + 4, 32, "has a code directory that ends early"),
            (directory + 4, -32, "has a code directory that ends early"),
        ):
            (length,) = struct.unpack_from(">I", whole, place)
            self.code = whole[:place] + struct.pack(">I", length + change) + whole[place + 4 :]
            self.assert_problems(f"load_commands: {WORDS} {said}")

    def test_a_signature_of_an_unknown_form_is_found(self):
        position = self.code.index(b"\xfa\xde\x0c\xc0")
        self.code = self.code[:position] + b"\0\0\0\0" + self.code[position + 4 :]
        self.assert_problems(f"load_commands: {WORDS} has a code signature of an unknown form")

    def test_a_signature_without_the_hashes_of_the_code_is_found(self):
        position = self.code.index(b"\xfa\xde\x0c\xc0") + 12  # The kind of the first part.
        self.code = self.code[:position] + struct.pack(">I", 5) + self.code[position + 4 :]
        self.assert_problems(f"load_commands: {WORDS} has a code signature without a code directory")

    def test_a_signature_with_unknown_hashes_is_found(self):
        position = self.code.index(b"\xfa\xde\x0c\x02") + 37  # The kind of hash.
        self.code = self.code[:position] + b"\x09" + self.code[position + 1 :]
        self.assert_problems(f"load_commands: {WORDS} has a code directory of an unknown form")

    def test_a_signature_that_points_outside_itself_is_found(self):
        position = self.code.index(b"\xfa\xde\x0c\xc0") + 16  # Where the first part lies.
        self.code = self.code[:position] + b"\xff\xff\xff\xff" + self.code[position + 4 :]
        self.assert_problems(f"load_commands: {WORDS} has a damaged code signature")

    def test_a_signature_of_a_part_of_the_file_is_found(self):
        whole, position = self.code, self.code.index(b"\xfa\xde\x0c\x02") + 28
        count, limit = struct.unpack_from(">2I", whole, position)  # The pages, and the bytes of code that it covers.
        for changed in ((count, 4096), (count, limit - 1), (count - 1, limit)):
            self.code = whole[:position] + struct.pack(">2I", *changed) + whole[position + 8 :]
            self.assert_problems(f"load_commands: {WORDS} has a code signature that does not cover the whole file")


class UndefinedSymbolsTest(PackageTest):
    def test_a_class_that_the_framework_does_not_export_is_found(self):
        sdk = self.folder / "sdk"
        for path in self.sdk.rglob("*.tbd"):
            write(sdk / path.relative_to(self.sdk), path.read_text().replace("PSListController,", "PSOther,"))
        self.sdk = sdk
        preferences = "/System/Library/PrivateFrameworks/Preferences.framework/Preferences"
        self.assert_problems(*(
            f"undefined_symbols: {WORDS} expects _OBJC_{kind}_$_PSListController of {preferences}, "
            "which does not export it"
            for kind in ("CLASS", "METACLASS")
        ))  # fmt: skip

    def test_a_symbol_that_is_left_to_chance_is_found(self):
        self.code = executable(SOURCE + "extern int chance(void); int call(void) { return chance(); }",
                               link=(*LINK, "-undefined", "dynamic_lookup"))  # fmt: skip
        self.assert_problems(f"undefined_symbols: {WORDS} expects _chance of no library in particular")

    def test_a_symbol_may_be_missing_when_the_code_can_do_without(self):
        source = SOURCE + "__attribute__((weak_import)) extern int optional(void); int call(void) {"
        self.code = executable(source + " return optional ? optional() : 0; }")
        sdk = self.folder / "sdk"
        for path in self.sdk.rglob("*.tbd"):
            write(sdk / path.relative_to(self.sdk), path.read_text().replace(", _optional", ""))
        self.sdk = sdk
        self.assert_problems()

    def test_a_symbol_of_any_library_is_defined_or_exported_by_one(self):
        for name, found in (("_OBJC_CLASS_$_SamplePage", []), ("__objc_empty_cache", []), ("_OBJC_CLASS_$_Nowhere", [
            f"undefined_symbols: {WORDS} expects _OBJC_CLASS_$_Nowhere of any library, and none exports it"
        ])):  # fmt: skip
            imported = fixups.Imported(name, fixups.WEAK_LOOKUP, False)
            with self.subTest(name), mock.patch.object(fixups, "decode", return_value=({}, [imported])):
                self.assert_problems(*found)

    def test_what_a_library_re_exports_counts(self):
        sdk = self.folder / "sdk"
        inner = "/System/Library/PrivateFrameworks/Inner.framework/Inner"
        for path in self.sdk.rglob("*.tbd"):
            write(sdk / path.relative_to(self.sdk), path.read_text())
        framework = "System/Library/PrivateFrameworks/Preferences.framework/Preferences.tbd"
        outer = PREFERENCES[: PREFERENCES.index("    objc-classes")] + f"    re-exports: [ {inner} ]\n...\n"
        write(sdk / framework, outer)
        write(sdk / (inner[1:] + ".tbd"), PREFERENCES.replace("Preferences.framework/Preferences", inner[34:]))
        self.sdk = sdk
        self.assert_problems()


class ExportsTest(unittest.TestCase):
    """The trie of <mach-o/loader.h>, byte for byte."""

    def names(self, *trie):
        return exports.names(SimpleNamespace(data=b"..." + bytes(trie), exports_trie=(3, len(trie))))

    def test_names_are_put_together_along_the_way(self):
        leaf = (1, 0, 0)  # One byte about the name, and no children.
        self.assertEqual({"a", "ab", "ac"}, self.names(
            0, 1, *b"a\0", 5, *(1, 0, 2, *b"b\0", 14, *b"c\0", 17), *leaf, *leaf))  # fmt: skip

    def test_numbers_of_several_bytes_are_read(self):
        filler = bytes(200)
        self.assertEqual({"far"}, self.names(0, 1, *b"far\0", 0x80 | 208 & 0x7F, 208 >> 7, *filler, 1, 0, 0))
        self.assertEqual({"", "long"}, self.names(0x82, 0x80, 0, 9, 9, 1, *b"long\0", 12, 1, 0, 0))

    def test_no_exports_are_no_names(self):
        self.assertEqual(set(), self.names())
        self.assertEqual(set(), exports.names(SimpleNamespace(data=b"", exports_trie=None)))

    def test_a_name_that_leads_back_to_where_it_began_is_damage(self):
        for trie in ((0, 1, *b"a\0", 0), (0, 1, *b"a\0", 5, 0, 1, *b"b\0", 5)):
            with self.assertRaisesRegex(macho.MachOError, "a name leads back to where it began"):
                self.names(*trie)

    def test_a_trie_that_ends_early_is_damage(self):
        for trie in ((0,), (0, 1, *b"a"), (0, 1, *b"a\0"), (0, 1, *b"a\0", 0x80), (0, 1, *b"a\0", 9)):
            with self.assertRaisesRegex(macho.MachOError, "the exports are damaged"):
                self.names(*trie)


class SlicesTest(unittest.TestCase):
    def test_a_slice_that_reaches_beyond_the_end_of_the_file_is_damage(self):
        whole = fat((0, executable()))
        size = struct.unpack_from(">I", whole, 20)[0]
        self.assertEqual(1, len(macho.slices(whole[: 0x4000 + size])))
        with self.assertRaisesRegex(macho.MachOError, "a slice reaches beyond the end of the file"):
            macho.slices(whole[: 0x4000 + size - 1])


class DamagedCodeTest(PackageTest):
    def test_classes_that_cannot_be_read_are_a_problem(self):
        (image,) = macho.slices(self.code)
        ((address, _),) = image.section("__objc_classlist")
        position = image.offset(address)
        self.code = self.code[:position] + struct.pack("<Q", 0xFFFFFF00) + self.code[position + 8 :]
        self.assertIn(("load_commands", f"{WORDS}: address 0xffffff00 lies in no section"), self.problems())

    def test_a_class_that_is_not_there_is_a_problem(self):
        (image,) = macho.slices(self.code)
        ((address, _),) = image.section("__objc_classlist")
        position = image.offset(address)
        self.code = self.code[:position] + bytes(8) + self.code[position + 8 :]
        words = f"{WORDS}: the Objective-C data is damaged: "
        self.assertTrue(any(sentence.startswith(words) for _, sentence in self.problems()))

    def test_a_file_that_ends_early_is_a_problem_and_no_crash(self):
        whole = self.code
        for size in [*range(0, 4096, 509), *range(4096, len(whole), 8191)]:
            with self.subTest(size):
                self.code = whole[:size]
                self.assertNotEqual([], self.problems())

    def test_numbers_out_of_range_are_a_problem_and_no_crash(self):
        whole = self.code
        for position in range(16, 2048, 52):
            with self.subTest(position):
                self.code = whole[:position] + b"\xff\xff\xff\xff" + whole[position + 4 :]
                self.assertNotEqual([], self.problems())
