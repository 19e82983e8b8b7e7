"""The page of the command report as its readers see it: in a browser, on a phone, on paper."""

import json
import pathlib
import re
import shutil
import subprocess
import sys
import unittest

from command_line import CommandLineTest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests/support"))

import browser  # noqa: E402

browser.needed()

EVIL = "<script>document.title = 'hit'</script><img src=x onerror=\"document.title = 'hit'\"> & ' è </pre>"
ENDLESS = "W" * 250
CHANNELS = {"stampa": "CodaStampa", "fax": "CodaFax", "pfax": "CodaPFax", "email": "CodaEmail", "pbl": "CodaPbl",
            "anteprima": "CodaAnteprima"}


def column(name):
    return f'[...document.querySelectorAll("#table tbody td.{name}")].map((cell) => cell.textContent)'


def shown(selector):
    return f'getComputedStyle(document.querySelector("{selector}")).display !== "none"'


def click(selector):
    return f'document.querySelector("{selector}").click()'


# The colours of a text and of what is behind it as numbers of 0 to 255.
COLOURS = """(selector) => {
  const element = document.querySelector(selector);
  let behind = element;
  while (getComputedStyle(behind).backgroundColor === "rgba(0, 0, 0, 0)") behind = behind.parentElement;
  return [getComputedStyle(element).color, getComputedStyle(behind).backgroundColor]
    .map((colour) => colour.match(/\\d+/g).map(Number));
}"""


def luminance(colour):
    parts = [part / 255 for part in colour[:3]]
    linear = [part / 12.92 if part <= 0.03928 else ((part + 0.055) / 1.055) ** 2.4 for part in parts]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast(colours):
    dark, light = sorted(map(luminance, colours))
    return (light + 0.05) / (dark + 0.05)


class PageTest(CommandLineTest):
    @classmethod
    def setUpClass(cls):
        cls.browser = cls.enterClassContext(browser.Browser())

    def open(self, width=1280, height=900, phone=False):
        self.browser.medium()
        self.browser.window(width, height, phone)
        self.orvane("report", "jobs", "-o", "page.html")
        self.browser.open(self.folder / "page.html")

    def run_all(self, *scripts):
        return [self.browser.run(script) for script in scripts]

    def search(self, words):
        self.run_all(f'byId("search").value = {json.dumps(words)}', 'byId("search").dispatchEvent(new Event("input"))')
        return self.browser.run(column("id"))

    def detail(self, selector=""):
        return self.browser.run(f'document.querySelector("#detail {selector}").innerText')


class Reading(PageTest):
    def setUp(self):
        super().setUp()
        self.orvane("new", "stampa", "1", "jobs", "Stampante=Laser")
        self.orvane("new", "stampa", "10", "jobs", "Coda.DataInserimento=2026-11-20", "Coda.Codice=vdcs_InStampa",
                    "Coda.Codice=vdcs_Stampato")
        self.orvane("new", "fax", "2", "jobs", "NumeroFax.Numero=123", "Coda.Codice=vdcf_Respinto",
                    "Proprieta.Errore.Descrizione=Carta finita", "Oggetto=Offerta")
        self.open()

    def test_failed_jobs_come_first_and_then_the_oldest(self):
        self.assertEqual(["2", "10", "1"], self.browser.run(column("id")))

    def test_search_takes_all_words_of_either_language(self):
        for words, found in [("RESPINTO carta", ["2"]), ("rejected carta", ["2"]), ("printed", ["10", "1"]),
                             ("printed laser", ["1"]), ("nothing like it", []), ("", ["2", "10", "1"])]:
            with self.subTest(words=words):
                self.assertEqual(found, self.search(words))
                self.assertEqual(f"{len(found)} of 3 jobs", self.browser.run('byId("found").textContent'))

    def test_a_title_sorts_up_and_then_down(self):
        self.browser.run(click("[data-sort=id]"))
        self.assertEqual(["1", "2", "10"], self.browser.run(column("id")))
        self.browser.run(click("[data-sort=id]"))
        self.assertEqual(["10", "2", "1"], self.browser.run(column("id")))
        self.assertEqual("descending", self.browser.run('document.querySelectorAll("#table th")[1].ariaSort'))

    def test_a_job_opens_with_its_timeline_and_xml_and_closes(self):
        self.run_all(click("#table tbody tr:nth-child(2)"))
        self.assertTrue(self.browser.run('byId("detail").open'))
        self.assertEqual("Print 10", self.detail("h2"))
        self.assertRegex(self.detail("ol"), r"^20/11/2026, 00:00:00 Inserted\n.* Printing\n.* Ended$")
        self.assertRegex(self.detail("pre"), r"^<Stampa>VqDocStampa\n  <(.|\n)*</Stampa>\n?$")
        self.browser.run(click("#detail .close"))
        self.assertFalse(self.browser.run('byId("detail").open'))

    def test_a_job_opens_by_keyboard(self):
        self.browser.run('document.querySelector("#table tbody tr").dispatchEvent('
                         'new KeyboardEvent("keydown", { key: "Enter" }))')
        self.assertEqual("Fax 2", self.detail("h2"))

    def test_colours_can_be_told_apart_by_day_and_by_night(self):
        for dark in [False, True]:
            self.browser.medium(dark=dark)
            for selector in ["h1", "#about", "#table th button", "#table td.error span", "#channels p", ".axis"]:
                with self.subTest(selector=selector, dark=dark):
                    self.assertGreaterEqual(contrast(self.browser.run(f'({COLOURS})("{selector}")')), 4.5)


