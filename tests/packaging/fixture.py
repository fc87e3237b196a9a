"""Made-up packages for the tests of the checker: a small bundle built with clang against a hand-written SDK."""

import functools
import json
import plistlib
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(TREE / "packaging"))

from checker import rules  # noqa: E402
from checker.subject import Subject  # noqa: E402

BUNDLE = "var/jb/Library/PreferenceBundles/Sample.bundle"
ENTRY = "var/jb/Library/PreferenceLoader/Preferences/com.example.sample.plist"
INSTALL_NAME = f"/{BUNDLE}/Sample"
USER_FOLDERS = ("var/jb/Library/Zuno/Presets", "var/jb/Library/Zuno/Widgets")

SOURCE = """
__attribute__((objc_root_class)) @interface NSObject { Class isa; } @end
@interface PSListController : NSObject @end
@interface SamplePage : PSListController
- (void)restart;
- (id)read:(id)row;
+ (void)shared;
@end
@implementation SamplePage
- (void)restart {}
- (id)read:(id)row { return row; }
+ (void)shared {}
@end
@interface SamplePage (Writing)
- (void)write:(id)value row:(id)row;
@end
@implementation SamplePage (Writing)
- (void)write:(id)value row:(id)row {}
@end
@interface SampleCell : NSObject @end
@implementation SampleCell
@end
"""

# What the platform authenticates, of every kind.
SIGNED_SOURCE = """
#include <stddef.h>
__attribute__((objc_root_class)) @interface NSObject { Class isa; } @end
@interface NSString : NSObject @end
@interface PSListController : NSObject @end
@interface SamplePage : PSListController { int _row; }
- (void)restart;
+ (void)shared;
@end
@implementation SamplePage
- (void)restart {}
- (id)read:(id)row { return @"text"; }
- (void)write:(id)value row:(id)row {}
+ (void)shared {}
@end
@interface SamplePage (More)
- (void)more;
+ (void)moreShared;
@end
@implementation SamplePage (More)
- (void)more {}
+ (void)moreShared {}
@end
@interface SampleCell : SamplePage @end
@implementation SampleCell @end

// Its description is not unique: the pointer to its name has the topmost bit set.
struct Inline { virtual int seen() { return 1; } };
Inline *everywhere() { static Inline instance; return &instance; }

struct Shape { virtual int sides(); virtual int corners(); };
int Shape::sides() { return 0; }
int Shape::corners() { return 0; }
struct Square : Shape { int sides() override; };
int Square::sides() { return 4; }
Shape *shape() { static Square square; return &square; }

extern void (^const kBlock)(void);
void (^const kBlock)(void) = ^{};
int twice(int value) { return 2 * value; }
extern "C" int outside(int);
extern int (*const kFunctions[])(int);
int (*const kFunctions[])(int) = { twice, outside };
__attribute__((constructor)) static void begin() { outside(0); }
__attribute__((constructor)) static void follow() { outside(1); }
"""

SYSTEM = """--- !tapi-tbd
tbd-version:     4
targets:         [ arm64-ios, arm64e-ios ]
install-name:    '/usr/lib/libSystem.B.dylib'
exports:
  - targets:         [ arm64-ios, arm64e-ios ]
    symbols:         [ dyld_stub_binder, _optional, _outside, __NSConcreteGlobalBlock,
                       ___CFConstantStringClassReference, _OBJC_CLASS_$_NSConstantIntegerNumber ]
...
"""
OBJC = """--- !tapi-tbd
tbd-version:     4
targets:         [ arm64-ios, arm64e-ios ]
install-name:    '/usr/lib/libobjc.A.dylib'
exports:
  - targets:         [ arm64-ios, arm64e-ios ]
    symbols:         [ __objc_empty_cache ]
    objc-classes:    [ NSObject ]
...
"""
PREFERENCES = """--- !tapi-tbd-v3
archs:                 [ arm64, arm64e ]
platform:              ios
install-name:          /System/Library/PrivateFrameworks/Preferences.framework/Preferences
exports:
  - archs:                [ arm64, arm64e ]
    objc-classes:         [ PSListController,
                            PSListItemsController ]
...
"""
EXTRA = """--- !tapi-tbd
tbd-version:     4
targets:         [ arm64-ios, arm64e-ios ]
install-name:    '/var/jb/usr/lib/libextra.dylib'
...
"""

