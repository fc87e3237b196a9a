"""Rules about the executable of a settings bundle."""

from . import exports, fixups, macho, objc, signature
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
        found = [image.arch for image in images]
        for arch in subject.archs:
            if arch not in found:
                yield f"{path} has no code for {arch}"
        if len(set(found)) != len(found):
            yield f"{path} has several slices for one kind of processor"
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
        try:
            imports = fixups.decode(image)[1]
        except macho.MachOError as error:
            yield f"{words}: {error}"
            continue
        wanted = [(symbol.name, symbol.library, symbol.weak) for symbol in image.undefined]
        wanted += [(imported.name, imported.library, imported.optional) for imported in imports]
        for name, number, optional in dict.fromkeys(wanted):
            if number == fixups.WEAK_LOOKUP:
                if name not in image.defined and not any(name in libraries.exports(path) for path in image.dylibs):
                    yield f"{words} expects {name} of any library, and none exports it"
            elif not 1 <= number <= len(image.dylibs):
                yield f"{words} expects {name} of no library in particular"
            elif name not in libraries.exports(image.dylibs[number - 1]) and not optional:
                yield f"{words} expects {name} of {image.dylibs[number - 1]}, which does not export it"


def same_slices(subject):
    """The slices of an executable define the same classes and methods, and export the same names."""
    for path, images in subject.executables:
        try:
            contents = [(image.arch, _contents(image)) for image in images]
        except macho.MachOError:
            continue  # Another rule's problem.
        for arch, content in contents:
            for other, theirs in contents:
                for name in sorted(theirs - content):
                    yield f"{path} ({arch}) lacks {name}, which is in the slice for {other}"


def _contents(image):
    """What a slice defines, in words."""
    found = {f"the export {name}" for name in exports.names(image)}
    for holder, selectors in objc.methods(image).items():
        found.add(f"the class {holder[1:]}" if holder[0] == "-" else f"the methods of {holder}")
        found |= {f"the method {selector} of {holder}" for selector in selectors}
    return found