class Languages(PageTest):
    def add_states(self):
        """A job in every state of every queue; returns the Italian of each by its id."""
        italian = {}
        for kind, class_name in CHANNELS.items():
            for code, text in re.findall(r"^ +vd\w+ +(\d+)  (.+)$", self.orvane("codes", class_name), re.MULTILINE):
                of = ["--of", "fax"] if kind in ("pbl", "anteprima") else []
                self.orvane("new", kind, f"{kind}-{code}", "jobs", *of, f"Coda.Codice={code}")
                italian[f"{kind}-{code}"] = text
        return italian

    def shown_by_id(self, name):
        return dict(zip(*self.run_all(column("id"), column(name))))

    def test_states_of_all_queues_read_in_either_language(self):
        italian = self.add_states()
        english = json.loads((ROOT / "cli/report/english.json").read_text(encoding="utf-8"))
        self.assertEqual(49, len(italian))
        self.open()
        self.assertEqual({job: english[text] for job, text in italian.items()}, self.shown_by_id("state"))
        self.assertIn("To be confirmed 1", self.browser.run('byId("channels").innerText'))
        self.assertEqual({"Print", "Fax", "Printer-fax", "E-mail", "Publication (Fax)", "Preview (Fax)"},
                         set(self.browser.run(column("kind"))))
        self.browser.run(click("[data-language=it]"))
        self.assertEqual("Documenti in coda", self.browser.run('document.querySelector("h1").textContent'))
        self.assertEqual(italian, self.shown_by_id("state"))

    def test_outcomes_and_errors_read_in_either_language(self):
        self.orvane("new", "stampa", "1", "jobs", "Proprieta.Esito.Codice=vde_Fallito",
                    "Proprieta.Errore.Codice=vdec_AnnullatoDaUtente")
        self.open()
        seen = [column("outcome"), column("error"), 'byId("errors").innerText']
        self.assertEqual([["Failed"], ["Cancelled by the user"], "Error\tJobs\nCancelled by the user\t1"],
                         self.run_all(*seen))
        self.browser.run(click("[data-language=it]"))
        self.assertEqual([["Fallito"], ["Annullato dall'utente"], "Errore\tLavori\nAnnullato dall'utente\t1"],
                         self.run_all(*seen))

    def test_what_a_job_says_of_its_own_is_not_translated(self):
        self.orvane("new", "stampa", "1", "jobs", "Stampante=In stampa", "Proprieta.Utente=Respinto",
                    "Proprieta.Errore.Descrizione=Annullato dall'utente")
        self.open()
        self.assertEqual([["In stampa"], ["Respinto"], ["Annullato dall'utente"]],
                         self.run_all(column("to"), column("user"), column("error")))

    def test_what_cannot_be_read_says_so(self):
        self.touch("jobs/8.vqs", b"[CodaStampa]\r\nCodice=3000000000\r\n")
        self.open()
        self.assertEqual([["Unreadable"], ["Overflow (6)"]], self.run_all(column("state"), column("error")))


