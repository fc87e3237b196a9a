"""The rule that the finished code sets up exactly the pointers that the compiler asked for."""

from pathlib import Path

from . import fixups, macho
from .assembly import INITIALISERS, AssemblyError, Record, read_map, records

_LINKER_MADE = {"__got", "__la_symbol_ptr"}


def requested_pointers(subject):
    """In code for arm64e whose assembly is at hand, each pointer is set up as that asks, and no other one is."""
    if subject.link_map is None:
        return
    for words, _, image in subject.images:
        if image.arch == "arm64e":
            try:
                yield from (f"{words} {problem}" for problem in _problems(image, Path(subject.link_map)))
            except (AssemblyError, macho.MachOError, OSError) as error:
                yield f"{words} cannot be held against its assembly: {error}"


def _problems(image, link_map):
    placed = read_map(link_map.read_text(encoding="utf-8"))
    found, _ = fixups.decode(image)
    # By name alone only what other objects can see: each has private labels, which begin with an l, of its own.
    by_name = {label: address for (_, label), address in placed.places.items() if label[0] not in "lL"}
    explained, initialisers = set(), []
    for number, path in placed.objects.items():
        if not path.endswith(".o"):
            continue
        _add_aliases(placed, number, Path(path).read_bytes())
        asked = records(Path(path + ".s").read_text(encoding="utf-8"))
        initialisers += [placed.places.get((number, pointer.symbol))
                         for pointer in asked.pop(INITIALISERS, Record()).pointers.values()]  # fmt: skip
        for label, record in asked.items():
            start = placed.places.get((number, label))
            if start is None:
                continue  # Nothing needs it, or another object's copy was taken.
            for offset, pointer in record.pointers.items():
                explained.add(start + offset)
                text = asked[pointer.symbol].text if pointer.symbol in asked else b""
                own = placed.places.get((number, pointer.symbol), by_name.get(pointer.symbol))
                fault = _fault(image, found.get(start + offset), pointer, own, text)
                if fault:
                    yield f"{fault} at {label}+{offset} of {path}"
    offsets = [slot for start, size in image.section("__init_offsets") for slot in range(start, start + size, 4)]
    if [image.read("I", slot)[0] for slot in offsets] != initialisers:
        yield "does not run the functions first that are to initialise it"
    for address in sorted(found.keys() - explained):
        section = next(s.name for s in image.sections if s.address <= address < s.address + s.size)
        if section not in _LINKER_MADE:
            yield f"sets up a pointer at {address:#x} in {section} that nothing asks for"


def _add_aliases(placed, number, content):
    """Names every label of an object: the map has one of those that share an address, often the assembler's own."""
    labels, names = macho.labels(content), {}
    for address, name in labels:
        names.setdefault(address, []).append(name)
    for address, name in labels:
        if (number, name) in placed.places:
            for alias in names[address]:
                placed.places.setdefault((number, alias), placed.places[number, name])


def _fault(image, fixup, pointer, place, text):
    """What is wrong with a pointer; None when it is as it was asked for."""
    if fixup is None:
        return f"does not set up the pointer to {pointer.symbol}"
    if fixup.signed != pointer.signed:
        return f"signs the pointer to {pointer.symbol} with {fixup.signed}, not {pointer.signed},"
    if fixup.imported:
        right = fixup.imported.name == pointer.symbol and (fixup.addend - pointer.addend) % 2**64 == 0
    elif place is not None:
        right = fixup.target == (place + pointer.addend) % 2**64
    else:
        right = bool(text) and image.bytes(fixup.target - pointer.addend, len(text)) == text
    return None if right else f"sets up a pointer to something else than {pointer.symbol}"
