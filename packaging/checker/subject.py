"""What the rules are about: a package, and what is needed to judge it."""

import plistlib
import re
from functools import cached_property
from pathlib import PurePosixPath

from . import macho, objc
from .package import Package
from .textstub import Libraries

ARCHS = ("arm64", "arm64e")
ROOT = "/var/jb"
BUNDLES = ROOT + "/Library/PreferenceBundles"
# What Settings, which runs as the user mobile, writes to.
USER_FOLDERS = (ROOT + "/Library/Zuno/Presets", ROOT + "/Library/Zuno/Widgets")
USER = 501
ENTRIES = ROOT + "/Library/PreferenceLoader/Preferences"


class Subject:
    """A package with what the rules need to judge it.

    An SDK, link stubs, paths that must not occur in it, the kinds of processor that it is for, and, when the compiler's
    assembly is at hand, the linker's map of the slice for arm64e.
    """

    def __init__(self, path, sdk, stubs, forbidden=(), archs=ARCHS, link_map=None):
        self.package = Package(path)
        self.sdk, self.stubs = sdk, stubs
        self.archs, self.link_map = archs, link_map
        self.forbidden = [str(path).rstrip("/").encode() for path in forbidden if str(path).rstrip("/")]
        self._libraries = {}

    def libraries(self, arch):
        if arch not in self._libraries:
            self._libraries[arch] = Libraries(self.sdk, self.stubs, arch)
        return self._libraries[arch]

    @cached_property
    def property_lists(self):
        """(device path, content) of every property list that can be read."""
        found = []
        for member in self.package.files:
            if member.path.endswith(".plist") and member.data is not None:
                try:
                    found.append((member.path, plistlib.loads(member.data)))
                except Exception:  # plistlib lets whatever its parsers raise through.
                    continue
        return found

    @cached_property
    def bundles(self):
        """(folder, Info dictionary) of every settings bundle."""
        return [
            (str(PurePosixPath(path).parent), content)
            for path, content in self.property_lists
            if re.fullmatch(re.escape(BUNDLES) + r"/[^/]+\.bundle/Info\.plist", path) and isinstance(content, dict)
        ]

    @cached_property
    def executables(self):
        """(device path, slices) of every bundle's executable that can be read."""
        found = []
        for folder, info in self.bundles:
            path = f"{folder}/{info.get('CFBundleExecutable')}"
            try:
                found.append((path, macho.slices(self.package.file(path) or b"")))
            except macho.MachOError:
                continue
        return found

    @cached_property
    def images(self):
        """(words that name it, device path, slice) of every slice."""
        return [(f"{path} ({image.arch})", path, image) for path, images in self.executables for image in images]

    @cached_property
    def names(self):
        """(classes, selectors) that every slice implements; none when a slice's cannot be read."""
        try:
            found = [objc.names(image) for _, _, image in self.images]
        except macho.MachOError:
            found = []
        if not found:
            return set(), set()
        classes, selectors = zip(*found)
        return set.intersection(*classes), set.intersection(*selectors)
