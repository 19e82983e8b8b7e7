"""The file of numbered texts: what is read, what is refused, what is written."""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "typelib" / "texts.py"
sys.path.insert(0, str(SCRIPT.parent))

import texts  # noqa: E402


class Reading(unittest.TestCase):
    def test_ids_and_texts_come_in_order(self):
        self.assertEqual(texts.parse(b"1\tUno\n7500\tAutomatico\n"), [(1, "Uno"), (7500, "Automatico")])

    def test_comments_empty_lines_mark_and_line_ends_do_not_count(self):
        data = b"\xef\xbb\xbf# head\r\n\r\n1\tUno\r\n# middle\n2\tDue"
        self.assertEqual(texts.parse(data), [(1, "Uno"), (2, "Due")])

    def test_blanks_and_signs_of_a_text_are_kept(self):
        self.assertEqual(texts.parse("1\t  # è \n".encode()), [(1, "  # è ")])

    def test_bad_lines_are_refused_by_number(self):
        cases = [
            (b"# x\n1\tUno\n1\tDue\n", "line 3: id 1 does not come after id 1"),
            (b"2\tDue\n1\tUno\n", "line 2: id 1 does not come after id 2"),
            (b"1\tUno\n2\t \n", "line 2: id 2 has an empty text"),
            (b"1\tUno\n\n2\t\n", "line 3: id 2 has an empty text"),
            (b"1 Uno\n", "line 1: no tab between id and text"),
            (b"x\tUno\n", "line 1: 'x' is no id from 1 to 65535"),
            (b"-1\tUno\n", "line 1: '-1' is no id from 1 to 65535"),
            (b"0\tUno\n", "line 1: '0' is no id from 1 to 65535"),
            (b"65536\tUno\n", "line 1: '65536' is no id from 1 to 65535"),
            ("²\tUno\n".encode(), "line 1: '²' is no id from 1 to 65535"),
            (b"1\tUno\tDue\n", "line 1: id 1 has the control character U+0009"),
            (b"1\tUno\n2\t\xe8\n", "line 2: not UTF-8"),
        ]
        for data, message in cases:
            with self.subTest(data=data), self.assertRaises(texts.TextsError) as raised:
                texts.parse(data)
            self.assertEqual(str(raised.exception), message)


class Writing(unittest.TestCase):
    def test_a_row_of_the_table(self):
        self.assertEqual(texts.table([(7500, "Automatico"), (7501, "A")]), '{7500, u"Automatico"},\n{7501, u"A"},\n')

    def test_cpp_literals_are_escaped_and_ascii(self):
        self.assertEqual(texts.cpp_literal('a\\b"c??/d'), r'u"a\\b\"c\?\?/d"')
        self.assertEqual(texts.cpp_literal("è€\U0001F600"), r'u"\u00E8\u20AC\U0001F600"')

    def test_the_resource_script_is_escaped_and_ascii(self):
        self.assertEqual(
            texts.string_table([(1, 'c:\\x "è😀"')]),
            'LANGUAGE 0x10, 0x01\nSTRINGTABLE\nBEGIN\n    1, L"c:\\\\x ""\\x00e8\\xd83d\\xde00"""\nEND\n')


class Running(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_script(self, data, option, out):
        (self.folder / "texts.txt").write_bytes(data)
        command = [sys.executable, "-B", SCRIPT, self.folder / "texts.txt", option, self.folder / out]
        return subprocess.run(command, capture_output=True, text=True, check=False)

    def test_a_bad_file_fails_with_name_and_line_and_writes_nothing(self):
        result = self.run_script(b"1\tUno\n1\tDue\n", "--table", "out")
        self.assertEqual(result.returncode, 1)
        self.assertIn("texts.txt: line 2: id 1 does not come after id 1", result.stderr)
        self.assertFalse((self.folder / "out").exists())

    @unittest.skipUnless(shutil.which("g++"), "no g++")
    def test_the_compiler_reads_every_character_back(self):
        self.assertEqual(self.run_script('1\t\\"??/è€\U0001F600'.encode(), "--table", "table.inc").returncode, 0)
        units = "0x5C, 0x22, 0x3F, 0x3F, 0x2F, 0xE8, 0x20AC, 0xD83D, 0xDE00, 0"
        (self.folder / "x.cpp").write_text(
            "#include <string_view>\nstruct Row { int id; const char16_t* text; };\n"
            'constexpr Row rows[] = {\n#include "table.inc"\n};\n'
            f"constexpr char16_t units[] = {{{units}}};\n"
            "static_assert(rows[0].id == 1 && std::u16string_view(rows[0].text) == units);\n")
        command = ["g++", "-std=c++20", "-Wall", "-Werror", "-fsyntax-only", self.folder / "x.cpp"]
        result = subprocess.run(command, capture_output=True, text=True, check=False)
        self.assertEqual(result.returncode, 0, result.stderr)

    @unittest.skipUnless(shutil.which("i686-w64-mingw32-windres"), "no resource compiler")
    def test_the_resource_compiler_reads_every_character_back(self):
        text = '\\n "èa€\U0001F600"'
        self.assertEqual(self.run_script(f"16\t{text}".encode(), "--stringtable", "table.rc").returncode, 0)
        command = ["i686-w64-mingw32-windres", self.folder / "table.rc", "-O", "res", "-o", self.folder / "table.res"]
        result = subprocess.run(command, capture_output=True, text=True, check=False)
        self.assertEqual(result.returncode, 0, result.stderr)
        units = text.encode("utf-16-le")
        counted = (len(units) // 2).to_bytes(2, "little") + units
        self.assertIn(counted, (self.folder / "table.res").read_bytes())


if __name__ == "__main__":
    unittest.main()
