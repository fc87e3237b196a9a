"""Which changes of a source are made, and which are not."""

import tempfile
import unittest
from pathlib import Path

from mutators import changed_literal, mutants_of
from syntax import Unit, parser_arguments

ARGUMENTS = ["-x", "objective-c++", "-std=gnu++20", "-fobjc-runtime=gcc", "-fblocks", "-w"]
PRELUDE = """
typedef signed char BOOL;
#define YES ((BOOL)1)
#define NO ((BOOL)0)
@interface Thing
- (void)load;
- (void)setName:(int)name;
- (void)setWidth:(int)width;
- (void)release;
- (int)count;
- (Thing *)next;
@end
void act(int);
void note();
bool holds(int);
enum Style { kPlain, kBold, kLast };
void style(Style);
"""


class MutatorsTest(unittest.TestCase):
    def mutants(self, code):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder).resolve() / "Source.mm"
            (Path(folder) / "Prelude.h").write_text(PRELUDE)
            # The prelude lies outside the root, as the headers of the platform do.
            root = Path(folder).resolve() / "root"
            root.mkdir()
            path = root / "Source.mm"
            path.write_text(f'#include "../Prelude.h"\n{code}\n')
            unit = Unit(path, ARGUMENTS, root)
            self.assertEqual(unit.errors, [])
            return [
                (each.kind, each.original, each.text, each.content().decode().split("\n", 1)[1][:-1])
                for each in mutants_of(unit)
            ]

    def results(self, body, kind=None):
        """The bodies that changes of `body` make, those of one kind."""
        head, tail = "void f(int a, int b, Thing *thing) {", "}"
        found = self.mutants(head + body + tail)
        return [text[len(head) : -len(tail)] for each, _, _, text in found if kind in (None, each)]

    def test_comparisons(self):
        self.assertEqual(
            self.results("act(a < b);", "comparison"), ["act(a <= b);", "act(a >= b);"]
        )
        self.assertEqual(self.results("act(a == b);", "comparison"), ["act(a != b);"])
        self.assertEqual(self.results("act((a) >= (b));", "comparison"), ["act((a) < (b));", "act((a) > (b));"])

    def test_comparisons_of_objects_with_operators_of_their_own(self):
        found = self.mutants("struct P { bool operator==(const P &) const; };\nbool f(P a, P b) { return a == b; }\n"
                             "bool g(P a, P b) { return a != b; }")  # fmt: skip
        self.assertEqual([each[:3] for each in found], [("comparison", "==", "!="), ("comparison", "!=", "==")])

    def test_angle_brackets_of_templates_are_no_comparisons(self):
        self.assertEqual(self.mutants("template <typename T> T f(T t) { return t; }\nvoid g() { f<int *>(nullptr); }"
                                      )[:-1], [])  # fmt: skip

    def test_arithmetic_and_logic(self):
        self.assertEqual(self.results("act(a + b);", "operator"), ["act(a - b);"])
        self.assertEqual(self.results("act(a << b);", "operator"), ["act(a >> b);"])
        self.assertEqual(self.results("act(a && b);", "operator"), ["act(a || b);"])
        self.assertEqual(self.results("a += b;", "operator"), ["a -= b;"])
        self.assertEqual(self.results("++a;", "operator"), ["--a;"])
        self.assertEqual(self.results("a--;", "operator"), ["a++;"])

    def test_signs_and_pointers_are_no_operators_of_two(self):
        self.assertEqual(self.results("int *p = &a; act(*p); act(-b); bool c = !b;", "operator"), [])

    def test_conditions_are_negated(self):
        self.assertEqual(self.results("if (a) note();", "negated condition"), ["if (!(a)) note();"])
        self.assertEqual(self.results("while (holds(a)) note();", "negated condition"),
                         ["while (!(holds(a))) note();"])  # fmt: skip
        self.assertEqual(self.results("do note(); while (a);", "negated condition"), ["do note(); while (!(a));"])
        self.assertEqual(self.results("for (int i = 0; holds(i); ++i) note();", "negated condition"),
                         ["for (int i = 0; !(holds(i)); ++i) note();"])  # fmt: skip
        self.assertEqual(self.results("act(a ? 7 : b);", "negated condition"), ["act(!(a) ? 7 : b);"])

    def test_a_comparison_is_not_negated_once_more(self):
        self.assertEqual(self.results("if (a < b) note();", "negated condition"), [])
        self.assertEqual(self.results("for (int i = 0; i < a; ++i) note();", "negated condition"), [])

    def test_a_variable_in_a_condition(self):
        self.assertEqual(self.results("if (Thing *next = [thing next]) note();", "negated condition"),
                         ["if (Thing *next = [thing next]; !next) note();"])  # fmt: skip

    def test_a_fallback_is_taken_for_what_is_there(self):
        self.assertEqual(self.mutants("#define nil nullptr\nThing *f(Thing *a, Thing *b) { return a ?: b; }")[0][3],
                         "#define nil nullptr\nThing *f(Thing *a, Thing *b) { return a ? nil : b; }")  # fmt: skip

    def test_truth_values_that_are_returned(self):
        self.assertEqual([each[2] for each in self.mutants("bool f(int a) { return holds(a); }")], ["!(holds(a))"])
        self.assertEqual(self.mutants("int f(int a) { return holds(a); }"), [])
        self.assertEqual([each[2] for each in self.mutants("bool f() { return true; }")], ["false"])

    def test_calls_are_removed(self):
        self.assertEqual(self.results("note();", "removed call"), [";"])
        self.assertEqual(self.results("[thing load];", "removed call"), [";"])
        self.assertEqual(self.results("if (a < b) [thing load];", "removed call"), ["if (a < b) ;"])
        self.assertEqual(self.results("if (a < b) note(); else act(a);", "removed call"),
                         ["if (a < b) ; else act(a);", "if (a < b) note(); else ;"])  # fmt: skip
        self.assertEqual(self.results("^{ note(); }();", "removed call")[-1], "^{ ; }();")
        self.assertEqual(self.results("switch (a) { case 2: note(); break; }", "removed call"),
                         ["switch (a) { case 2: ; break; }"])  # fmt: skip

    def test_assignments_are_removed(self):
        self.assertEqual(self.results("a = b;", "removed statement"), [";"])
        self.assertEqual(self.results("a += b;", "removed statement"), [";"])

    def test_declarations_and_returns_stay(self):
        self.assertEqual(self.results("int c = a; return;"), [])

    def test_super_calls(self):
        code = "@implementation Thing\n@end\n@interface Other : Thing\n@end\n@implementation Other\n"
        found = self.mutants(code + "- (void)load { [super load]; }\n@end")
        self.assertEqual([each[:2] for each in found], [("removed super call", "[super load]")])

    def test_neighbours_change_places(self):
        self.assertEqual(self.results("note(); act(a);", "swapped statements"), ["act(a); note();"])
        self.assertEqual(self.results("note(); int c = a; act(c);", "swapped statements"), [])

    def test_neighbours_whose_order_cannot_matter_stay(self):
        self.assertEqual(self.results("[thing setName:a]; [thing setWidth:b];", "swapped statements"), [])
        self.assertEqual(self.results("[thing setName:a]; [[thing next] setWidth:b];", "swapped statements"), [])
        self.assertEqual(len(self.results("[thing setName:a]; [thing setName:b];", "swapped statements")), 1)
        self.assertEqual(self.results("Thing *b2 = thing; [thing release]; [b2 release];", "swapped statements"), [])

    def test_named_constants(self):
        self.assertEqual(self.results("style(kBold);", "constant"), ["style(kLast);"])
        self.assertEqual(self.results("style(kLast);", "constant"), ["style(kPlain);"])

    def test_truth_values(self):
        self.assertEqual(self.results("BOOL c = YES; bool d = false;", "constant"),
                         ["BOOL c = NO; bool d = false;", "BOOL c = YES; bool d = true;"])  # fmt: skip

    def test_literals(self):
        for literal, other in {
            "0": "1", "1": "0", "41": "42", "0x0f": "0x10", "1'000u": "1001u", "010": "011", "0.45": "0.46",
            "1.0": "1.1", "0.3f": "0.4f", "9.99": "10.00", '"text"': '"text~"', '""': '"~"',
            'u8"a"': 'u8"a~"', "'a'": "'!'",
            "'!'": "'?'", "'\\n'": "'!'",
        }.items():  # fmt: skip
            self.assertEqual(changed_literal(literal), other, literal)

    def test_only_code_is_changed(self):
        self.assertEqual(self.mutants('#define LIMIT 5\n#if 1 < 2\n// 3\n#endif\n#define LONG \\\n  4\nint a[6];'), [])

    def test_the_sources_of_others_are_not_changed(self):
        self.assertEqual(self.mutants("int (*p)(int) = nullptr;"), [])


class SyntaxTest(unittest.TestCase):
    def test_arguments_of_the_parser(self):
        command = "/usr/bin/clang++ -DA -I/x -Wall -Werror=b -O3 -MD -MT o -MF d -o o -c /x/a.mm"
        self.assertEqual(parser_arguments(command), ["-DA", "-I/x", "-O3", "-w"])


if __name__ == "__main__":
    unittest.main()
