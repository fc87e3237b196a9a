"""The tree is written as script/format writes it, and that refuses each kind of violation."""

import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]
WELL = {
    "simulator/device/Well.hpp": "// What is well.\n#pragma once\n\nint well();\n",
    "simulator/device/Well.cpp": '#include "device/Well.hpp"\n\nint well() { return 1; }\n',
    "tests/simulator/device/WellTests.cpp": "int tested() { return 1; }\n",
    "simulator/web/well.js": "export const well = (event) => event.target;\n",
    "tests/browser/well.test.mjs": "export const read = () => process.argv;\n",
}
# Each with what the violation is called.
ILL = {
    "simulator/device/Ill.cpp": [("int  ill();\n", "-Wclang-format-violations"),
                                 ("#import <a.h>\n", "belongs in a .mm file")],  # fmt: skip
    "simulator/device/Ill.mm": [("void f() {\n  int*x;\n}\n", "-Wclang-format-violations")],
    "simulator/device/Ill.c": [("int x;\n", "names such a file .cpp")],
    "simulator/web/ill.js": [
        ("export const ill = absent;\n", "no-undef"),
        ("export const ill = process.argv;\n", "no-undef"),
        ("const ill = 1;\n", "no-unused-vars"),
        ("export const ill = (a) => a == 1;\n", "eqeqeq"),
        ("export function ill() {\n  let a = 1;\n  return a;\n}\n", "prefer-const"),
        ("export const ill = { a: 1, a: 2 };\n", "no-dupe-keys"),
        ("export const ill = " + "1 + " * 40 + "1;\n", "max-len"),
        ("export const ill = ;\n", "Parsing error"),
        ("// eslint-disable-next-line eqeqeq\nexport const ill = 1;\n", "Unused eslint-disable directive"),
    ],
    "tests/browser/ill.test.mjs": [("export const ill = absent;\n", "no-undef")],
}


def run(root, *arguments):
    return subprocess.run([root / "script/format", *arguments], capture_output=True, text=True, timeout=300)


class WholeTreeTest(unittest.TestCase):
    def test_nothing_is_refused(self):
        result = run(TREE, "--check")
        self.assertEqual(0, result.returncode, result.stdout + result.stderr)


class FormatTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        for name in ("script/format", "tests/style/lint.py", ".clang-format", "eslint.config.mjs", ".gitignore"):
            (self.root / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(TREE / name, self.root / name)
        os.symlink(TREE / "node_modules", self.root / "node_modules")
        with (self.root / ".gitignore").open("a") as ignored:
            ignored.write("/node_modules\n")
        subprocess.run(["git", "init", "--quiet", self.root], check=True)
        for name, text in WELL.items():
            self.write(name, text)

    def write(self, name, text):
        (self.root / name).parent.mkdir(parents=True, exist_ok=True)
        (self.root / name).write_text(text)

    def test_what_is_well_passes(self):
        result = run(self.root, "--check")
        self.assertEqual(0, result.returncode, result.stdout + result.stderr)

    def test_a_tree_that_is_no_clone_is_read_as_one(self):
        shutil.rmtree(self.root / ".git")
        self.write("build/ill.c", "")  # .gitignore names it.
        result = run(self.root, "--check")
        self.assertEqual((0, ""), (result.returncode, result.stdout + result.stderr))
        self.write("simulator/device/Ill.cpp", "int  ill();\n")
        self.write("simulator/device/Ill.c", "")
        result = run(self.root, "--check")
        self.assertEqual(1, result.returncode)
        self.assertIn("Ill.cpp:1:4: error", result.stderr)
        self.assertIn("simulator/device/Ill.c:1: this tree names such a file .cpp", result.stdout)
        self.assertFalse((self.root / ".git").exists())

    def test_each_violation_is_refused_and_left_alone(self):
        files = {}
        for name, violations in ILL.items():
            for number, (text, told) in enumerate(violations):
                file = name.replace("ll.", f"ll{number}.")
                files[file] = (text, told)
                self.write(file, text)
        result = run(self.root, "--check")
        self.assertEqual(1, result.returncode)
        # eslint heads what it tells of a file with the file's name; the others name it in each line.
        told_of = result.stdout.strip().split("\n\n") + result.stdout.splitlines() + result.stderr.splitlines()
        for file, (text, told) in files.items():
            with self.subTest(file=file, told=told):
                self.assertTrue([each for each in told_of if file in each.split("\n")[0] and told in each], told_of)
                self.assertEqual(text, (self.root / file).read_text())

    def test_what_a_program_can_mend_is_mended(self):
        self.write("simulator/device/Ill.cpp", "int  ill( ){return 1;}\n")
        self.write("simulator/web/ill.js", "export function ill() {\n  let a = 1;\n  return a;\n}\n")
        result = run(self.root)
        self.assertEqual(0, result.returncode, result.stdout + result.stderr)
        self.assertEqual("int ill() { return 1; }\n", (self.root / "simulator/device/Ill.cpp").read_text())
        self.assertIn("const a", (self.root / "simulator/web/ill.js").read_text())

    def test_what_is_left_after_mending_is_told(self):
        self.write("simulator/web/ill.js", "export const ill = absent;\n")
        result = run(self.root)
        self.assertEqual(1, result.returncode)
        self.assertIn("no-undef", result.stdout)

    def test_an_unknown_option_is_refused(self):
        for arguments in (("--fix",), ("--check", "--tidy")):
            result = run(self.root, *arguments)
            self.assertEqual((2, "usage: script/format [--check | --tidy]\n"), (result.returncode, result.stderr))


if __name__ == "__main__":
    unittest.main()
