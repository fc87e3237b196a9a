"""packaging/device-clang: what it leaves behind, and what of this machine stays outside."""

import os
import subprocess

from fixture import EXTRA, TREE, PackageTest, sdk_folder, write

LANGUAGES = ("c", "c++", "objective-c", "objective-c++")
FOLDERS = ("CPATH", "C_INCLUDE_PATH", "CPLUS_INCLUDE_PATH", "OBJC_INCLUDE_PATH", "OBJCPLUS_INCLUDE_PATH")
# Fails where a header of this machine's is found.
SOURCE = """
#if __has_include(<only_of_this_machine.h>)
#error a header of this machine
#endif
int sample;
"""


class DeviceClangTest(PackageTest):
    def compiled(self, target, source, language="c++", **environment):
        """The names of the files that compiling leaves behind."""
        output = self.folder / "made"
        output.mkdir(exist_ok=True)
        arguments = ("-c", "-x", language, source, "-nostdinc++", "-o", output / "sample.o")
        result = self.run_it(target, *arguments, **environment)
        self.assertEqual((0, ""), (result.returncode, result.stderr))
        return set(os.listdir(output))

    def run_it(self, target, *arguments, **environment):
        command = [str(part) for part in (TREE / "packaging/device-clang", target, sdk_folder(), *arguments)]
        return subprocess.run(command, capture_output=True, text=True, env={**os.environ, **environment})

    def test_an_object_of_arm64e_comes_with_its_assembly(self):
        source = write(self.folder / "sample.cpp", "int sample;")
        self.assertEqual({"sample.o"}, self.compiled("arm64-apple-ios15.0", source))
        self.assertEqual({"sample.o", "sample.o.s"}, self.compiled("arm64e-apple-ios15.0", source))

    def test_folders_that_the_environment_names_are_not_searched(self):
        write(self.folder / "headers/only_of_this_machine.h", "")
        source = write(self.folder / "sample", SOURCE)
        for language in LANGUAGES:
            for name in FOLDERS:
                with self.subTest(language=language, name=name):
                    self.compiled("arm64-apple-ios15.0", source, language, **{name: str(self.folder / "headers")})

    def test_libraries_of_this_machine_are_not_linked(self):
        write(self.folder / "libraries/libonly.tbd", EXTRA.replace("libextra", "libonly"))
        self.compiled("arm64-apple-ios15.0", write(self.folder / "sample.cpp", "int sample;"))
        made = self.folder / "made"
        result = self.run_it("arm64-apple-ios15.0", "-dynamiclib", made / "sample.o", "-lonly", "-o", made / "sample",
                             LIBRARY_PATH=str(self.folder / "libraries"))  # fmt: skip
        self.assertNotEqual(0, result.returncode)
        self.assertIn("library not found for -lonly", result.stderr)
