"""One-line changes of a program, each of which a test should notice.

A mutator is a generator of mutants for one cursor of the syntax tree, or for the tokens of a file.
"""

import re
from dataclasses import dataclass
from pathlib import Path

from clang.cindex import CursorKind

COMPARISONS = {
    "==": ["!="],
    "!=": ["=="],
    "<": ["<=", ">="],
    "<=": ["<", ">"],
    ">": [">=", "<="],
    ">=": [">", "<"],
}
ARITHMETIC = {
    "+": ["-"],
    "-": ["+"],
    "*": ["/"],
    "/": ["*"],
    "%": ["*"],
    "<<": [">>"],
    ">>": ["<<"],
    "&": ["|"],
    "|": ["&"],
    "&&": ["||"],
    "||": ["&&"],
    "+=": ["-="],
    "-=": ["+="],
    "|=": ["&="],
    "&=": ["|="],
}
TRUTHS = {"YES": "NO", "NO": "YES", "true": "false", "false": "true"}

_INTEGER = re.compile(r"(0[xX][0-9a-fA-F']+|[0-9][0-9']*)([uUlLzZ]*)$")
_REAL = re.compile(r"([0-9]*)\.([0-9]+)([fFlL]?)$")
_STRING = re.compile(r'(?:u8|[uUL])?"')

_BINARY = (CursorKind.BINARY_OPERATOR, CursorKind.COMPOUND_ASSIGNMENT_OPERATOR)
_FUNCTIONS = (
    CursorKind.FUNCTION_DECL,
    CursorKind.CXX_METHOD,
    CursorKind.OBJC_INSTANCE_METHOD_DECL,
    CursorKind.OBJC_CLASS_METHOD_DECL,
    CursorKind.CONVERSION_FUNCTION,
)


@dataclass(frozen=True)
class Mutant:
    """The file with `text` in place of its bytes [start, end)."""

    path: Path
    line: int
    line_text: str  # The whole line, without the space around it.
    kind: str
    start: int
    end: int
    original: str
    text: str

    @property
    def last_line(self):
        return self.line + self.original.count("\n")

    @property
    def change(self):
        def short(text):
            text = " ".join(text.split())
            return text if len(text) <= 70 else text[:67] + "..."

        return f"{self.kind}: {short(self.original)}" + (f" -> {short(self.text)}" if self.text else "")

    def content(self):
        """The bytes of the changed file."""
        whole = self.path.read_bytes()
        return whole[: self.start] + self.text.encode() + whole[self.end :]


def mutants_of(unit):
    """All mutants of the unit's files, in the order of the files' text."""
    found = {}
    files = set()
    for file, cursor in unit.cursors():
        files.add(file)
        for mutant in _walk(unit, cursor, []):
            found.setdefault((mutant.path, mutant.start, mutant.end, mutant.text), mutant)
    for file in files:
        for mutant in _literals(file):
            found.setdefault((mutant.path, mutant.start, mutant.end, mutant.text), mutant)
    return sorted(found.values(), key=lambda each: (each.path, each.start, each.end, each.text))


def _mutant(file, kind, start, end, text):
    return Mutant(file.path, file.line(start), file.line_text(start), kind, start, end, file.text(start, end), text)


def _walk(unit, cursor, parents):
    file = unit.file_of(cursor)
    if not file:
        return
    children = list(cursor.get_children())
    for mutator in (_operators, _steps, _conditions, _fallbacks, _returns, _statements, _named_constants):
        yield from mutator(file, cursor, children, parents)
    for child in children:
        yield from _walk(unit, child, [*parents, cursor])


def _extent(cursor):
    return cursor.extent.start.offset, cursor.extent.end.offset


def _unwrapped(cursor):
    """The expression without conversions that the source does not show and without parentheses."""
    while cursor.kind in (CursorKind.UNEXPOSED_EXPR, CursorKind.PAREN_EXPR):
        children = list(cursor.get_children())
        if len(children) != 1:
            break
        if cursor.kind == CursorKind.UNEXPOSED_EXPR and _extent(children[0]) != _extent(cursor):
            break
        cursor = children[0]
    return cursor


def _is_comparison(file, cursor):
    cursor = _unwrapped(cursor)
    if cursor.kind == CursorKind.CALL_EXPR:
        return cursor.spelling in ("operator==", "operator!=")
    if cursor.kind == CursorKind.UNEXPOSED_EXPR:
        return _rewritten(file, cursor) is not None
    return cursor.kind == CursorKind.BINARY_OPERATOR and cursor.spelling in COMPARISONS


