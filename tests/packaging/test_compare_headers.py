"""packaging/compare-headers on small headers: what it finds, and what it makes of the list of known differences."""

import json
import os
import subprocess
import tempfile
import unittest
from contextlib import redirect_stdout
from importlib.machinery import SourceFileLoader
from importlib.util import module_from_spec, spec_from_loader
from io import StringIO
from pathlib import Path
from unittest import mock

from fixture import TREE, write

# As an SDK has it, and as the simulator's headers say the same in their own words.
PLATFORM = """
typedef unsigned long long uint64_t;
#define since(version) __attribute__((availability(ios, introduced=version)))
#if defined(GNU_RUNTIME)
#include <objc/objc.h>
#else
typedef bool BOOL;
#endif
__attribute__((objc_root_class)) @interface Root
- (void)inherited;
@end
@protocol Dressed
@property (readonly) int size;
@optional
- (void)undress;
@end
@interface Base : Root <Dressed>
@property (nonatomic, copy) Root *partner;
@property (class, readonly) int count;
@property (getter=isOpen) BOOL open;
@end
@interface Thing : Base
- (BOOL)holds:(Root *)other at:(double)place;
+ (long)number;
@end
@interface Thing (More)
- (void)more;
@end
typedef enum __attribute__((enum_extensibility(open))) : long { ThingSmall, ThingLarge = 7 } ThingSize;
typedef struct Spot { double x, y; } Spot;
#ifdef __cplusplus
extern "C" {
#endif
Spot SpotMake(double x, double y) noexcept;
uint64_t SpotHash(Spot spot);
extern Root *const ThingName;
#ifdef __cplusplus
}
#endif
"""
KNOWN = """
[[difference]]
reason = "It cannot be had here."
lines = ["%s"]
"""


class CompareHeadersTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.known = ""

    def sdk(self, header, version="14.5"):
        folder = self.folder / f"iPhoneOS{version}.sdk"
        write(folder / "SDKSettings.json", json.dumps({"CanonicalName": f"iphoneos{version}"}))
        write(folder / "System/Library/Frameworks/Sample.framework/Headers/Sample.h", header)
        return folder

    def run_on(self, ours, *sdks):
        write(self.folder / "ours/Sample/Sample.h", ours)
        write(self.folder / "known.toml", self.known)
        command = [TREE / "packaging/compare-headers", "--headers", self.folder / "ours",
                   "--umbrella", "Sample/Sample.h", "--known", self.folder / "known.toml"]  # fmt: skip
        for sdk in sdks:
            command += ["--sdk", sdk]
        return subprocess.run([str(part) for part in command], capture_output=True, text=True)

    def problems(self, old, new, version="14.5"):
        """What it says of the platform's header with `old` exchanged for `new`, without the place."""
        self.assertEqual(1, PLATFORM.count(old), old)
        result = self.run_on(PLATFORM.replace(old, new), self.sdk(PLATFORM, version))
        self.assertEqual(1 if result.stderr else 0, result.returncode, result.stderr)
        return [line.rsplit(" (", 1)[0] for line in result.stderr.splitlines()]

    def test_the_same_headers_do_not_differ(self):
        result = self.run_on(PLATFORM, self.sdk(PLATFORM))
        self.assertEqual((0, ""), (result.returncode, result.stderr))
        self.assertEqual(
            "packaging/compare-headers: 3 classes, 1 protocols, 11 methods, 4 properties, 2 enumerators, 2 functions, "
            "1 constants against iPhoneOS 14.5; 0 known differences, 0 problems\n",
            result.stdout,
        )

    def test_a_part_of_the_platform_does_not_differ(self):
        self.assertEqual([], self.problems("- (void)more;", ""))
        self.assertEqual([], self.problems("+ (long)number;", ""))

    def test_a_method_that_the_platform_inherits_is_there(self):
        self.assertEqual([], self.problems("- (void)more;", "- (void)more; - (void)inherited; - (BOOL)isOpen;"))

    def test_a_method_that_is_not_there(self):
        self.assertEqual(["method -[Thing less]: not in the SDK"],
                         self.problems("- (void)more;", "- (void)more; - (void)less;"))  # fmt: skip
        self.assertEqual(["method +[Thing more]: not in the SDK"], self.problems("- (void)more;", "+ (void)more;"))

    def test_what_the_platform_calls_unavailable_is_not_there(self):
        ours = PLATFORM.replace("- (void)more;", "- (void)more;\n- (void)less;")
        result = self.run_on(ours, self.sdk(ours.replace("less;", "less __attribute__((unavailable));")))
        self.assertIn("method -[Thing less]: not in the SDK", result.stderr)
        sdk = PLATFORM.replace("extern Root", "__attribute__((unavailable)) extern Root")
        result = self.run_on(PLATFORM, self.sdk(sdk))
        self.assertIn("constant ThingName: not in the SDK", result.stderr)

    def test_another_encoding(self):
        self.assertEqual(["method -[Thing holds:at:]: B28@0:8@16f24 here, B32@0:8@16d24 in the SDK"],
                         self.problems("at:(double)place", "at:(float)place"))  # fmt: skip
        self.assertEqual(["method +[Thing number]: Q16@0:8 here, q16@0:8 in the SDK"],
                         self.problems("(long)number", "(unsigned long)number"))  # fmt: skip

    def test_an_unsigned_char_is_no_truth_value(self):
        self.assertEqual(["method -[Thing holds:at:]: C32@0:8@16d24 here, B32@0:8@16d24 in the SDK"],
                         self.problems("- (BOOL)holds", "- (unsigned char)holds"))  # fmt: skip

    def test_another_superclass(self):
        self.assertEqual(["class Thing: superclass Root here, Base in the SDK"],
                         self.problems("@interface Thing : Base", "@interface Thing : Root"))  # fmt: skip

    def test_a_class_and_a_protocol_that_are_not_there(self):
        self.assertEqual(
            ["class Other: not in the SDK", "protocol Strange: not in the SDK"],
            sorted(self.problems("- (void)more;\n@end", "- (void)more;\n@end @interface Other : Root @end "
                                 "@protocol Strange @end")))  # fmt: skip

    def test_a_protocol_that_the_platform_does_not_adopt(self):
        root = "__attribute__((objc_root_class)) @interface Root"
        self.assertEqual(["class Root: adopts Dressed here, not in the SDK"],
                         self.problems(root, f"@protocol Dressed;\n{root} <Dressed>"))  # fmt: skip
        self.assertEqual([], self.problems("@interface Thing : Base", "@interface Thing : Base <Dressed>"))

    def test_a_method_of_a_protocol_that_is_not_optional(self):
        self.assertEqual(["method -[Dressed undress]: v16@0:8 here, v16@0:8 optional in the SDK"],
                         self.problems("@optional\n", "@required\n"))  # fmt: skip

    def test_other_attributes_of_a_property(self):
        for old, new, ours, theirs in [
            ("(nonatomic, copy) Root", "(nonatomic, retain) Root", "&,N", "C,N"),
            ("(nonatomic, copy) Root", "(copy) Root", "C", "C,N"),
            ("(getter=isOpen) BOOL", "(getter=isOpen, readonly) BOOL", "R,GisOpen", "GisOpen"),
        ]:
            with self.subTest(new):
                name = "partner" if "Root" in old else "open"
                self.assertEqual([f"property Base.{name}: attributes {ours} here, attributes {theirs} in the SDK"],
                                 self.problems(old, new))  # fmt: skip

    def test_another_getter(self):
        self.assertEqual(["property Base.open: attributes none here, attributes GisOpen in the SDK",
                          "method -[Base open]: not in the SDK"],
                         self.problems("@property (getter=isOpen) BOOL open;", "@property BOOL open;"))  # fmt: skip

    def test_another_type_of_a_property(self):
        self.assertEqual(['property Base.partner: T@"Base",C,N here, T@"Root",C,N in the SDK'],
                         self.problems("copy) Root *partner", "copy) Base *partner"))  # fmt: skip

    def test_a_property_of_the_class_is_not_one_of_its_objects(self):
        found = self.problems("(class, readonly) int count", "(readonly) int count")
        self.assertIn("property Base.count: attributes R here, attributes R of the class in the SDK", found)

    def test_another_value_and_type_of_an_enumerator(self):
        self.assertEqual(["enumerator ThingLarge: 8 here, 7 in the SDK"],
                         self.problems("ThingLarge = 7", "ThingLarge = 8"))  # fmt: skip
        self.assertEqual(["enumerator ThingMiddle: not in the SDK"],
                         self.problems("ThingLarge = 7", "ThingLarge = 7, ThingMiddle = 3"))  # fmt: skip
        self.assertEqual(["enumeration ThingSize: int here, long in the SDK"], self.problems(": long {", ": int {"))

    def test_functions_constants_and_structures(self):
        self.assertEqual(["function SpotMake: Spot (float, double) here, Spot (double, double) in the SDK"],
                         self.problems("SpotMake(double x", "SpotMake(float x"))  # fmt: skip
        self.assertEqual(["constant ThingName: Base *const here, Root *const in the SDK"],
                         self.problems("extern Root *const", "extern Base *const"))  # fmt: skip
        self.assertEqual(["structure Spot: double y; double x here, double x; double y in the SDK"],
                         self.problems("{ double x, y; }", "{ double y, x; }"))  # fmt: skip

    def test_the_two_names_of_an_integer_of_64_bits(self):
        self.assertEqual([], self.problems("typedef unsigned long long uint64_t", "typedef unsigned long uint64_t"))

    def test_another_type_under_the_same_name(self):
        found = self.problems("typedef unsigned long long uint64_t", "typedef unsigned int uint64_t")
        self.assertIn("type uint64_t: unsigned int here, unsigned long in the SDK", found)

    def test_a_problem_says_where(self):
        result = self.run_on(PLATFORM.replace("- (void)more;", "- (void)less;"), self.sdk(PLATFORM))
        line = PLATFORM[: PLATFORM.index("- (void)more;")].count("\n") + 1
        self.assertTrue(result.stderr.endswith(f"/ours/Sample/Sample.h:{line})\n"), result.stderr)

    def test_a_known_difference_is_no_problem(self):
        self.known = KNOWN % "method -[Thing less]: not in the SDK"
        self.assertEqual([], self.problems("- (void)more;", "- (void)less;"))

    def test_another_difference_of_the_same_name_is_a_problem(self):
        self.known = KNOWN % "enumerator ThingLarge: 8 here, 7 in the SDK"
        self.assertEqual(["enumerator ThingLarge: 9 here, 7 in the SDK",
                          "listed as a known difference and is none: enumerator ThingLarge: 8 here, 7 in the SDK"],
                         self.problems("ThingLarge = 7", "ThingLarge = 9"))  # fmt: skip

    def test_a_known_difference_that_is_none_is_a_problem(self):
        self.known = KNOWN % "method -[Thing less]: not in the SDK"
        self.assertEqual(["listed as a known difference and is none: method -[Thing less]: not in the SDK"],
                         self.problems("- (void)more;", ""))  # fmt: skip

    def test_a_known_difference_needs_a_reason(self):
        self.known = '[[difference]]\nlines = ["method -[Thing less]: not in the SDK"]\n'
        result = self.run_on(PLATFORM, self.sdk(PLATFORM))
        self.assertEqual((2, "packaging/compare-headers: a difference needs a reason and lines\n"),
                         (result.returncode, result.stderr))  # fmt: skip

    def test_a_list_that_cannot_be_read_is_refused(self):
        for self.known in ("[[", '[[later]]\nversion = "15.0"\n', '[[later]]\nnames = ["class Thing"]\n'):
            result = self.run_on(PLATFORM, self.sdk(PLATFORM))
            self.assertEqual((2, "", 1), (result.returncode, result.stdout, result.stderr.count("\n")), result.stderr)

    def test_what_came_later_is_missing_in_older_sdks_only(self):
        self.known = '[[later]]\nversion = "15.0"\nnames = ["method -[Thing less]"]\n'
        ours = PLATFORM.replace("- (void)more;", "- (void)more;\n- (void)less since(15.0);")
        old, new = self.sdk(PLATFORM), self.sdk(ours, "15.5")
        for sdks in ([old], [new], [old, new]):
            result = self.run_on(ours, *sdks)
            self.assertEqual((0, ""), (result.returncode, result.stderr))
        result = self.run_on(ours, self.sdk(PLATFORM, "16.4"))
        self.assertIn("method -[Thing less]: not in the SDK", result.stderr)
        result = self.run_on(ours, self.sdk(ours, "14.4"))
        self.assertEqual("listed as of SDK 15.0 and is in 14.4: method -[Thing less]\n", result.stderr)

    def test_what_is_newer_than_the_oldest_ios_is_a_problem(self):
        ours = PLATFORM.replace("- (void)more;", "- (void)more;\n- (void)less since(15.1);")
        result = self.run_on(ours, self.sdk(ours, "16.4"))
        self.assertIn("method -[Thing less]: since iOS 15.1", result.stderr)

    def test_the_newest_sdk_counts(self):
        old, new = self.sdk(PLATFORM, "9.3"), self.sdk(PLATFORM, "14.5")
        self.assertIn("against iPhoneOS 14.5;", self.run_on(PLATFORM, new, old).stdout)

    def test_what_cannot_be_read_is_told_in_one_sentence(self):
        for ours, sdk, said in [
            (PLATFORM, self.folder, "is no iPhoneOS SDK"),
            ("@interface", self.sdk(PLATFORM), "error: "),
            (PLATFORM, self.sdk("@interface"), "error: "),
        ]:
            result = self.run_on(ours, sdk)
            self.assertEqual((2, "", 1), (result.returncode, result.stdout, result.stderr.count("\n")), result.stderr)
            self.assertIn(said, result.stderr)

    def test_a_runtime_with_another_truth_value_is_refused(self):
        """What is compared would not be what the platform has."""
        write(self.folder / "gcc/include/objc/objc.h", "typedef int BOOL;")
        write(self.folder / "bin/gcc", f"#!/bin/sh\necho '{self.folder}/gcc/include'\n").chmod(0o755)
        with mock.patch.dict(os.environ, PATH=f"{self.folder}/bin:{os.environ['PATH']}"):
            result = self.run_on(PLATFORM, self.sdk(PLATFORM))
        header = f"{self.folder}/gcc/include/objc/objc.h"
        told = f"packaging/compare-headers: {header} defines BOOL in another way than expected\n"
        self.assertEqual((2, "", told), (result.returncode, result.stdout, result.stderr))


