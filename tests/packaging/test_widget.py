"""packaging/widget: widgets for devices with one command."""

import os
import plistlib
import re
import subprocess

from fixture import TREE, PackageTest, whole_sdk, write

from checker import macho, objc, signature

CODE = """
__attribute__((objc_root_class)) @interface NSObject { Class isa; } @end
@interface SampleWidget : NSObject
- (void)show;
@end
@implementation SampleWidget
- (void)show {}
@end
"""


class WidgetTest(PackageTest):
    def setUp(self):
        super().setUp()
        self.sdk = whole_sdk(self.folder / "an sdk", "Foundation", "UIKit", "CoreGraphics", "QuartzCore")
        self.widget, self.output = self.folder / "a widget", self.folder / "the output"
        write(self.widget / "Info.plist", {"CFBundleExecutable": "Sample"})
        write(self.widget / "SampleWidget.mm", CODE)
        write(self.widget / "SampleWidget.h", "")
        write(self.widget / "en.lproj/Localizable.strings", "")
        self.bundle = self.output / "Sample.bundle"

    def command(self, *arguments, **options):
        command = [TREE / "packaging/widget", *arguments]
        return subprocess.run([str(part) for part in command], capture_output=True, text=True, **options)

    def made(self, *arguments):
        result = self.command("--sdk", self.sdk, "--output", self.output, self.widget, *arguments, "--", "-lobjc")
        self.assertEqual((0, ""), (result.returncode, result.stderr))
        return result.stdout

    def refused(self, *arguments):
        result = self.command(*arguments)
        self.assertEqual((2, "", 1), (result.returncode, result.stdout, result.stderr.count("\n")), result.stderr)
        return result.stderr

    def slices(self):
        return macho.slices((self.bundle / "Sample").read_bytes())

    def test_a_bundle_has_both_slices_and_the_resources(self):
        self.assertEqual(f"{self.bundle} (arm64 arm64e )\n", self.made())
        self.assertEqual({"Info.plist", "Sample", "en.lproj"}, {path.name for path in self.bundle.iterdir()})
        self.assertTrue((self.bundle / "en.lproj/Localizable.strings").exists())
        for path in (self.bundle, self.bundle / "Sample"):
            self.assertEqual(0o755, path.stat().st_mode & 0o777)
        for image in self.slices():
            self.assertEqual((8, macho.PLATFORM_IOS, (15, 0)), (image.filetype, image.platform, image.minimum))
            self.assertIsNone(signature.problem(image))
            self.assertEqual(({"SampleWidget"}, {"show"}), objc.names(image))
        self.assertEqual(["arm64", "arm64e"], [image.arch for image in self.slices()])

    def test_a_makefile_tells_whether_it_is_written_for_arc(self):
        for option, condition in (("-fobjc-arc", "!__has_feature(objc_arc)"), ("-O2", "__has_feature(objc_arc)")):
            write(self.widget / "Makefile", f"BUNDLE_NAME = Sample\nSample_CFLAGS = {option}\n")
            write(self.widget / "SampleWidget.mm", f"#if {condition}\n#error not as the Makefile says\n#endif\n{CODE}")
            self.made()
            self.assertFalse((self.bundle / "Makefile").exists())

    def test_the_contract_is_found_where_the_device_has_it(self):
        check = "#if !__has_include(<Zuno/ZunoWidgetProtocol.h>)\n#error no contract\n#endif\n"
        write(self.widget / "SampleWidget.mm", check + CODE)
        self.made()

    def test_an_sdk_is_found_from_where_the_command_was_given(self):
        result = self.command("--sdk", self.sdk.name, "--output", self.output, self.widget, "--", "-lobjc",
                              cwd=self.sdk.parent)  # fmt: skip
        self.assertEqual((0, ""), (result.returncode, result.stderr))

    def test_nothing_is_left_of_the_build(self):
        scratch = self.folder / "scratch"
        scratch.mkdir()
        for source in (CODE, "broken"):
            write(self.widget / "SampleWidget.mm", source)
            self.command("--sdk", self.sdk, "--output", self.output, self.widget, "--", "-lobjc",
                         env={**os.environ, "TMPDIR": str(scratch)})  # fmt: skip
            self.assertEqual([], os.listdir(scratch))

    def test_one_kind_of_processor(self):
        self.made("--arch", "arm64e")
        self.assertEqual(["arm64e"], [image.arch for image in self.slices()])

    def test_a_kind_of_processor_that_is_named_twice_is_there_once(self):
        self.made("--arch", "arm64e", "--arch", "arm64e")
        self.assertEqual(["arm64e"], [image.arch for image in self.slices()])

    def test_a_folder_that_is_no_widget_does_not_take_the_place_of_the_one_before_it(self):
        other = self.folder / "no widget"
        write(other / "Other.mm", CODE.replace("SampleWidget", "OtherWidget"))
        result = self.command("--sdk", self.sdk, "--output", self.output, self.widget, other, "--", "-lobjc")
        self.assertEqual((2, f"packaging/widget: {other} has no Info.plist that names a CFBundleExecutable\n"),
                         (result.returncode, result.stderr))  # fmt: skip
        self.assertEqual({"SampleWidget"}, objc.names(self.slices()[0])[0])

    def test_flags_reach_the_linker(self):
        result = self.command("--sdk", self.sdk, "--output", self.output, self.widget, "--", "-lobjc",
                              "-Wl,-needed_framework,QuartzCore")  # fmt: skip
        self.assertEqual(0, result.returncode, result.stderr)
        for image in self.slices():
            self.assertIn("/System/Library/Frameworks/QuartzCore.framework/QuartzCore", image.dylibs)

    def test_code_that_does_not_compile_leaves_the_bundle_before(self):
        self.made()
        before = (self.bundle / "Sample").read_bytes()
        write(self.widget / "SampleWidget.mm", "broken")
        result = self.command("--sdk", self.sdk, "--output", self.output, self.widget)
        self.assertNotEqual(0, result.returncode)
        self.assertIn("a widget/SampleWidget.mm:1:1: error", result.stderr)
        self.assertEqual(before, (self.bundle / "Sample").read_bytes())
        self.assertEqual(["Sample.bundle"], os.listdir(self.output))

    def test_no_path_of_the_building_machine_is_in_it(self):
        write(self.widget / "SampleWidget.mm", CODE + "const char *where() { return __FILE__; }")
        self.made()
        self.assertNotIn(str(self.folder).encode(), (self.bundle / "Sample").read_bytes())

    def test_what_it_is_given_is_checked(self):
        self.assertIn("needs an iPhoneOS SDK", self.refused(self.widget))
        self.assertIn("is no SDK", self.refused("--sdk", self.widget, self.widget))
        self.assertIn("absent/sdk is no SDK", self.refused("--sdk", "absent/sdk", self.widget))
        self.assertIn("needs the folder of a widget", self.refused("--sdk", self.sdk))
        self.assertIn("--sdk needs a value", self.refused("--sdk"))
        self.assertIn("unknown argument --fast", self.refused("--fast"))
        self.assertIn("x86_64 is no kind of processor", self.refused("--arch", "x86_64"))
        self.assertIn("no Info.plist that names a CFBundleExecutable", self.refused("--sdk", self.sdk, self.folder))
        (self.widget / "SampleWidget.mm").unlink()
        self.assertIn("has no sources", self.refused("--sdk", self.sdk, "--output", self.output, self.widget))
        self.assertFalse(self.output.exists())


class DocumentTest(PackageTest):
    """What docs/widgets.md tells a widget's maker to type; tests/packaging/sdk builds the samples with it."""

    def test_every_command_of_the_page_is_one_of_the_program(self):
        section = (TREE / "docs/widgets.md").read_text().split("## Build for a device")[1]
        commands = re.findall(r"packaging/widget [^`\n]*", section)
        documented = ["packaging/widget --sdk SDK FOLDER...", "packaging/widget --sdk SDK samples/widgets/*/"]
        self.assertEqual(documented, commands)
        usage = subprocess.run([TREE / "packaging/widget", "--help"], capture_output=True, text=True).stdout
        for option in re.findall(r"`(--\w+)", section):
            self.assertIn(option, usage)

    def test_the_samples_are_widgets(self):
        for folder in (TREE / "samples/widgets").iterdir():
            if folder.is_dir():
                info = plistlib.loads((folder / "Info.plist").read_bytes())
                self.assertTrue([*folder.glob("*.m"), *folder.glob("*.mm")], folder)
                self.assertEqual("15.0", info["MinimumOSVersion"])