def _rewritten(file, cursor):
    """The != of a comparison of objects that the compiler has made from their ==, else None."""
    children = list(cursor.get_children())
    if len(children) != 1 or children[0].kind != CursorKind.UNARY_OPERATOR:
        return None
    inner = _unwrapped(next(children[0].get_children()))
    operands = list(inner.get_children())
    if inner.spelling != "operator==" or len(operands) != 3:
        return None
    tokens = [token for token in file.between(_extent(operands[0])[1], _extent(operands[2])[0]) if token.text == "!="]
    return tokens[0] if tokens else None


def _operators(file, cursor, children, _):
    """Comparisons, arithmetic and logical operators."""
    if cursor.kind in _BINARY and len(children) == 2:
        left, right = children
    elif cursor.kind == CursorKind.CALL_EXPR and cursor.spelling in ("operator==", "operator!=") and len(children) == 3:
        left, right = children[0], children[2]
    elif cursor.kind == CursorKind.UNEXPOSED_EXPR and (token := _rewritten(file, cursor)):
        yield _mutant(file, "comparison", token.start, token.end, "==")
        return
    else:
        return
    for token in file.between(_extent(left)[1], _extent(right)[0]):
        for table, kind in ((COMPARISONS, "comparison"), (ARITHMETIC, "operator")):
            for other in table.get(token.text, ()):
                yield _mutant(file, kind, token.start, token.end, other)


def _steps(file, cursor, children, _):
    """++ and --, before and after."""
    if cursor.kind != CursorKind.UNARY_OPERATOR:
        return
    start, end = _extent(cursor)
    tokens = file.between(start, end)
    for token in (tokens[:1] + tokens[-1:]) if tokens else ():
        other = {"++": "--", "--": "++"}.get(token.text)
        if other:
            yield _mutant(file, "operator", token.start, token.end, other)


def _negated(file, cursor):
    start, end = _extent(cursor)
    if start < end:
        yield _mutant(file, "negated condition", start, end, f"!({file.text(start, end)})")


def _conditions(file, cursor, children, _):
    """Conditions of statements and of the conditional operator. A comparison has mutants of its own."""
    condition = None
    if cursor.kind in (CursorKind.IF_STMT, CursorKind.WHILE_STMT, CursorKind.CONDITIONAL_OPERATOR) and children:
        condition = children[0]
    elif cursor.kind == CursorKind.DO_STMT and len(children) == 2:
        condition = children[1]
    elif cursor.kind == CursorKind.FOR_STMT:
        condition = _for_condition(file, cursor, children)
    if condition is None:
        return
    if condition.kind in (CursorKind.VAR_DECL, CursorKind.DECL_STMT):
        variable = condition if condition.kind == CursorKind.VAR_DECL else next(condition.get_children())
        start, end = _extent(variable)
        yield _mutant(file, "negated condition", start, end, f"{file.text(start, end)}; !{variable.spelling}")
    elif condition.kind.is_expression() and not _is_comparison(file, condition):
        yield from _negated(file, condition)


def _for_condition(file, cursor, children):
    """The child that stands between the semicolons of a for statement."""
    depth = 0
    bounds = []
    for token in file.between(*_extent(cursor)):
        if token.text in "([{":
            depth += 1
        elif token.text in ")]}":
            depth -= 1
            if depth == 0:
                break
        elif token.text == ";" and depth == 1:
            bounds.append(token.start)
    if len(bounds) != 2:
        return None
    for child in children:
        start, end = _extent(child)
        if bounds[0] < start and end <= bounds[1] and child.kind.is_expression():
            return child
    return None


def _fallbacks(file, cursor, children, _):
    """a ?: b, whose condition is a itself."""
    if cursor.kind != CursorKind.UNEXPOSED_EXPR:
        return
    tokens = file.between(*_extent(cursor))
    depth = 0
    for first, second in zip(tokens, tokens[1:]):
        depth += (first.text in "([{") - (first.text in ")]}")
        if depth == 0 and first.text == "?" and second.text == ":" and first.end == second.start:
            yield _mutant(file, "negated condition", first.start, second.end, "? nil :")


def _returns(file, cursor, children, parents):
    """What a function of a truth value returns, when it is neither a comparison nor a constant."""
    if cursor.kind != CursorKind.RETURN_STMT or len(children) != 1:
        return
    function = next((each for each in reversed(parents) if each.kind in _FUNCTIONS), None)
    if function is None or function.result_type.spelling not in ("bool", "BOOL"):
        return
    value = _unwrapped(children[0])
    if _is_comparison(file, value) or (value.kind == CursorKind.BINARY_OPERATOR and value.spelling in ("&&", "||")):
        return
    tokens = file.between(*_extent(children[0]))
    if tokens and not (len(tokens) == 1 and tokens[0].text in TRUTHS):
        yield from _negated(file, children[0])


