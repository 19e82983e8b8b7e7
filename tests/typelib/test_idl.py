"""The reader of the public boundary and the generator: whole outputs, and inputs that must fail at the right line.

REWRITE_EXPECTED=1 in the environment writes the expected outputs anew instead of comparing with them.
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
TYPELIB = HERE.parents[1] / "typelib"
DATA = HERE / "data"
sys.path.insert(0, str(TYPELIB))

import generate  # noqa: E402
import idl  # noqa: E402
from model import Parameter, Type  # noqa: E402


def outputs_of(path):
    """All generated files in one text, each under its name."""
    library = idl.read_file(path)
    return "".join(f"==== {name}\n{emit(library)}" for name, emit in generate.OUTPUTS.items())


class Generating(unittest.TestCase):
    maxDiff = None

    def test_every_input_gives_its_expected_outputs(self):
        inputs = sorted(DATA.glob("*.idl"))
        self.assertTrue(inputs)
        for path in inputs:
            with self.subTest(input=path.name):
                self.compare(path.with_suffix(".expected"), outputs_of(path))

    def compare(self, expected, found):
        if os.environ.get("REWRITE_EXPECTED"):
            expected.write_text(found, encoding="utf-8")
        self.assertEqual(found, expected.read_text(encoding="utf-8"))


class Reading(unittest.TestCase):
    def setUp(self):
        self.library = idl.read_file(DATA / "boxes.idl")
        self.classes = {coclass.name: coclass for coclass in self.library.coclasses}

    def test_members_keep_their_slot_order(self):
        slots = [(member.name, member.id, member.kind) for member in self.classes["VqDocScatola"].members[:4]]
        self.assertEqual(slots, [("Nome", 1, "Get"), ("Lati", 2, "Get"), ("Nome", 1, "Let"), ("Aperta", 3, "Let")])

    def test_parameters_say_how_they_are_passed(self):
        new_box = self.classes["VqDocumenti"].members[0]
        self.assertEqual(new_box.parameters, [
            Parameter("Nome", Type("String")),
            Parameter("Lati", Type("Long"), optional=True, default=3),
            Parameter("Colore", Type("String"), optional=True, default="blu")])
        self.assertEqual(new_box.result, Type("Class", "VqDocScatola"))
        add = self.classes["VqDocScatole"].members[0]
        self.assertEqual(add.parameters, [Parameter("Scatola", Type("Class", "VqDocScatola"), by_reference=True)])

    def test_coclasses_have_their_identity(self):
        factory, box = self.classes["VqDocumenti"], self.classes["VqDocScatola"]
        self.assertEqual((factory.creatable, factory.progid, factory.threading),
                         (True, "Scatole.VqDocumenti", "apartment"))
        self.assertEqual((box.creatable, box.uuid), (False, "00000000-0000-0000-0000-000000000022"))

    def test_numbers_may_be_negative_or_hexadecimal(self):
        values = {member.name: member.value for each in self.library.enumerations for member in each.members}
        self.assertEqual(values["mat_Ignoto"], -1)
        self.assertEqual(values["lim_Massimo"], 2**31 - 1)


# What is replaced in boxes.idl (its first occurrence), by what, and what must be said of that line.
BAD = [
    ("library Scatole", "biblioteca Scatole", "expected 'library', found 'biblioteca'"),
    ("[id(2), propget, helpstring", "[id(2), propgett, helpstring",
     "expected an attribute of a member, found 'propgett'"),
    ("[id(1), helpstring(\"Nuova", "[helpstring(\"Nuova", "expected attribute id on a member"),
    ("[id(2), propget", "[id(due), propget", "expected a dispatch id, found 'due'"),
    ("[id(2), propget, ", "[id(2), propget, propget, ", "expected attribute propget once, found it twice"),
    ("HRESULT Lati", "long Lati", "expected 'HRESULT', found 'long'"),
    ("HRESULT Lati([out, retval] long*", "HRESULT Lati([out, retval] int*",
     "expected a published type, declared above, found 'int'"),
    ("HRESULT Lati([out, retval] long*", "HRESULT Lati([out, retval] long", "expected '*', found 'Risultato'"),
    ("HRESULT Etichetta([out, retval] _VqDocEtichetta**", "HRESULT Etichetta([out, retval] _VqDocEtichetta*",
     "expected '*', found 'Risultato'"),
    ("Nome([in] BSTR Nuovo", "Nome([in] BSTR, Nuovo", "expected the name of a parameter, found ','"),
    ("Nome([in] BSTR Nuovo", "Nome([] BSTR Nuovo", "expected an attribute of a parameter, found ']'"),
    ("Nome([in] BSTR Nuovo", "Nome([optional] BSTR Nuovo", "expected [in], [in, out] or [out, retval]"),
    ("HRESULT Nome([in] BSTR", "HRESULT Nome([in] long", "expected the same types in both accessors of Nome"),
    ("HRESULT Lati([out, retval] long* Risultato);", "HRESULT Lati();",
     "expected a result of Lati, which is a propget"),
    ("HRESULT Parola([in] BSTR Nuovo_Parola)", "HRESULT Parola()",
     "expected a new value and no result of Parola, which is a propput"),
    ("HRESULT RemoveAll();", "HRESULT RemoveAll()", "expected ';', found '}'", 1),
    ("HRESULT RemoveAll();", "HRESULT Count();", "expected id 3 for Count, found 4"),
    ("[id(1), propput, helpstring(\"Nome\")]", "[id(2), propput, helpstring(\"Nome\")]",
     "expected an id of its own for Nome, found 2, which is Lati's", 1),
    ("[id(3), propput, helpstring(\"Aperta\")]", "[id(3), propget, helpstring(\"Aperta\")]",
     "expected a result of Aperta, which is a propget", 1),
    ("[id(2), propget, helpstring(\"Lati", "[id(0), propget, helpstring(\"Lati",
     "expected a positive id for Lati, found 0", 1),
    ("[in, optional, defaultvalue(3)]", "[in, optional]", "expected optional and defaultvalue of Lati together"),
    ("[in, optional, defaultvalue(\"blu\")]", "[in]", "expected Colore before the optional parameters"),
    ("mat_Legno = 7", "mat_Legno", "expected '=', found ','"),
    ("mat_Legno = 7", "mat_Legno = 1.5", "expected a value, found '1.5'"),
    ("} enmMateriale;", "} enmMaterial;", "expected 'enmMateriale', found 'enmMaterial'"),
    ("lim_Minimo", "mat_Carta", "expected enumeration member mat_Carta once, found it twice"),
    ("0000-000000000021", "0000-000000000011",
     "expected uuid 00000000-0000-0000-0000-000000000011 once, found it twice", 1),
    ("uuid(00000000-0000-0000-0000-000000000012)", "uuid(12)", "expected a uuid, found '12'"),
    ("threading(apartment), ", "", "expected attribute threading on a coclass that can be created"),
    ("noncreatable, ", "", "expected either noncreatable or progid on a coclass"),
    ("coclass VqDocScatole { [default] interface _VqDocScatole;",
     "coclass VqDocScatole { [default] interface _VqDocScatola;",
     "expected interface _VqDocScatole, described above, found '_VqDocScatola'"),
    ("    interface _VqDocScatole;", "    interface _VqDocScatole;\n    interface _VqDocSacco;",
     "expected a description of interface _VqDocSacco, which is only declared", 1),
    ("\"Scatole\")]\nlibrary", "\"Scatole)]\nlibrary", "expected a word of IDL, found '\"'"),
    ("coclass VqDocScatole { [default] interface _VqDocScatole; }\n}",
     "coclass VqDocScatole { [default] interface _VqDocScatole; }",
     "expected 'typedef', 'interface', '[' or '}', found end of file", 1),
]


class Refusing(unittest.TestCase):
    def test_bad_inputs_fail_with_file_line_and_expectation(self):
        text = (DATA / "boxes.idl").read_text(encoding="utf-8")
        for old, new, message, *offset in BAD:
            with self.subTest(old=old, new=new):
                self.assertIn(old, text)
                line = text[:text.index(old)].count("\n") + 1 + (offset[0] if offset else 0)
                with self.assertRaises(idl.IdlError) as raised:
                    idl.read(text.replace(old, new, 1), "boxes.idl")
                self.assertEqual(str(raised.exception), f"boxes.idl:{line}: {message}")


class Running(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_script(self, text):
        source = self.folder / "in.idl"
        source.write_text(text, encoding="utf-8")
        command = [sys.executable, "-B", TYPELIB / "generate.py", source, self.folder / "out"]
        return subprocess.run(command, capture_output=True, text=True, check=False)

    def test_only_files_that_change_are_written(self):
        text = (DATA / "boxes.idl").read_text(encoding="utf-8")
        self.assertEqual(self.run_script(text).returncode, 0)
        files = [self.folder / "out" / name for name in generate.OUTPUTS]
        for file in files:
            os.utime(file, (1, 1))
        self.assertEqual(self.run_script(text.replace("mat_Legno = 7", "mat_Legno = 8")).returncode, 0)
        written = [name for name, file in zip(generate.OUTPUTS, files) if file.stat().st_mtime != 1]
        self.assertEqual(written, ["typelib/enumerations.h"])

    def test_a_bad_input_fails_and_writes_nothing(self):
        result = self.run_script("library")
        self.assertEqual(result.returncode, 1)
        self.assertIn("in.idl:1: expected '[', found 'library'", result.stderr)
        self.assertFalse((self.folder / "out").exists())


if __name__ == "__main__":
    unittest.main()
