"""scripts/mutate: which mutants it makes, how it keeps and judges what became of them."""

import contextlib
import io
import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
from mutants.command import main  # noqa: E402
from mutants.compiler import preamble  # noqa: E402
from mutants.operators import mutants_of  # noqa: E402
from mutants.reach import Reach, parse  # noqa: E402
from mutants.results import KILLED, SURVIVED, group_of, order_of  # noqa: E402
from mutants.runner import Part, Run, wait  # noqa: E402

# A source, and the lines that its mutants have in place of the first that they touch.
MUTANTS = [
    ("void f() { load(file, A, B); }",
     ["void f() { ; }", "void f() { load(A, file, B); }", "void f() { load(file, B, A); }"]),
    ("void f() { bind(file, A, B); }", ["void f() { ; }"]),
    ("void f() { g(*file, *this, a); }", ["void f() { ; }"]),
    ("void f(Text a, int b = 2);", ["void f(Text a, int b = 1);", "void f(Text a, int b = 3);"]),
    ("Row rows[] = {{A, u\"a\"}, {B, u\"b\"}};",
     ['Row rows[] = {{B, u"b"}, {A, u"a"}};', 'Row rows[] = {{u"a", A}, {B, u"b"}};', 'Row rows[] = {{A, u"a_"}, {B, u"b"}};',
      'Row rows[] = {{A, u"a"}, {u"b", B}};', 'Row rows[] = {{A, u"a"}, {B, u"b_"}};']),
    ("bool f() { return a && b; }",
     ["bool f() { return {}; }", "bool f() { return a || b; }", "bool f() { return a; }", "bool f() { return b; }"]),
    ("bool f() { if (a || !b) g(); }",
     ["bool f() { if (!b) g(); }", "bool f() { if (a && !b) g(); }", "bool f() { if (a || b) g(); }",
      "bool f() { if (a) g(); }", "bool f() { if (false) g(); }", "bool f() { if (true) g(); }"]),
    ("void f() { if (int a = g(); a < 1) return; }",
     ["void f() { if (int a = g(); a < 0) return; }", "void f() { if (int a = g(); a < 2) return; }",
      "void f() { if (int a = g(); a <= 1) return; }", "void f() { if (int a = g(); false) return; }",
      "void f() { if (int a = g(); true) return; }"]),
    ("void f() { while (a) g(b ? c : d); }", ["void f() { while (a) g(b ? d : c); }", "void f() { while (false) g(b ? c : d); }"]),
    ("void f() {\n  a();\n  b(c);\n}", [";", "b(c); a();", ";"]),
    ("void f() { const auto a = g(); b(a); }", ["void f() { const auto a = g(); ; }"]),
    ("void f() { a = 1; throw b; }", ["void f() { ; throw b; }", "void f() { a = 0; throw b; }", "void f() { a = 2; throw b; }",
                                       "void f() { a = 1; ; }"]),
    ("void f() { a.reserve(n); }", []),
    ("class A : public B<C, D> {\n  S<int> X{*this, u\"X\"};\n  S<int> Y{*this, u\"Y\"};\n  int f() const;\n  int n_;\n};",
     ['S<int> X{*this, u"X_"};', 'S<int> Y{*this, u"Y"}; S<int> X{*this, u"X"};', 'S<int> Y{*this, u"Y_"};']),
    ("S X{*this, Kept::Xml};", ["S X{*this, Kept::JobFileAndXml};"]),
    ("void f() { throw Error(ErrorNumber::Overflow); }",
     ["void f() { ; }", "void f() { throw Error(static_cast<ErrorNumber>(1)); }"]),
    ("void f() { for (int i = 0; i < n; ++i) g([&] { ++n; }); }",
     ["void f() { for (int i = 1; i < n; ++i) g([&] { ++n; }); }", "void f() { for (int i = 0; i <= n; ++i) g([&] { ++n; }); }",
      "void f() { for (int i = 0; i < n; ++i) g([&] { --n; }); }", "void f() { for (int i = 0; i < n; ++i) g([&] { ; }); }"]),
    ("const x = 0x1F + 2.5;", ["const x = 0x1e + 2.5;", "const x = 0x20 + 2.5;", "const x = 0x1F - 2.5;", "const x = 0x1F + 1.5;",
                               "const x = 0x1F + 3.5;"]),
    ("bool f() { return true; }\nchar16_t c = u'a';\nText t = u\"a\" + b;",
     ["bool f() { return false; }", "char16_t c = u'x';", 'Text t = u"a_" + b;']),
    # What the compiler alone sees, or nobody.
    ("#include \"a\"\n// if (a < b)\nstatic_assert(a < 1);\nnamespace a { using b = c<1>; template <int n = 3> class d; }\n"
     "[[nodiscard(\"1\")]] int f() noexcept(1 < 2);\nvirtual void f() = 0;\nvoid g(Text&& a);\nenum e { a, b };", []),
]


