"""What the build puts into the tree of the device, in a project of its own with the functions of this one."""

import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]
PROJECT = f"""
cmake_minimum_required(VERSION 3.25)
project(Device LANGUAGES NONE)
include({TREE}/cmake/Bundles.cmake)
add_custom_target(run_all ALL)
add_subdirectory(samples)
remove_what_left_the_device()
"""
SAMPLES = "install_on_device(samples info /Applications/Tea.app)\ndraw_on_device(dusk.svg /Photos/1.PNG)\n"
DRAWING = '<svg xmlns="http://www.w3.org/2000/svg" width="1" height="1"/>'


class BuildTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        self.device = self.root / "build/device-root"
        (self.root / "samples").mkdir()
        (self.root / "samples/info").write_text("name")
        (self.root / "samples/dusk.svg").write_text(DRAWING)
        (self.root / "CMakeLists.txt").write_text(PROJECT)
        self.set_samples(SAMPLES)

    def set_samples(self, text):
        """The functions as the tree's samples define them, and `text` in the place of its samples."""
        functions = (TREE / "samples/CMakeLists.txt").read_text().split("add_subdirectory(", 1)[0]
        (self.root / "samples/CMakeLists.txt").write_text(functions + text)

    def cmake(self, *arguments):
        return subprocess.run(["cmake", *arguments], capture_output=True, text=True, timeout=60)

    def configure(self, *settings):
        return self.cmake("-G", "Ninja", "-S", self.root, "-B", self.root / "build", *settings)

    def build(self):
        for result in (self.configure(), self.cmake("--build", self.root / "build")):
            self.assertEqual(0, result.returncode, result.stdout + result.stderr)
        return sorted(path.relative_to(self.device).as_posix() for path in self.device.rglob("*"))

    def test_what_leaves_the_lists_leaves_the_tree(self):
        app, photo = ["Applications", "Applications/Tea.app", "Applications/Tea.app/info"], ["Photos", "Photos/1.PNG"]
        self.assertEqual(app + photo, self.build())
        drawn = (self.device / "Photos/1.PNG").stat().st_mtime_ns
        self.set_samples(SAMPLES.splitlines()[1])
        self.assertEqual(photo, self.build())
        self.assertEqual(drawn, (self.device / "Photos/1.PNG").stat().st_mtime_ns, "what stays is not made anew")
        self.set_samples(SAMPLES.splitlines()[0])
        self.assertEqual(app, self.build())

    def test_without_the_program_that_draws_its_package_is_named(self):
        nowhere = [f"-DCMAKE_FIND_USE_{path}_PATH=OFF" for path in ("SYSTEM_ENVIRONMENT", "CMAKE_SYSTEM")]
        result = self.configure(f"-DCMAKE_MAKE_PROGRAM={shutil.which('ninja')}", *nowhere)
        self.assertEqual(1, result.returncode, result.stdout)
        told = "rsvg-convert, which draws the samples, is missing: it comes with Debian's package librsvg2-bin."
        self.assertIn(told, " ".join(result.stderr.split()))


if __name__ == "__main__":
    unittest.main()
