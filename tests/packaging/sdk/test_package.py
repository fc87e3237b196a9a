"""The package and the widgets as a real SDK builds them. script/package-test runs this with ZUNO_SDK, the SDK's
folder.
"""

import hashlib
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[3]
SDK = Path(os.environ["ZUNO_SDK"])  # Without one there is nothing to test, and that is an error.
sys.path.insert(0, str(TREE / "packaging"))

from checker import macho, objc, signature  # noqa: E402
from checker.authentication import signed_pointers  # noqa: E402
from checker.textstub import Libraries  # noqa: E402


class BuildTest(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = Path(temporary.name)

    def run_in(self, tree, *command, **options):
        return subprocess.run([str(part) for part in command], capture_output=True, text=True, cwd=tree, **options)

    def copy_of_the_tree(self, name):
        """The files that the device build reads, and what it has compiled of them."""
        tree = self.folder / name
        for part in ("ZunoPrefs", "include", "packaging", "script", "simulator"):
            shutil.copytree(TREE / part, tree / part)
        return tree

    def package(self, tree, *arguments, **options):
        result = self.run_in(tree, "script/package", "--sdk", SDK, *arguments, **options)
        self.assertEqual(0, result.returncode, result.stderr[-3000:])
        headers, *others = (Path(tree) / "build/log/package.log").read_text().split("== Build\n")
        self.assertRegex(headers, r"\A== Headers\npackaging/compare-headers: .*, 0 problems\n\Z")
        self.assertEqual(["== Package\n"], others)
        checked, *_, made = result.stdout.splitlines()  # Between them, how the arm64e code is run.
        self.assertRegex(checked, r"^packaging/check: \d+ rules, 0 problems$")
        return Path(tree) / made.split(" (")[0]


class PackageTest(BuildTest):
    def test_it_is_made_without_a_warning_and_the_same_wherever_the_tree_lies(self):
        options = {"env": {**os.environ, "SOURCE_DATE_EPOCH": "1700000000"}}
        sums = set()
        for tree in (TREE, self.copy_of_the_tree("another place")):
            made = self.package(tree, "--output", self.folder / "out", **options)
            sums.add(hashlib.sha256(made.read_bytes()).hexdigest())
        self.assertEqual(1, len(sums))

    def test_one_kind_of_processor(self):
        self.package(TREE, "--arch", "arm64", "--output", self.folder)
        self.package(TREE, "--arch", "arm64e", "--output", self.folder)

    def test_an_sdk_without_a_framework_s_stub(self):
        sdk = self.folder / "sdk"
        shutil.copytree(SDK, sdk, copy_function=os.symlink, symlinks=True)
        stub = "System/Library/Frameworks/CoreImage.framework/CoreImage.tbd"
        (sdk / stub).unlink()
        result = self.run_in(TREE, "script/package", "--sdk", sdk, "--output", self.folder / "out")
        sentence = f"script/package: {sdk} lacks the stub {stub}, which the bundle is linked against\n"
        self.assertEqual((2, "", sentence), (result.returncode, result.stdout, result.stderr))
        self.assertFalse((self.folder / "out").exists())

    def test_code_that_cannot_be_turned(self):
        tree = self.copy_of_the_tree("tree")
        for source in [*(tree / "ZunoPrefs").rglob("*.mm"), *(tree / "ZunoPrefs").rglob("*.cpp")]:
            source.unlink()
        odd = "void code() {} struct __attribute__((packed)) Odd { char first; void (*second)(); };"
        odd += " extern Odd odd; Odd odd = {1, code};"
        (tree / "ZunoPrefs/core/Odd.cpp").write_text(odd)
        result = self.run_in(tree, "script/package", "--sdk", SDK)
        self.assertEqual("", result.stdout)
        self.assertNotEqual(0, result.returncode)
        told = r"packaging/arm64e: \S+ has a pointer at 0x\w+, which is not aligned to 8 bytes"
        self.assertRegex(result.stderr, rf"(?m)^  {told}$")
        self.assertEqual([], list((tree / "build").rglob("*.deb")))

    def test_a_full_disk(self):
        """On a disk of each of these sizes another step is the one that fails."""
        self.package(TREE, "--output", self.folder / "out")
        tree = self.copy_of_the_tree("tree")
        (tree / "build").mkdir()
        shutil.copytree(TREE / "build/package", self.folder / "compiled")
        compiled = sum(path.stat().st_size for path in (self.folder / "compiled").rglob("*") if path.is_file()) // 1024
        told = "script/package: no space is left on the disk; no package was made\n"
        for room in (8, 300, 2000):
            with self.subTest(room):
                script = (f"mount -t tmpfs -o size={room}k none build && script/package --sdk '{SDK}';"
                          " status=$?; ls build/package/*.deb 2>/dev/null; exit $status")  # fmt: skip
                result = self.run_in(tree, "unshare", "--mount", "--map-root-user", "sh", "-c", script)
                self.assertEqual((2, ""), (result.returncode, result.stdout))
                self.assertTrue(result.stderr.endswith(told), result.stderr)
                stages = set(result.stderr.removesuffix(told).splitlines())
                self.assertLessEqual(stages, {"Headers", "Build", "Package"})
        self.assertGreater(compiled, 2000)


class WidgetsTest(BuildTest):
    def test_the_documented_command_builds_every_sample(self):
        section = (TREE / "docs/widgets.md").read_text().split("## Build for a device")[1]
        (command,) = re.findall(r"`(packaging/widget --sdk SDK samples/[^`]*)`", section)
        output = self.folder / "widgets"
        command = command.replace("SDK", '"$ZUNO_SDK"', 1) + f" --output {output}"
        result = self.run_in(TREE, "sh", "-ec", command)
        self.assertEqual((0, ""), (result.returncode, result.stderr))
        samples = {path.parent.name for path in (TREE / "samples/widgets").glob("*/Info.plist")}
        self.assertEqual({f"{name}Widget.bundle" for name in samples}, {path.name for path in output.iterdir()})
        for bundle in output.iterdir():
            images = macho.slices((bundle / bundle.stem).read_bytes())
            self.assertEqual(["arm64", "arm64e"], [image.arch for image in images])
            for image in images:
                self.assertIsNone(signature.problem(image))
                self.assertIn(bundle.stem, objc.names(image)[0])
                exported = {s for path in image.dylibs for s in Libraries(SDK, self.folder, image.arch).exports(path)}
                self.assertEqual([], [s.name for s in image.undefined if s.name not in exported])
            self.assertEqual([], list(signed_pointers(_Widget(images))))


class _Widget:
    """What the rule about signed pointers asks of a package."""

    link_map = None

    def __init__(self, images):
        self.images = [(image.arch, None, image) for image in images]


if __name__ == "__main__":
    unittest.main()