def _statements(file, cursor, children, _):
    """Statements that are taken out, and neighbours that change places."""
    bodies = {
        CursorKind.COMPOUND_STMT: children,
        CursorKind.IF_STMT: children[1:],
        CursorKind.FOR_STMT: children[-1:],
        CursorKind.WHILE_STMT: children[-1:],
        CursorKind.CASE_STMT: children[-1:],
        CursorKind.DEFAULT_STMT: children[-1:],
        CursorKind.CXX_FOR_RANGE_STMT: children[-1:],
        CursorKind.OBJC_FOR_COLLECTION_STMT: children[-1:],
    }.get(cursor.kind, ())
    previous = None
    for statement in bodies:
        if not _can_go(file, statement):
            previous = None
            continue
        start, end = _extent(statement)
        yield _mutant(file, _removal(file, statement), start, end, "")
        if previous is not None and cursor.kind == CursorKind.COMPOUND_STMT and not _commute(file, previous, statement):
            yield _swap(file, previous, statement)
        previous = statement


def _can_go(file, statement):
    start, end = _extent(statement)
    if not statement.kind.is_expression() or start >= end:
        return False
    following = file.between(end, end + 1) or file.between(end, end + 200)[:1]
    return bool(following) and following[0].text == ";"


def _removal(file, statement):
    text = file.text(*_extent(statement))
    if text.startswith("[super "):
        return "removed super call"
    inner = _unwrapped(statement)
    is_change = inner.kind in _BINARY or inner.kind == CursorKind.UNARY_OPERATOR
    return "removed statement" if is_change else "removed call"


def _commute(file, first, second):
    """Whether the two statements set different properties, or release two objects: their order cannot matter."""
    texts = [file.text(*_extent(each)) for each in (first, second)]
    if all(re.fullmatch(r"\[\w+ release\]", text) for text in texts):
        return True
    setters = [re.fullmatch(r"\[(.+?) (set\w+):.*\]", text, re.DOTALL) for text in texts]
    return all(setters) and setters[0].groups() != setters[1].groups()


def _swap(file, first, second):
    start, first_end = _extent(first)
    second_start, end = _extent(second)
    text = file.text(second_start, end) + file.text(first_end, second_start) + file.text(start, first_end)
    return _mutant(file, "swapped statements", start, end, text)


def _named_constants(file, cursor, children, _):
    """A named constant of an enumeration becomes the next one."""
    if cursor.kind != CursorKind.DECL_REF_EXPR:
        return
    constant = cursor.referenced
    if constant is None or constant.kind != CursorKind.ENUM_CONSTANT_DECL:
        return
    family = [each for each in constant.semantic_parent.get_children() if each.kind == CursorKind.ENUM_CONSTANT_DECL]
    place = next((i for i, each in enumerate(family) if each == constant), None)
    if place is None:
        return
    others = [each for each in family[place + 1 :] + family[:place] if each.enum_value != constant.enum_value]
    tokens = file.between(*_extent(cursor))
    if others and tokens and tokens[-1].text == constant.spelling:
        yield _mutant(file, "constant", tokens[-1].start, tokens[-1].end, others[0].spelling)


def _literals(file):
    """Numbers, characters, texts and truth values, wherever they stand."""
    for index, token in enumerate(file.tokens):
        if token.text in TRUTHS:
            yield _mutant(file, "constant", token.start, token.end, TRUTHS[token.text])
        elif token.is_literal and not _is_length(file.tokens, index):
            other = changed_literal(token.text)
            if other:
                yield _mutant(file, "constant", token.start, token.end, other)


def _is_length(tokens, index):
    """Whether the token is the length of an array in its declaration, `int lanes[4]`."""
    around = [tokens[i].text if 0 <= i < len(tokens) else "" for i in (index - 3, index - 1, index + 1, index + 2)]
    before, opening, closing, after = around
    is_type = before.endswith("_t") or before in ("*", "char", "int", "__m512i")
    return is_type and opening == "[" and closing == "]" and after in (";", "=")


def changed_literal(text):
    """Another literal of the same type; None for one that is not known."""
    match = _INTEGER.match(text)
    if match and not text.endswith("'"):
        digits, suffix = match.groups()
        base = 16 if digits[:2].lower() == "0x" else 8 if len(digits) > 1 and digits.startswith("0") else 10
        value = int(digits.replace("'", ""), base)
        other = 0 if value == 1 else value + 1
        return (hex(other) if base == 16 else oct(other).replace("o", "") if base == 8 else str(other)) + suffix
    match = _REAL.match(text)
    if match:
        whole, fraction, suffix = match.groups()
        scaled = str(int((whole or "0") + fraction) + 1).rjust(len(fraction) + 1, "0")
        return scaled[: -len(fraction)] + "." + scaled[-len(fraction) :] + suffix
    if _STRING.match(text):
        return text[:-1] + '~"'
    if text.startswith("'") and len(text) == 3:
        return "'!'" if text != "'!'" else "'?'"
    if text.startswith("'\\") and len(text) == 4:
        return "'!'"
    return None
