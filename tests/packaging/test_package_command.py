"""script/package from its arguments to the package, in a small tree of its own with a made-up SDK."""

import fcntl
import os
import shutil
import signal
import subprocess
import time

from fixture import SYSTEM, TREE, PackageTest, whole_sdk, write

from checker import exports, macho
from checker.package import Package

PAGE = """
__attribute__((objc_root_class)) @interface NSObject { Class isa; } @end
@interface ZunoPage : NSObject @end
@implementation ZunoPage @end
"""
NAME = "com.norvik.zuno_0.1.0-Beta3-rootless_iphoneos-arm64.deb"
BUNDLE = "/var/jb/Library/PreferenceBundles/ZunoPrefs.bundle"


class PackageCommandTest(PackageTest):
    def setUp(self):
        super().setUp()
        self.sdk = self.made_sdk("an sdk")
        self.tree = self.folder / "the tree"
        for part in ("packaging", "script"):
            shutil.copytree(TREE / part, self.tree / part)
        # There are no headers to compare: that command has tests of its own.
        write(self.tree / "packaging/compare-headers", '#!/bin/sh\necho "speaks $LC_ALL"\n').chmod(0o755)
        settings = self.tree / "packaging/bundle.mk"
        # Foundation brings the runtime, the made-up one does not.
        write(settings, settings.read_text().replace("ZUNO_LIBRARIES = ", "ZUNO_LIBRARIES = objc "))
        bundle = self.tree / "ZunoPrefs"
        self.info |= {"CFBundleExecutable": "ZunoPrefs", "NSPrincipalClass": "ZunoPage"}
        write(bundle / "Resources/Info.plist", self.info)
        write(bundle / "com.norvik.Zuno.plist", {"entry": {"bundle": "ZunoPrefs", "detail": "ZunoPage"}})
        write(bundle / "widgets/ZunoWidgetProtocol.h", "")
        write(bundle / "core/ZunoPage.mm", PAGE)
        write(bundle / "core/Extra.cpp", "int extra() { return 1; }")
        self.output = self.folder / "the output"
        self.environment = {**os.environ, "SOURCE_DATE_EPOCH": "1700000000"}

    def made_sdk(self, name):
        return whole_sdk(self.folder / name, "Foundation", "UIKit", "CoreGraphics", "CoreImage", "CoreFoundation",
                         "ImageIO")

    def command(self, *arguments):
        return [str(part) for part in (self.tree / "script/package", "--sdk", self.sdk, *arguments)]

    def run_it(self, *command, **options):
        options = {"env": self.environment, "cwd": self.folder} | options
        return subprocess.run([str(part) for part in command], capture_output=True, text=True, **options)

    def made(self, *arguments, **options):
        """The package that it makes, as a path."""
        result = self.run_it(*self.command("--output", self.output, *arguments), **options)
        log = self.tree / "build/log/package.log"
        self.assertEqual(0, result.returncode, result.stderr + log.read_text())
        self.assertTrue(result.stdout.splitlines()[-1].startswith(f"{self.output}/{NAME} ("), result.stdout)
        self.assertEqual([NAME], os.listdir(self.output))
        return self.output / NAME

    def refused(self, *arguments, **options):
        """The one sentence with which it refuses."""
        result = self.run_it(*self.command(*arguments), **options)
        self.assertEqual((2, ""), (result.returncode, result.stdout), result.stderr)
        self.assertEqual(1, result.stderr.count("\n"), result.stderr)
        return result.stderr.removeprefix("script/package: ").rstrip("\n")

    def exported(self, package):
        (*_, image) = macho.slices(Package(package).file(f"{BUNDLE}/ZunoPrefs"))
        return exports.names(image)


