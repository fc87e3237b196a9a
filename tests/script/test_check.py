"""What script/check builds and runs, and what it refuses."""

import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]


class CheckTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tree = Path(folder.name).resolve() / "tree"
        self.programs = self.tree / "bin"
        shutil.copytree(TREE / "script", self.tree / "script")
        self.calls = self.tree / "calls"
        self.calls.touch()
        for name in ("cmake", "ninja"):
            self.program(self.programs / name, f'echo "{name} $*" >>{self.calls}')
        self.program(self.programs / "ctest", f'echo "ctest $* GTEST_FILTER=$GTEST_FILTER" >>{self.calls}')
        self.program(self.tree / "build/asan/tests/zunoprefs_tests",
                     """case $1 in *=Presets* | *'=*') printf 'PresetsTest.\n  Load\n' ;; esac""")  # fmt: skip

    def program(self, path, body):
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(f"#!/bin/bash\n{body}\n")
        path.chmod(0o755)

    def check(self, *arguments):
        return subprocess.run(
            [self.tree / "script/check", *arguments], capture_output=True, text=True, timeout=60,
            env={**os.environ, "PATH": f"{self.programs}:{os.environ['PATH']}"},
        )  # fmt: skip

    def called(self):
        return self.calls.read_text().splitlines()

    def test_it_builds_the_program_and_runs_the_chosen_tests(self):
        result = self.check("zunoprefs", "Presets*")
        self.assertEqual(0, result.returncode, result.stderr)
        *built, run = self.called()
        self.assertEqual(["cmake --preset asan", "ninja -C build/asan zunoprefs_tests"], built)
        self.assertRegex(run, r"^ctest --preset asan -R \^zunoprefs_tests .*GTEST_FILTER=Presets\*$")

    def test_without_a_filter_it_runs_all_of_them(self):
        result = self.check("zunoprefs")
        self.assertEqual(0, result.returncode, result.stderr)
        self.assertTrue(self.called()[-1].endswith("GTEST_FILTER=*"))

    def test_a_tree_that_is_configured_is_not_configured_again(self):
        (self.tree / "build/asan/build.ninja").touch()
        self.check("zunoprefs")
        self.assertEqual("ninja -C build/asan zunoprefs_tests", self.called()[0])

    def test_a_filter_that_chooses_nothing_is_refused(self):
        result = self.check("zunoprefs", "Absent*")
        self.assertEqual(2, result.returncode)
        self.assertIn("no test of zunoprefs is chosen by Absent*", result.stderr)
        self.assertEqual("ninja", self.called()[-1].split()[0])

    def test_without_a_program_or_with_an_unknown_one_nothing_is_built(self):
        for arguments in ((), ("absent",)):
            with self.subTest(arguments):
                result = self.check(*arguments)
                self.assertEqual((2, []), (result.returncode, self.called()))
                self.assertIn("which tests? base, foundation,", result.stderr)

    def test_tests_that_fail_fail_it(self):
        self.program(self.programs / "ctest", "exit 8")
        self.assertEqual(8, self.check("zunoprefs").returncode)


if __name__ == "__main__":
    unittest.main()
