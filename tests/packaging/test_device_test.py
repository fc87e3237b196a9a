"""script/device-test: what it says of its arguments. The run itself needs a package and an emulator."""

import subprocess
import unittest

from fixture import TREE


class DeviceTestCommandTest(unittest.TestCase):
    def refused(self, *arguments):
        """The one sentence with which it refuses."""
        result = subprocess.run([str(TREE / "script/device-test"), *map(str, arguments)], capture_output=True, text=True)
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


if __name__ == "__main__":
    unittest.main()
