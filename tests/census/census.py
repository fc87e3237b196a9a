"""Finds what a bundle can set in the simulator's frameworks and nobody reads.

A setter (of a property in a public header, or a method or function whose name says "set") is alive when what it is
given gets somewhere: it is read by code that is heard of, it is passed on to code that is alive, or the setter says in
the log that it is not carried. Code is heard of unless it is an accessor of something dead, or a public method that
answers a question which no code that is heard of asks. That a value is stored, compared, copied along or released does
not count, nor that a bundle can read it back.

The sources are read with libclang, many at a time, because the headers take longer than the sources.
"""

import json
import re
import shlex
import sys
from collections import defaultdict
from dataclasses import dataclass, field
from pathlib import Path

# Debian's package lies there, whichever Python runs this.
sys.path.append('/usr/lib/python3/dist-packages')
from clang.cindex import (  # noqa: E402
    BinaryOperator, Cursor, CursorKind as Kind, Index, TranslationUnit, TypeKind, conf)

# Says once in the device log that something is not carried; a setter that calls it is alive.
LOG_ONCE = 'notCarried'

# Bodies whose reading of a value has no effect that anybody sees.
INERT = re.compile(r'^(init.*|dealloc|copyWithZone:|mutableCopyWithZone:|isEqual:|hash|description|debugDescription)$')

SETTER_NAME = re.compile(r'^(set(?=[A-Z])|[A-Z][A-Za-z]*Set(?=[A-Z]))')
CONTAINERS = {Kind.OBJC_IMPLEMENTATION_DECL, Kind.OBJC_CATEGORY_IMPL_DECL}
INTERFACES = {Kind.OBJC_INTERFACE_DECL, Kind.OBJC_CATEGORY_DECL, Kind.OBJC_PROTOCOL_DECL}
METHODS = {Kind.OBJC_INSTANCE_METHOD_DECL, Kind.OBJC_CLASS_METHOD_DECL}
FUNCTIONS = {Kind.FUNCTION_DECL, Kind.FUNCTION_TEMPLATE, Kind.CXX_METHOD, Kind.CONSTRUCTOR}
CALLS = {Kind.CALL_EXPR, Kind.OBJC_MESSAGE_EXPR}
TRANSPARENT = {Kind.UNEXPOSED_EXPR, Kind.PAREN_EXPR}
STATEMENTS = {Kind.COMPOUND_STMT, Kind.IF_STMT, Kind.FOR_STMT, Kind.CXX_FOR_RANGE_STMT, Kind.CASE_STMT,
              Kind.DEFAULT_STMT, Kind.WHILE_STMT, Kind.OBJC_FOR_COLLECTION_STMT, Kind.OBJC_AUTORELEASE_POOL_STMT}

# A method is (class, selector), a function is (None, its unique name).
Code = tuple


@dataclass(frozen=True)
class Setter:
  """Something that can be set: `name` as a person reads it, the code that sets it and, of a property, its getter."""
  name: str
  setter: Code
  getter: Code | None
  place: str


@dataclass
class Body:
  """What one method or function does."""
  reads: set = field(default_factory=set)  # Fields.
  sends: set = field(default_factory=set)  # Code that it calls.
  stores: set = field(default_factory=set)  # Fields that what it was given goes into.
  passes: set = field(default_factory=set)  # Code that is called with what it was given, for its effect.
  drops_out: bool = False  # What it was given goes to code outside of the sources, for its effect.
  says_so: bool = False  # It tells the log that something is not carried.


