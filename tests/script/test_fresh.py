"""What script/fresh asks for before it makes a system, and what is left of it."""

import shutil
import signal
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]
TOOLS = ("bash", "dirname", "mkdir", "rm", "id", "unshare")


class FreshTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name).resolve()
        self.tree, self.programs = self.folder / "tree", self.folder / "bin"
        shutil.copytree(TREE / "script", self.tree / "script")
        self.programs.mkdir()
        for tool in TOOLS:
            (self.programs / tool).symlink_to(shutil.which(tool))
        self.user(0)
        self.program("debootstrap", "exit 1")
        self.program("git", "exit 1")

    def program(self, name, body):
        path = self.programs / name
        path.unlink(missing_ok=True)
        path.write_text(f"#!/bin/bash\n{body}\n")
        path.chmod(0o755)

    def user(self, number):
        self.program("id", f"echo {number}")

    def refusal(self, *arguments):
        result = subprocess.run(
            [self.tree / "script/fresh", *arguments], capture_output=True, text=True, timeout=60,
            env={"PATH": str(self.programs)},
        )  # fmt: skip
        self.assertEqual((2, ""), (result.returncode, result.stdout))
        self.assertFalse((self.tree / "build/fresh").exists())
        return result.stderr

    def test_another_release_or_command_is_refused(self):
        for word in ("bullseye", "package", "--help"):
            self.assertEqual("usage: script/fresh [bookworm|trixie] [run|test|bench]\n", self.refusal("trixie", word))

    def test_it_needs_root(self):
        self.user(1000)
        self.assertEqual("script/fresh: needs root, to make a system in a folder.\n", self.refusal())

    def test_a_missing_tool_is_named(self):
        self.assertEqual("script/fresh: needs wget, of Debian's package wget.\n", self.refusal("bookworm", "test"))
        (self.programs / "debootstrap").unlink()
        self.assertEqual("script/fresh: needs debootstrap, of Debian's package debootstrap.\n", self.refusal())

    def test_nothing_is_left_when_it_is_interrupted(self):
        for tool in ("chown", "flock", "sleep"):
            (self.programs / tool).symlink_to(shutil.which(tool))
        self.program("wget", "")
        self.program("setpriv", 'shift 2; exec "$@"')
        self.program("unshare", "mkdir -p build/fresh/trixie/home; exec sleep 60")
        system = self.tree / "build/fresh/trixie"
        for name in (signal.SIGHUP, signal.SIGINT, signal.SIGTERM):
            process = subprocess.Popen([self.tree / "script/fresh"], env={"PATH": str(self.programs)})
            deadline = time.monotonic() + 30
            while not (system / "home").exists() and time.monotonic() < deadline:
                time.sleep(0.02)
            self.assertTrue((system / "home").exists())
            process.send_signal(name)
            self.assertEqual(128 + name, process.wait(timeout=30))
            self.assertFalse(system.exists())


if __name__ == "__main__":
    unittest.main()
