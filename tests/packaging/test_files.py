"""Rules about a package's control file, its layout, modes and build paths."""

import tarfile
from types import SimpleNamespace
from unittest import mock

from fixture import BUNDLE, ENTRY, INSTALL_NAME, SOURCE, USER_FOLDERS, PackageTest, executable

from checker.file_rules import layout, modes
from checker.package import Member, Package, PackageError
from checker.subject import BUNDLES, ENTRIES


class ControlTest(PackageTest):
    def test_a_package_without_a_fault_has_no_problems(self):
        self.assert_problems()

    def test_the_architecture_is_that_of_rootless_devices(self):
        self.control["Architecture"] = "iphoneos-arm"
        self.assert_problems("control_fields: control: the architecture is iphoneos-arm, not iphoneos-arm64")

    def test_each_field_is_given(self):
        for name in ("Section", "Name", "Author"):  # Without the others there is no package at all, or a warning.
            kept = self.control.pop(name)
            self.assert_problems(f"control_fields: control: {name} is missing")
            self.control[name] = kept

    def test_the_preference_loader_is_a_dependency(self):
        self.control["Depends"] = "firmware (>= 15.0)"
        self.assert_problems("control_fields: control: Depends lacks preferenceloader")

    def test_the_firmware_is_the_one_that_the_bundle_needs(self):
        self.control["Depends"] = "firmware (>= 14.0), preferenceloader"
        self.assert_problems("control_fields: control: Depends has firmware (>= 14.0), not firmware (>= 15.0)")

    def test_there_are_no_maintainer_scripts(self):
        names = ("postinst", "postrm", "prerm")
        for name in names:
            self.files[f"DEBIAN/{name}"] = "#!/bin/sh\n"
            self.modes[f"DEBIAN/{name}"] = 0o755
        told = "control_fields: control: the maintainer script {} is not expected"
        self.assert_problems(*(told.format(name) for name in names))


class ReadingTest(PackageTest):
    def test_only_the_first_colon_of_a_line_ends_a_name_and_more_lines_belong_to_the_one_before(self):
        self.control["Description"] = "A: sample: of a kind\n Note: this is no field\n  nor: this"
        fields = Package(self.build()).control
        self.assertEqual("A: sample: of a kind", fields["Description"])
        self.assertEqual(set(self.control), set(fields))

    def test_what_the_tool_gives_and_is_no_archive_is_told(self):
        result = SimpleNamespace(stdout=b"no archive at all")
        with mock.patch("checker.package.subprocess.run", return_value=result), self.assertRaises(PackageError):
            Package("sample.deb")


class LayoutTest(PackageTest):
    def test_nothing_lies_outside_the_root_of_the_jailbreak(self):
        self.files["usr/lib/libsample.dylib"] = "x"
        self.assert_problems(
            "layout: ./usr lies outside ./var/jb",
            "layout: ./usr/lib lies outside ./var/jb",
            "layout: ./usr/lib/libsample.dylib lies outside ./var/jb",
        )

    def test_a_path_that_leads_out_again_lies_outside(self):
        """No tool makes such a package, so it is made of its members."""
        name = "./var/jb/../mobile"
        member = Member(name, name[1:], tarfile.TarInfo(), None)
        subject = SimpleNamespace(package=SimpleNamespace(files=[member]), bundles=[(BUNDLES, {})],
                                  property_lists=[(f"{ENTRIES}/sample.plist", {})])  # fmt: skip
        self.assertEqual([f"{name} lies outside ./var/jb"], list(layout(subject)))

    def test_what_a_file_browser_leaves_behind_is_found(self):
        self.files[f"{BUNDLE}/.DS_Store"] = "x"
        self.files[f"{BUNDLE}/._icon.png"] = "x"
        self.files[f"{BUNDLE}/Thumbs.db"] = "x"
        self.assert_problems(
            f"layout: /{BUNDLE}/.DS_Store does not belong into a package",
            f"layout: /{BUNDLE}/._icon.png does not belong into a package",
            f"layout: /{BUNDLE}/Thumbs.db does not belong into a package",
        )

    def test_an_entry_is_needed(self):
        self.entry = None
        self.assert_problems("layout: no entry lies in /var/jb/Library/PreferenceLoader/Preferences")

    def test_a_bundle_is_needed(self):
        self.info = None
        self.modes = {}
        self.entry["entry"] = {"bundle": "Sample"}
        self.root_list = {}
        self.assert_problems(
            "layout: no settings bundle with an Info.plist lies in /var/jb/Library/PreferenceBundles",
            f"property_lists: /{ENTRY} names the bundle Sample, which the package lacks",
        )