class Sources:
  """What a set of sources declares and does."""

  def __init__(self):
    self.bodies: dict[Code, Body] = {}
    self.setters: dict[Code, Setter] = {}
    self.answers: set[Code] = set()  # Public methods that answer something.
    self.supers: dict[str, str] = {}
    self.protocols: dict[str, set] = defaultdict(set)

  # Reading.

  def read(self, unit: TranslationUnit, sources: set, is_public):
    """Adds what `unit` holds of `sources` (resolved paths) and of the public headers."""
    for cursor in unit.cursor.get_children():
      place = cursor.location.file
      if not place:
        continue
      self._read_declaration(cursor, str(Path(place.name).resolve()), sources, is_public)

  def _read_declaration(self, cursor, path, sources, is_public):
    if cursor.kind in INTERFACES:
      self._read_interface(cursor, is_public(path))
    elif cursor.kind in (Kind.NAMESPACE, Kind.LINKAGE_SPEC, Kind.UNEXPOSED_DECL):
      for child in cursor.get_children():
        self._read_declaration(child, path, sources, is_public)
    elif cursor.kind in (Kind.STRUCT_DECL, Kind.CLASS_DECL):
      for child in cursor.get_children():
        if child.kind in FUNCTIONS and path in sources or child.kind in (Kind.STRUCT_DECL, Kind.CLASS_DECL):
          self._read_declaration(child, path, sources, is_public)
    elif cursor.kind in FUNCTIONS:
      if is_public(path) and SETTER_NAME.match(cursor.spelling):
        self._add(Setter(cursor.spelling, code_of(cursor), None, place_of(cursor)))
      if path in sources and cursor.is_definition():
        self._read_body(cursor, code_of(cursor))
    elif cursor.kind in CONTAINERS and path in sources:
      for child in cursor.get_children():
        if child.kind in METHODS and child.is_definition():
          self._read_body(child, code_of(child))

  def _read_interface(self, interface, public):
    owner = class_of(interface)
    for child in interface.get_children():
      if child.kind == Kind.OBJC_SUPER_CLASS_REF:
        self.supers[owner] = child.spelling
      elif child.kind == Kind.OBJC_PROTOCOL_REF:
        self.protocols[owner].add(child.spelling)
      elif not public:
        continue
      elif child.kind == Kind.OBJC_PROPERTY_DECL:
        self._read_property(owner, child)
      elif child.kind in METHODS and SETTER_NAME.match(child.spelling) and ':' in child.spelling:
        self._add(Setter(f'-[{owner} {child.spelling}]', (owner, child.spelling), None, place_of(child)))
      elif child.kind in METHODS and child.result_type.kind != TypeKind.VOID:
        self.answers.add((owner, child.spelling))

  def _read_property(self, owner, cursor):
    words = [token.spelling for token in cursor.get_tokens()]
    attributes = words[words.index('property') + 1:words.index(')')] if ')' in words else []
    if 'readonly' in attributes:
      return
    name = cursor.spelling
    getter = attributes[attributes.index('getter') + 2] if 'getter' in attributes else name
    setter = f'set{name[0].upper()}{name[1:]}:'
    self.setters.pop((owner, setter), None)
    self._add(Setter(f'{owner}.{name}', (owner, setter), (owner, getter), place_of(cursor)))

  def _add(self, setter):
    self.setters.setdefault(setter.setter, setter)

  def _read_body(self, cursor, code):
    given = {child.get_usr() or child.hash for child in cursor.get_children() if child.kind == Kind.PARM_DECL}
    body = self.bodies.setdefault(code, Body())
    for child in cursor.get_children():
      if child.kind == Kind.COMPOUND_STMT or child.kind.is_expression():
        BodyReader(body, given).read(child, None)

  # Judging.

  def family(self, name):
    """The class, its superclasses and their protocols."""
    while name:
      yield name
      yield from self.protocols[name]
      name = self.supers.get(name)

  def find(self, code):
    """The code that a message to a class runs: its own or an inherited method."""
    owner, selector = code
    if owner is None:
      return code
    return next(((each, selector) for each in self.family(owner) if (each, selector) in self.bodies), code)

  def dead(self) -> list[Setter]:
    """The setters that nobody hears, by name."""
    readers, senders = defaultdict(set), defaultdict(set)
    for code, body in self.bodies.items():
      if code[0] and INERT.match(code[1]):
        continue
      for each in body.reads:
        readers[each].add(code)
      for each in body.sends:
        senders[each].add(code)
    accessors = {}
    for setter in self.setters.values():
      for code in (setter.setter, setter.getter):
        if code:
          accessors[code] = setter
    alive, asked = set(), set()

    def hears(code, own):
      """Whether code that reads something is heard of."""
      setter = self.accessor(accessors, code)
      if setter is not None:
        return setter is not own and setter in alive
      answer = self.answer(code)
      return answer is None or answer in asked

    def is_sent(code, own):
      return any(hears(sender, own) for sent, codes in senders.items() if self._may_be(sent, code) for sender in codes)

    def is_alive(setter):
      if self._gets_somewhere(setter.setter, setter, readers, accessors, alive, hears, set()):
        return True
      return setter.getter is not None and is_sent(setter.getter, setter)

    changed = True
    while changed:
      found = {setter for setter in self.setters.values() if setter not in alive and is_alive(setter)}
      answers = {answer for answer in self.answers if answer not in asked and is_sent(answer, None)}
      alive |= found
      asked |= answers
      changed = bool(found or answers)
    return sorted((setter for setter in self.setters.values() if setter not in alive), key=lambda each: each.name)

  def accessor(self, accessors, code):
    """What `code` is an accessor of, also as an override in a subclass or as an implementation of a protocol."""
    if code[0] is None:
      return accessors.get(code)
    return next((accessors[each, code[1]] for each in self.family(code[0]) if (each, code[1]) in accessors), None)

  def answer(self, code):
    """The public method that `code` is, also as an override; None when it is another."""
    if code[0] is None:
      return None
    return next(((each, code[1]) for each in self.family(code[0]) if (each, code[1]) in self.answers), None)

  def _may_be(self, sent, wanted):
    """Whether a message to `sent` may be answered by `wanted`, which a superclass, a protocol or a subclass
    declares.
    """
    if sent == wanted:
      return True
    if sent[1] != wanted[1] or not sent[0] or not wanted[0]:
      return False
    return wanted[0] in set(self.family(sent[0])) or sent[0] in set(self.family(wanted[0]))

  def _implementations(self, code):
    """The bodies that a call may run; a protocol's method has several."""
    found = self.find(code)
    if found in self.bodies:
      return [found]
    return [each for each in self.bodies if each[1] == code[1] and each[0] and code[0] in set(self.family(each[0]))]

  def _gets_somewhere(self, code, own, readers, accessors, alive, hears, seen):
    for each in self._implementations(code):
      if each in seen:
        continue
      seen.add(each)
      body = self.bodies[each]
      if body.says_so or body.drops_out:
        return True
      if any(hears(reader, own) for stored in body.stores for reader in readers[stored] if reader not in seen):
        return True
      for passed in body.passes:
        setter = self.accessor(accessors, passed)
        if setter in alive:
          return True
        if setter in (None, own) and self._gets_somewhere(passed, own, readers, accessors, alive, hears, seen):
          return True
    return False


