"""The Objective-C classes of a Mach-O slice and the instance methods that its classes and categories implement."""

import struct

from .macho import MachOError

_META_FLAGS = 0x7  # Swift's marks in the low bits of a class's data pointer.
_RELATIVE_LIST = 0x80000000
_DIRECT_SELECTORS = 0x40000000


def names(image):
    """(class names, selectors of instance methods) of the slice. Raises MachOError."""
    found = methods(image)
    classes = {holder[1:] for holder in found if holder[0] == "-"}
    return classes, {selector for holder in found if holder[0] in "-(" for selector in found[holder]}


def methods(image):
    """The selectors by who implements them: "-Class", "+Class", "(Category", "+(Category". Raises MachOError."""
    found = {}
    try:
        for entry in _pointers(image, "__objc_classlist"):
            metaclass, data = _field(image, entry, 0), _field(image, entry, 4) & ~_META_FLAGS
            name, instance = _field(image, data, 3), _field(image, data, 4)
            found["-" + image.text(name)] = set(_selectors(image, instance))
            if metaclass is not None:
                data = _field(image, metaclass, 4) & ~_META_FLAGS
                found["+" + image.text(name)] = set(_selectors(image, _field(image, data, 4)))
        for entry in _pointers(image, "__objc_catlist"):
            name = image.text(_field(image, entry, 0))
            for sign, selectors in (("(", _field(image, entry, 2)), ("+(", _field(image, entry, 3))):
                found.setdefault(sign + name, set()).update(_selectors(image, selectors))
    except (struct.error, ValueError, TypeError) as error:
        raise MachOError(f"the Objective-C data is damaged: {error}") from error
    return found


def _pointers(image, section):
    for address, size in image.section(section):
        for slot in range(address, address + size, 8):
            yield image.pointer(slot)


def _field(image, address, index):
    """The pointer in the `index`-th eight bytes, from 0, of the record at `address`."""
    return image.pointer(address + 8 * index)


def _selectors(image, methods):
    if methods is None:
        return
    flags, count = image.read("II", methods)
    size = flags & 0xFFFC
    for index in range(count):
        entry = methods + 8 + size * index
        if not flags & _RELATIVE_LIST:
            yield image.text(image.pointer(entry))
            continue
        target = entry + image.read("i", entry)[0]
        yield image.text(target if flags & _DIRECT_SELECTORS else image.pointer(target))
