"""Reads Objective-C headers with libclang: what a translation unit declares, in a form that can be compared.

A `Declarations` holds one `Fact` for every class, protocol, method, property, structure, type, enumerator, function and
constant. Two facts of the same key say the same when their `value` is equal. Methods and properties carry the type
encoding of the Objective-C runtime, which is what both sides of a message agree on; everything else its type with all
type names resolved.
"""

import ctypes
from dataclasses import dataclass, field

from clang.cindex import (
    AvailabilityKind, CursorKind, Diagnostic, Index, TranslationUnit, TranslationUnitLoadError, conf,
)  # fmt: skip


class HeaderError(Exception):
    """The headers do not compile."""


@dataclass(frozen=True)
class Fact:
    key: str  # "class UIView", "method -[UIView setFrame:]", "enumerator UIViewContentModeTop".
    value: str
    file: str
    line: int
    introduced: str = ""  # The version of iOS that the declaration names, or "".


@dataclass
class Container:
    """A class with its categories, or a protocol."""

    superclass: str = ""
    protocols: set[str] = field(default_factory=set)
    members: dict[str, Fact] = field(default_factory=dict)  # By "method -setFrame:" and "property frame".


class _Version(ctypes.Structure):
    _fields_ = [("major", ctypes.c_int), ("minor", ctypes.c_int), ("patch", ctypes.c_int)]


class _String(ctypes.Structure):
    _fields_ = [("data", ctypes.c_void_p), ("flags", ctypes.c_uint)]


class _PlatformAvailability(ctypes.Structure):
    """CXPlatformAvailability of <clang-c/Index.h>, which the Python module leaves out."""

    _fields_ = [("platform", _String), ("introduced", _Version), ("deprecated", _Version), ("obsoleted", _Version),
                ("unavailable", ctypes.c_int), ("message", _String)]  # fmt: skip


_MOST_PLATFORMS = 16
_CLASS_PROPERTY = 0x1000  # CXObjCPropertyAttr_class.


def _spelling(type_):
    """The type with all type names resolved, as it is compared.

    noexcept comes from the C++ form of C headers. The integer of 64 bits is a `long long` on the platform and a `long`
    here.
    """
    return type_.get_canonical().spelling.removesuffix(" noexcept").replace("long long", "long")


def _call(name, *arguments):
    return getattr(conf.lib, name)(*arguments)


def _introduced(cursor):
    """The version of iOS in which the declaration's attributes say that it appeared, as "15.0"; "" if they do not."""
    found = (_PlatformAvailability * _MOST_PLATFORMS)()
    count = _call("clang_getCursorPlatformAvailability", cursor, None, None, None, None, found, _MOST_PLATFORMS)
    version = ""
    for availability in found[: max(0, min(count, _MOST_PLATFORMS))]:
        platform = ctypes.cast(availability.platform.data, ctypes.c_char_p).value
        if platform == b"ios" and availability.introduced.major > 0:
            version = f"{availability.introduced.major}.{max(0, availability.introduced.minor)}"
        _call("clang_disposeCXPlatformAvailability", ctypes.byref(availability))
    return version