class BodyReader:
  """Walks through one body."""

  def __init__(self, body: Body, given: set):
    self.body = body
    self.given = given  # Parameters and what was made of them.

  def read(self, cursor: Cursor, parent: Cursor | None):
    kind = cursor.kind
    if kind == Kind.VAR_DECL and self.mentions_given(cursor):
      self.given.add(cursor.get_usr() or cursor.hash)
    assigned = assigned_part(cursor)
    if assigned is not None:
      left, right = assigned
      if self.mentions_given(right):
        self.body.stores |= fields_in(left)
      self.read_place(left)
      self.read(right, cursor)
      return
    if kind in CALLS:
      self.read_call(cursor, parent)
    elif kind in (Kind.MEMBER_REF_EXPR, Kind.MEMBER_REF):
      self.read_member(cursor)
    for child in cursor.get_children():
      self.read(child, cursor)

  def read_place(self, left):
    """What is assigned to is not read; what leads to it is."""
    for child in left.get_children():
      if left.kind in TRANSPARENT or child.kind not in (Kind.MEMBER_REF_EXPR, Kind.UNEXPOSED_EXPR):
        self.read_place(child) if left.kind in TRANSPARENT else self.read(child, left)

  def read_member(self, cursor):
    declared = cursor.referenced
    if declared is None:
      return
    if declared.kind in (Kind.FIELD_DECL, Kind.OBJC_IVAR_DECL):
      self.body.reads.add(field_of(declared))
    elif declared.kind == Kind.OBJC_PROPERTY_DECL:
      self.body.sends.add((class_of(declared.semantic_parent), declared.spelling))

  def read_call(self, call, parent):
    callee = call.referenced
    code = callee_of(call, callee)
    if callee is not None and callee.spelling == LOG_ONCE:
      self.body.says_so = True
    if code:
      self.body.sends.add(code)
    if not any(self.mentions_given(each) for each in arguments_of(call)):
      return
    passes = code and is_in_sources(callee)
    if passes:
      self.body.passes.add(code)
    if parent is None or parent.kind not in STATEMENTS:
      return
    # Called for its effect: on a field, or on the world.
    held = set()
    for each in call.get_children():
      if not self.mentions_given(each):
        held |= fields_in(each)
    self.body.stores |= held
    if not held and not passes:
      self.body.drops_out = True

  def mentions_given(self, cursor):
    if cursor.kind == Kind.DECL_REF_EXPR:
      declared = cursor.referenced
      if declared is not None and (declared.get_usr() or declared.hash) in self.given:
        return True
    return any(self.mentions_given(child) for child in cursor.get_children())


def assigned_part(cursor):
  """The two sides of an assignment, or None."""
  if cursor.kind == Kind.BINARY_OPERATOR and cursor.binary_operator == BinaryOperator.Assign:
    return tuple(cursor.get_children())
  if cursor.kind == Kind.COMPOUND_ASSIGNMENT_OPERATOR:
    return tuple(cursor.get_children())
  if cursor.kind == Kind.CALL_EXPR and cursor.spelling == 'operator=':
    children = list(cursor.get_children())
    return children[0], children[-1]
  return None


