"""Objective-C++ sources as clang parses them."""

import bisect
import shlex
from dataclasses import dataclass
from pathlib import Path

from clang import cindex

# What the parser must not see of a compile command: outputs, and warnings that are errors.
_WITH_VALUE = {"-o", "-MF", "-MT", "-MQ"}


def parser_arguments(command):
    """The arguments of a compile command (a string) that parsing needs, without the compiler and the source."""
    words = shlex.split(command)[1:]
    arguments = []
    skip = False
    for word in words:
        if skip or word in _WITH_VALUE:
            skip = not skip and word in _WITH_VALUE
        elif word not in ("-c", "-MD", "-MMD") and not word.startswith("-W"):
            arguments.append(word)
    return [*arguments[:-1], "-w"]


@dataclass(frozen=True)
class Token:
    """A token of a file: its text and where it starts and ends, in bytes."""

    text: str
    start: int
    end: int
    is_literal: bool = False


class File:
    """A source file: its bytes, its lines and its tokens without comments and preprocessor lines."""

    def __init__(self, path, tokens):
        self.path = path
        self.content = path.read_bytes()
        directives = self._directives()
        self.tokens = [token for token in tokens if not any(a <= token.start < b for a, b in directives)]
        self._starts = [token.start for token in self.tokens]
        self._line_ends = [index for index, byte in enumerate(self.content) if byte == ord("\n")]

    def _directives(self):
        """The extents of preprocessor lines."""
        extents = []
        at = 0
        lines = self.content.splitlines(keepends=True)
        goes_on = False
        for line in lines:
            if goes_on or line.lstrip().startswith((b"#", b"@import")):
                extents.append((at, at + len(line)))
                goes_on = line.rstrip().endswith(b"\\")
            at += len(line)
        return extents

    def text(self, start, end):
        return self.content[start:end].decode()

    def line(self, offset):
        return bisect.bisect_left(self._line_ends, offset) + 1

    def line_text(self, offset):
        start = self.content.rfind(b"\n", 0, offset) + 1
        end = self.content.find(b"\n", offset)
        return self.text(start, end if end >= 0 else len(self.content)).strip()

    def between(self, start, end):
        """The tokens that lie in [start, end)."""
        first = bisect.bisect_left(self._starts, start)
        last = bisect.bisect_left(self._starts, end)
        return self.tokens[first:last]


class Unit:
    """A parsed translation unit and the files below `root` that it is made of."""

    def __init__(self, source, arguments, root):
        self._root = root.resolve()
        self._unit = cindex.Index.create().parse(str(source), args=arguments)
        self.errors = [str(each) for each in self._unit.diagnostics if each.severity >= cindex.Diagnostic.Error]
        self._files = {}

    def cursors(self):
        """The top-level declarations that stand in files below the root, with the file."""
        for cursor in self._unit.cursor.get_children():
            file = self.file_of(cursor)
            if file:
                yield file, cursor

    def file_of(self, cursor):
        """The file below the root in which `cursor` stands, else None."""
        where = cursor.location.file
        if not where:
            return None
        if where.name not in self._files:
            path = Path(where.name).resolve()
            self._files[where.name] = self._read(where, path) if path.is_relative_to(self._root) else None
        return self._files[where.name]

    def _read(self, where, path):
        size = path.stat().st_size
        extent = cindex.SourceRange.from_locations(
            cindex.SourceLocation.from_offset(self._unit, where, 0),
            cindex.SourceLocation.from_offset(self._unit, where, size),
        )
        tokens = [
            Token(each.spelling, each.extent.start.offset, each.extent.end.offset,
                  each.kind == cindex.TokenKind.LITERAL)
            for each in self._unit.get_tokens(extent=extent)
            if each.kind != cindex.TokenKind.COMMENT
        ]  # fmt: skip
        return File(path, tokens)
