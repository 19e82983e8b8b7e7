"""The reference manual: nothing is missing on it, its facts are those of the job file, and it is sound HTML."""

import html.parser
import json
import pathlib
import re
import sys
import tempfile
import unittest
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "typelib"), str(ROOT / "tests/support")]

import browser  # noqa: E402
import idl  # noqa: E402
import headers  # noqa: E402
import reference  # noqa: E402
import reference_facts  # noqa: E402
import reference_html  # noqa: E402

OUTPUTS = reference.outputs(ROOT)
PAGES = {name: text for name, text in OUTPUTS.items() if name.endswith(".html")}
LIBRARY = idl.read_file(ROOT / "typelib/OrvaneDocumenti.idl")
FACTS = {item.name: item for item in reference_facts.facts(ROOT).classes}

# Where some members are kept, as job files in the field have it: class, member, section, key, element, default.
KNOWN = [
    ("VqDocStampa", "Stampante", "Stampa", "Stampante", "Stampante", "empty"),
    ("VqDocStampa", "Copie", "Stampa", "Copie", "", "1"),
    ("VqDocFax", "Oggetto", "Fax", "Oggetto", "Oggetto", "empty"),
    ("VqDocPFax", "Mittente", "Fax", "Mittente", "Mittente", "empty"),
    ("VqDocLingua", "Codice", "Lingua", "Codice, Descrizione", "Codice, Descrizione", "0"),
    ("VqDocFaxPagina", "CodiceWidth", "FaxTrasmissione_Pagina", "CodiceLarghezza, DescrizioneLarghezza",
     "CodiceWidth, DescrizioneWidth", "1"),
    ("VqDocBloccato", "Codice", "", "", "Codice, Descrizione", "0"),
    ("VqDocPagine", "MaxAltezzaPagina", "Pagine", "MassimaAltezzaPagina", "", "0"),
    ("VqDocPagineStato", "Codice", "Stato", "Codice, Descrizione", "", "0"),
    ("VqDocCatalogoSorgente", "CompressoOn", "Catalogo sorgente", "CompressoOn", "StrAscCompressoOn",
     "seven zero bytes"),
    ("VqDocDiretta", "NomeFileOutput", "Diretta", "NomeFileOutput", "NomeFileOutput", "empty"),
    ("VqDocLayoutPagina", "AdattaAllaPagina", "LayoutPagina", "AdattaAllaPagina", "AdattaAllaPagina", "True"),
    ("VqDocCodaPbl", "DataInserimento", "CodaPubblicazione", "DataInserimento", "DataInserimento", "0 (not set)"),
    ("VqDocCodaFax", "UltimaCodaCodice", "UltimaCoda", "Codice, Descrizione", "", "0"),
    ("VqDocTrasmissioneFax", "ProssimoTentativo", "", "", "ProssimoTentativo", "0 (not set)"),
    ("VqDocTrasmissioneEmail", "Tentativi", "TrasmissioneEmail", "Tentativi", "Tentativi", "0"),
    ("VqDocMessaggio", "Nota", "Messaggio", "Nota_0, Nota_1, ...", "Nota_0, Nota_1, ...", "empty"),
    ("VqDocDestinatariCcn", "IndirizziEmail", "DestinatariCcn", "IndirizziEmail", "IndirizziEmail", "empty"),
    ("VqDocCollegatiStampa", "Copie", "Collegati", "Copie", "Copie", "1"),
    ("VqDocCollegatiFax", "Copie", "Collegati", "Copie", "", "1"),
    ("VqDocProprieta", "TentativiElaborazione", "Proprieta", "TentativiElaborazione", "", "0"),
    ("VqDocPubblicazione", "FilePbl", "Pubblicazione", "PblPercorso, PblNome", "FilePbl", ""),
]

# Members that clients assign and that stand in no job file.
UNKEPT = {"VqDocBloccato.Codice", "VqDocTrasmissioneFax.ProssimoTentativo", "VqDocTrasmissioneEmail.ProssimoTentativo",
          "VqDocFile.Percorso", "VqDocFile.Nome", "VqDocPagina.Script", "VqDocPagina.ArrayTxt",
          "VqDocPagina.ArrayScriptA", "VqDocPagina.ArrayScriptB"}


def parsed(text):
    """The page as a tree: the manual keeps to the HTML that is XML too."""
    return xml.etree.ElementTree.fromstring(text.removeprefix("<!DOCTYPE html>\n"))


class Unclosed(html.parser.HTMLParser):
    """Follows a page as a browser does and keeps what is open or closed out of turn."""

    def __init__(self):
        super().__init__()
        self.open, self.faults = [], []

    def handle_starttag(self, name, _):
        self.open.append(name)

    def handle_endtag(self, name):
        if not self.open or self.open.pop() != name:
            self.faults.append(f"</{name}> at {self.getpos()}")