CXX = """--- !tapi-tbd
tbd-version:     4
targets:         [ arm64-ios, arm64e-ios ]
install-name:    '/usr/lib/libc++.1.dylib'
exports:
  - targets:         [ arm64-ios, arm64e-ios ]
    symbols:         [ __ZTVN10__cxxabiv117__class_type_infoE, __ZTVN10__cxxabiv120__si_class_type_infoE ]
...
"""

EMPTY = """--- !tapi-tbd
tbd-version:     4
targets:         [ arm64-ios, arm64e-ios ]
install-name:    '/System/Library/Frameworks/{0}.framework/{0}'
...
"""
SETTINGS = {"CanonicalName": "iphoneos15.5", "Version": "15.5", "MaximumDeploymentTarget": "15.5.99"}

LINK = [
    "-install_name", INSTALL_NAME, "-framework", "Preferences", "-lobjc", "-Wl,-needed-lextra",
]  # fmt: skip


@functools.cache
def _folder():
    """A folder for everything that tests share, with the SDK in "sdk" and the link stubs in "stubs"."""
    temporary = tempfile.TemporaryDirectory(prefix="packaging-tests-")
    _folder.keep = temporary
    folder = Path(temporary.name)
    private = "sdk/System/Library/PrivateFrameworks/Preferences.framework/Preferences.tbd"
    files = {"sdk/usr/lib/libSystem.tbd": SYSTEM, "sdk/usr/lib/libobjc.tbd": OBJC, private: PREFERENCES,
             "sdk/usr/lib/libc++.tbd": CXX, "sdk/usr/lib/libc++.1.tbd": CXX, "stubs/libextra.tbd": EXTRA}  # fmt: skip
    for name, text in files.items():
        write(folder / name, text)
    return folder


def sdk_folder():
    """An iPhoneOS SDK with what the tests link against."""
    return _folder() / "sdk"


def whole_sdk(folder, *frameworks):
    """Makes an SDK in a new folder that a compiler takes for one of Apple's, with empty frameworks of these names."""
    shutil.copytree(sdk_folder(), folder)
    write(folder / "SDKSettings.json", json.dumps(SETTINGS))
    (folder / "usr/include/c++/v1").mkdir(parents=True)
    for name in frameworks:
        write(folder / f"System/Library/Frameworks/{name}.framework/{name}.tbd", EMPTY.format(name))
    return folder


@functools.cache
def executable(source=SOURCE, target="arm64-apple-ios15.0", form="-dynamiclib", link=tuple(LINK), signed=True):
    """The bytes of a bundle's executable."""
    folder = _folder()
    sdk = folder / "sdk"
    code, output = write(folder / "Sample.m", source), folder / "Sample"
    command = [
        "clang-22", "-target", target, "-isysroot", sdk, f"-F{sdk}/System/Library/PrivateFrameworks",
        f"-L{folder}/stubs", "-fuse-ld=lld", form, "-fno-objc-arc", "-w", *link,
        "-Wl,-adhoc_codesign" if signed else "-Wl,-no_adhoc_codesign", code, "-o", output,
    ]  # fmt: skip
    subprocess.run(command, check=True, capture_output=True, text=True)
    return output.read_bytes()


@functools.cache
def device_code(arch, *sources):
    """(bytes, path of the linker's map) of what packaging/device-clang makes; the map is there for arm64e only."""
    folder = Path(tempfile.mkdtemp(dir=_folder()))
    sdk, built = _folder() / "sdk", folder / "Sample"
    clang = [TREE / "packaging/device-clang", f"{arch}-apple-ios15.0", sdk]
    link = [f"-F{sdk}/System/Library/PrivateFrameworks", f"-L{_folder()}/stubs", *LINK]
    codes = [write(folder / f"Sample{n}.mm", source) for n, source in enumerate(sources or (SIGNED_SOURCE,))]
    commands = [[*clang, "-c", code, "-w", "-fblocks", "-nostdinc++", "-o", f"{code}.o"] for code in codes]
    for command in (*commands, [*clang, "-dynamiclib", *(f"{code}.o" for code in codes), "-o", built, *link]):
        subprocess.run(command, check=True, capture_output=True, text=True)
    return built.read_bytes(), Path(f"{built}.map")


