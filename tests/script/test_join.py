"""Which sources cmake/join.py puts together."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM = Path(__file__).resolve().parents[2] / "cmake/join.py"


class JoinTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def source(self, name, text="int only_here;\n"):
        path = self.folder / name
        path.write_text(text)
        return str(path)

    def joined(self, *sources):
        """What is compiled: for each file the names of the sources in it, or its own name."""
        command = [sys.executable, "-B", str(PROGRAM), str(self.folder / "joined"), *sources]
        compiled = subprocess.run(command, capture_output=True, text=True, check=True).stdout.strip().split(";")
        return [self.contents(Path(path)) for path in compiled]

    def contents(self, path):
        if path.parent.name != "joined":
            return path.name
        return [Path(line.split('"')[1]).name for line in path.read_text().splitlines()]

    def test_sources_of_one_language_come_together(self):
        self.assertEqual(
            [["a.mm", "c.mm"], ["b.cpp", "d.cpp"]],
            self.joined(
                self.source("a.mm", "int a;\n"), self.source("b.cpp", "int b;\n"),
                self.source("c.mm", "int c;\n"), self.source("d.cpp", "int d;\n"),
            ),
        )  # fmt: skip

    def test_one_alone_is_compiled_as_it_is(self):
        self.assertEqual(["a.mm"], self.joined(self.source("a.mm")))

    def test_other_files_stay(self):
        self.assertEqual(["a.h", "b.mm"], self.joined(self.source("a.h"), self.source("b.mm")))

    def test_two_that_give_something_the_same_name_stay_apart(self):
        for text in (
            "constexpr double kGap = 8;\n",
            "constexpr std::string_view kGap[] = {};\n",
            "const std::map<int, int> kGap{};\n",
            "NSString *kGap(UIView *view) {\n",
            "static void kGap(void) {\n",
            "class kGap : public Base {\n",
            "class kGap final {\n",
            "enum class kGap { kLarge };\n",
            "template <typename T> struct kGap {\n",
            "template <typename T>\nbool kGap(T value) {\n",
            "#define kGap 8\n",
            "MATCHER_P(kGap, width, \"\") {\n",
        ):
            with self.subTest(text):
                first, second, third = (self.source(f"{name}.mm", text) for name in "abc")
                self.source("b.mm", "int other;\n")
                self.assertEqual([["a.mm", "b.mm"], "c.mm"], self.joined(first, second, third))

    def test_names_that_are_no_declarations_do_not_part_sources(self):
        text = (
            '#include "same.h"\n#import <UIKit/UIKit.h>\n'
            'using namespace same;\nusing ::testing::Eq;\nnamespace same {\n'
            "  same(same);\n}  // namespace same\n// same(same)\nTEST(Same, Same) {\nTEST_F(Same, Same) {\n}\n"
        )
        self.assertEqual([["a.mm", "b.mm"]], self.joined(self.source("a.mm", text), self.source("b.mm", text)))

    def test_extensions_of_one_class_stay_apart(self):
        text = "@interface UIView ()\n@end\n"
        self.assertEqual(["a.mm", "b.mm"], self.joined(self.source("a.mm", text), self.source("b.mm", text)))

    def test_a_file_has_room_for_some(self):
        sources = [self.source(f"{name}.cpp", f"int {name};\n" + "//\n" * 8000) for name in "abc"]
        self.assertEqual([["a.cpp", "b.cpp"], "c.cpp"], self.joined(*sources))

    def test_what_has_not_changed_is_not_written_again(self):
        sources = [self.source("a.cpp", "int a;\n"), self.source("b.cpp", "int b;\n")]
        self.joined(*sources)
        file = self.folder / "joined/0.cpp"
        before = file.stat().st_mtime_ns
        self.joined(*sources)
        self.assertEqual(before, file.stat().st_mtime_ns)


if __name__ == "__main__":
    unittest.main()
