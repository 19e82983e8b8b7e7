"""The guide says what holds: its C++ is that of the samples that are built, its links lead somewhere, its drawings and
the list of classes are those of the present interface."""

import pathlib
import re
import sys
import textwrap
import unittest
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
DOCS = ROOT / "docs"
sys.path[:0] = [str(ROOT / "typelib"), str(DOCS / "guide")]

import queues  # noqa: E402
import reference_facts  # noqa: E402

PAGES = sorted([*DOCS.glob("*.md"), *DOCS.glob("guide/*.md"), *ROOT.glob("README*.md")])
FACTS = reference_facts.facts(ROOT)


def read(path):
    return path.read_text(encoding="utf-8")


def blocks(page, language):
    return re.findall(rf"^```{language}\n(.*?)^```$", read(page), re.MULTILINE | re.DOTALL)


def lines_of(text):
    """The lines without their indentation in the whole and without blank lines at the ends."""
    return textwrap.dedent(text).strip("\n").split("\n")


def holds(sample, excerpt):
    """Whether the lines stand in the sample one after the other, indented alike."""
    lines = sample.split("\n")
    for start in range(len(lines) - len(excerpt) + 1):
        if lines_of("\n".join(lines[start:start + len(excerpt)])) == excerpt:
            return True
    return False


def anchors(page):
    """The anchors of a page's headings, as repository hosts make them."""
    headings = re.findall(r"^#+ (.*)$", read(page), re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


class Samples(unittest.TestCase):
    def test_cpp_on_the_pages_stands_in_a_sample(self):
        samples = [read(path) for path in sorted((DOCS / "guide/samples").glob("*.cpp"))]
        quoted = [(page, block) for page in sorted(DOCS.glob("guide/*.md")) for block in blocks(page, "cpp")]
        self.assertGreater(len(quoted), 15)
        for page, block in quoted:
            self.assertTrue(any(holds(sample, lines_of(block)) for sample in samples), f"{page.name}:\n{block}")

    def test_code_in_other_languages_stands_in_an_example(self):
        examples = [read(path) for path in sorted((ROOT / "examples").iterdir())]
        quoted = [(page, block) for page in sorted(DOCS.glob("guide/*.md"))
                  for block in blocks(page, "(?:js|pascal|python|powershell)")]
        self.assertGreater(len(quoted), 2)
        for page, block in quoted:
            self.assertTrue(any(holds(example, lines_of(block)) for example in examples), f"{page.name}:\n{block}")

    def test_every_sample_is_built_and_quoted(self):
        listed = re.search(r"IN ITEMS ([\w ]+)\)", read(DOCS / "guide/samples/CMakeLists.txt")).group(1).split()
        found = sorted(path.stem for path in (DOCS / "guide/samples").glob("*.cpp"))
        self.assertEqual(sorted(listed), found)

    def test_published_names_on_the_pages_exist(self):
        known = {item.name for item in FACTS.classes + FACTS.enumerations}
        known |= {value[0] for item in FACTS.enumerations for value in item.values}
        for page in [*DOCS.glob("guide/*.md"), *ROOT.glob("README*.md")]:
            named = set(re.findall(r"\b(?:VqDoc[A-Z]\w+|enm\w+|vd[a-z]+_\w+)\b", read(page)))
            self.assertEqual(named - known, set(), page.name)


class Links(unittest.TestCase):
    def test_links_lead_somewhere(self):
        for page in PAGES:
            for target in re.findall(r"\]\(([^)\s]+)\)", re.sub(r"```.*?```", "", read(page), flags=re.DOTALL)):
                if re.match(r"[a-z]+:", target):
                    continue
                name, _, anchor = target.partition("#")
                path = page.parent / name if name else page
                self.assertTrue(path.exists(), f"{target} in {page.name}")
                self.assertTrue(not anchor or anchor in anchors(path), f"{target} in {page.name}")


class Drawings(unittest.TestCase):
    def test_drawings_are_those_of_the_present_queues(self):
        for name, text in queues.drawings(ROOT).items():
            self.assertEqual(read(DOCS / "guide/queues" / name), text, f"{name}: run docs/guide/queues.py")

    def test_drawings_have_every_state_and_are_well_formed(self):
        for name, text in queues.drawings(ROOT).items():
            drawn = "".join(xml.etree.ElementTree.fromstring(text).itertext())
            enumeration = {"stampa": "Stampa", "pfax": "PFax", "fax": "Fax", "email": "Email", "pubblicazione": "Pbl",
                           "anteprima": "Anteprima"}[name.removesuffix(".svg")]
            states = next(item for item in FACTS.enumerations if item.name == f"enmVqDocCoda{enumeration}").values
            for member, value, description in states:
                self.assertIn(f"{value}  {member}{description}stamps ", drawn)


class Lists(unittest.TestCase):
    def rows(self):
        found = re.findall(r"^\| `((?:VqDoc|enm)\w+)` \| (.*) \|$", read(DOCS / "classes.md"), re.MULTILINE)
        self.assertEqual(len(found), len(dict(found)))
        return {name: [cell.strip().strip("`") for cell in cells.split("|")] for name, cells in found}

    def test_the_list_of_classes_is_whole_and_right(self):
        rows = self.rows()
        for item in FACTS.classes:
            self.assertEqual(rows[item.name][1:3], [item.section, item.element], item.name)
            self.assertTrue(item.name in read(ROOT / rows[item.name][0]), item.name)
        for item in FACTS.enumerations:
            self.assertEqual(rows[item.name][0], str(len(item.values)), item.name)
        self.assertEqual(len(rows), len(FACTS.classes) + len(FACTS.enumerations))

    def test_the_files_and_tests_of_the_list_exist(self):
        text = read(DOCS / "classes.md")
        for path in re.findall(r"`(\w+/[\w./]*\w)`", text):
            self.assertTrue((ROOT / path).exists(), path)
        tests = set(re.findall(r"\b(?!Completeness)\w+Test\b", text))
        self.assertGreater(len(tests), 30)
        for test in tests:
            self.assertTrue((ROOT / "tests/unit" / f"{test}.cpp").exists(), test)

    def test_the_page_of_errors_has_every_number_and_text(self):
        rows = re.findall(r"^\| (\d+) \| ([^|]+?) \|", read(DOCS / "guide/errors.md"), re.MULTILINE)
        self.assertEqual(rows, [(str(number), text) for number, text, _ in FACTS.errors])

    def test_the_page_of_faxes_names_the_line_parameters_that_do_not_start_unchanged(self):
        record = next(item for item in FACTS.classes if item.name == "VqDocTrasmissioneFax")
        page = read(DOCS / "guide/fax.md")
        bullet = re.search(r"^- \*\*Line parameters\*\*.*?(?=^- )", page, re.DOTALL | re.MULTILINE).group()
        named = []
        for member in record.members:
            codes = next((item for item in FACTS.classes if item.name == getattr(member.type, "name", "")), None)
            for code in codes.members if codes else []:
                if "all'inizio" in code.help and "1 (non cambiare)" not in code.help:
                    named.append(member.name if code.name == "Codice" else f"{member.name}.{code.name}")
        self.assertEqual(sorted(named), ["Colore.CodiceTipo", "Dispositivo", "Errore", "TRMStatus", "TipoFax"])
        for name in named:
            self.assertIn(f"`{name}`", bullet)

    def test_both_readmes_have_the_same_code(self):
        english, italian = (re.sub(r" *(//|#).*", "", "".join(blocks(ROOT / name, r"\w*")))
                            for name in ("README.md", "README.it.md"))
        self.assertEqual(english, italian)


if __name__ == "__main__":
    unittest.main()
