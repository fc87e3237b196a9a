"""What the lint refuses, and what it lets through."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import lint

TREE = Path(__file__).resolve().parents[2]


class FindingsTest(unittest.TestCase):
    def told(self, name, text):
        return [(number, sentence) for number, sentence in lint.findings(Path(name), text)]

    def assert_told(self, number, words, name, text):
        told = self.told(name, text)
        self.assertEqual(1, len(told), told)
        self.assertEqual(number, told[0][0])
        self.assertIn(words, told[0][1])

    def assert_well(self, name, text):
        self.assertEqual([], self.told(name, text))

    def test_foreign_suffixes(self):
        for name, own in (("a.c", ".cpp"), ("a.cc", ".cpp"), ("a.cxx", ".cpp"), ("a.m", ".mm"), ("a.hh", ".hpp"),
                          ("a.hxx", ".hpp"), ("a.cjs", ".js"), ("a.jsx", ".js"), ("a.ts", ".js")):  # fmt: skip
            self.assert_told(1, f"names such a file {own}", name, "")
        for name in ("a.cpp", "a.mm", "a.js", "a.mjs", "a.png", "LICENCE", "tests/objc/c/a.m"):
            self.assert_well(name, "")

    def test_the_end_of_a_file(self):
        self.assert_told(2, "does not end", "a.cpp", "int a;\nint b;")
        self.assert_well("a.cpp", "int a;\n")
        self.assert_well("corpus/without-suffix", "text")

    def test_space_at_the_end_of_a_line(self):
        for name in ("a.cpp", "a.py", "a.css", "a.md", "a.js"):
            self.assert_told(2, "space at the end", name, "a\nb \n")

    def test_tabs(self):
        self.assert_told(1, "a tab", "a.cpp", "\tint a;\n")
        self.assert_told(2, "a tab", "tests/packaging/test_files.py", "a\n\tb\n")
        for name in ("a.mk", "packaging/Makefile", "a.plist", "tests/packaging/test_commands.py"):
            self.assert_well(name, "a:\n\tb\n")

    def test_the_width_is_counted_in_characters(self):
        for name in ("a.py", "a.sh", "a.css", "a.cmake", "a/CMakeLists.txt", "a.mk", "packaging/Makefile"):
            self.assert_told(2, "121 characters; 120 is the most", name, "a\n" + "x" * 121 + "\n")
            self.assert_well(name, "ä" * 120 + "\n")
        self.assert_well("a.md", "x" * 500 + "\n")

    def test_a_script_is_known_by_its_first_line(self):
        for first in ("#!/usr/bin/env bash", "#!/bin/sh", "#!/usr/bin/python3"):
            self.assert_told(2, "is the most", "script/run", first + "\n" + "x" * 121 + "\n")
        self.assert_well("script/data", "x" * 121 + "\n")

    def test_objective_c_is_not_in_a_plain_source(self):
        for line in ("#import <a.h>", "@interface A", "@implementation A", "@protocol A;", "@class A;"):
            self.assert_told(1, "belongs in a .mm file", "a.cpp", line + "\n")
            self.assert_well("a.mm", line + "\n")
        self.assert_well("a.cpp", 'auto a = "@interface";\n')

    def test_a_header_with_objective_c_is_named_so(self):
        for line in ("#import <a.h>", "@interface A", "@class A;"):
            self.assert_told(2, "belongs in a .h header", "a.hpp", f"// A.\n{line}\n#pragma once\n")
        self.assert_well("a.hpp", "// A.\n#pragma once\n#include <a.h>\n")

    def test_one_suffix_for_the_own_view_of_a_class(self):
        for name in ("simulator/UIKit/UIView+Private.h", "simulator/UIKit/UIView+Internal.h"):
            self.assert_told(1, "a header with +Sim", name, "#import <a.h>\n@interface A\n@end\n")
        for name in ("simulator/UIKit/UIView+Sim.h", "simulator/UIKit/NSIndexPath+UIKit.h", "ZunoPrefs/a/A+Colours.h"):
            self.assert_well(name, "#import <a.h>\n@interface A\n@end\n")

    def test_constants_of_a_file_begin_with_k(self):
        for line in ("constexpr int most = 1;", "const std::array<A, 2> all{{", "static const int most = 1;",
                     "inline constexpr std::size_t most = 1;", "NSString *const name = @\"\";",
                     "constexpr A corner{1, 2};", "NSString *const names[] = {",
                     "constexpr const char* name = \"\";"):  # fmt: skip
            for kind in ("cpp", "mm"):
                self.assert_told(1, "has no k", f"a.{kind}", line + "\n")
        for line in ("constexpr int kMost = 1;", "const A kAll[] = {", "const UIFontWeight UIFontWeightThin = 1;",
                     "NSString *const PSKey = @\"\";", "const struct type_s _library_type{};",
                     "constexpr int sum(int a) { return a; }", "  constexpr int local = 1;",
                     "const char* text = nullptr;", "const A *current = nullptr;",
                     "const A& of(B b) {", "int most = 1;", "constexpr bool operator==(A, B) = default;"):  # fmt: skip
            self.assert_well("a.mm", line + "\n")

    def test_exceptions_of_cpp_are_not_caught_in_objective_c(self):
        for line in ("  try {", "  } catch (...) {", "try{", "catch(int a)"):
            self.assert_told(1, "cannot catch C++ exceptions", "a.mm", line + "\n")
            self.assert_well("a.cpp", line + "\n")
            self.assert_told(1, "cannot catch C++ exceptions", "tests/objc/ours/Ours.mm", line + "\n")
            self.assert_well("tests/objc/ExceptionTests.mm", line + "\n")
        for line in ("@try {", "} @catch (NSException *e) {", "// try {", 'NSString *a = @"try {";', "[self retry{];"):
            self.assert_well("a.mm", line + "\n")

    def test_a_header_is_read_once(self):
        self.assert_told(1, "no #pragma once", "a.h", "int a;\n")
        self.assert_told(1, "no #pragma once", "a.hpp", "// A.\n#include <a.h>\n")
        self.assert_told(3, "stands twice", "a.h", "#pragma once\n\n#pragma once\n")
        self.assert_well("a.h", "#pragma once\nint a;\n")
        self.assert_well("a.h", "#import <a.h>\n\n@interface A\n@end\n")

    def test_a_header_of_cpp_says_what_it_holds(self):
        self.assert_told(1, "does not start with a comment", "a.hpp", "#pragma once\n")
        self.assert_told(1, "does not start with a comment", "a.hpp", "\n// A.\n#pragma once\n")
        self.assert_well("a.hpp", "// A.\n#pragma once\n")


class FoldersTest(unittest.TestCase):
    def without(self, *names):
        return [folder.as_posix() for folder in lint.folders_without_tests([Path(name) for name in names])]

    def test_each_source_folder_has_its_tests(self):
        self.assertEqual(["simulator/a"], self.without("simulator/a/A.cpp"))
        self.assertEqual(["ZunoPrefs/a"], self.without("ZunoPrefs/a/A.mm", "tests/simulator/a/ATests.mm"))
        self.assertEqual([], self.without("simulator/a/A.cpp", "tests/simulator/a/ATests.cpp"))
        self.assertEqual([], self.without("simulator/a/A.cpp", "tests/simulator/a/b/ATests.cpp"))
        self.assertEqual([], self.without("simulator/a/A.hpp", "simulator/web/a.js", "bench/A.cpp"))


class ProgramTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        subprocess.run(["git", "init", "--quiet", self.root], check=True)

    def run_on(self):
        program = [sys.executable, "-B", TREE / "tests/style/lint.py", self.root]
        return subprocess.run(program, capture_output=True, text=True, timeout=60)

    def test_findings_are_told_with_file_and_line(self):
        (self.root / "a.py").write_text("a = 1 \n")
        (self.root / "b.css").write_bytes(b"\xff\n")
        (self.root / "simulator").mkdir()
        (self.root / "simulator/A.cpp").write_text("int a;\n")
        result = self.run_on()
        told = ["a.py:1: space at the end of the line", "b.css:1: the file is not UTF-8",
                "simulator:1: there is no tests/simulator"]  # fmt: skip
        self.assertEqual((1, told), (result.returncode, result.stdout.splitlines()))

    def test_what_is_ignored_or_deleted_or_a_picture_is_not_looked_at(self):
        (self.root / ".gitignore").write_text("/build/\n")
        (self.root / "build").mkdir()
        (self.root / "build/a.c").write_text("")
        (self.root / "gone.c").write_text("")
        subprocess.run(["git", "-C", self.root, "add", "gone.c"], check=True)
        (self.root / "gone.c").unlink()
        (self.root / "a.png").write_bytes(b"\x89PNG \n")
        result = self.run_on()
        self.assertEqual((0, "", ""), (result.returncode, result.stdout, result.stderr))


if __name__ == "__main__":
    unittest.main()