class Completeness(unittest.TestCase):
    def test_every_class_and_member_has_its_place(self):
        for coclass in LIBRARY.coclasses:
            ids = [element.get("id") for element in parsed(PAGES[f"{coclass.name}.html"]).iter("section")]
            self.assertEqual(sorted(ids), sorted({member.name for member in coclass.members}), coclass.name)

    def test_every_member_shows_its_help(self):
        for coclass in LIBRARY.coclasses:
            text = "".join(parsed(PAGES[f"{coclass.name}.html"]).itertext())
            for member in coclass.members:
                self.assertIn(member.help, text, f"{coclass.name}.{member.name}")

    def test_every_enumeration_shows_names_values_and_texts(self):
        texts = dict(re.findall(r"^(\d+)\t(.*)$", (ROOT / "codes/texts.txt").read_text(encoding="utf-8"), re.M))
        for enumeration in LIBRARY.enumerations:
            rows = [[cell.text or "".join(cell.itertext()) for cell in row.iter("td")]
                    for row in parsed(PAGES[f"{enumeration.name}.html"]).iter("tr") if row.get("id")]
            self.assertEqual([(row[0], int(row[1])) for row in rows],
                             [(member.name, member.value) for member in enumeration.members], enumeration.name)
            self.assertTrue(all(row[2] in (*texts.values(), "", "(no text of its own)") for row in rows), rows)

    def test_texts_are_those_of_their_values(self):
        for page, value, text in (("enmVqDocDimensione", "vdd_A4", texts_by_id(7509)),
                                  ("enmVqVqDocFaxErrore", "vdftec_FER_MEMORIA", texts_by_id(10020)),
                                  ("enmVqDocCodaEmail", "vdce_Trasmesso", "Inviato"),
                                  ("enmVqDocCodaPFax", "vdcpf_DaStampare", "In attesa di stampa")):
            row = next(row for row in parsed(PAGES[f"{page}.html"]).iter("tr") if row.get("id") == value)
            self.assertEqual("".join(list(row)[2].itertext()), text)

    def test_the_index_and_the_search_lead_everywhere(self):
        index = {link.get("href") for link in parsed(PAGES["index.html"]).iter("a")}
        found = {entry[1] for entry in entries()}
        for item in LIBRARY.coclasses + LIBRARY.enumerations:
            self.assertIn(f"{item.name}.html", index)
            self.assertIn(f"{item.name}.html", found)
            for member in item.members:
                self.assertIn(f"{item.name}.html#{member.name}", found)

    def test_the_markdown_has_every_name(self):
        for item in LIBRARY.coclasses + LIBRARY.enumerations:
            self.assertIn(f"### {item.name}\n", OUTPUTS["reference.md"])
            for member in item.members:
                self.assertIn(f"| `{member.name}` |", OUTPUTS["reference.md"])


class Facts(unittest.TestCase):
    def test_known_members_are_where_job_files_have_them(self):
        for class_, name, *expected in KNOWN:
            member = next(member for member in FACTS[class_].members if member.name == name)
            found = [member.section, member.keys, member.element, member.default]
            self.assertEqual(found, expected, f"{class_}.{name}")

    def test_every_member_that_clients_assign_has_section_and_key_or_is_known_to_have_none(self):
        without = {f"{item.name}.{member.name}" for item in FACTS.values() for member in item.members
                   if member.access == "read and write" and not (member.section and member.keys)}
        self.assertEqual(without, UNKEPT)

    def test_a_section_said_to_be_written_by_salva_has_no_member_that_is_written_at_once(self):
        said = [item for item in FACTS.values() if "scritta da Salva" in item.help]
        self.assertGreater(len(said), 1)
        for item in said:
            at_once = [member.name for member in item.members if member.access == "read and write" and member.section]
            self.assertEqual(at_once, [], item.name)

    def test_loading_a_wrapping_document_tells_of_a_missing_and_an_unknown_kind(self):
        for name in ("VqDocPbl", "VqDocAnteprima"):
            load = next(member for member in FACTS[name].members if member.name == "Carica")
            self.assertEqual(sorted(load.errors), [53, 76, 91, 445], name)
            self.assertRegex(load.help, "445 se gia' inizializzato o il tipo nel file e' 0", name)

    def test_documents_have_their_extensions(self):
        found = {name: (item.extension, item.linked_extension) for name, item in FACTS.items() if item.extension}
        self.assertEqual(found, {
            "VqDocStampa": (".vqs", ".lvq"), "VqDocFax": (".vqf", ".ldf"), "VqDocPFax": (".vqpf", ".ldf"),
            "VqDocEmail": (".vqe", ".lde"), "VqDocPbl": (".vqpb", ""), "VqDocAnteprima": (".vqa", "")})

    def test_errors_are_those_of_the_help_texts(self):
        errors = {f"{item.name}.{member.name}": member.errors for item in FACTS.values() for member in item.members}
        self.assertEqual(errors["VqDocStampa.Carica"], [445, 76, 53])
        self.assertEqual(errors["VqDocPbl.Inizializza"], [445, 76])
        self.assertEqual(errors["VqDocAllegati.Remove"], [5, 9])
        self.assertEqual(errors["VqDocStampa.Numero"], [])

    def test_an_override_of_nothing_is_refused(self):
        with self.assertRaises(headers.ScanError):
            reference_facts.read_overrides("VqDocFile.Nome | - | -")
        with self.assertRaises(headers.ScanError):
            reference_facts.read_overrides("A.B | - | - | - | \nA.B | - | - | - | ")


