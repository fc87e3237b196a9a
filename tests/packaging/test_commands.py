"""The commands of the device build: what they say, and that all builds are made of the same files."""

import json
import os
import re
import subprocess
from pathlib import Path

from fixture import TREE, PackageTest, write

THEOS_COMMON = """
THEOS_MAKE_PATH = $(THEOS)/makefiles
THEOS_STAGING_DIR = staging
"""
# Prints what the real one would build with.
THEOS_BUNDLE = """
all:
	@printf '%s\\n' $(ZunoPrefs_FILES)
settings:
	@printf '%s\\n' '$(BUNDLE_NAME) $(ZunoPrefs_INSTALL_PATH) $(THEOS_PACKAGE_SCHEME) $(ARCHS) $(TARGET)'
"""


def run(*command, **options):
    return subprocess.run([str(part) for part in command], capture_output=True, text=True, cwd=TREE, **options)


def sources():
    """The bundle's sources, relative to ZunoPrefs/."""
    folder = TREE / "ZunoPrefs"
    return {str(path.relative_to(folder)) for path in folder.rglob("*") if path.suffix in (".mm", ".cpp")}


class CheckTest(PackageTest):
    def check(self, *arguments):
        return run(TREE / "packaging/check", *arguments)

    def test_it_closes_with_the_counts(self):
        result = self.check(self.build(), "--sdk", self.sdk, "--stubs", self.stubs, "--arch", "arm64")
        self.assertEqual((0, "", "packaging/check: 14 rules, 0 problems\n"),
                         (result.returncode, result.stderr, result.stdout))  # fmt: skip

    def test_problems_are_told_one_a_line(self):
        self.files = {}
        self.control["Architecture"] = "all"
        result = self.check(self.build(), "--sdk", self.sdk, "--stubs", self.stubs, "--arch", "arm64")
        self.assertEqual((1, "packaging/check: 14 rules, 2 problems\n"), (result.returncode, result.stdout))
        self.assertEqual(["control_fields", "icons"], [line.split(":")[0] for line in result.stderr.splitlines()])

    def test_a_file_that_is_no_package_is_refused(self):
        result = self.check(write(self.folder / "odd.deb", "x"), "--sdk", self.sdk)
        self.assertEqual((2, ""), (result.returncode, result.stdout))
        self.assertIn("cannot be read", result.stderr)

    def test_a_stub_that_cannot_be_read_is_refused(self):
        stub = write(self.folder / "stubs/libbroken.tbd", "install-name: [")
        result = self.check(self.build(), "--sdk", self.sdk, "--stubs", stub.parent, "--arch", "arm64")
        self.assertEqual((2, ""), (result.returncode, result.stdout))
        self.assertIn(f"{stub} cannot be read: ", result.stderr)

    def test_a_folder_that_is_not_there_is_no_sdk(self):
        result = self.check(self.build(), "--sdk", self.folder / "absent")
        self.assertEqual(2, result.returncode)
        self.assertIn("is no folder", result.stderr)


class PackageCommandTest(PackageTest):
    def refused(self, *arguments):
        """The one sentence with which script/package refuses."""
        result = run(TREE / "script/package", *arguments)
        self.assertEqual((2, ""), (result.returncode, result.stdout))
        self.assertEqual(1, result.stderr.count("\n"), result.stderr)
        return result.stderr

    def made_sdk(self, name):
        """A folder that looks like an SDK of this name."""
        folder = self.folder / name
        write(folder / "System/Library/PrivateFrameworks/Preferences.framework/Preferences.tbd", "")
        write(folder / "SDKSettings.json", json.dumps({"CanonicalName": name}))
        return folder

    def test_it_says_that_it_needs_an_sdk(self):
        self.assertIn("needs an iPhoneOS SDK, 14.5 to 16.5, with the stubs of the private frameworks", self.refused())

    def test_a_folder_that_is_no_sdk_is_refused(self):
        self.assertIn("is no SDK", self.refused("--sdk", self.folder))

    def test_an_sdk_without_private_frameworks_is_refused(self):
        write(self.folder / "SDKSettings.json", "{}")
        self.assertIn("lacks the stubs of the private frameworks", self.refused("--sdk", self.folder))

    def test_an_sdk_of_another_version_is_refused(self):
        for name in ("iphoneos13.7", "iphoneos17.0", "macosx14.0"):
            with self.subTest(name):
                self.assertIn("the supported versions are 14.5 to 16.5", self.refused("--sdk", self.made_sdk(name)))

    def test_a_version_that_no_package_can_have_is_refused(self):
        sdk = self.made_sdk("iphoneos15.5")
        self.assertIn("one two is no version", self.refused("--sdk", sdk, "--version", "one two"))

    def test_arguments_are_checked(self):
        self.assertIn("--sdk needs a value", self.refused("--sdk"))
        self.assertIn("unknown argument --fast", self.refused("--fast"))


class SameFilesTest(PackageTest):
    def make(self, *arguments):
        result = run("make", *arguments)
        self.assertEqual("", result.stderr)
        return result.stdout

    def theos(self, goal):
        folder = self.folder / "theos"
        write(folder / "makefiles/common.mk", THEOS_COMMON)
        write(folder / "makefiles/bundle.mk", THEOS_BUNDLE)
        return self.make("--silent", "-C", "packaging", goal, f"THEOS={folder}")

    def test_the_build_with_theos_takes_every_source(self):
        found = {os.path.relpath(TREE / "packaging" / name, TREE / "ZunoPrefs") for name in self.theos("all").split()}
        self.assertEqual(sources(), found)

    def test_the_build_with_theos_is_rootless_and_for_both_kinds_of_processor(self):
        settings = "ZunoPrefs /Library/PreferenceBundles rootless arm64 arm64e iphone:clang:latest:15.0"
        self.assertEqual(settings, self.theos("settings").strip())

    def test_the_build_with_clang_takes_every_source(self):
        out = self.folder / "out"
        plan = self.make("-n", "-f", "packaging/clang.mk", f"SDK={self.sdk}", f"OUT={out}", "stage")
        compiled = re.findall(r" -c (?:\./)?ZunoPrefs/(\S+) -o ", plan)
        self.assertEqual(sources(), set(compiled))

    def test_the_build_for_the_simulator_takes_every_source(self):
        lists = (TREE / "ZunoPrefs/CMakeLists.txt").read_text()
        patterns = re.search(r"file\(GLOB zunoprefs_sources CONFIGURE_DEPENDS ([^)]*)\)", lists).group(1).split()
        folder = TREE / "ZunoPrefs"
        found = {str(path.relative_to(folder)) for pattern in patterns for path in folder.glob(pattern)}
        self.assertEqual(sources(), found)

    def test_the_version_is_the_one_that_the_pages_show(self):
        control = (TREE / "packaging/control").read_text()
        version = re.search(r"^Version: (.*)$", control, re.MULTILINE).group(1)
        self.assertIn(f'@"{version}"', (TREE / "ZunoPrefs/cells/NorvikPackage.mm").read_text())

    def test_only_the_header_of_device_paths_knows_the_platform(self):
        platform = re.compile(r"__APPLE__|GNUSTEP|GNU_RUNTIME|TARGET_OS|__linux__|<\w+/SIM|\bsim_|\+Sim\.h")
        files = [path for path in (TREE / "ZunoPrefs").rglob("*") if path.suffix in (".mm", ".cpp", ".h", ".hpp")]
        found = {str(path.relative_to(TREE / "ZunoPrefs")) for path in files if platform.search(path.read_text())}
        self.assertEqual({str(Path("core/DevicePaths.h"))}, found)
