"""Every header that makers include compiles by itself, in each language that they write."""

import re
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
UMBRELLAS = """Foundation/Foundation.h CoreFoundation/CoreFoundation.h CoreGraphics/CoreGraphics.h CoreImage/CoreImage.h
    ImageIO/ImageIO.h QuartzCore/QuartzCore.h UIKit/UIKit.h dispatch/dispatch.h objc/message.h objc/objc-runtime.h
    SafariServices/SafariServices.h MessageUI/MessageUI.h LocalAuthentication/LocalAuthentication.h
    AudioToolbox/AudioToolbox.h notify.h os/availability.h Preferences/Preferences.h""".split()
# Not part of a framework's umbrella.
PRIVATE = """include/Preferences/*.h include/NorvikAppList/*.h include/PrivateFoundation/*.h
    include/FrontBoardServices/*.h include/SpringBoardServices/*.h include/MobileCoreServices/*.h""".split()

GCC = subprocess.run(["gcc", "-print-file-name=include"], capture_output=True, text=True, check=True).stdout.strip()
GNUSTEP = subprocess.run(
    ["gnustep-config", "--variable=GNUSTEP_SYSTEM_HEADERS"], capture_output=True, text=True, check=True
).stdout.strip()
COMMON = f"""-I simulator -I include -isystem {GNUSTEP} -idirafter {GCC}
    -DGNUSTEP -DGNUSTEP_BASE_LIBRARY=1 -DGNU_RUNTIME=1 -D_NATIVE_OBJC_EXCEPTIONS -Wall -Wextra -Werror -Wno-import
    -Wno-deprecated-declarations -fblocks -fexceptions -fobjc-exceptions
    -fconstant-string-class=NSConstantString""".split()
LANGUAGES = {
    "Objective-C with ARC": "-x objective-c -fobjc-runtime=gnustep-1.8 -fobjc-arc",
    "Objective-C without ARC": "-x objective-c -fobjc-runtime=gnustep-1.8 -fno-objc-arc",
    "Objective-C++ with ARC": "-x objective-c++ -std=gnu++17 -fobjc-runtime=gnustep-1.8 -fobjc-arc",
    "Objective-C++ of our own": "-x objective-c++ -std=gnu++20 -fobjc-runtime=gcc -fno-objc-arc",
}  # fmt: skip


def clang(text, *arguments):
    """The result of a compilation of `text`."""
    command = ["clang-19", *COMMON, *arguments, "-"]
    return subprocess.run(command, cwd=ROOT, input=text, capture_output=True, text=True, check=False)


def public_headers():
    """Our headers that the umbrellas include, as a maker names them."""
    text = "".join(f"#import <{name}>\n" for name in UMBRELLAS)
    rule = clang(text, *LANGUAGES["Objective-C with ARC"].split(), "-MM", "-MT", "all").stdout
    ours = {Path(name) for name in rule.replace("\\\n", " ").split()[1:] if name.startswith(("simulator/", "include/"))}
    ours.update(path.relative_to(ROOT) for pattern in PRIVATE for path in ROOT.glob(pattern))
    return sorted(Path(*path.parts[1:]).as_posix() for path in ours)


def first_import(header):
    """The header of ours that `header` imports before it declares anything; None if it begins otherwise."""
    path = next(path for folder in ("simulator", "include") if (path := ROOT / folder / header).exists())
    text = re.sub(r"/\*.*?\*/", "", path.read_text(), flags=re.DOTALL)
    lines = [line.split("//")[0].strip() for line in text.splitlines()]
    beginning = next((line for line in lines if line and line != "#pragma once"), "")
    found = re.fullmatch(r"#\s*(?:import|include) <(.+)>", beginning)
    ours = found and any((ROOT / folder / found[1]).exists() for folder in ("simulator", "include"))
    return found[1] if ours else None


class Compiler:
    """Compiles headers alone, in one language.

    Almost all begin with Foundation or UIKit, by way of others or not. These are compiled once for all of them, which
    is what a compiler sees of each alone; in C++ with what they keep their state in, which C does not know.
    """

    BEGINNINGS = ("Foundation/Foundation.h", "UIKit/UIKit.h")

    def __init__(self, language, folder):
        self._flags, self._folder = LANGUAGES[language].split(), Path(folder)
        # A header is compiled as another language than a source of the same.
        flags = [f"{flag}-header" if flag.startswith("objective-c") else flag for flag in self._flags]
        standard = "#include <memory>\n" if "C++" in language else ""
        for beginning in self.BEGINNINGS:
            text = f"#import <{beginning}>\n{standard}"
            clang(text, *flags, "-o", str(self._precompiled(beginning))).check_returncode()

    def _precompiled(self, beginning):
        return self._folder / Path(beginning).with_suffix(".pch").name

    def check(self, header):
        """What the compiler says of `header`; nothing if it compiles."""
        first = first_import(header)
        while first and first not in self.BEGINNINGS:
            first = first_import(first)
        begun = ["-include-pch", str(self._precompiled(first))] if first else []
        return clang(f"#import <{header}>\n", "-fsyntax-only", *self._flags, *begun).stderr


