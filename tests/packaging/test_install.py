"""What dpkg does with the folders that Settings writes to: installing, upgrading and removing the package."""

import re
import subprocess

from fixture import TREE, USER_FOLDERS, PackageTest, write

from checker import subject

PRESETS, WIDGETS = USER_FOLDERS
STATUS = "var/jb/var/lib/dpkg"


class InstallTest(PackageTest):
    def setUp(self):
        super().setUp()
        self.control["Depends"] = "firmware (>= 15.0), preferenceloader"
        self.device = self.folder / "device"
        for name in ("info", "updates", "triggers"):
            (self.device / STATUS / name).mkdir(parents=True)
        write(self.device / STATUS / "status", "")
        self.ownership = write(self.folder / "ownership", "")

    def dpkg(self, *arguments):
        """Runs dpkg for the made-up device; who owns what there is remembered between the runs."""
        command = ["dpkg", f"--instdir={self.device}", f"--admindir={self.device / STATUS}", "--log=/dev/null",
                   "--force-architecture", "--force-depends", "--force-bad-path", "--force-not-root"]  # fmt: skip
        return self.faked(*command, *arguments)

    def faked(self, *command):
        fake = ["fakeroot", "-i", self.ownership, "-s", self.ownership, "--"]
        result = subprocess.run([str(part) for part in [*fake, *command]], capture_output=True, text=True)
        self.assertEqual(0, result.returncode, result.stderr)
        return result.stdout

    def install(self, version):
        self.control["Version"] = version
        self.dpkg("--install", self.build())

    def owner(self, path):
        return self.faked("stat", "-c", "%u:%g %a", self.device / path).strip()

    def test_mobile_owns_the_folders(self):
        self.install("1.0")
        self.assertEqual(["501:501 755"] * 2, [self.owner(PRESETS), self.owner(WIDGETS)])
        self.assertEqual("0:0 755", self.owner("var/jb/Library/Zuno"))

    def test_presets_survive_an_upgrade_and_stay_mobile_s(self):
        self.install("1.0")
        preset = write(self.device / PRESETS / "Dark.plist", {"theme": "dark"})
        self.faked("chown", "501:501", preset)
        before = preset.read_bytes()
        self.install("1.1")
        self.assertEqual(before, preset.read_bytes())
        self.assertEqual(["501:501 755", "501:501 644"], [self.owner(PRESETS), self.owner(f"{PRESETS}/Dark.plist")])

    def test_presets_survive_a_removal_and_another_installation(self):
        for removal in ("--remove", "--purge"):
            with self.subTest(removal):
                self.install("1.0")
                preset = write(self.device / PRESETS / "Dark.plist", {"theme": "dark"})
                self.dpkg(removal, self.control["Package"])
                self.assertTrue(preset.exists())
                self.assertFalse((self.device / WIDGETS).exists())
                self.assertFalse((self.device / "var/jb/Library/PreferenceBundles").exists())
                self.install("1.1")
                self.assertTrue(preset.exists())

    def test_a_folder_that_was_there_keeps_its_owner(self):
        """One that a package of widgets brought first, as root. The bundle tells the log when it may not write."""
        (self.device / WIDGETS).mkdir(parents=True)
        self.install("1.0")
        self.assertEqual(["501:501 755", "0:0 755"], [self.owner(PRESETS), self.owner(WIDGETS)])


class SameFoldersTest(PackageTest):
    def test_builds_checker_and_bundle_name_the_same_folders(self):
        settings = (TREE / "packaging/bundle.mk").read_text()
        folders = re.search(r"^ZUNO_USER_FOLDERS = (.*)$", settings, re.MULTILINE).group(1).split()
        self.assertEqual(list(subject.USER_FOLDERS), [subject.ROOT + folder for folder in folders])
        self.assertEqual(subject.USER_FOLDERS, tuple(f"/{folder}" for folder in USER_FOLDERS))
        self.assertIn(f"ZUNO_USER = {subject.USER}:{subject.USER}\n", settings)
        paths = (TREE / "ZunoPrefs/core/DevicePaths.h").read_text()
        for folder in subject.USER_FOLDERS:
            self.assertIn(f'devicePath(@"{folder}")', paths)
