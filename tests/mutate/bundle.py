"""Building the settings bundle, whole and with one file changed."""

import hashlib
import json
import os
import re
import shlex
import shutil
import subprocess
from dataclasses import dataclass
from pathlib import Path

BUNDLE = "device-root/var/jb/Library/PreferenceBundles/ZunoPrefs.bundle"


class BuildError(Exception):
    """The unchanged program does not build."""


@dataclass(frozen=True)
class Source:
    """A source of the bundle and how it is compiled."""

    path: Path
    object: str  # Relative to the build folder.
    command: str


class Build:
    """A build folder with the tests and the bundle."""

    def __init__(self, root, folder, preset, options=()):
        self.root = root
        self.folder = folder
        self.is_sanitized = preset == "asan"
        self._preset = preset
        self._options = options

    @property
    def bundle(self):
        return self.folder / BUNDLE

    @property
    def tests(self):
        return self.folder / "tests/zunoprefs_tests"

    def configure(self):
        """Prepares the folder and reads how the bundle's sources are compiled."""
        self._run("cmake", "--preset", self._preset, "-B", str(self.folder), *self._options)
        commands = json.loads((self.folder / "compile_commands.json").read_text())
        sources = [Source(Path(each["file"]), _output(each["command"]), each["command"]) for each in commands]
        self.sources = sorted(
            (source for source in sources if "/ZunoPrefs.dir/" in source.object), key=lambda source: source.path
        )

    def make(self, jobs):
        """Builds the unchanged bundle and its tests and reads how that was done."""
        self.configure()
        self._run("ninja", "-C", str(self.folder), "-j", str(jobs), "zunoprefs_tests", "ZunoPrefs")
        self._includes = self._recorded_includes()
        self._link = self._link_command()
        self._prefixes = self._make_prefixes()

    def _run(self, *command):
        done = subprocess.run(command, cwd=self.root, capture_output=True, text=True)
        if done.returncode != 0:
            raise BuildError(f"{shlex.join(command)}\n{done.stdout[-8000:]}{done.stderr[-8000:]}")
        return done.stdout

    def _recorded_includes(self):
        """The files that each object was made of, as the build tool has recorded them."""
        includes = {}
        name = None
        for line in self._run("ninja", "-C", str(self.folder), "-t", "deps").splitlines():
            if not line.startswith(" "):
                name = line.split(":")[0]
                includes[name] = set()
            elif name is not None and line.strip():
                includes[name].add(Path(os.path.normpath(self.folder / line.strip())))
        return includes

    def _link_command(self):
        """The words of the command that links the bundle."""
        commands = self._run("ninja", "-C", str(self.folder), "-t", "commands", "ZunoPrefs").splitlines()
        output = f"{BUNDLE}/ZunoPrefs"
        for line in reversed(commands):
            words = [word for word in shlex.split(line) if word not in (":", "&&")]
            if "-shared" in words and output in words:
                return words
        raise BuildError(f"no command links {output}")

    def _make_prefixes(self):
        """For each source, by its object, a precompiled header of what sources compiled alike include of the platform:
        most of the time of compiling goes into that."""
        alike = {}
        for source in self.sources:
            alike.setdefault(_flags(source.command), []).append(source)
        prefixes = {}
        for number, (flags, sources) in enumerate(sorted(alike.items())):
            files = {source.path for source in sources}
            files |= {path for source in sources for path in self._includes.get(source.object, ())
                      if path.is_relative_to(self.root / "ZunoPrefs")}  # fmt: skip
            header = self.folder / f"prefix-{number}.h"
            header.write_text("".join(sorted({line for path in files for line in _platform_includes(path)})))
            compiled = header.with_suffix(".pch")
            language = "objective-c++-header" if sources[0].path.suffix == ".mm" else "c++-header"
            words = [word for word in flags if word not in ("-x", "objective-c++")]
            self._run(*words, "-w", "-Wno-error", "-x", language, str(header), "-o", str(compiled))
            prefixes.update((source.object, compiled) for source in sources)
        return prefixes

    def compile(self, source, output, *options):
        """Compiles the source by its own command with more options. Returns whether that worked."""
        words = shlex.split(source.command)
        words[words.index("-o") + 1] = str(output)
        prefix = str(self._prefixes[source.object])
        return self._succeeds([*words, "-w", "-Wno-error", "-include-pch", prefix, *options])

    def affected(self, path):
        """The sources that a change of `path` makes compile again."""
        return [
            source for source in self.sources if source.path == path or path in self._includes.get(source.object, ())
        ]

    def link(self, objects, output, *options):
        """Links the bundle's code, with other objects for those named, as `output`. Returns whether that worked."""
        words = [str(objects.get(word, word)) for word in self._link]
        words[words.index("-o") + 1] = str(output)
        return self._succeeds([*words, *options])

    def instrumented(self, folder):
        """A copy of the bundle in `folder` that counts what of it runs. Returns its place."""
        shutil.rmtree(folder, ignore_errors=True)
        bundle = folder / "ZunoPrefs.bundle"
        shutil.copytree(self.bundle, bundle)
        objects = {source.object: folder / f"{number}.o" for number, source in enumerate(self.sources)}
        for source in self.sources:
            if not self.compile(source, objects[source.object], "-fprofile-instr-generate", "-fcoverage-mapping"):
                raise BuildError(f"{source.path} does not compile")
        if not self.link(objects, bundle / "ZunoPrefs", "-fprofile-instr-generate"):
            raise BuildError("the counting bundle does not link")
        return bundle

    def _succeeds(self, words):
        return subprocess.run(words, cwd=self.folder, capture_output=True).returncode == 0


