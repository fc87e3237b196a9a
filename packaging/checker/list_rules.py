"""Rules about a package's property lists and the names in them."""

from pathlib import PurePosixPath

from .subject import BUNDLES, ENTRIES

_CLASS_KEYS = {"cellClass", "headerCellClass", "footerCellClass", "detail", "pane"}
_SELECTOR_KEYS = {
    "action", "buttonAction", "loadAction", "cancel", "confirmationAction", "deletionAction", "get", "set",
    "valuesDataSource", "titlesDataSource", "shortTitlesDataSource",
}  # fmt: skip


def _entries(value, keys):
    """(key, text) of every entry with one of `keys`, however deep."""
    if isinstance(value, dict):
        for key, inner in value.items():
            if key in keys and isinstance(inner, str):
                yield key, inner
            yield from _entries(inner, keys)
    elif isinstance(value, list):
        for inner in value:
            yield from _entries(inner, keys)


def property_lists(subject):
    """Every property list can be read, and the bundles' and the loader's say what is in the package."""
    readable = {path for path, _ in subject.property_lists}
    for member in subject.package.files:
        if member.path.endswith(".plist") and member.data is not None and member.path not in readable:
            yield f"{member.path} is not a valid property list"
    for folder, info in subject.bundles:
        for key in ("CFBundleIdentifier", "CFBundleExecutable", "NSPrincipalClass", "MinimumOSVersion"):
            if not isinstance(info.get(key), str):
                yield f"{folder}/Info.plist lacks {key}"
        if subject.package.file(f"{folder}/{info.get('CFBundleExecutable')}") is None:
            yield f"{folder} lacks its executable {info.get('CFBundleExecutable')}"
    names = {PurePosixPath(folder).stem for folder, _ in subject.bundles}
    for path, content in subject.property_lists:
        if not path.startswith(ENTRIES + "/"):
            continue
        entry = content.get("entry") if isinstance(content, dict) else None
        if not isinstance(entry, dict):
            yield f"{path} has no entry"
        elif entry.get("bundle") not in names:
            yield f"{path} names the bundle {entry.get('bundle')}, which the package lacks"


def icons(subject):
    """Every icon that a property list names lies in the bundle, at one scale at least."""
    files = {member.path for member in subject.package.files}
    for path, content in subject.property_lists:
        folder = str(PurePosixPath(path).parent)
        if path.startswith(ENTRIES + "/"):
            entry = content.get("entry") if isinstance(content, dict) else None
            folder = f"{BUNDLES}/{entry.get('bundle')}.bundle" if isinstance(entry, dict) else folder
        for _, name in _entries(content, {"icon"}):
            stem = name.removesuffix(".png")
            if not any(f"{folder}/{stem}{scale}.png" in files for scale in ("", "@2x", "@3x")):
                yield f"{path} names the icon {name}, which {folder} lacks"


def named_classes(subject):
    """Every class that a property list names is in the executable, or is a framework's."""
    classes, _ = subject.names
    framework = set()
    for _, _, image in subject.images:
        for library in image.dylibs:
            framework |= subject.libraries(image.arch).exports(library)
    for path, content in subject.property_lists:
        for key, name in _entries(content, _CLASS_KEYS):
            if name not in classes and f"_OBJC_CLASS_$_{name}" not in framework:
                yield f"{path}: {key} names the class {name}, which nothing defines"
    for folder, info in subject.bundles:
        principal = info.get("NSPrincipalClass")
        if principal not in classes:
            yield f"{folder}/Info.plist: NSPrincipalClass names {principal}, which is not in the executable"


def named_selectors(subject):
    """Every selector that a property list names is implemented in the executable."""
    _, selectors = subject.names
    for path, content in subject.property_lists:
        for key, name in _entries(content, _SELECTOR_KEYS):
            if name not in selectors:
                yield f"{path}: {key} names the selector {name}, which no class implements"