class Mutants(unittest.TestCase):
    def test_are_these(self):
        for text, expected in MUTANTS:
            with self.subTest(text):
                self.assertEqual(sorted(mutant.after for mutant in mutants_of("core/A.cpp", text)), sorted(expected))

    def test_tell_their_place(self):
        mutant = mutants_of("core/A.cpp", "int a;\nvoid f() {\n  b(c,\n    true);\n}")[0]
        self.assertEqual((mutant.line, mutant.last_line, mutant.before), (3, 4, "b(c, true);"))

    def test_come_in_another_order_for_another_seed(self):
        mutants = mutants_of("core/A.cpp", "int a[] = {1, 2, 3, 4, 5};")
        self.assertEqual(order_of(mutants, 1), order_of(reversed(mutants), 1))
        self.assertNotEqual(order_of(mutants, 1), order_of(mutants, 2))


class Groups(unittest.TestCase):
    def test_are_two(self):
        for path in ("core/JobFile.cpp", "core/Disk_posix.cpp", "core/OpenFile_posix.h", "core/Patience.h", "core/PathKind.h"):
            self.assertEqual(group_of(path), "store", path)
        for path in ("core/Document.cpp", "core/Fields.h", "fax/VqDocFax.cpp", "core/Numbers.cpp"):
            self.assertEqual(group_of(path), "documents", path)


class Reached(unittest.TestCase):
    def setUp(self):
        parts = [("slow", "A.*", 2.0, {"a": [1, 2]}), ("quick", "*", 0.3, {"a": [2, 3], "b": [1]}), ("long", "*", 60.0, {"a": [2]}),
                 ("slow", "B.*", 0.4, {"a": [2]}), ("slow", "C.*", 0.4, {"a": [2]})]
        named = {Part(program, tests): (Run(True, cpu, cpu), hits) for program, tests, cpu, hits in parts}
        self.reach = Reach({part: run for part, (run, _) in named.items()},
                           {part: {path: set(lines) for path, lines in hits.items()} for part, (_, hits) in named.items()})

    def names(self, *place):
        return [part.name() for part, _ in self.reach.of(*place)]

    def test_by_line_the_quickest_first_and_together(self):
        self.assertEqual(self.names("a", 2, 2, True), ["quick", "slow B.*:C.*", "slow A.*", "long"])
        self.assertEqual(self.names("a", 2, 2, False), ["quick", "slow B.*:C.*", "slow A.*"])
        self.assertEqual(self.names("a", 0, 1, True), ["slow A.*"])

    def test_by_file_where_no_line_is(self):
        self.assertEqual(self.names("b", 9, 9, True), ["quick"])
        self.assertEqual(self.names("c", 1, 1, True), ["quick", "slow B.*:C.*", "slow A.*", "long"])

    def test_is_read_from_a_trace(self):
        trace = "SF:/t/core/A.h\nDA:1,0\nDA:2,5\nend_of_record\nSF:/usr/b.h\nDA:1,1\nend_of_record\n"
        self.assertEqual(parse(trace, "/t"), {"core/A.h": {2}})


class Preamble(unittest.TestCase):
    def test_ends_where_code_begins(self):
        self.assertEqual(preamble("// A.\n#include <b>\n\n#include \"c\"\nint d;\n#include <e>\n"),
                         '// A.\n#include <b>\n\n#include "c"\n')


class Waiting(unittest.TestCase):
    @staticmethod
    def run_of(script, seconds):
        child = subprocess.Popen(["sh", "-c", script], start_new_session=True)
        return wait(child, seconds)

    def test_tells_how_it_ended(self):
        self.assertEqual([(run.passed, run.in_time) for run in (self.run_of("exit 0", 60), self.run_of("exit 3", 60))],
                         [(True, True), (False, True)])

    def test_ends_what_does_not_end(self):
        for script, seconds in (("sleep 1000", 0.01), ("ulimit -t 1; while :; do :; done", 600)):
            run = self.run_of(script, seconds)
            self.assertEqual((run.passed, run.in_time), (False, False), script)


