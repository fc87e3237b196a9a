"""Reads text-based library stubs (.tbd, versions 1 to 4) and answers what a library exports.

The format is a small part of YAML; what these stubs use of it is read here: keys with a scalar or a list in brackets.
"""

import re
from pathlib import Path

_DOCUMENT = re.compile(r"^---.*$", re.MULTILINE)
_ENTRY = re.compile(r"^( *)(- +)?([\w-]+):[ \t]*(\[[^\]]*\]|[^\n]*)", re.MULTILINE)
_CLASS_KEYS = {
    "objc-classes": ("_OBJC_CLASS_$_", "_OBJC_METACLASS_$_"),
    "objc-eh-types": ("_OBJC_EHTYPE_$_",),
    "objc-ivars": ("_OBJC_IVAR_$_",),
}
_SYMBOL_KEYS = {"symbols", "weak-symbols", "weak-def-symbols", "thread-local-symbols"}
_REEXPORT_KEYS = {"re-exports", "reexported-libraries", "libraries"}


class Document:
    """One library of a stub file, as seen by one kind of processor."""

    def __init__(self, text, underscored, arch):
        self.install_name = None
        self.symbols = set()
        self.reexports = set()
        self._underscored = underscored  # Versions 1 and 2 put an underscore before class names.
        section, applies = None, False
        for indent, _, key, value in _ENTRY.findall(text):
            if not indent and key not in ("targets", "archs"):
                section = key
            if key == "install-name":
                self.install_name = _unquoted(value)
            elif key in ("targets", "archs"):
                applies = any(target in (arch, arch + "-ios") for target in _items(value))
            elif applies and section in ("exports", "reexports", "reexported-libraries"):
                self._add(section, key, _items(value))

    def _add(self, section, key, names):
        if key in _SYMBOL_KEYS:
            self.symbols.update(names)
        elif key in _CLASS_KEYS:
            plain = [name[1:] if self._underscored and name.startswith("_") else name for name in names]
            self.symbols.update(prefix + name for prefix in _CLASS_KEYS[key] for name in plain)
        elif key in _REEXPORT_KEYS and (section != "reexports"):
            self.reexports.update(names)


def _unquoted(text):
    return text.strip().strip("'\"")


def _items(value):
    return [item for item in map(_unquoted, value.strip("[] \t").replace("\n", " ").split(",")) if item]


def documents(text, arch):
    """Every library that a stub file describes; the first is the file's own."""
    heads = list(_DOCUMENT.finditer(text))
    ends = [head.start() for head in heads[1:]] + [len(text)]
    found = []
    for head, end in zip(heads, ends):
        version = re.search(r"!tapi-tbd(?:-v(\d))?", head.group())
        underscored = version is None or version.group(1) == "2"
        found.append(Document(text[head.end() : end], underscored, arch))
    return found


class Libraries:
    """The libraries of an SDK and of a folder of link stubs, found by install name. Reads each file once."""

    def __init__(self, sdk, stubs, arch):
        self._sdk = Path(sdk)
        self._arch = arch
        self._documents = {}
        self._exports = {}
        self.own = []  # Install names of the link stubs.
        for path in sorted(Path(stubs).glob("*.tbd")):
            self.own += self._read(path)

    def _read(self, path):
        found = documents(path.read_text(encoding="utf-8"), self._arch)
        for document in found:
            self._documents.setdefault(document.install_name, document)
        return [document.install_name for document in found]

    def find(self, install_name):
        """The library's document, or None when neither the SDK nor the stubs describe it."""
        if install_name not in self._documents:
            path = self._sdk / install_name.lstrip("/").removesuffix(".dylib")
            for stub in (Path(f"{path}.tbd"), Path(re.sub(r"\.[A-Z]$", "", str(path)) + ".tbd")):
                if stub.is_file():
                    self._read(stub)
                    break
        return self._documents.setdefault(install_name, None)

    def exports(self, install_name):
        """Every symbol that the library and those that it re-exports supply."""
        if install_name not in self._exports:
            document = self.find(install_name)
            symbols = self._exports[install_name] = set(document.symbols) if document else set()
            for library in document.reexports if document else ():
                symbols |= self.exports(library)
        return self._exports[install_name]
