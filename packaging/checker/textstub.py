"""Reads text-based library stubs (.tbd, versions 1 to 4) and answers what a library exports."""

import re
from pathlib import Path

import yaml

# Plain texts only: a symbol may be named as a number or a truth value is written.
_Loader = getattr(yaml, "CBaseLoader", yaml.BaseLoader)
_CLASS_KEYS = {
    "objc-classes": ("_OBJC_CLASS_$_", "_OBJC_METACLASS_$_"),
    "objc-eh-types": ("_OBJC_EHTYPE_$_",),
    "objc-ivars": ("_OBJC_IVAR_$_",),
}
_SYMBOL_KEYS = {"symbols", "weak-symbols", "weak-def-symbols", "thread-local-symbols"}
_REEXPORT_KEYS = {"re-exports", "libraries"}


class StubError(ValueError):
    """The text is not a stub: what is wrong, and in which line."""


class Document:
    """One library of a stub file, as seen by one kind of processor."""

    def __init__(self, content, underscored, arch):
        self.install_name = content.get("install-name")
        self.symbols = set()
        self.reexports = set()
        for section in ("exports", "reexports", "reexported-libraries"):
            for part in _list(content, section):
                targets = [*_list(part, "targets"), *_list(part, "archs")]
                if arch in targets or f"{arch}-ios" in targets:
                    self._add(part, underscored)

    def _add(self, part, underscored):
        for key in part:
            if key in _SYMBOL_KEYS:
                self.symbols.update(_list(part, key))
            elif key in _CLASS_KEYS:
                # Versions 1 and 2 put an underscore before class names.
                plain = [name.removeprefix("_") if underscored else name for name in _list(part, key)]
                self.symbols.update(prefix + name for prefix in _CLASS_KEYS[key] for name in plain)
            elif key in _REEXPORT_KEYS:
                self.reexports.update(_list(part, key))


def _list(mapping, key):
    """The list under a key, which may be missing or empty. Raises StubError when something else stands there."""
    if not isinstance(mapping, dict):
        raise StubError(f"something else stands where {key} belongs")
    found = mapping.get(key) or []
    if not isinstance(found, list):
        raise StubError(f"{key} is not a list")
    return found


def documents(text, arch):
    """Every library that a stub file describes; the first is the file's own. Raises StubError."""
    found = []
    try:
        loader = _Loader(text)
        try:
            while loader.check_node():
                node = loader.get_node()
                version = re.fullmatch(r"!tapi-tbd(?:-v(\d))?", node.tag)
                underscored = version is None or version.group(1) == "2"
                found.append(Document(_mapping(loader.construct_document(node)), underscored, arch))
        finally:
            loader.dispose()
    except yaml.YAMLError as error:
        raise StubError(" ".join(str(error).split())) from None
    return found


def _mapping(content):
    if not isinstance(content, dict) or not isinstance(content.get("install-name"), str):
        raise StubError("there is no install-name")
    return content


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
        try:
            found = documents(path.read_text(encoding="utf-8"), self._arch)
        except (StubError, UnicodeDecodeError) as error:
            raise StubError(f"{path} cannot be read: {error}") from None
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
