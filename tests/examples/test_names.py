"""Late-bound code that nothing here runs or compiles names only what the interface has: the PowerShell and the late-bound
C# example, and what the pages have of such code."""

import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "typelib"), str(pathlib.Path(__file__).resolve().parent)]

import idl  # noqa: E402
import names  # noqa: E402

LIBRARY = idl.read_file(ROOT / "typelib/OrvaneDocumenti.idl")
# What the variables are that an excerpt or a procedure takes from elsewhere.
PAGE_VARIABLES = {"fabbrica": {"VqDocumenti"}, "stampa": {"VqDocStampa"}, "email": {"VqDocEmail"}, "fax": {"VqDocFax"},
                  "anteprima": {"VqDocAnteprima"}, "errore": set(), "Document": names.DOCUMENTS}
EXAMPLES = {"compose.ps1": {"Document": names.DOCUMENTS, "failure": set()},
            "LateBound.cs": {"error": set()}}


def excerpts():
    """Page and code of each excerpt in a language that binds late, or that could."""
    for page in [*sorted(ROOT.glob("docs/guide/*.md")), *sorted(ROOT.glob("README*.md"))]:
        for code in re.findall(r"^```(?:vb|csharp|powershell)\n(.*?)^```$",
                               page.read_text(encoding="utf-8"), re.MULTILINE | re.DOTALL):
            yield page.name, code


class Checked(unittest.TestCase):
    def test_examples_name_what_there_is(self):
        for file, known in EXAMPLES.items():
            code = (ROOT / "examples" / file).read_text(encoding="utf-8")
            self.assertGreater(names.count(code), 10, file)
            self.assertEqual([], names.faults(code, LIBRARY, known), file)

    def test_no_name_of_the_examples_escapes(self):
        published = {member.name for coclass in LIBRARY.coclasses for member in coclass.members}
        for file, known in EXAMPLES.items():
            code = (ROOT / "examples" / file).read_text(encoding="utf-8")
            named = [match for match in re.finditer(r"(?<=\.)[A-Z]\w+", code) if match[0] in published]
            for match in named:
                wrong = code[:match.end()] + "Q" + code[match.end():]
                self.assertNotEqual([], names.faults(wrong, LIBRARY, known), f"{file}, {match[0]} at {match.start()}")

    def test_pages_name_what_there_is(self):
        found = list(excerpts())
        self.assertGreater(len(found), 7)
        for page, code in found:
            self.assertEqual([], names.faults(code, LIBRARY, PAGE_VARIABLES), f"{page}:\n{code}")


class Checker(unittest.TestCase):
    def faults(self, code):
        return names.faults(code, LIBRARY, {"fabbrica": {"VqDocumenti"}, "Document": names.DOCUMENTS})

    def test_a_wrong_name_is_found(self):
        for code in ("stampa = fabbrica.NuovoDocumentoStampa\nstampa.Copia = 2",
                     "$s = $fabbrica.NuovoDocumentoStampa()\n$s.Proprieta.Utent = 'x'",
                     '$s = $fabbrica.NuovoDocumentoStampa()\n"$($s.Coda.Descrizion())"',
                     'dynamic s = fabbrica.NuovoDocumentoFax();\nConsole.WriteLine($"{s.Copie}");',
                     "Set f = fabbrica.NuovoDocumentoFax\nFor Each a In f.Allegati\n  WScript.Echo a.Fil\nNext",
                     "$Document.Proprieta.Nessuno", "fabbrica.NuovoDocumento", "x = enmVqDocDimensione.vdd_A44"):
            self.assertEqual(1, len(self.faults(code)), code)

    def test_an_object_that_comes_from_nowhere_is_found(self):
        self.assertEqual(["unknown object ignoto"], self.faults("ignoto.Copie = 2"))

    def test_what_is_right_passes(self):
        for code in ("Set f = fabbrica.NuovoDocumentoFax\nFor Each a In f.Allegati\n  WScript.Echo a.File\nNext",
                     "$Document.Allegati.Salva()", "' stampa.Nessuno\nx = enmVqDocDimensione.vdd_A4",
                     'fabbrica.NuovoDocumentoStampa().Carica(folder, "a.b")'):
            self.assertEqual([], self.faults(code), code)


if __name__ == "__main__":
    unittest.main()
