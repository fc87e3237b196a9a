"""Reads a Debian package without installing it."""

import io
import subprocess
import tarfile
from dataclasses import dataclass


class PackageError(Exception):
    """The file is no Debian package that can be read."""


@dataclass
class Member:
    """One entry of the package's file tree. `path` is as on the device, "/var/jb/…"."""

    name: str
    path: str
    info: tarfile.TarInfo
    data: bytes | None  # None for anything but a regular file.


class Package:
    """A package's control fields, maintainer scripts and files."""

    def __init__(self, path):
        control = _members(path, "--ctrl-tarfile")
        self.files = _members(path, "--fsys-tarfile")
        self.scripts = sorted(m.path for m in control if m.data is not None and m.path not in ("/control", "/md5sums"))
        text = next((m.data for m in control if m.path == "/control"), b"").decode()
        self.control = dict(line.split(": ", 1) for line in text.splitlines() if ": " in line and line[0] != " ")

    def file(self, path):
        """The content of the regular file at a device path, or None."""
        return next((member.data for member in self.files if member.path == path), None)


def _members(path, option):
    try:
        result = subprocess.run(["dpkg-deb", option, str(path)], capture_output=True, check=True)
        with tarfile.open(fileobj=io.BytesIO(result.stdout)) as archive:
            return [_member(archive, info) for info in archive]
    except subprocess.CalledProcessError as error:
        raise PackageError(error.stderr.decode(errors="replace").strip()) from error
    except (OSError, tarfile.TarError) as error:
        raise PackageError(str(error)) from error


def _member(archive, info):
    path = "/" + "/".join(part for part in info.name.split("/") if part not in ("", "."))
    return Member(info.name, path, info, archive.extractfile(info).read() if info.isreg() else None)
