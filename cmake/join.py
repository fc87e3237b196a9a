"""Puts sources of one target together, so that what they share of headers and templates is compiled once for several.

    join.py FOLDER SOURCE…

Writes files into FOLDER that include several sources each, of one language, and prints what is to be compiled in place
of the sources, separated by semicolons. No two sources come together that give something of their own the same name:
their order decides, and the first file with room and without the name takes a source.
"""
import re
import sys
from pathlib import Path

# Characters of sources in one file: longer ones save little more, and a change of one source costs as much again.
ROOM = 64_000

# What a line declares that begins at the margin, where formatted sources have all that is no member. Names of other
# namespaces are among these, which costs nothing but room.
DECLARED = (
    re.compile(r"(?:template <.*> )?(?:struct|class|enum(?: class)?|union|#define) (\w+)"),
    re.compile(r"@(?:interface|protocol) (\w+ ?\(\w*\))"),
    re.compile(
        r"(?!TEST|INSTANTIATE|MATCHER|class|struct|enum|using|namespace|extern|[#@}/])"
        r"[^=({;]*?([\w:]+)\s*(?:\[\w*\]\s*)?[=({;]"
    ),
    re.compile(r"MATCHER\w*\((\w+)"),
)


def names(text):
    found = set()
    for line in text.splitlines():
        if line[:1].strip():
            found.update(match[1] for match in (pattern.match(line) for pattern in DECLARED) if match)
    return found


def together(sources):
    """Lists of the sources that fit together, as (paths, text, names)."""
    files = []
    for path in sources:
        text = path.read_text()
        mine = names(text)
        for file in files:
            if file["length"] + len(text) <= ROOM and not file["names"] & mine:
                break
        else:
            files.append(file := {"paths": [], "length": 0, "names": set()})
        file["paths"].append(path)
        file["length"] += len(text)
        file["names"] |= mine
    return [file["paths"] for file in files]


def write(path, text):
    if not path.exists() or path.read_text() != text:
        path.write_text(text)


def main(folder, *sources):
    folder = Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    compiled = [source for source in sources if not source.endswith((".mm", ".cpp"))]
    for suffix in (".mm", ".cpp"):
        files = together([Path(source).resolve() for source in sources if source.endswith(suffix)])
        for number, paths in enumerate(files):
            if len(paths) > 1:
                joined = folder / f"{number}{suffix}"
                write(joined, "".join(f'#include "{path}"\n' for path in paths))
                compiled.append(str(joined))
            else:
                compiled.append(str(paths[0]))
    print(";".join(compiled))


if __name__ == "__main__":
    main(*sys.argv[1:])