def arguments_of(call):
  if call.kind == Kind.CALL_EXPR:
    return list(call.get_arguments())
  children = [child for child in call.get_children() if child.kind not in (Kind.OBJC_CLASS_REF, Kind.TYPE_REF)]
  # The receiver comes first; "super" and a class have no expression.
  count = call.spelling.count(':')
  return children[len(children) - count:] if count else []


def fields_in(cursor):
  """The fields at the end of each path that `cursor` names: of `state->traits.type`, `type`."""
  if cursor.kind == Kind.MEMBER_REF_EXPR and cursor.referenced is not None:
    if cursor.referenced.kind in (Kind.FIELD_DECL, Kind.OBJC_IVAR_DECL):
      return {field_of(cursor.referenced)}
  found = set()
  for child in cursor.get_children():
    found |= fields_in(child)
  return found


def field_of(declared):
  return declared.get_usr()


def class_of(container):
  if container.kind in (Kind.OBJC_CATEGORY_DECL, Kind.OBJC_CATEGORY_IMPL_DECL):
    return next((child.spelling for child in container.get_children() if child.kind == Kind.OBJC_CLASS_REF), '')
  return container.spelling


def code_of(cursor):
  if cursor.kind in METHODS:
    return class_of(cursor.semantic_parent), cursor.spelling
  template = conf.lib.clang_getSpecializedCursorTemplate(cursor)
  return None, (cursor if template is None or template.kind == Kind.INVALID_FILE else template).get_usr()


def callee_of(call, callee):
  """The code that a call names; None when that is not known, as for a message to an `id`."""
  if callee is None:
    return None
  if call.kind != Kind.OBJC_MESSAGE_EXPR:
    return code_of(callee) if callee.kind in FUNCTIONS else None
  if callee.kind not in METHODS:
    return None
  receiver = next(iter(call.get_children()), None)
  kind = receiver.type.get_canonical() if receiver is not None and receiver.kind.is_expression() else None
  if kind is not None and kind.kind == TypeKind.OBJCOBJECTPOINTER:
    static = re.match(r'(?:const )?(?:__kindof )?(\w+)', kind.spelling)
    if static and static.group(1) not in ('id', 'instancetype'):
      return static.group(1), callee.spelling
    bound = re.match(r'id<(\w+)', kind.spelling)
    return (bound.group(1), callee.spelling) if bound else None
  return code_of(callee)


def is_in_sources(callee):
  place = callee.location.file if callee is not None else None
  return bool(place) and not str(place.name).startswith('/usr/')


def place_of(cursor):
  return f'{cursor.location.file.name}:{cursor.location.line}'


def parse_together(paths, arguments):
  """Parses `paths` in as few translation units as names that only one file should see allow.

  Yields (unit, the paths whose contents are good in it). Raises RuntimeError with the first message for a file that
  does not compile by itself.
  """
  index = Index.create()
  left = list(paths)
  while left:
    name = 'census.mm'
    text = ''.join(f'#include "{path}"\n' for path in left)
    # All errors: what comes after the last that is told is not parsed.
    unit = index.parse(name, [*arguments, '-ferror-limit=0'], unsaved_files=[(name, text)])
    errors = [each for each in unit.diagnostics if each.severity >= 3]
    bad = set()
    for error in errors:
      chain = [error.location.file] + [note.location.file for note in error.children]
      bad |= {path for path in left if any(file and str(Path(file.name).resolve()) == path for file in chain)}
    # A file that is in the way of a later one is good itself.
    for error in errors:
      bad -= {path for path in left if error.location.file and path != str(Path(error.location.file.name).resolve())
              and any(note.location.file and str(Path(note.location.file.name).resolve()) == path
                      for note in error.children)}
    good = [path for path in left if path not in bad]
    if errors and (not bad or not good):
      raise RuntimeError(f'{errors[0]}')
    yield unit, set(good)
    left = [path for path in left if path in bad]


def arguments(root):
  """The compiler's arguments for the simulator's sources, as the build has them."""
  commands = json.loads((root / 'build/asan/compile_commands.json').read_text())
  settings_source = re.compile(r'/sim_settings\.dir/(?!cmake_pch)\S+\.mm\.o ')
  command = next(each for each in commands if settings_source.search(each['command']))
  words = shlex.split(command['command'])
  words = words[next(at for at, word in enumerate(words) if word.endswith('clang++-19')) + 1:words.index('-o')]
  # Of the compiler itself: the precompiled headers, which were made with the sanitizers.
  words = [word for before, word in zip([''] + words, words) if '-Xclang' not in (before, word)]
  return [word for word in words if not word.startswith('-fsanitize') and word not in ('-g', '-g1', '-Werror')]
