"""Refuses what no other tool knows: how this tree names, heads and lays out its files.

usage: tests/style/lint.py [ROOT]

Prints a line for each finding, as FILE:LINE: sentence. Exit status: 0 nothing was found, 1 something was.
"""

import re
import subprocess
import sys
from pathlib import Path

CPP = {".cpp", ".hpp", ".h", ".mm"}
FOREIGN = {".c": ".cpp", ".cc": ".cpp", ".cxx": ".cpp", ".m": ".mm", ".M": ".mm", ".hh": ".hpp", ".hxx": ".hpp",
           ".cjs": ".js", ".jsx": ".js", ".ts": ".js"}  # fmt: skip
# Sources as makers write them.
MAKERS = (Path("tests/objc"), Path("samples/bundles"), Path("samples/widgets/Hello"), Path("samples/widgets/Dial"))
# Compiled as makers' code, whose handlers simulator/objc/ serves: that they work is what it tests.
CATCHES_CPP = {"tests/objc/ExceptionTests.mm"}
# Characters in a line. clang-format and eslint keep those of their languages.
WIDTH = 120
NARROW = {".py", ".sh", ".css", ".cmake", ".mk", "Makefile"}
# Where a tab is part of the language.
TABBED = {".mk", ".plist", ".in", "Makefile"}
# Text inside a Makefile inside a string.
TAB_IN_TEXT = {"tests/packaging/test_commands.py"}
# Of a class: the simulator's own, and UIKit's additions to Foundation as Apple has them.
OWN_VIEWS = ("+Sim", "+UIKit")
TEXT = CPP | NARROW | TABBED | {".js", ".mjs", ".json", ".md", ".html", ".svg", ".txt", ".tbd", ".toml"}

_OBJECTIVE_C = re.compile(r"^\s*(#import\b|@(interface|implementation|protocol|class)\b)")
# What declares a constant of a file. Those with a name of Apple's, or the simulator's own beside them, begin with its
# letters, or with the underscore of what a library of Apple's exports.
_CONSTANT = re.compile(
    r"(?:(?:static|inline|extern)\s+)*"
    r"(?:constexpr\s[^;={(]*?|(?:[\w:]+\s)?[\w:<>]+\s?\*\s?const\s+|const\s[^;={(*&]*?)"
    r"\b(\w+)\s*(?:\[[^\]]*\])?\s*(?:=(?!=)|\{)"
)
# Names that a library of the platform exports begin with "_".
_CONSTANT_NAME = re.compile(r"k[A-Z]|[A-Z]{2}|_[a-z]")
_CPP_EXCEPTION = re.compile(r"(?<![@\w])(try\s*\{|catch\s*\()")
_COMMENT_OR_TEXT = re.compile(r'//.*|"(?:\\.|[^"\\])*"')


def kind_of(path, text):
    """The suffix that stands for a file's language: that of a script comes from its first line."""
    if path.name == "CMakeLists.txt":
        return ".cmake"
    if path.suffix:
        return path.suffix
    first = text.split("\n", 1)[0]
    if first.startswith("#!"):
        return ".py" if "python" in first else ".sh" if re.search(r"\b(ba)?sh\b", first) else ""
    return path.name


def written_by_makers(path):
    return any(folder in path.parents for folder in MAKERS)


def findings(path, text):
    """Yields (line, sentence) for one file; `path` is relative to the root."""
    kind = kind_of(path, text)
    if kind in FOREIGN and not (kind == ".m" and written_by_makers(path)):
        yield 1, f"this tree names such a file {FOREIGN[kind]}"
    if kind == ".h" and "+" in path.stem and path.parts[0] == "simulator" and not path.stem.endswith(OWN_VIEWS):
        yield 1, "the simulator's own view of a class stands in a header with +Sim"
    if kind not in TEXT:
        return
    lines = text.split("\n")
    if text and lines[-1]:
        yield len(lines), "the file does not end with a line's end"
    yield from _findings_of_lines(path, kind, lines)
    if kind in (".h", ".hpp"):
        yield from _findings_of_header(kind, lines)


def _findings_of_lines(path, kind, lines):
    for number, line in enumerate(lines, 1):
        if line != line.rstrip():
            yield number, "space at the end of the line"
        if "\t" in line and kind not in TABBED and path.as_posix() not in TAB_IN_TEXT:
            yield number, "a tab"
        if kind in NARROW and len(line) > WIDTH:
            yield number, f"{len(line)} characters; {WIDTH} is the most"
        if kind in (".cpp", ".hpp") and _OBJECTIVE_C.match(line):
            yield number, f"Objective-C belongs in a {'.mm file' if kind == '.cpp' else '.h header'}"
        constant = kind in CPP and _CONSTANT.match(line)
        if constant and not _CONSTANT_NAME.match(constant[1]):
            yield number, f"the constant {constant[1]} has no k at the beginning of its name"
        # GCC's Objective-C runtime ends the process when a C++ exception is caught in such a file.
        catches = kind == ".mm" and _CPP_EXCEPTION.search(_COMMENT_OR_TEXT.sub("", line))
        if catches and path.as_posix() not in CATCHES_CPP:
            yield number, "a .mm file cannot catch C++ exceptions: catch them in a .cpp file"


def _findings_of_header(kind, lines):
    guards = [number for number, line in enumerate(lines, 1) if line == "#pragma once"]
    if len(guards) > 1:
        yield guards[1], "#pragma once stands twice"
    # Objective-C's #import includes a header once by itself.
    if not guards and not (kind == ".h" and any(_OBJECTIVE_C.match(line) for line in lines)):
        yield 1, "the header has no #pragma once"
    if kind == ".hpp" and not lines[0].startswith("// "):
        yield 1, "the header does not start with a comment that says what it holds"


def folders_without_tests(paths):
    """Source folders, relative to the root, that tests/ does not mirror."""
    tests = {parent for path in paths if path.parts[0] == "tests" for parent in path.parents}
    sources = {path.parent for path in paths
               if path.parts[0] in ("ZunoPrefs", "simulator") and path.suffix in (".cpp", ".mm")}  # fmt: skip
    return sorted(folder for folder in sources if Path("tests") / folder not in tests)


def tracked(root):
    """Every file that is, or could be, committed."""
    command = ["git", "-C", str(root), "ls-files", "-z", "--cached", "--others", "--exclude-standard"]
    listed = subprocess.run(command, capture_output=True, text=True, check=True).stdout.split("\0")
    return [Path(name) for name in sorted(set(listed)) if name and (root / name).is_file()]


def lint(root):
    """Yields (path, line, sentence) for the whole tree."""
    paths = tracked(root)
    for path in paths:
        try:
            text = (root / path).read_text(encoding="utf-8")
        except UnicodeDecodeError:
            if path.suffix in TEXT:
                yield path, 1, "the file is not UTF-8"
            continue
        for number, sentence in findings(path, text):
            yield path, number, sentence
    for folder in folders_without_tests(paths):
        yield folder, 1, f"there is no tests/{folder}"


def main():
    root = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parents[2]
    found = False
    for path, number, sentence in lint(root):
        found = True
        print(f"{path}:{number}: {sentence}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
