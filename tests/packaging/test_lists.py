"""Rules about property lists and the names in them."""

import struct

from fixture import BUNDLE, ENTRY, LINK, SOURCE, PackageTest, executable, fat

ROOT_LIST = f"/{BUNDLE}/Root.plist"


class PropertyListsTest(PackageTest):
    def test_a_damaged_list_is_found(self):
        for content in (b"", b"<plist><dict><key>a</key></dict>", b"bplist00\xff\xff", b"{ items = (); }"):
            with self.subTest(content):
                self.root_list = content
                self.assert_problems(f"property_lists: {ROOT_LIST} is not a valid property list")

    def test_a_key_that_the_system_needs_is_missing(self):
        del self.info["CFBundleIdentifier"]
        self.assert_problems(f"property_lists: /{BUNDLE}/Info.plist lacks CFBundleIdentifier")

    def test_the_executable_is_missing(self):
        self.info["CFBundleExecutable"] = "Other"
        self.modes = {}
        self.assert_problems(
            f"property_lists: /{BUNDLE} lacks its executable Other",
            f"named_classes: /{ENTRY}: detail names the class SamplePage, which nothing defines",
            f"named_classes: /{BUNDLE}/Info.plist: NSPrincipalClass names SamplePage, which is not in the executable",
            f"named_classes: {ROOT_LIST}: cellClass names the class SampleCell, which nothing defines",
            f"named_selectors: {ROOT_LIST}: action names the selector restart, which no class implements",
        )

    def test_an_entry_without_its_dictionary_is_found(self):
        self.entry = {"items": []}
        self.assert_problems(f"property_lists: /{ENTRY} has no entry")

    def test_an_entry_names_a_bundle_of_the_package(self):
        self.entry["entry"] = {"bundle": "Other"}
        self.assert_problems(f"property_lists: /{ENTRY} names the bundle Other, which the package lacks")


class IconsTest(PackageTest):
    def test_an_icon_that_is_missing_is_found(self):
        self.files = {}
        self.assert_problems(f"icons: /{ENTRY} names the icon icon, which /{BUNDLE} lacks")

    def test_a_row_s_icon_is_looked_for_beside_its_list(self):
        self.root_list["items"].append({"icon": "row.png"})
        self.assert_problems(f"icons: {ROOT_LIST} names the icon row.png, which /{BUNDLE} lacks")

    def test_an_icon_at_one_scale_is_enough(self):
        for scale in ("", "@2x", "@3x"):
            with self.subTest(scale):
                self.files = {f"{BUNDLE}/icon@2x.png": None, f"{BUNDLE}/icon{scale}.png": b"\x89PNG"}
                self.assert_problems()


class NamedClassesTest(PackageTest):
    def test_a_class_that_nothing_defines_is_found_under_every_key(self):
        for key in ("cellClass", "headerCellClass", "footerCellClass", "detail", "pane"):
            with self.subTest(key):
                self.root_list = {"items": [{key: "Missing"}]}
                self.assert_problems(
                    f"named_classes: {ROOT_LIST}: {key} names the class Missing, which nothing defines"
                )

    def test_a_framework_s_class_is_defined(self):
        self.root_list = {"items": [{"detail": "PSListItemsController"}]}
        self.assert_problems()

    def test_a_category_is_no_class(self):
        self.root_list = {"items": [{"cellClass": "Writing"}]}
        self.assert_problems(f"named_classes: {ROOT_LIST}: cellClass names the class Writing, which nothing defines")

    def test_the_principal_class_has_to_be_the_bundle_s_own(self):
        self.info["NSPrincipalClass"] = "PSListController"
        self.assert_problems(
            f"named_classes: /{BUNDLE}/Info.plist: NSPrincipalClass names PSListController, "
            "which is not in the executable"
        )


    def test_what_one_slice_lacks_is_not_defined(self):
        lacking = executable(SOURCE.replace("SampleCell", "OtherCell").replace("restart", "stop"))
        other = lacking[:8] + struct.pack("<I", 0x80000002) + lacking[12:]
        for slices in (((0, self.code), (0x80000002, other)), ((0x80000002, other), (0, self.code))):
            self.code = fat(*slices)
            found = self.problems()
            cell = f"{ROOT_LIST}: cellClass names the class SampleCell, which nothing defines"
            action = f"{ROOT_LIST}: action names the selector restart, which no class implements"
            self.assertIn(("named_classes", cell), found)
            self.assertIn(("named_selectors", action), found)


class NamedSelectorsTest(PackageTest):
    def test_a_selector_that_no_class_implements_is_found_under_every_key(self):
        keys = ("action", "buttonAction", "loadAction", "cancel", "confirmationAction", "deletionAction", "get", "set",
                "valuesDataSource", "titlesDataSource", "shortTitlesDataSource")  # fmt: skip
        for key in keys:
            with self.subTest(key):
                self.root_list = {"items": [{key: "missing:"}]}
                self.assert_problems(
                    f"named_selectors: {ROOT_LIST}: {key} names the selector missing:, which no class implements"
                )

    def test_methods_of_classes_and_of_categories_count(self):
        self.root_list = {"items": [{"action": "restart", "get": "read:", "set": "write:row:"}]}
        self.assert_problems()

    def test_the_colons_belong_to_the_name(self):
        self.root_list = {"items": [{"action": "restart:"}]}
        self.assert_problems(
            f"named_selectors: {ROOT_LIST}: action names the selector restart:, which no class implements"
        )

    def test_class_methods_do_not_count(self):
        self.root_list = {"items": [{"action": "shared"}]}
        self.assert_problems(
            f"named_selectors: {ROOT_LIST}: action names the selector shared, which no class implements"
        )

    def test_selectors_that_are_only_sent_do_not_count(self):
        source = """
            __attribute__((objc_root_class)) @interface NSObject { Class isa; } - (void)reload; @end
            @interface SamplePage : NSObject @end
            @implementation SamplePage
            - (void)restart { [self reload]; }
            @end
            @interface SampleCell : NSObject @end
            @implementation SampleCell @end
            void *objc_msgSend(void *object, ...) { return object; }
            """
        self.code = executable(source)
        self.root_list = {"items": [{"action": "reload"}]}
        self.assert_problems(
            f"named_selectors: {ROOT_LIST}: action names the selector reload, which no class implements"
        )

    def test_both_forms_of_method_lists_are_read(self):
        for form in ("-Wl,-objc_relative_method_lists", "-Wl,-no_objc_relative_method_lists"):
            with self.subTest(form):
                self.code = executable(link=(*LINK, form))
                self.root_list = {"items": [{"action": "restart", "get": "read:", "set": "write:row:"}]}
                self.assert_problems()

    def test_both_forms_of_pointers_are_read(self):
        for form in ("-Wl,-fixup_chains", "-Wl,-no_fixup_chains"):
            with self.subTest(form):
                self.code = executable(link=(*LINK, form))
                self.assert_problems()

    def test_an_executable_s_name_that_is_no_text_is_a_problem_and_no_crash(self):
        self.info["CFBundleExecutable"] = ["Sample"]
        self.modes = {}
        self.assertIn(("property_lists", f"/{BUNDLE}/Info.plist lacks CFBundleExecutable"), self.problems())