class PrivateHeadersTest(unittest.TestCase):
    """The report on include/, whose headers no SDK has."""

    OURS = """
        @class Elsewhere;
        __attribute__((objc_root_class)) @interface Page
        @property (nonatomic, copy) Page *title;
        - (void)reload;
        - (int)rows;
        @end
        @interface OursAlone : Page
        - (void)more;
        @end
        extern Page *const PageName;
        extern Page *const OursName;
        """

    def reported(self, theirs):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        folder = Path(folder.name)
        write(folder / "include/Pages/Page.h", self.OURS)
        write(folder / "include/Pages/Absent.h", "__attribute__((objc_root_class)) @interface Absent @end")
        write(folder / "include/objc/Ours.h", "#error what lies here is not the platform's")
        write(folder / "theirs/Pages/Page.h", theirs)
        loader = SourceFileLoader("compare_headers", str(TREE / "packaging/compare-headers"))
        command = module_from_spec(spec_from_loader(loader.name, loader))
        loader.exec_module(command)
        with mock.patch.object(command, "TREE", folder), redirect_stdout(StringIO()) as told:
            command.report_private_headers(["-target", "arm64-apple-ios15.0"], folder / "theirs")
        return [line.replace(str(folder / "theirs"), "DIR") for line in told.getvalue().splitlines()]

    def test_what_is_the_same_or_ours_alone_is_not_told(self):
        self.assertEqual(["packaging/compare-headers: 2 classes of include/ are also in DIR; 0 differences"],
                         self.reported(self.OURS))  # fmt: skip
        alone = self.OURS[: self.OURS.index("@interface OursAlone")] + "extern Page *const PageName;"
        self.assertEqual(["packaging/compare-headers: 1 classes of include/ are also in DIR; 0 differences"],
                         self.reported(alone))  # fmt: skip

    def test_what_differs_is_told(self):
        theirs = self.OURS.replace("(int)rows", "(long)rows").replace("- (void)reload;", "").replace("copy", "retain")
        theirs = theirs.replace("Page *const PageName", "OursAlone *const PageName")
        self.assertEqual([
            "include/: constant PageName: Page *const here, OursAlone *const there",
            "include/: method -[Page reload]: not there",
            "include/: method -[Page rows]: i16@0:8 here, q16@0:8 there",
            "include/: property Page.title: attributes C,N here, attributes &,N there",
            "packaging/compare-headers: 2 classes of include/ are also in DIR; 4 differences",
        ], sorted(self.reported(theirs)))  # fmt: skip

    def test_one_difference_is_one(self):
        self.assertIn("; 1 difference", self.reported(self.OURS.replace("(int)rows", "(long)rows"))[-1])
        self.assertFalse(self.reported(self.OURS.replace("(int)rows", "(long)rows"))[-1].endswith("s"))


if __name__ == "__main__":
    unittest.main()
