"""Rules about the executable of a settings bundle."""

from . import macho, objc, signature
from .subject import ROOT

_RPATHS = {
    ROOT + "/Library/Frameworks",
    ROOT + "/usr/lib",
    "@loader_path/.jbroot/Library/Frameworks",
    "@loader_path/.jbroot/usr/lib",
}


def load_commands(subject):
    """The executable is a dynamic library for arm64 iOS whose paths are all those of the device."""
    for folder, info in subject.bundles:
        path = f"{folder}/{info.get('CFBundleExecutable')}"
        data = subject.package.file(path)
        if data is None:
            continue
        try:
            images = macho.slices(data)
        except macho.MachOError as error:
            yield f"{path}: {error}"
            continue
        if "arm64" not in [image.arch for image in images]:
            yield f"{path} has no code for arm64"
        for image in images:
            try:
                objc.names(image)
            except macho.MachOError as error:
                yield f"{path} ({image.arch}): {error}"
            for problem in _load_command_problems(subject, path, image, info):
                yield f"{path} ({image.arch}) {problem}"


def _load_command_problems(subject, path, image, info):
    if image.filetype != macho.MH_DYLIB:
        yield f"is of the file type {image.filetype}, not a dynamic library"
    if image.arch == "arm64e" and not image.subtype & 0x80000000:
        yield "has the old arm64e calling convention, which iOS 14 and later do not load"
    if image.install_name != path:
        yield f"says that it is {image.install_name}"
    if image.platform != macho.PLATFORM_IOS:
        yield "is not built for iOS devices"
    elif ".".join(map(str, image.minimum)) != info.get("MinimumOSVersion"):
        yield f"needs iOS {'.'.join(map(str, image.minimum))}, but Info.plist says {info.get('MinimumOSVersion')}"
    libraries = subject.libraries(image.arch)
    for library in image.dylibs:
        if libraries.find(library) is None:
            yield f"loads {library}, which neither the SDK nor the link stubs know"
    for library in libraries.own:
        if library not in image.dylibs:
            yield f"does not load {library}"
    for rpath in image.rpaths:
        if rpath not in _RPATHS:
            yield f"searches {rpath} for libraries"
    fault = signature.problem(image)
    if fault:
        yield fault


def undefined_symbols(subject):
    """Every symbol that the executable lacks is exported by the library that it expects it of."""
    for words, _, image in subject.images:
        libraries = subject.libraries(image.arch)
        for symbol in image.undefined:
            if not 1 <= symbol.library <= len(image.dylibs):
                yield f"{words} expects {symbol.name} of no library in particular"
                continue
            library = image.dylibs[symbol.library - 1]
            if symbol.name not in libraries.exports(library) and not symbol.weak:
                yield f"{words} expects {symbol.name} of {library}, which does not export it"