class Workshop:
    """A copy of the bundle, in which one changed file at a time is built. For one thread."""

    def __init__(self, build, folder):
        self._build = build
        self.folder = folder
        shutil.rmtree(folder, ignore_errors=True)
        self.bundle = folder / "ZunoPrefs.bundle"
        shutil.copytree(build.bundle, self.bundle)

    def make(self, path, content):
        """Builds the bundle with `content` in place of the file at `path`.

        Returns "built", "broken" when it does not compile or link, or "equivalent" when every object is the same as
        without the change.
        """
        changed = self.folder / "changed"
        changed.write_bytes(content)
        overlay = self.folder / "overlay.json"
        overlay.write_text(json.dumps({
            "version": 0,
            "use-external-names": False,
            "roots": [{"type": "file", "name": str(path), "external-contents": str(changed)}],
        }))  # fmt: skip
        objects = {}
        for number, source in enumerate(self._build.affected(path)):
            place = self.folder / f"{number}.o"
            if not self._build.compile(source, place, "-ivfsoverlay", str(overlay)):
                return "broken"
            if _digest(place) != _digest(self._plain(source)):
                objects[source.object] = place
        if not objects:
            return "equivalent"
        return "built" if self._build.link(objects, self.bundle / "ZunoPrefs") else "broken"

    def _plain(self, source):
        """The object of the unchanged source, compiled like the changed one."""
        place = self.folder.parent / "plain" / source.object.replace("/", "_")
        if not place.exists():
            place.parent.mkdir(exist_ok=True)
            own = self.folder / "plain.o"
            if not self._build.compile(source, own):
                raise BuildError(f"{source.path} does not compile")
            own.replace(place)
        return place


def _flags(command):
    """The words of a compile command without its source and its output."""
    words = shlex.split(command)
    place = words.index("-o")
    words = words[:place] + words[place + 2 :]
    return tuple(word for word in words[:-1] if word not in ("-c", "-MD", "-MMD"))


def _platform_includes(path):
    """The lines that include headers in angle brackets, outside of conditions."""
    depth = 0
    for line in path.read_text().splitlines():
        words = line.split()
        if words and words[0] in ("#if", "#ifdef", "#ifndef"):
            depth += 1
        elif words and words[0] == "#endif":
            depth -= 1
        elif depth == 0 and re.match(r"#(import|include) <", line):
            yield line + "\n"


def _output(command):
    words = shlex.split(command)
    return words[words.index("-o") + 1]


def _digest(path):
    return hashlib.sha256(path.read_bytes()).digest()