class MadeTest(PackageCommandTest):
    def test_the_same_bytes_whoever_makes_it_and_whatever_was_made_before(self):
        def made(*arguments, umask):
            return self.made(*arguments, umask=umask).read_bytes()

        first = made(umask=0o022)
        self.made("--arch", "arm64")
        self.assertEqual(first, made("--arch", "arm64e", "--arch", "arm64", umask=0o077))
        for path in self.tree.rglob("*"):
            path.chmod(path.stat().st_mode & 0o700)
        shutil.rmtree(self.tree / "build")
        self.assertEqual(first, made(umask=0o002))

    def test_a_source_that_is_gone_is_gone_from_the_package(self):
        self.assertIn("__Z5extrav", self.exported(self.made()))
        (self.tree / "ZunoPrefs/core/Extra.cpp").unlink()
        self.assertNotIn("__Z5extrav", self.exported(self.made()))

    def test_a_header_that_is_gone_is_missed_by_nobody(self):
        header = write(self.tree / "ZunoPrefs/core/Extra.h", "#define NAME earlier")
        write(self.tree / "ZunoPrefs/core/Extra.cpp", '#include "core/Extra.h"\nint NAME() { return 1; }')
        self.assertIn("__Z7earlierv", self.exported(self.made()))
        header.unlink()
        write(self.tree / "ZunoPrefs/core/Extra.cpp", "int later() { return 1; }")
        self.assertIn("__Z5laterv", self.exported(self.made()))

    def test_another_sdk_in_the_place_of_the_one_before(self):
        header = "usr/include/extra.h"
        write(self.sdk / header, "#define NAME earlier")
        write(self.tree / "ZunoPrefs/core/Extra.cpp", "#include <extra.h>\nint NAME() { return 1; }")
        self.assertIn("__Z7earlierv", self.exported(self.made()))
        shutil.rmtree(self.sdk)
        self.made_sdk("an sdk")
        write(self.sdk / header, "#define NAME later")
        os.utime(self.sdk / header, (1, 1))
        self.assertIn("__Z5laterv", self.exported(self.made()))

    def test_a_stub_that_changes_inside_the_sdk_is_linked_anew(self):
        self.made()
        write(self.sdk / "usr/lib/libSystem.tbd", SYSTEM.replace("libSystem.B", "libSystem.C"))
        write(self.sdk / "usr/lib/libSystem.C.tbd", SYSTEM.replace("libSystem.B", "libSystem.C"))
        (image, _) = macho.slices(Package(self.made()).file(f"{BUNDLE}/ZunoPrefs"))
        self.assertIn("/usr/lib/libSystem.C.dylib", image.dylibs)

    def test_a_kind_of_processor_that_is_named_twice_is_there_once(self):
        package = Package(self.made("--arch", "arm64e", "--arch", "arm64e"))
        self.assertEqual(["arm64e"], [image.arch for image in macho.slices(package.file(f"{BUNDLE}/ZunoPrefs"))])

    def test_the_tools_speak_the_language_in_which_they_are_understood(self):
        self.environment |= {"LC_ALL": "de_DE.UTF-8", "LANG": "de_DE.UTF-8", "LANGUAGE": "de"}
        self.made()
        self.assertIn("\nspeaks C\n", (self.tree / "build/log/package.log").read_text())

    def test_nothing_is_compiled_twice(self):
        self.made()
        made = {path: path.stat().st_mtime_ns for path in (self.tree / "build").rglob("arm64*/**/*") if path.is_file()}
        self.assertGreater(len(made), 4)
        self.made()
        self.assertEqual(made, {path: path.stat().st_mtime_ns for path in made})