class FakeWorker:
    """Kills the mutants whose line has one of these words."""

    def __init__(self, killed):
        self.killed, self.tried = killed, []

    def try_out(self, mutant, source):
        assert mutant.apply(source) != source
        self.tried.append(mutant.after)
        return (KILLED, "test") if any(word in mutant.after for word in self.killed) else (SURVIVED, "")


class Runs(unittest.TestCase):
    """A run over one source of the documents with two mutants."""

    SOURCE = "const int a = 5;\n"
    LESS = "core/A.cpp\n- const int a = 5;\n+ const int a = 4;\n= Nobody asks.\n"

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.write("core/A.cpp", self.SOURCE)
        self.write("tests/T.cpp", "")

    def write(self, name, text):
        (self.root / name).parent.mkdir(parents=True, exist_ok=True)
        (self.root / name).write_text(text)

    def run_it(self, *words, killed=("4", "6")):
        """(exit code, what was tried, what was printed)"""
        worker, printed = FakeWorker(killed), io.StringIO()
        with contextlib.redirect_stdout(printed):
            code = main("", self.root, list(words), lambda *_: [worker])
        return code, sorted(worker.tried), printed.getvalue()

    def test_pass_when_all_are_killed(self):
        code, tried, printed = self.run_it()
        self.assertEqual((code, tried), (0, ["const int a = 4;", "const int a = 6;"]))
        self.assertIn("mutate: documents 100.0 % of 2 tried (2 killed, 0 equivalent, 0 survive", printed)

    def test_fail_when_too_many_survive(self):
        code, _, printed = self.run_it(killed="6")
        self.assertEqual(code, 1)
        self.assertIn("core/A.cpp:1: survives\n- const int a = 5;\n+ const int a = 4;\n", printed)
        self.assertIn("documents 50.0 % of 2 tried", printed)

    def test_fail_when_nothing_was_tried(self):
        self.assertEqual(self.run_it("--report")[0], 1)
        self.assertEqual(self.run_it("--seconds", "0")[:2], (1, []))

    def test_need_more_of_the_store(self):
        values = ", ".join(str(10 * number) for number in range(1, 17))  # 15 exchanged rows, 32 numbers
        for path, code in (("core/B.cpp", 0), ("core/JobFile.cpp", 1)):
            self.write(path, f"int a[] = {{{values}}};\n")
            worker = FakeWorker([""])
            worker.try_out = lambda mutant, _: (SURVIVED if mutant.text == "11" else KILLED, "")
            with contextlib.redirect_stdout(io.StringIO()) as printed:
                self.assertEqual(main("", self.root, [path], lambda *_: [worker]), code, path)
            self.assertIn("97.9 % of 47 tried", printed.getvalue())

    def test_go_on_where_the_last_ended(self):
        self.run_it(killed="6")
        self.write("tests/mutants/equivalent.txt", "# None.\n")
        self.assertEqual(self.run_it()[1], [])
        self.write("tests/T.cpp", "int t;\n")
        self.assertEqual(self.run_it()[:2], (0, ["const int a = 4;"]))
        self.write("core/A.cpp", self.SOURCE + "int b;\n")
        self.assertEqual(len(self.run_it()[1]), 2)

    def test_take_what_is_listed_as_equivalent(self):
        self.write("tests/mutants/equivalent.txt", "# Why.\n\n" + self.LESS)
        self.write("core/A.cpp", "\n\n" + self.SOURCE)
        code, _, printed = self.run_it(killed="6")
        self.assertEqual(code, 0)
        self.assertIn("100.0 % of 2 tried (1 killed, 1 equivalent, 0 survive", printed)

    def test_tell_entries_that_are_wrong(self):
        for listed, killed, told in [(self.LESS, ("4", "6"), "killed test"), (self.LESS.replace("5", "7"), "46", "is any more")]:
            self.write("tests/mutants/equivalent.txt", listed)
            code, _, printed = self.run_it(killed=killed)
            self.assertEqual(code, 1)
            self.assertIn(told, printed)

    def test_refuse_entries_without_a_reason(self):
        self.write("tests/mutants/equivalent.txt", self.LESS.replace("= Nobody asks.", "= "))
        with self.assertRaises(ValueError):
            self.run_it()


if __name__ == "__main__":
    unittest.main()
