"""Which tests a change is given to, how long, and what their end means."""

import tempfile
import unittest
from pathlib import Path

from campaign import KILLED, Result, Results, keyed
from coverage import Coverage
from mutators import Mutant
from trial import Limits, Trial, filter_of, stages_for, suites_of


class StagesTest(unittest.TestCase):
    def suites(self, **contents):
        with tempfile.TemporaryDirectory() as folder:
            for name, content in contents.items():
                path = Path(folder) / name.replace("__", "/")
                path = path.with_name(path.name + ".mm")
                path.parent.mkdir(exist_ok=True)
                path.write_text(content)
            return suites_of(Path(folder))

    def test_the_files_own_tests_come_first_then_its_folders_then_the_others(self):
        suites = self.suites(
            lists__PickerTests="TEST_F(PickerTest, One) {}\nTEST_F(PickerTest, Two) {}\n",
            lists__ToneTests="TEST_P(ToneTest, One) {}\nTEST(Plain, One) {}\n",
            core__RootTests="TEST_F(RootTest, One) {}\n",
        )
        stages = stages_for(Path("/x/lists/Picker.mm"), suites, ["RootTest", "ToneTest"])
        self.assertEqual(stages, [["PickerTest"], ["ToneTest"], ["RootTest"]])

    def test_a_file_without_tests_of_its_own(self):
        suites = self.suites(lists__PickerTests="TEST(Picker, One) {}")
        self.assertEqual(stages_for(Path("/x/core/Header.h"), suites, ["Picker"]), [["Picker"]])
        self.assertEqual(stages_for(Path("/x/core/Header.h"), suites, []), [])

    def test_the_filter_names_suites_with_parameters_too(self):
        self.assertEqual(filter_of(["A", "B"]), "A.*:*/A.*:B.*:*/B.*")

    def test_a_part_of_a_file_or_of_a_test_is_the_same_subject(self):
        suites = self.suites(theme__PresetsSharingTests="TEST(Sharing, One) {}", theme__ScanTests="TEST(Scan, One) {}")
        self.assertEqual(stages_for(Path("/x/theme/Presets+Sharing.mm"), suites, [])[0], ["Sharing"])
        self.assertEqual(stages_for(Path("/x/theme/Presets.mm"), suites, [])[0], ["Sharing"])
        self.assertEqual(stages_for(Path("/x/theme/ScanText.cpp"), suites, [])[0], ["Scan"])


class CoverageTest(unittest.TestCase):
    def test_only_suites_that_run_a_line_are_named_the_quickest_first(self):
        coverage = Coverage({"/x/a.mm": {"3": ["Slow", "Quick"], "4": [], "9": ["Other"]}},
                            {"Slow": 2.0, "Quick": 0.1, "Other": 0.2})  # fmt: skip
        self.assertEqual(coverage.suites_for(Path("/x/a.mm"), 3, 4), ["Quick", "Slow"])
        self.assertEqual(coverage.suites_for(Path("/x/a.mm"), 4, 4), [])

    def test_a_line_without_code_matters_to_all(self):
        coverage = Coverage({"/x/a.mm": {"3": ["Slow"]}}, {"Slow": 2.0, "Quick": 0.1})
        self.assertEqual(coverage.suites_for(Path("/x/a.mm"), 1, 1), ["Quick", "Slow"])
        self.assertEqual(coverage.suites_for(Path("/x/b.h"), 3, 3), ["Quick", "Slow"])


class VerdictTest(unittest.TestCase):
    def run_script(self, script, limits=Limits()):
        """What comes of a test program that is this shell script."""
        with tempfile.TemporaryDirectory() as folder:
            program = Path(folder) / "tests"
            program.write_text(f"#!/bin/sh\n{script}\n")
            program.chmod(0o755)

            class Build:
                root = Path(folder)
                tests = program
                is_sanitized = False

            Build.folder = Path(folder)
            verdict = Trial(Build, Path(folder)).run(Path("/a/bundle"), ["Some"], limits)
            self.assertEqual([each.name for each in Path(folder).iterdir()], ["tests"], "nothing is left behind")
            return verdict

    def test_success(self):
        self.assertTrue(self.run_script("exit 0").passed)

    def test_what_the_program_is_told(self):
        verdict = self.run_script('echo "$ZUNO_BUNDLE $1 $2"; touch "$TMPDIR/rest"')
        self.assertEqual(verdict.output, "/a/bundle --gtest_filter=Some.*:*/Some.* --gtest_fail_fast\n")

    def test_a_failure_names_its_test(self):
        verdict = self.run_script("echo '[ RUN      ] A.B'; echo '[  FAILED  ] A.B (1 ms)'; exit 1")
        self.assertEqual((verdict.passed, verdict.reason), (False, "A.B"))

    def test_a_crash_names_the_running_test(self):
        verdict = self.run_script("echo '[ RUN      ] A.B'; echo '[ RUN      ] A.C'; kill -SEGV $$")
        self.assertEqual((verdict.passed, verdict.reason), (False, "ended (-11) in A.C"))

    def test_waiting_for_ever(self):
        verdict = self.run_script("echo '[ RUN      ] A.B'; sleep 60", Limits(processor=60, clock=1))
        self.assertEqual((verdict.passed, verdict.reason), (False, "time limit in A.B"))

    def test_running_for_ever(self):
        verdict = self.run_script("while :; do :; done", Limits(processor=1, clock=60))
        self.assertEqual((verdict.passed, verdict.reason), (False, "time limit in the start"))

    def test_a_leak(self):
        verdict = self.run_script("echo '[  PASSED  ] 3 tests.'; echo 'ERROR: LeakSanitizer: leaks'; exit 23")
        self.assertEqual((verdict.passed, verdict.reason), (False, "a leak"))

    def test_what_a_sanitizer_found(self):
        verdict = self.run_script("echo '[ RUN      ] A.B'; echo 'ERROR: AddressSanitizer: use after free'; exit 1")
        self.assertEqual((verdict.passed, verdict.reason), (False, "sanitizer in A.B"))


class ResultsTest(unittest.TestCase):
    def mutant(self, line, text, start=0):
        return Mutant(Path("/x/a.mm"), line, text, "comparison", start, start + 1, "<", ">")

    def test_a_change_keeps_its_name_when_lines_are_added_above(self):
        before = keyed([self.mutant(3, "a < b")], Path("/x"))
        after = keyed([self.mutant(9, "a < b", 80)], Path("/x"))
        self.assertEqual(list(before), list(after))

    def test_equal_changes_of_equal_lines_are_told_apart(self):
        self.assertEqual(len(keyed([self.mutant(3, "a < b"), self.mutant(4, "a < b", 9)], Path("/x"))), 2)

    def test_results_are_kept(self):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "results.json"
            Results(path).put("key", Result(KILLED, "A.B"))
            self.assertEqual(Results(path).get("key"), Result(KILLED, "A.B"))
            self.assertIsNone(Results(path).get("other"))


if __name__ == "__main__":
    unittest.main()
