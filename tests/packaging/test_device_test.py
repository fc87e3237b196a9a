"""script/device-test: what it says of its arguments. The run itself needs a package and an emulator."""

import fcntl
import subprocess
import tempfile
import unittest
from pathlib import Path

from fixture import TREE, write


class DeviceTestCommandTest(unittest.TestCase):
    def refused(self, *arguments):
        """The one sentence with which it refuses."""
        command = [str(TREE / "script/device-test"), *map(str, arguments)]
        result = subprocess.run(command, capture_output=True, text=True)
        self.assertEqual((2, ""), (result.returncode, result.stdout))
        self.assertEqual(1, result.stderr.count("\n"), result.stderr)
        return result.stderr

    def test_it_needs_a_package(self):
        self.assertIn("usage: script/device-test PACKAGE.deb", self.refused())
        self.assertIn("usage: script/device-test PACKAGE.deb", self.refused("one.deb", "two.deb"))

    def test_a_package_that_is_not_there(self):
        self.assertIn("absent.deb is no file", self.refused("absent.deb"))

    def test_an_unknown_argument(self):
        self.assertIn("unknown argument --fast", self.refused("--fast"))

    def test_two_runs_do_not_build_in_one_folder(self):
        with tempfile.TemporaryDirectory() as folder:
            command = write(Path(folder, "script/device-test"), (TREE / "script/device-test").read_text())
            package = write(Path(folder, "sample.deb"), "")
            lock = write(Path(folder, "build/device-test/lock"), "")
            with lock.open() as held:
                fcntl.flock(held, fcntl.LOCK_EX)
                result = subprocess.run(["bash", str(command), str(package)], capture_output=True, text=True)
            sentence = f"script/device-test: another run is building in {folder}/build/device-test\n"
            self.assertEqual((1, "", sentence), (result.returncode, result.stdout, result.stderr))


if __name__ == "__main__":
    unittest.main()
