"""Rules about a package as a whole: its control file, where its files lie, their modes, what may not be in them."""

import re
from pathlib import PurePosixPath

from .subject import BUNDLES, ENTRIES, ROOT, USER, USER_FOLDERS

_BUILD_PATH = re.compile(rb"/(?:Users|home|root|tmp|var/folders)/[\x21-\x7e]+")
_SOURCE_PATH = re.compile(rb"/[\x21-\x7e]+\.(?:mm?|cpp|hpp|o|tbd)(?=\0)")


def control_fields(subject):
    """The control file is that of a rootless settings package."""
    fields = subject.package.control
    if fields.get("Architecture") != "iphoneos-arm64":
        yield f"control: the architecture is {fields.get('Architecture')}, not iphoneos-arm64"
    for name in ("Section", "Description", "Maintainer", "Author", "Name"):
        if not fields.get(name):
            yield f"control: {name} is missing"
    depends = {part.split()[0]: part for part in re.split(r",\s*", fields.get("Depends", "")) if part}
    if "preferenceloader" not in depends:
        yield "control: Depends lacks preferenceloader"
    for _, info in subject.bundles:
        wanted = f"firmware (>= {info.get('MinimumOSVersion')})"
        if depends.get("firmware") != wanted:
            yield f"control: Depends has {depends.get('firmware')}, not {wanted}"
    for script in subject.package.scripts:
        yield f"control: the maintainer script {script[1:]} is not expected"


def layout(subject):
    """Everything lies below /var/jb: settings bundles, their entries, and nothing that a system leaves behind."""
    parents = set(map(str, PurePosixPath(ROOT).parents))
    for member in subject.package.files:
        path = PurePosixPath(member.path)
        if ".." in path.parts or not (member.path in parents or path.is_relative_to(ROOT)):
            yield f"{member.name} lies outside .{ROOT}"
        if path.name in (".DS_Store", "Thumbs.db") or path.name.startswith("._"):
            yield f"{member.path} does not belong into a package"
    if not subject.bundles:
        yield f"no settings bundle with an Info.plist lies in {BUNDLES}"
    if not any(path.startswith(ENTRIES + "/") for path, _ in subject.property_lists):
        yield f"no entry lies in {ENTRIES}"


def modes(subject):
    """Folders and executables are 755, other files 644, root's but for the user's folders; no links or devices."""
    executables = {f"{folder}/{info.get('CFBundleExecutable')}" for folder, info in subject.bundles}
    for member in subject.package.files:
        info = member.info
        if not info.isreg() and not info.isdir():
            yield f"{member.path} is neither a file nor a folder"
            continue
        wanted = 0o755 if info.isdir() or member.path in executables else 0o644
        if info.mode & 0o7777 != wanted:
            yield f"{member.path} has the mode {info.mode & 0o7777:o}, not {wanted:o}"
        owner, name = (USER, "mobile") if member.path in USER_FOLDERS else (0, "root")
        if (info.uid, info.gid) != (owner, owner):
            yield f"{member.path} belongs to {info.uid}:{info.gid}, not to {owner}:{owner}"
        elif not {info.uname, info.gname} <= {"", name, "wheel"}:  # dpkg goes by names that the device knows.
            yield f"{member.path} belongs to {info.uname}:{info.gname}, names of the machine that built it"


def user_folders(subject):
    """The folders that Settings writes to are there, and empty: dpkg then leaves alone what the user has put there."""
    folders = {member.path for member in subject.package.files if member.info.isdir()}
    for folder in USER_FOLDERS:
        if folder not in folders:
            yield f"the folder {folder} is missing"
        for member in subject.package.files:
            if member.path.startswith(folder + "/"):
                yield f"{member.path} lies in a folder of the user's"


def build_paths(subject):
    """No path of the machine that built the package occurs in a file."""
    for member in subject.package.files:
        if member.data is None:
            continue
        found = {match.group() for match in _BUILD_PATH.finditer(member.data)}
        found |= {path for path in subject.forbidden if re.search(re.escape(path) + rb"(?![\w.-])", member.data)}
        if member.path in dict(subject.executables):
            found |= {match.group() for match in _SOURCE_PATH.finditer(member.data)}
        for path in sorted(found):
            yield f"{member.path} holds the path {path.decode(errors='replace')} of the machine that built it"
