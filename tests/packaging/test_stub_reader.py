"""The reader of text-based library stubs."""

import tempfile
import unittest
from pathlib import Path

from fixture import write

from checker.textstub import Libraries, StubError, documents

VERSION_1 = """---
archs:           [ armv7, arm64 ]
platform:        ios
install-name:    /usr/lib/libsample.dylib
exports:
  - archs:           [ armv7, arm64 ]
    symbols:         [ _one, '$ld$hide$os4.3$_two',
                       _three ]
    objc-classes:    [ _Sample ]
    objc-ivars:      [ _Sample._value ]
  - archs:           [ armv7 ]
    symbols:         [ _old ]
...
"""
VERSION_3 = """--- !tapi-tbd-v3
archs:           [ arm64, arm64e ]
uuids:           [ 'arm64: 00000000-0000-0000-0000-000000000000' ]
platform:        ios
install-name:    /usr/lib/libsample.dylib
exports:
  - archs:           [ arm64, arm64e ]
    re-exports:      [ /usr/lib/libinner.dylib ]
    weak-def-symbols: [ _weak ]
    objc-classes:    [ Sample ]
    objc-eh-types:   [ Sample ]
  - archs:           [ arm64e ]
    symbols:         [ _new ]
undefineds:
  - archs:           [ arm64, arm64e ]
    symbols:         [ _absent ]
...
"""
VERSION_4 = """--- !tapi-tbd
tbd-version:     4
targets:         [ arm64-ios, arm64-ios-simulator ]
install-name:    '/usr/lib/libsample.dylib'
allowable-clients:
  - targets:         [ arm64-ios ]
    clients:         [ Someone ]
reexported-libraries:
  - targets:         [ arm64-ios ]
    libraries:       [ '/usr/lib/libinner.dylib' ]
exports:
  - targets:         [ arm64-ios ]
    symbols:         [ _one ]
  - targets:         [ arm64-ios-simulator ]
    symbols:         [ _simulated ]
reexports:
  - targets:         [ arm64-ios ]
    symbols:         [ _passed ]
--- !tapi-tbd
tbd-version:     4
targets:         [ arm64-ios ]
install-name:    '/usr/lib/libinner.dylib'
exports:
  - targets:         [ arm64-ios ]
    symbols:         [ _inner ]
...
"""