class Headers(unittest.TestCase):
    def check_each_alone(self, language):
        headers = public_headers()
        self.assertGreater(len(headers), 80)
        for name in UMBRELLAS:
            self.assertIn(name, headers)
        with tempfile.TemporaryDirectory() as folder:
            compiler = Compiler(language, folder)
            for header in headers:
                with self.subTest(header=header):
                    self.assertEqual("", compiler.check(header))

    def test_each_alone_in_objective_c_with_arc(self):
        self.check_each_alone("Objective-C with ARC")

    def test_each_alone_in_objective_c_without_arc(self):
        self.check_each_alone("Objective-C without ARC")

    def test_each_alone_in_objective_cxx_with_arc(self):
        self.check_each_alone("Objective-C++ with ARC")

    def test_each_alone_in_objective_cxx_of_our_own(self):
        self.check_each_alone("Objective-C++ of our own")

    def test_frameworks_are_imported_as_modules(self):
        modules = """Foundation CoreFoundation CoreGraphics CoreImage ImageIO QuartzCore UIKit Preferences
            SafariServices MessageUI LocalAuthentication AudioToolbox FrontBoardServices SpringBoardServices
            MobileCoreServices""".split()
        use = "UIView *view(PSListController *page) { return CGRectIsEmpty(page.view.frame) ? nil : page.table; }"
        text = "".join(f"@import {name};\n" for name in modules) + use
        with tempfile.TemporaryDirectory() as cache:
            for language, more in (("Objective-C with ARC", ()), ("Objective-C++ with ARC", ("-fcxx-modules",))):
                with self.subTest(language=language):
                    flags = [*LANGUAGES[language].split(), "-fmodules", f"-fmodules-cache-path={cache}", *more]
                    result = clang(text, "-fsyntax-only", *flags)
                    self.assertEqual(result.returncode, 0, result.stderr)

    def test_what_makers_write_over_them(self):
        """Words and habits of makers' sources that are no more than declarations."""
        text = """
            #import <Preferences/PSSpecifier.h>
            #import <Preferences/PSListController.h>
            @interface NSTask : NSObject @property(copy) NSString *launchPath; - (void)launch; @end
            NS_INLINE CGFloat twice(CGFloat x) { return x * 2; }
            API_AVAILABLE(ios(14.0)) @interface Cell : PSTableCell @property (nonatomic, weak) id owner; @end
            @implementation Cell @end
            @interface Page : PSListController @end
            @implementation Page
            - (NSArray *)specifiers {
              if (!_specifiers) _specifiers = [self loadSpecifiersFromPlistName:@"Root" target:self];
              [_specifiers addObject:[PSSpecifier emptyGroupSpecifier]];
              return _specifiers;
            }
            - (void)reach:(UIAlertController *)alert {
              NSString *text = alert.textFields.firstObject.text ?: alert.actions[0].title;
              UIViewController *first = self.navigationController.viewControllers.firstObject.navigationController;
              first = UIApplication.sharedApplication.windows[0].rootViewController ?: self.childViewControllers[0];
              UILabel *label = self.table.visibleCells.firstObject.textLabel;
              label.tag = self.table.indexPathsForVisibleRows.firstObject.row +
                          self.navigationItem.rightBarButtonItems[0].tag;
              NSTask *task = [NSTask new];
              task.launchPath = text ?: first.title;
              dispatch_async(dispatch_get_main_queue(), ^{ usleep(1); [task launch]; });
            }
            - (void)use:(PSSpecifier *)row NS_EXTENSION_UNAVAILABLE("") {
              if (@available(iOS 14, *)) row->action = nil;
              NSError *error = nil;
              NSString *text = [NSString stringWithContentsOfFile:@"/x" encoding:NSUTF8StringEncoding error:nil];
              CFStringRef bridged = (__bridge CFStringRef)text;
              CFTypeRef kept = CFBridgingRetain(text);
              NSString *back = CFBridgingRelease(kept);
              BOOL flags[] = {TRUE, FALSE, twice(1) > 2};
              NSArray *all = @[ @YES, @(flags[0]), back, (__bridge NSString *)bridged, @{@"k" : @NO}[@"k"] ];
              [self performSelector:nil withObject:all[0] withObject:error];
            }
            @end
            """
        for language in ("Objective-C with ARC", "Objective-C++ with ARC"):
            with self.subTest(language=language):
                result = clang(text, "-fsyntax-only", *LANGUAGES[language].split(), "-Wno-arc-performSelector-leaks")
                self.assertEqual(result.returncode, 0, result.stderr)


if __name__ == "__main__":
    unittest.main()