class Hostile(PageTest):
    def setUp(self):
        super().setUp()
        for text, job in [(EVIL, "1"), (ENDLESS, "2")]:
            self.orvane("new", "fax", job, "jobs", *(f"{member}={text}" for member in (
                "Proprieta.Utente", "Proprieta.Descrizione", "Proprieta.Errore.Descrizione", "NumeroFax.Numero",
                "Oggetto")))
            self.rename(self.folder / f"jobs/{job}.vqf", f"Id={job}", f"Id={text}")

    @staticmethod
    def rename(path, before, after):
        """The library takes the id from the name of the file; others may write what they like."""
        path.write_bytes(path.read_bytes().replace(before.encode("utf-16-le"), after.encode("utf-16-le")))

    def test_names_never_become_markup(self):
        self.open()
        self.search("document.title")
        self.browser.run(click("#table tbody tr"))
        self.assertEqual([2, 0, "Jobs in the queue"],
                         self.run_all("document.scripts.length", "document.images.length", "document.title"))
        self.assertEqual(5, self.detail("dl").count(EVIL))
        self.assertIn("<Oggetto>&lt;script&gt;document.title", self.detail("pre"))

    def test_no_window_has_to_be_moved_sideways(self):
        for width in [320, 390, 700, 1280]:
            with self.subTest(width=width):
                self.open(width, 844, phone=width < 500)
                self.assertEqual([width, width], self.run_all("innerWidth", "document.scrollingElement.scrollWidth"))
                self.browser.run(click("#table tbody tr:nth-child(2)"))
                self.assertLessEqual(*self.run_all("byId('detail').scrollWidth", "byId('detail').clientWidth"))

    def test_a_phone_shows_all_of_a_job_and_sorts(self):
        self.open(390, 844, phone=True)
        outside = [element for element in self.browser.run(
            '[...document.querySelectorAll("#table td span, #table button, nav button, h1, h2, #totals div")]'
            '.map((e) => [e.outerHTML.slice(0, 60), e.getBoundingClientRect().right])') if element[1] > 390]
        self.assertEqual([], outside)
        self.assertTrue(self.browser.run(shown("[data-sort=id]")))


class Paper(PageTest):
    CONTROLS = ["nav", "#search", "#more", "#detail .close"]

    def setUp(self):
        super().setUp()
        self.orvane("new", "stampa", "first", "jobs", "Stampante=Laser", "Proprieta.Errore.Codice=1")
        job = (self.folder / "jobs/first.vqs").read_bytes()
        for i in range(250):
            (self.folder / f"jobs/{i}.vqs").write_bytes(job.replace("first".encode("utf-16-le"),
                                                                    f"no{i:03}".encode("utf-16-le")))
        self.open()

    def text_of_paper(self):
        path = self.touch("page.pdf", self.browser.paper())
        return subprocess.run(["pdftotext", "-layout", path, "-"], capture_output=True, encoding="utf-8",
                              timeout=600, check=True).stdout

    def test_there_are_no_controls(self):
        self.browser.run(click("#table tbody tr"))
        self.assertEqual([True] * 4, self.run_all(*map(shown, self.CONTROLS)))
        self.browser.medium("print", dark=True)
        self.assertEqual([False] * 4, self.run_all(*map(shown, self.CONTROLS)))
        self.assertEqual("rgb(255, 255, 255)", self.browser.run("getComputedStyle(document.body).backgroundColor"))

    def test_an_open_job_is_alone(self):
        parts = [shown(part) for part in ("header", "main", "#detail pre")]
        self.browser.medium("print")
        self.assertEqual([True, True], self.run_all(*parts[:2]))
        self.browser.run(click("#table tbody tr"))
        self.assertEqual([False, False, True], self.run_all(*parts))

    def test_all_rows_are_on_paper_and_the_screen_is_as_before(self):
        self.browser.run('addEventListener("beforeprint", () => { window.printed = byId("table").rows.length; })')
        self.assertEqual(b"%PDF", self.browser.paper()[:4])
        self.assertEqual([1 + 251, 1 + 200, True],
                         self.run_all("printed", 'byId("table").rows.length', shown("[data-sort=id]")))

    @unittest.skipUnless(shutil.which("pdftotext"), "no pdftotext: scripts/install-tools native installs poppler-utils")
    def test_sheets_hold_the_texts_and_repeat_the_titles(self):
        sheets = self.text_of_paper().split("\f")[:-1]
        self.assertIn("Jobs in the queue", sheets[0])
        self.assertIn("Channels and states", sheets[0])
        self.assertEqual(251, len(re.findall(r"\b(?:no\d{3}|first) ", "".join(sheets))))
        self.assertGreater(len(sheets), 4)
        for sheet in sheets[2:]:
            self.assertRegex(sheet, r"Kind +Id +State +Inserted +Outcome +Destination +User +Error")
        self.assertNotRegex("".join(sheets), "Italiano|Search all|Show more")

    @unittest.skipUnless(shutil.which("pdftotext"), "no pdftotext: scripts/install-tools native installs poppler-utils")
    def test_an_open_job_is_on_paper_once_and_whole(self):
        self.browser.run(click("#table tbody tr"))
        text = self.text_of_paper()
        self.assertEqual([1, 1], [text.count("Timeline"), text.count("</Stampa>")])
        self.assertRegex(text, r"^Print (no\d+|first)\n")


if __name__ == "__main__":
    unittest.main()