class DocumentsTest(unittest.TestCase):
    def test_version_1_puts_an_underscore_before_class_names(self):
        (document,) = documents(VERSION_1, "arm64")
        self.assertEqual("/usr/lib/libsample.dylib", document.install_name)
        classes = {"_OBJC_CLASS_$_Sample", "_OBJC_METACLASS_$_Sample", "_OBJC_IVAR_$_Sample._value"}
        self.assertEqual({"_one", "_three", "$ld$hide$os4.3$_two"} | classes, document.symbols)

    def test_version_3_names_architectures(self):
        (document,) = documents(VERSION_3, "arm64")
        classes = {"_OBJC_CLASS_$_Sample", "_OBJC_METACLASS_$_Sample", "_OBJC_EHTYPE_$_Sample"}
        self.assertEqual({"_weak"} | classes, document.symbols)
        self.assertEqual({"/usr/lib/libinner.dylib"}, document.reexports)
        self.assertIn("_new", documents(VERSION_3, "arm64e")[0].symbols)

    def test_version_4_names_targets_and_may_hold_several_libraries(self):
        outer, inner = documents(VERSION_4, "arm64")
        self.assertEqual({"_one", "_passed"}, outer.symbols)
        self.assertEqual({"/usr/lib/libinner.dylib"}, outer.reexports)
        self.assertEqual(("/usr/lib/libinner.dylib", {"_inner"}), (inner.install_name, inner.symbols))

    def test_text_without_a_document_describes_no_library(self):
        self.assertEqual([], documents("", "arm64"))
        self.assertEqual([], documents("# Nothing.\n", "arm64"))

    def test_version_2_puts_an_underscore_before_class_names(self):
        (document,) = documents(VERSION_1.replace("---", "--- !tapi-tbd-v2", 1), "arm64")
        self.assertIn("_OBJC_CLASS_$_Sample", document.symbols)

    def test_an_underscore_of_the_class_itself_stays(self):
        self.assertIn("_OBJC_CLASS_$__Own", documents(VERSION_1.replace("_Sample ]", "__Own ]"), "arm64")[0].symbols)
        self.assertIn("_OBJC_CLASS_$__Own", documents(VERSION_3.replace("[ Sample ]", "[ _Own ]"), "arm64")[0].symbols)

    def test_names_that_look_like_other_values_are_texts(self):
        names = ["yes", "NO", "null", "~", "1.0", "12", "0x10", "2001-01-01", "=", "<<"]
        (document,) = documents(VERSION_4.split("--- !tapi-tbd\n")[1].replace("_one", ", ".join(names)).join(
            ("--- !tapi-tbd\n", "")), "arm64")  # fmt: skip
        self.assertEqual({*names, "_passed"}, document.symbols)

    def test_an_empty_list_and_one_without_entries_are_alike(self):
        for empty in ("[ ]", ""):
            (document,) = documents(f"---\ninstall-name: /a\nexports:\n  - archs: [ arm64 ]\n    symbols: {empty}\n",
                                            "arm64")
            self.assertEqual(set(), document.symbols)
        self.assertEqual(set(), documents("---\ninstall-name: /a\nexports:\n", "arm64")[0].symbols)

    def test_what_is_no_stub_is_told(self):
        for text, told in (
            ("install-name: [ a", "line 1"),
            ("---\ninstall-name: /a\n\texports: []\n", "line 3"),
            ("a text\n", "there is no install-name"),
            ("exports: []\n", "there is no install-name"),
            ("install-name: [ /a ]\n", "there is no install-name"),
            ("install-name: /a\nexports: 1\n", "exports is not a list"),
            ("install-name: /a\nexports: [ 1 ]\n", "something else stands where targets belongs"),
            ("install-name: /a\nexports: [ { archs: arm64 } ]\n", "archs is not a list"),
            ("install-name: /a\nexports: [ { archs: [ arm64 ], symbols: _a } ]\n", "symbols is not a list"),
            ("install-name: *absent\n", "undefined alias"),
        ):
            with self.subTest(text), self.assertRaisesRegex(StubError, told):
                documents(text, "arm64")


class LibrariesTest(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.sdk, self.stubs = Path(temporary.name) / "sdk", Path(temporary.name) / "stubs"
        write(self.sdk / "usr/lib/libsample.tbd", VERSION_4)
        self.libraries = Libraries(self.sdk, self.stubs, "arm64")

    def test_a_library_exports_what_it_re_exports(self):
        self.assertEqual({"_one", "_passed", "_inner"}, self.libraries.exports("/usr/lib/libsample.dylib"))

    def test_the_version_letter_of_a_library_may_be_left_out(self):
        write(self.sdk / "usr/lib/libother.tbd", VERSION_3.replace("libsample", "libother.B"))
        self.assertIn("_weak", self.libraries.exports("/usr/lib/libother.B.dylib"))

    def test_libraries_that_re_export_each_other_end(self):
        inner = VERSION_3.replace("libinner", "libouter").replace("libsample", "libinner")
        write(self.sdk / "usr/lib/libinner.tbd", inner)
        write(self.sdk / "usr/lib/libouter.tbd", VERSION_3.replace("libsample", "libouter"))
        self.assertIn("_weak", self.libraries.exports("/usr/lib/libouter.dylib"))

    def test_a_stub_that_cannot_be_read_is_named(self):
        for content in (b"install-name: [", b"\xff"):
            (self.sdk / "usr/lib/libbroken.tbd").write_bytes(content)
            with self.assertRaisesRegex(StubError, "libbroken.tbd cannot be read: "):
                self.libraries.find("/usr/lib/libbroken.dylib")

    def test_a_library_without_a_stub_is_unknown(self):
        self.assertIsNone(self.libraries.find("/usr/lib/libabsent.dylib"))
        self.assertEqual(set(), self.libraries.exports("/usr/lib/libabsent.dylib"))