class ModesTest(PackageTest):
    def test_the_executable_may_be_executed(self):
        self.modes = {}
        self.assert_problems(f"modes: {INSTALL_NAME} has the mode 644, not 755")

    def test_no_other_file_may(self):
        self.modes[f"{BUNDLE}/Root.plist"] = 0o755
        self.assert_problems(f"modes: /{BUNDLE}/Root.plist has the mode 755, not 644")

    def test_no_file_is_set_to_run_as_its_owner(self):
        self.modes[f"{BUNDLE}/Sample"] = 0o4755
        self.assert_problems(f"modes: {INSTALL_NAME} has the mode 4755, not 755")

    def test_everything_else_belongs_to_root(self):
        self.owners[f"{BUNDLE}/Sample"] = "501:0"
        self.assert_problems(f"modes: {INSTALL_NAME} belongs to 501:0, not to 0:0")
        self.owners[f"{BUNDLE}/Sample"] = "0:501"
        self.assert_problems(f"modes: {INSTALL_NAME} belongs to 0:501, not to 0:0")

    def test_the_user_s_folders_belong_to_the_user(self):
        self.owners[USER_FOLDERS[0]] = "0:0"
        self.assert_problems(f"modes: /{USER_FOLDERS[0]} belongs to 0:0, not to 501:501")

    def test_the_user_s_folders_are_open_to_read(self):
        self.modes[USER_FOLDERS[1]] = 0o700
        self.assert_problems(f"modes: /{USER_FOLDERS[1]} has the mode 700, not 755")

    def test_a_user_of_the_building_machine_is_found(self):
        def named(name, group="", folder=USER_FOLDERS[0], number=501):
            info = tarfile.TarInfo()
            info.type, info.mode, info.uid, info.gid = tarfile.DIRTYPE, 0o755, number, number
            info.uname, info.gname = name, group
            package = SimpleNamespace(files=[Member(folder, f"/{folder}", info, None)])
            return list(modes(SimpleNamespace(package=package, bundles=[])))

        self.assertEqual(([], [], []), (named(""), named("mobile"), named("mobile", "mobile")))
        self.assertEqual(([], []), (named("root", "root", BUNDLE, 0), named("root", "wheel", BUNDLE, 0)))
        problem = f"/{USER_FOLDERS[0]} belongs to someone:, names of the machine that built it"
        self.assertEqual([problem], named("someone"))
        self.assertEqual([problem.replace("someone", "root")], named("root"))

    def test_links_are_refused(self):
        folder = self.folder / "root" / BUNDLE
        folder.mkdir(parents=True)
        (folder / "icon@3x.png").symlink_to("icon@2x.png")
        self.assert_problems(f"modes: /{BUNDLE}/icon@3x.png is neither a file nor a folder")


    def test_devices_and_pipes_are_refused(self):
        """Only root can make some of them, so the package is made of its members."""
        for kind in (tarfile.CHRTYPE, tarfile.BLKTYPE, tarfile.FIFOTYPE, tarfile.LNKTYPE):
            with self.subTest(kind):
                info = tarfile.TarInfo()
                info.type, info.mode = kind, 0o644
                package = SimpleNamespace(files=[Member(BUNDLE, f"/{BUNDLE}", info, None)])
                self.assertEqual([f"/{BUNDLE} is neither a file nor a folder"],
                                 list(modes(SimpleNamespace(package=package, bundles=[]))))  # fmt: skip


class UserFoldersTest(PackageTest):
    def test_each_is_there(self):
        for folder in USER_FOLDERS:
            with self.subTest(folder):
                owner = self.owners.pop(folder)
                self.assert_problems(f"user_folders: the folder /{folder} is missing")
                self.owners[folder] = owner

    def test_none_brings_anything_of_its_own(self):
        preset = f"{USER_FOLDERS[0]}/Sample.plist"
        self.files[preset] = {"items": []}
        self.assert_problems(f"user_folders: /{preset} lies in a folder of the user's")


class BuildPathsTest(PackageTest):
    def test_a_home_folder_in_a_file_is_found(self):
        for home in ("Users", "home", "root", "tmp", "var/folders"):
            with self.subTest(home):
                self.files["var/jb/usr/include/Sample/Sample.h"] = f"// from /{home}/someone/sample\n"
                self.assert_problems(
                    f"build_paths: /var/jb/usr/include/Sample/Sample.h holds the path /{home}/someone/sample of the "
                    "machine that built it"
                )

    def test_a_forbidden_path_is_found_whatever_it_is(self):
        self.forbidden = ["/srv/sample", "/"]
        self.files["var/jb/usr/include/Sample/Sample.h"] = "// /srv/sample/build /srv/samples\n"
        self.assert_problems(
            "build_paths: /var/jb/usr/include/Sample/Sample.h holds the path /srv/sample of the machine that built it"
        )

    def test_a_path_that_only_begins_like_a_forbidden_one_is_not(self):
        self.forbidden = ["/srv/sample"]
        self.files["var/jb/usr/include/Sample/Sample.h"] = "// /srv/samples\n"
        self.assert_problems()

    def test_a_source_file_in_the_executable_is_found(self):
        source = SOURCE + '\nconst char *where(void) { return "/srv/tree/Page.mm"; }\n'
        self.code = executable(source)
        self.assert_problems(
            f"build_paths: {INSTALL_NAME} holds the path /srv/tree/Page.mm of the machine that built it"
        )

    def test_paths_of_the_device_are_none(self):
        source = SOURCE + '\nconst char *where(void) { return "/var/jb/usr/bin/killall"; }\n'
        self.code = executable(source)
        self.assert_problems()