def fat(*images):
    """A file of several slices, given as (subtype, content)."""
    position = 0x4000
    head, body = struct.pack(">2I", 0xCAFEBABE, len(images)), b""
    for subtype, image in images:
        head += struct.pack(">5I", 0x0100000C, subtype, position, len(image), 14)
        body += image + b"\0" * (-len(image) % 0x4000)
        position = 0x4000 + len(body)
    return head.ljust(0x4000, b"\0") + body


def write(path, content):
    """Writes bytes, text or a property list to a new file and returns the path."""
    path.parent.mkdir(parents=True, exist_ok=True)
    if isinstance(content, dict):
        content = plistlib.dumps(content)
    path.write_bytes(content.encode() if isinstance(content, str) else content)
    return path


class PackageTest(unittest.TestCase):
    """A package without a fault. A test changes one thing and says which problems that makes."""

    def setUp(self):
        self.maxDiff = None
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = Path(temporary.name)
        self.sdk, self.stubs = _folder() / "sdk", _folder() / "stubs"
        self.info = {
            "CFBundleExecutable": "Sample",
            "CFBundleIdentifier": "com.example.sample",
            "MinimumOSVersion": "15.0",
            "NSPrincipalClass": "SamplePage",
        }
        self.root_list = {"items": [{"cell": "PSButtonCell", "action": "restart", "cellClass": "SampleCell"}]}
        self.entry = {"entry": {"bundle": "Sample", "cell": "PSLinkCell", "detail": "SamplePage", "icon": "icon"}}
        self.control = {
            "Package": "com.example.sample", "Name": "Sample", "Version": "1.0", "Architecture": "iphoneos-arm64",
            "Section": "Tweaks", "Depends": "firmware (>= 15.0), preferenceloader", "Description": "A sample",
            "Maintainer": "Sample <sample@example.com>", "Author": "Sample <sample@example.com>",
        }  # fmt: skip
        self.files = {f"{BUNDLE}/icon@2x.png": b"\x89PNG"}
        self.modes = {f"{BUNDLE}/Sample": 0o755}
        self.owners = {folder: "501:501" for folder in USER_FOLDERS}
        self.forbidden = []
        self.archs, self.link_map = ("arm64",), None
        self.code = executable()

    def build(self):
        """Makes the package and returns its path."""
        root = self.folder / "root"
        shutil.rmtree(root / "var/jb/Library/Zuno", ignore_errors=True)
        files = {
            f"{BUNDLE}/Info.plist": self.info, f"{BUNDLE}/Root.plist": self.root_list, ENTRY: self.entry,
            f"{BUNDLE}/Sample": self.code, **self.files,
        }  # fmt: skip
        for name, content in files.items():
            if content is not None:
                write(root / name, content).chmod(0o644)
        for folder in USER_FOLDERS:
            if folder in self.owners:
                (root / folder).mkdir(parents=True, exist_ok=True)
        for name, mode in self.modes.items():
            (root / name).chmod(mode)
        for folder in (root, *(path for path in root.rglob("*") if path.is_dir())):
            folder.chmod(self.modes.get(str(folder.relative_to(root)), 0o755))
        write(root / "DEBIAN/control", "".join(f"{key}: {value}\n" for key, value in self.control.items()))
        package = self.folder / "sample.deb"
        commands = ["chown -R 0:0 ."] + [f"chown -h {owner} {path}" for path, owner in self.owners.items()]
        commands.append(f"dpkg-deb -Zgzip -z1 --build . {package}")
        subprocess.run(["fakeroot", "sh", "-ec", "; ".join(commands)], check=True, capture_output=True, cwd=root)
        return package

    def problems(self):
        subject = Subject(self.build(), self.sdk, self.stubs, self.forbidden, self.archs, self.link_map)
        return rules.problems(subject)

    def assert_problems(self, *wanted):
        """The package has exactly these problems, given as "rule: sentence"."""
        self.assertEqual(sorted(wanted), sorted(f"{rule}: {sentence}" for rule, sentence in self.problems()))