class Pages(unittest.TestCase):
    def test_pages_are_well_formed(self):
        for name, text in PAGES.items():
            parsed(text)
            follower = Unclosed()
            follower.feed(re.sub(r"<(meta|link|input)[^>]*/>", "", text))
            self.assertEqual((follower.open, follower.faults), ([], []), name)

    def test_links_lead_somewhere(self):
        ids = {name: {element.get("id") for element in parsed(text).iter()} for name, text in PAGES.items()}
        for name, text in PAGES.items():
            for element in parsed(text).iter():
                target = element.get("href") or element.get("src")
                if target:
                    page, _, fragment = target.partition("#")
                    self.assertIn(page or name, OUTPUTS, f"{target} in {name}")
                    self.assertTrue(not fragment or fragment in ids[page or name], f"{target} in {name}")

    def test_ids_are_unique(self):
        for name, text in PAGES.items():
            ids = [element.get("id") for element in parsed(text).iter() if element.get("id")]
            self.assertEqual(len(ids), len(set(ids)), name)

    def test_nothing_is_loaded_from_elsewhere(self):
        for name, text in OUTPUTS.items():
            self.assertNotRegex(text, r"(?:https?:)?//[a-z]+\.", name)

    def test_texts_are_escaped(self):
        evil = '<script>alert("1")</script> & \''
        text = reference_html.page(evil, reference_html.tag("p", evil, title=evil), reference_html.italian(evil))
        paragraph = next(parsed(text).iter("p"))
        self.assertEqual((paragraph.text, paragraph.get("title")), (evil, evil))
        self.assertEqual(next(parsed(text).iter("title")).text, evil)
        self.assertNotIn("<script>alert", text)

    def test_names_between_backquotes_are_code(self):
        self.assertEqual(reference_html.remark("Job file `Id`.vqf <x>"),
                         '<p class="remark">Job file <code>Id</code>.vqf &lt;x&gt;</p>')
        self.assertEqual([name for name, text in PAGES.items() if "`" in text], [])


@unittest.skipUnless(browser.PROGRAM, browser.MISSING)
class InBrowser(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        for name, text in OUTPUTS.items():
            (cls.folder / name).write_text(text, encoding="utf-8")
        cls.browser = cls.enterClassContext(browser.Browser())

    def open(self, name):
        self.browser.open(self.folder / name)


class Look(InBrowser):
    def test_no_page_has_to_be_moved_sideways_on_a_phone(self):
        self.browser.window(390, 844, phone=True)
        for name in ["index.html", "errors.html", "VqDocFax.html", "VqDocCatalogoSorgente.html",
                     "enmVqVqDocFaxErrore.html"]:
            self.open(name)
            parts = [f'document.querySelector("{part}")?.scrollWidth ?? 0' for part in ("html", ".wide")]
            for width in map(self.browser.run, parts):
                self.assertLessEqual(width, 390, name)

    def test_names_are_not_broken_on_a_screen(self):
        self.browser.window(1280, 900)
        self.open("index.html")
        self.assertEqual([], self.browser.run('[...document.querySelectorAll("td:first-child code")]'
                                              '.filter((name) => name.getClientRects().length !== 1)'
                                              '.map((name) => name.textContent)'))


class Search(InBrowser):
    def setUp(self):
        self.open("index.html")

    def found(self, typed):
        self.browser.run(f'field.value = {json.dumps(typed)}; field.dispatchEvent(new Event("input"))')
        return self.browser.run('[...document.querySelectorAll("#found a")].map((link) => link.firstChild.textContent)')

    def test_the_name_itself_comes_first(self):
        self.assertEqual(self.found("VqDocFax")[0], "VqDocFax")
        self.assertEqual(self.found("vdd_a4")[0], "vdd_A4")
        self.assertEqual(self.found("numeroesteso")[0], "VqDocNumeroFax.NumeroEsteso")
        self.assertEqual(self.found("coda fax")[0], "VqDocCodaFax")

    def test_keys_texts_and_error_numbers_are_found(self):
        self.assertIn("VqDocPagine.MaxAltezzaPagina", self.found("MassimaAltezzaPagina"))
        self.assertIn("vdce_Trasmesso", self.found("inviato"))
        self.assertEqual(self.found("error 445")[0], "error 445")

    def test_all_words_must_be_there(self):
        self.assertEqual(self.found("stampante xyzzy"), [])
        self.assertEqual(self.found("  "), [])


def entries():
    return json.loads(OUTPUTS["entries.js"].removeprefix("const entries = ").removesuffix(";\n"))


def texts_by_id(number):
    line = re.search(rf"^{number}\t(.*)$", (ROOT / "codes/texts.txt").read_text(encoding="utf-8"), re.M)
    return line.group(1)


if __name__ == "__main__":
    unittest.main()
