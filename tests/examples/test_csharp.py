"""The C# of the examples and of the pages compiles against the published interface; ORVANE_MCS is the compiler."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]

# What an excerpt may use without having made it.
VARIABLES = {"fabbrica": "VqDocumenti", "stampa": "VqDocStampa", "fax": "VqDocFax", "email": "VqDocEmail"}


def excerpts():
    for page in [*sorted(ROOT.glob("docs/guide/*.md")), *sorted(ROOT.glob("README*.md"))]:
        for code in re.findall(r"^```csharp\n(.*?)^```$", page.read_text(encoding="utf-8"), re.MULTILINE | re.DOTALL):
            yield page.name, code


def program(code):
    """A program whose one method has the code as its body."""
    parameters = ", ".join(f"{type_} {name}" for name, type_ in VARIABLES.items() if f"var {name} " not in code)
    return ("using System;\nusing System.Runtime.InteropServices;\nusing OrvaneDocumenti;\n"
            f"class Page {{\n  static void Excerpt({parameters}) {{\n{code}  }}\n  static void Main() {{ }}\n}}\n")


class CSharp(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        subprocess.run([sys.executable, "-B", ROOT / "typelib/generate.py", "--imports",
                        ROOT / "typelib/OrvaneDocumenti.idl", cls.folder], check=True)

    def compile(self, source, *options):
        """What the compiler says against the source; nothing if it compiles without a warning."""
        result = subprocess.run(
            [os.environ["ORVANE_MCS"], "-warnaserror", *options, f"-out:{self.folder / 'program.exe'}",
             self.folder / "OrvaneDocumenti.cs", source],
            capture_output=True, text=True, timeout=600, check=False)
        return "" if result.returncode == 0 else result.stdout + result.stderr

    def compile_text(self, text):
        source = self.folder / "program.cs"
        source.write_text(text, encoding="utf-8")
        return self.compile(source)

    def test_examples_compile(self):
        for name in ("Compose.cs", "LateBound.cs"):
            self.assertEqual("", self.compile(ROOT / "examples" / name, "-r:Microsoft.CSharp.dll"), name)

    def test_pages_compile(self):
        found = list(excerpts())
        self.assertGreater(len(found), 2)
        for page, code in found:
            self.assertEqual("", self.compile_text(program(code)), f"{page}:\n{code}")

    def test_an_array_is_assigned_by_reference(self):
        code = "Array righe = new object[] { \"uno\" };\nstampa.Pagine.Nuova().set_ArrayTxt(ref righe);\n"
        self.assertEqual("", self.compile_text(program(code)))

    def test_wrong_code_does_not_compile(self):
        for code, fault in [("fax.Ogetto = \"x\";\n", "CS1061"), ("fax.Coda.Codice = 0.5;\n", "CS0266"),
                            ("stampa.Dimensione.Codice = enmVqDocDimensione.vdd_A44;\n", "CS0117"),
                            ("var x = new VqDocFax();\n", "CS0144"), ("stampa.Inizializzato = true;\n", "CS0200"),
                            ("stampa.Collegati.Add(ref fax);\n", "CS1503")]:
            self.assertIn(fault, self.compile_text(program(code)), code)


if __name__ == "__main__":
    unittest.main()
