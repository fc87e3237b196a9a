"""What is installed, and what is refused, on machines that are made up: their commands are stand-ins."""

import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]
SYSTEMS = {
    "bookworm": 'PRETTY_NAME="Debian GNU/Linux 12 (bookworm)"\nID=debian\nVERSION_CODENAME=bookworm\n',
    "trixie": 'PRETTY_NAME="Debian GNU/Linux 13 (trixie)"\nID=debian\nVERSION_CODENAME=trixie\n',
    "other": 'PRETTY_NAME="Sample 4.0"\nID=sample\nID_LIKE=debian\nVERSION_CODENAME=new\n',
}
TOOLS = ("bash", "sh", "awk", "sed", "grep", "sort", "comm", "mkdir", "rm", "touch", "cat", "tail", "dirname", "env")


class PackagesTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name).resolve()
        self.tree, self.programs, self.calls = self.folder / "tree", self.folder / "bin", self.folder / "calls"
        shutil.copytree(TREE / "script", self.tree / "script")
        (self.tree / "package-lock.json").write_text("{}")
        self.programs.mkdir()
        for tool in TOOLS:
            (self.programs / tool).symlink_to(shutil.which(tool))
        self.user(0)
        self.missing()
        # What apt is told to show its progress on is taken away from dpkg: never one of the three.
        self.program(
            "apt-get", 'for each; do case $each in APT::Status-Fd=*) fd=${each#*=} ;; esac; done; '
            '[ "$fd" -gt 2 ] && echo "pmstatus:lib:50.0:Installing lib" >&"$fd" && echo "apt-get noise"'
        )  # fmt: skip
        self.program("apt-cache", 'shift; for each; do printf "%s:\\n  Candidate: 1\\n" "$each"; done')
        self.program("node", "")
        self.program("npm", "mkdir -p node_modules")

    def program(self, name, body):
        """A command that notes each call."""
        path = self.programs / name
        path.write_text(f'#!/bin/bash\necho "{name} $*" >>{self.calls}\n{body}\n')
        path.chmod(0o755)

    def user(self, number):
        self.program("id", f"echo {number}")

    def installed(self, *packages):
        """All other packages are missing."""
        self.packages(packages, "installed", "missing")

    def missing(self, *packages):
        """All other packages are installed."""
        self.packages(packages, "missing", "installed")

    def packages(self, named, state, others):
        names = "|".join(named) or "none"
        self.program("dpkg-query", f'shift 2; for each; do case $each in {names}) echo "{state} $each" ;; '
                                   f'*) echo "{others} $each" ;; esac; done')  # fmt: skip

    def bootstrap(self, purpose="run", system="bookworm"):
        release = self.folder / "os-release"
        release.write_text(SYSTEMS[system])
        environment = {"PATH": str(self.programs), "OS_RELEASE": str(release)}
        return subprocess.run(
            [self.tree / "script/bootstrap", purpose], capture_output=True, text=True, env=environment,
            stdin=subprocess.DEVNULL, timeout=60,
        )  # fmt: skip

    def called(self, name):
        calls = self.calls.read_text().splitlines() if self.calls.exists() else []
        return [call.removeprefix(name + " ") for call in calls if call.startswith(name + " ")]

    def packages_installed(self):
        calls = [call.split() for call in self.called("apt-get") if "install" in call.split()]
        return [word for call in calls for word in call[call.index("install") + 1 :] if not word.startswith("-")]

    def assert_refused(self, sentence, result):
        self.assertEqual((2, ""), (result.returncode, result.stdout))
        self.assertEqual(f"script/bootstrap: {sentence}", result.stderr.splitlines()[-1])
        self.assertEqual([], self.packages_installed())
        self.assertEqual([], self.called("npm"))

    def test_a_machine_that_has_all_is_left_alone(self):
        self.bootstrap()
        result = self.bootstrap()
        self.assertEqual((0, "", ""), (result.returncode, result.stdout, result.stderr))
        self.assertEqual([], self.called("apt-get"))
        self.assertEqual(1, len(self.called("npm")))

    def test_modules_are_installed_once(self):
        self.bootstrap("test")
        self.bootstrap("test")
        self.bootstrap("run")
        self.assertEqual(1, len(self.called("npm")))
        os.utime(self.tree / "package-lock.json")
        self.bootstrap("run")
        self.assertEqual(2, len(self.called("npm")))

    def test_what_builds_the_simulator_has_the_modules_that_it_is_built_with(self):
        for purpose in ("run", "bench", "mutate"):
            shutil.rmtree(self.tree / "node_modules", ignore_errors=True)
            self.calls.unlink(missing_ok=True)
            self.bootstrap(purpose)
            self.assertEqual(1, len(self.called("npm")), purpose)
            self.assertIn("--omit=dev", self.called("npm")[0])

    def test_root_installs_what_is_missing_and_the_noise_is_in_the_log(self):
        self.installed("gcc", "cmake")
        result = self.bootstrap()
        self.assertEqual((0, "Packages\nModules\n"), (result.returncode, result.stderr))
        self.assertIn("clang-19", self.packages_installed())
        self.assertNotIn("gcc", self.packages_installed())
        self.assertNotIn("nodejs", self.packages_installed())  # The machine has a node of its own.
        self.assertIn("apt-get noise", (self.tree / "build/log/bootstrap.log").read_text())

    def test_node_is_installed_where_there_is_none(self):
        (self.programs / "node").unlink()
        self.installed("npm")
        self.bootstrap()
        self.assertIn("nodejs", self.packages_installed())

    def test_each_release_has_packages_of_its_own(self):
        self.installed()
        self.bootstrap("package", "bookworm")
        self.assertIn("libc++-14-dev", self.packages_installed())
        self.assertNotIn("libc++-17-dev", self.packages_installed())
        self.calls.unlink()
        self.bootstrap("package", "trixie")
        self.assertIn("libc++-17-dev", self.packages_installed())
        self.assertNotIn("libc++-14-dev", self.packages_installed())

    def test_no_package_is_named_twice(self):
        for purpose in ("run", "test", "bench", "package", "mutate"):
            self.installed()
            self.bootstrap(purpose)
            packages = self.packages_installed()
            self.assertEqual(sorted(set(packages)), sorted(packages), purpose)
            self.calls.unlink()

    def test_another_system_is_named(self):
        self.assert_refused(
            "needs Debian 12 (bookworm) or Debian 13 (trixie), and this is Sample 4.0.", self.bootstrap(system="other")
        )

    def test_without_root_and_sudo_the_missing_packages_are_named(self):
        self.user(1000)
        self.missing("gobjc", "gcc")
        self.assert_refused("needs root, or sudo, to install gcc gobjc.", self.bootstrap())

    def test_a_sudo_that_refuses_is_told_of(self):
        self.user(1000)
        self.program("sudo", "exit 1")
        self.missing("gobjc")
        self.assert_refused("needs root to install gobjc, and sudo refuses it.", self.bootstrap())

    def test_without_anything_missing_no_root_is_needed(self):
        self.user(1000)
        self.assertEqual(0, self.bootstrap().returncode)

    def test_others_install_through_sudo(self):
        self.user(1000)
        self.program("sudo", '[ "$1" = -n ] || "$@" 3>&-')  # It closes all but three descriptors.
        self.installed()
        self.assertEqual(0, self.bootstrap().returncode)
        self.assertIn("clang-19", self.packages_installed())
        self.assertEqual(3, len(self.called("sudo")))  # Asked whether it may, update, install.

    def test_a_package_that_no_source_has_is_named(self):
        self.installed()
        self.program(
            "apt-cache", 'shift; for each; do case $each in gobjc) v="(none)" ;; gcc) continue ;; *) v=1 ;; esac; '
            'printf "%s:\\n  Installed: (none)\\n  Candidate: $v\\n" "$each"; done'
        )  # fmt: skip
        log = self.tree / "build/log/bootstrap.log"
        told = f"needs what no package source of this machine has: gcc gobjc. See {log}."
        self.assert_refused(told, self.bootstrap())

    def test_when_apt_fails_its_last_lines_are_shown(self):
        self.installed()
        self.program("apt-get", 'echo "E: no network"; exit 100')
        result = self.bootstrap()
        self.assertEqual(100, result.returncode)
        self.assertIn("Packages failed after", result.stderr)
        self.assertTrue(result.stderr.endswith("  E: no network\n"), result.stderr)

    def test_an_unknown_purpose_is_refused(self):
        result = self.bootstrap("everything")
        usage = "usage: script/bootstrap run|test|bench|mutate|package|device-test\n"
        self.assertEqual((2, usage), (result.returncode, result.stderr))


if __name__ == "__main__":
    unittest.main()
