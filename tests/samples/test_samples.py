"""What a fresh device holds besides Zuno, as this build makes it: apps, photos and the package tool."""

import os
import plistlib
import struct
import unittest
from pathlib import Path

DEVICE = Path(os.environ["BUILD_FOLDER"]) / "device-root"


def size_of(picture):
    """Width and height in pixels, as the header of a PNG has them."""
    data = picture.read_bytes()
    assert data[:8] == b"\x89PNG\r\n\x1a\n" and data[-8:-4] == b"IEND", picture
    return struct.unpack(">II", data[16:24])


class SamplesTest(unittest.TestCase):
    def setUp(self):
        self.apps = sorted((DEVICE / "Applications").glob("*.app"))
        self.photos = sorted((DEVICE / "var/mobile/Media/DCIM/100APPLE").iterdir())

    def information(self, app):
        return plistlib.loads((app / "Info.plist").read_bytes())

    def test_every_app_has_a_name_and_an_identifier_of_its_own(self):
        information = [self.information(app) for app in self.apps]
        self.assertEqual(16, len({each["CFBundleIdentifier"] for each in information}))
        self.assertEqual(16, len({each["CFBundleDisplayName"] for each in information}))
        for each in information:
            self.assertEqual(each["CFBundleDisplayName"], each["CFBundleName"])
            self.assertEqual(["AppIcon60x60"], each["CFBundleIcons"]["CFBundlePrimaryIcon"]["CFBundleIconFiles"])

    def test_every_app_has_an_icon_of_its_own_in_both_sizes(self):
        for scale in (2, 3):
            icons = [app / f"AppIcon60x60@{scale}x.png" for app in self.apps]
            self.assertEqual({(60 * scale, 60 * scale)}, {size_of(icon) for icon in icons})
            self.assertEqual(16, len({icon.read_bytes() for icon in icons}))

    def test_names_beyond_ascii_survive(self):
        self.assertEqual("Ώρα για τσάι", self.information(DEVICE / "Applications/Tea.app")["CFBundleDisplayName"])

    def test_photos_have_the_sizes_of_a_screen_and_of_a_camera(self):
        self.assertEqual([f"IMG_000{number}.PNG" for number in range(1, 7)], [photo.name for photo in self.photos])
        sizes = [(1170, 2532), (1170, 2532), (1600, 1200), (1600, 1200), (1600, 1200), (1200, 1600)]
        self.assertEqual(sizes, [size_of(photo) for photo in self.photos])
        self.assertEqual(6, len({photo.read_bytes() for photo in self.photos}))

    def test_the_package_tool_asks_that_of_this_computer(self):
        tool = DEVICE / "usr/bin/dpkg-query"
        self.assertEqual('#!/bin/sh\nexec /usr/bin/dpkg-query "$@"\n', tool.read_text())
        self.assertTrue(os.access(tool, os.X_OK))


if __name__ == "__main__":
    unittest.main()