class Declarations:
    """What `source` declares with everything that it includes. What the platform does not have is left out.

    arguments: those of the compiler. files: contents by path that take the place of what lies there.
    Raises HeaderError with the compiler's first error.
    """

    def __init__(self, source, arguments, files=()):
        self.facts = {}  # Everything but members, by key.
        self.containers = {}  # By "class UIView" and "protocol UITableViewDelegate".
        name = "headers.mm"
        try:
            unit = Index.create().parse(
                name, args=[*arguments, "-x", "objective-c++"], unsaved_files=[(name, source), *files],
                options=TranslationUnit.PARSE_SKIP_FUNCTION_BODIES,
            )  # fmt: skip
        except TranslationUnitLoadError as error:
            raise HeaderError("libclang cannot read them") from error
        for diagnostic in unit.diagnostics:
            if diagnostic.severity >= Diagnostic.Error:
                raise HeaderError(diagnostic.format())
        self._read(unit.cursor)

    def member(self, container, name):
        """The fact of a method or property that the container has or inherits, or None."""
        for found in self._lineage(container):
            if name in found.members:
                return found.members[name]
        return None

    def adopts(self, container, protocol):
        return any(protocol in found.protocols for found in self._lineage(container))

    def _lineage(self, key, seen=None):
        """The container, then what it inherits from, nearest first."""
        seen = set() if seen is None else seen
        if key in seen or key not in self.containers:
            return
        seen.add(key)
        found = self.containers[key]
        yield found
        for protocol in sorted(found.protocols):
            yield from self._lineage(f"protocol {protocol}", seen)
        if found.superclass:
            yield from self._lineage(f"class {found.superclass}", seen)

    def _read(self, parent):
        for cursor in parent.get_children():
            match cursor.kind:
                case CursorKind.LINKAGE_SPEC | CursorKind.UNEXPOSED_DECL:
                    self._read(cursor)
                case CursorKind.OBJC_INTERFACE_DECL:
                    self._read_container(f"class {cursor.spelling}", cursor)
                case CursorKind.OBJC_CATEGORY_DECL:
                    extended = [c.spelling for c in cursor.get_children() if c.kind == CursorKind.OBJC_CLASS_REF]
                    self._read_container(f"class {extended[0]}", cursor)
                case CursorKind.OBJC_PROTOCOL_DECL if cursor.is_definition():
                    self._read_container(f"protocol {cursor.spelling}", cursor)
                case CursorKind.ENUM_DECL:
                    self._read_enumeration(cursor)
                case CursorKind.STRUCT_DECL if cursor.is_definition():
                    fields = [f"{_spelling(f.type)} {f.spelling}" for f in cursor.type.get_fields()]
                    self._add("structure", cursor, "; ".join(fields))
                case CursorKind.TYPEDEF_DECL:
                    self._add("type", cursor, _spelling(cursor.underlying_typedef_type))
                case CursorKind.FUNCTION_DECL:
                    self._add("function", cursor, _spelling(cursor.type))
                case CursorKind.VAR_DECL:
                    self._add("constant", cursor, _spelling(cursor.type))

    def _fact(self, key, value, cursor):
        file = cursor.location.file
        return Fact(key, value, file.name if file else "", cursor.location.line, _introduced(cursor))

    def _add(self, kind, cursor, value):
        if cursor.spelling and cursor.availability != AvailabilityKind.NOT_AVAILABLE:
            key = f"{kind} {cursor.spelling}"
            self.facts.setdefault(key, self._fact(key, value, cursor))

    def _read_enumeration(self, cursor):
        if cursor.is_definition() and not cursor.is_anonymous():
            self._add("enumeration", cursor, _spelling(cursor.enum_type))
        for enumerator in cursor.get_children():
            if enumerator.kind == CursorKind.ENUM_CONSTANT_DECL:
                self._add("enumerator", enumerator, str(enumerator.enum_value))

    def _read_container(self, key, cursor):
        name = key.split()[1]
        container = self.containers.setdefault(key, Container())
        if cursor.kind != CursorKind.OBJC_CATEGORY_DECL:
            self.facts.setdefault(key, self._fact(key, "", cursor))
        for child in cursor.get_children():
            match child.kind:
                case CursorKind.OBJC_SUPER_CLASS_REF:
                    container.superclass = child.spelling
                case CursorKind.OBJC_PROTOCOL_REF:
                    container.protocols.add(child.spelling)
                case CursorKind.OBJC_INSTANCE_METHOD_DECL | CursorKind.OBJC_CLASS_METHOD_DECL:
                    sign = "-" if child.kind == CursorKind.OBJC_INSTANCE_METHOD_DECL else "+"
                    key = f"method {sign}[{name} {child.spelling}]"
                    self._add_member(container, key, f"method {sign}{child.spelling}", child)
                case CursorKind.OBJC_PROPERTY_DECL:
                    key = f"property {name}.{child.spelling}"
                    self._add_member(container, key, f"property {child.spelling}", child)

    def _add_member(self, container, key, name, cursor):
        if cursor.availability == AvailabilityKind.NOT_AVAILABLE:
            return
        value = cursor.objc_type_encoding
        if cursor.kind == CursorKind.OBJC_PROPERTY_DECL and (
            _call("clang_Cursor_getObjCPropertyAttributes", cursor, 0) & _CLASS_PROPERTY
        ):
            value += " of the class"
        if _call("clang_Cursor_isObjCOptional", cursor):
            value += " optional"
        container.members.setdefault(name, self._fact(key, value, cursor))