class OutputTest(PackageCommandTest):
    def test_a_folder_that_cannot_be_made(self):
        write(self.folder / "file", "")
        for output, where in (("file", "file"), ("file/in/it", "file")):
            place = self.folder / where
            self.assertEqual(f"the package cannot go to {self.folder / output}, as {place} is no folder",
                             self.refused("--output", output))  # fmt: skip
        (self.folder / "link").symlink_to("nowhere")
        self.assertIn("link is no folder", self.refused("--output", "link/in"))

    def test_a_folder_that_may_not_be_written(self):
        self.folder.chmod(0o755)
        self.output.mkdir()
        self.output.chmod(0o555)
        # The superuser may write anywhere.
        somebody = ["setpriv", "--reuid=65534", "--clear-groups"] if os.geteuid() == 0 else []
        result = self.run_it(*somebody, *self.command("--output", self.output / "in"))
        sentence = f"script/package: the package cannot go to {self.output}/in, as {self.output} may not be written\n"
        self.assertEqual((2, "", sentence), (result.returncode, result.stdout, result.stderr))

    def test_a_disk_of_the_output_that_is_full(self):
        """The package before stays, and nothing half-written lies beside it."""
        write(self.output / NAME, "before")
        tool = f"""#!/bin/sh
for last; do :; done
case $last in
  '{self.output}'/*) printf half >"$last"; echo "cp: error writing '$last': No space left on device" >&2; exit 1 ;;
  *) exec /bin/cp "$@" ;;
esac
"""
        write(self.folder / "bin/cp", tool).chmod(0o755)
        self.environment["PATH"] = f"{self.folder}/bin:{os.environ['PATH']}"
        result = self.run_it(*self.command("--output", self.output))
        told = "script/package: no space is left on the disk; no package was made\n"
        self.assertEqual((2, f"Headers\nBuild\nPackage\n{told}"), (result.returncode, result.stderr))
        self.assertEqual([NAME], os.listdir(self.output))
        self.assertEqual("before", (self.output / NAME).read_text())


class SeveralRunsTest(PackageCommandTest):
    def test_a_second_run_in_the_same_tree_is_refused(self):
        (self.tree / "build/package").mkdir(parents=True)
        log = write(self.tree / "build/log/package.log", "of the first one")
        with open(self.tree / "build/package/lock", "w", encoding="utf-8") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            self.assertEqual(f"another run is building in {self.tree}/build/package", self.refused())
            self.assertEqual("of the first one", log.read_text())
        self.made()

    def test_a_run_that_is_interrupted_leaves_nothing_that_the_next_one_takes(self):
        whole = self.made().read_bytes()
        for path in (self.tree / "ZunoPrefs/core").iterdir():
            path.touch()
        for wait in (0.3, 0.6, 0.9, 1.2):
            command = self.command("--output", self.output)
            with subprocess.Popen(command, env=self.environment, start_new_session=True, stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL) as run:  # fmt: skip
                time.sleep(wait)
                os.killpg(run.pid, signal.SIGTERM)
            self.assertEqual([NAME], os.listdir(self.output))
            self.assertEqual(whole, (self.output / NAME).read_bytes())
        self.assertEqual(whole, self.made().read_bytes())


class BadInputTest(PackageCommandTest):
    def failed(self, *arguments):
        """What it says of a package that is not made."""
        result = self.run_it(*self.command("--output", self.output, *arguments))
        self.assertNotEqual(0, result.returncode)
        self.assertNotIn(NAME, result.stdout)
        self.assertEqual([], os.listdir(self.output) if self.output.exists() else [])
        return result.stderr

    def test_an_sdk_that_lacks_a_stub(self):
        for stub in ("System/Library/Frameworks/CoreImage.framework/CoreImage.tbd", "usr/lib/libc++.tbd"):
            kept = (self.sdk / stub).read_bytes()
            (self.sdk / stub).unlink()
            self.assertEqual(f"{self.sdk} lacks the stub {stub}, which the bundle is linked against", self.refused())
            write(self.sdk / stub, kept)

    def test_an_sdk_that_is_not_there(self):
        self.sdk = self.folder / "absent"
        self.assertEqual(f"{self.sdk} is no SDK: it has no SDKSettings.json", self.refused())

    def test_code_that_does_not_compile(self):
        write(self.tree / "ZunoPrefs/core/Extra.cpp", "broken")
        self.assertRegex(self.failed(), r"(?m)^  ZunoPrefs/core/Extra.cpp:1:1: error: ")

    def test_a_package_that_the_checker_refuses(self):
        write(self.tree / "ZunoPrefs/Resources/Thumbs.db", "")
        said = f"layout: {BUNDLE}/Thumbs.db does not belong into a package\n"
        self.assertTrue(self.failed().endswith(said))

    def test_code_that_expects_what_the_sdk_has_not(self):
        write(self.tree / "ZunoPrefs/core/Extra.cpp", "int absent(); int extra() { return absent(); }")
        self.assertIn("undefined symbol: absent()", self.failed())
