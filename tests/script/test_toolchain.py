"""The build asks the machine where things lie: two releases of Debian keep them in different folders."""

import re
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]


class ToolchainTest(unittest.TestCase):
    def test_no_folder_of_headers_libraries_or_compilers_is_written_down(self):
        written = re.compile(r"(?<!/jb)/usr/(local/)?(include|lib)\b|/usr/bin/(clang|gcc|ld)|x86_64-linux-gnu")
        files = [TREE / "CMakePresets.json", *TREE.glob("cmake/*"), *TREE.glob("script/**/*")]
        files += [path for path in TREE.rglob("CMakeLists.txt") if "build" not in path.relative_to(TREE).parts]
        found = [
            f"{path.relative_to(TREE)}:{number}: {line.strip()}"
            for path in files if path.is_file()
            for number, line in enumerate(path.read_text().splitlines(), 1) if written.search(line)
        ]  # fmt: skip
        self.assertEqual([], found)


if __name__ == "__main__":
    unittest.main()
