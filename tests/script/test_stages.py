"""What the scripts show of their stages: on a terminal, elsewhere, and when one fails."""

import os
import pty
import re
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

LIBRARY = Path(__file__).resolve().parents[2] / "script/lib/stages.sh"


class StagesTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name).resolve()
        self.log = self.folder / "build/log/sample.log"

    def command(self, body):
        return ["bash", "-c", f"set -euo pipefail\n. {LIBRARY}\nbegin_stages sample\n{body}"]

    def run_script(self, body):
        return subprocess.run(self.command(body), capture_output=True, text=True, cwd=self.folder, timeout=60)

    def run_on_terminal(self, body):
        """What a terminal gets, and the exit status."""
        ours, theirs = pty.openpty()
        process = subprocess.Popen(self.command(body), stdout=theirs, stderr=theirs, cwd=self.folder)
        os.close(theirs)
        shown = b""
        try:
            while piece := os.read(ours, 4096):
                shown += piece
        except OSError:  # The terminal is gone with the last process that held it.
            pass
        os.close(ours)
        return shown.decode(), process.wait(60)

    def test_elsewhere_a_stage_is_a_line_and_the_noise_is_in_the_log(self):
        result = self.run_script("stage Build echo noise\nstage Start sh -c 'echo more >&2'")
        self.assertEqual((0, "", "Build\nStart\n"), (result.returncode, result.stdout, result.stderr))
        self.assertEqual("== Build\nnoise\n== Start\nmore\n", self.log.read_text())

    def test_on_a_terminal_a_line_moves_and_closes_with_the_time(self):
        shown, status = self.run_on_terminal(
            "noisy() { echo '[1/3] one'; echo '[2/3] two'; echo 'pmstatus:lib:amd64:45.6:Unpacking'; echo noise; }\n"
            "stage Build noisy"
        )
        self.assertEqual(0, status)
        self.assertIn("1 of 3", shown)
        self.assertIn("2 of 3", shown)
        self.assertIn("installed 45 %", shown)
        self.assertNotIn("noise", shown)
        self.assertEqual(1, shown.count("\n"))
        self.assertRegex(shown.rsplit("\x1b[K", 1)[1], r"^Build +[0-9mins ]+\r\n$")
        self.assertEqual("== Build\n[1/3] one\n[2/3] two\nnoise\n", self.log.read_text())

    def test_a_line_that_comes_in_pieces_is_one_line_of_the_log(self):
        self.run_script("slow() { printf 'one '; sleep 1.5; printf 'two'; }\nstage Build slow")
        self.assertEqual("== Build\none two\n", self.log.read_text())

    def test_a_failure_names_the_log_and_shows_its_end(self):
        result = self.run_script("fails() { seq 100; return 3; }\nstage Build fails\nstage Start echo started")
        self.assertEqual(3, result.returncode)
        lines = result.stderr.splitlines()
        self.assertEqual("Build", lines[0])
        told = rf"script/sample: Build failed after [0-9mins ]+\. The end of {re.escape(str(self.log))}:"
        self.assertRegex(lines[1], f"^{told}$")
        self.assertEqual([f"  {number}" for number in range(71, 101)], lines[2:])

    def test_a_function_stops_at_its_first_failure(self):
        result = self.run_script("fails() { false; echo on; }\nstage Build fails")
        self.assertEqual(1, result.returncode)
        self.assertNotIn("on\n", self.log.read_text())

    def test_a_refusal_is_one_sentence(self):
        for body in ("refuses() { echo noise; refuse 'needs more.'; }\nstage Build refuses", "refuse 'needs more.'"):
            with self.subTest(body):
                result = self.run_script(body)
                self.assertEqual((2, ""), (result.returncode, result.stdout))
                self.assertEqual("script/sample: needs more.", result.stderr.splitlines()[-1])
                self.assertNotIn("noise", result.stderr)
        self.assertEqual(["sample.log"], os.listdir(self.log.parent))

    def test_the_output_of_a_shown_stage_is_the_result(self):
        result = self.run_script("shown_stage Tests echo '3 passed, 0 failed'")
        self.assertEqual((0, "== Tests\n3 passed, 0 failed\n", ""), (result.returncode, result.stdout, result.stderr))

    def test_a_shown_stage_that_fails_ends_the_script_with_its_status(self):
        result = self.run_script("shown_stage Tests sh -c 'echo bad; exit 4'\necho on")
        self.assertEqual((4, "== Tests\nbad\n"), (result.returncode, result.stdout))
        self.assertRegex(result.stderr, r"^script/sample: Tests failed after [0-9mins ]+\.\n$")

    def test_a_stage_beside_goes_on_with_the_next_ones(self):
        result = self.run_script(
            "slow() { echo begun; until [ -e go ]; do sleep 0.05; done; echo done; }\n"
            "stage_beside Build slow\nshown_stage Tests touch go\nstage_joined\n"
            "printf '%s\\n' \"${stages_times[@]#* }\""
        )
        self.assertEqual((0, "== Tests\nTests\nBuild\n"), (result.returncode, result.stdout))
        self.assertEqual("Build, beside what follows\n", result.stderr)
        self.assertEqual("== Build\nbegun\ndone\n", self.log.read_text())
        self.assertEqual(["sample.log"], os.listdir(self.log.parent))

    def test_a_failure_of_a_stage_beside_is_told_when_it_is_joined(self):
        fails = "fails() { echo bad; false; echo on; }\n"
        result = self.run_script(fails + "stage_beside Build fails\nstage_joined\necho on")
        self.assertEqual((1, ""), (result.returncode, result.stdout))
        told = r"sample: Build failed after [0-9mins ]+\. The end of .*:\n  == Build\n  bad\n$"
        self.assertRegex(result.stderr, told)

    def test_a_stage_beside_ends_with_the_script(self):
        result = self.run_script(
            "slow() { sleep 100 & echo $! >child; wait; }\nstage_beside Build slow\n"
            "until [ -s child ]; do sleep 0.05; done\nshown_stage Tests false"
        )
        self.assertEqual(1, result.returncode)
        status = Path("/proc", (self.folder / "child").read_text().strip(), "status")
        for _ in range(100):
            if not status.exists() or "State:\tZ" in status.read_text():
                return
            time.sleep(0.05)
        self.fail("The child of the stage goes on.")

    def test_the_times_of_all_stages_come_at_the_end(self):
        times = "stages_times=('61 Build' '5 Tests')\nstages_start=$((EPOCHSECONDS - 3661))"
        result = self.run_script(f"{times}\nstage_times")
        told = r"^ +1 min 01 s  Build\n +5 s  Tests\n +6\d min \d\d s  script/sample in all\n$"
        self.assertRegex(result.stderr, told)


if __name__ == "__main__":
    unittest.main()
