"""What the command report writes; test_report_page.py looks at it in a browser."""

import html.parser
import json
import pathlib
import re
import sys
import unittest

from command_line import RUN_TIME_ERROR, CommandLineTest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "typelib"))

import texts  # noqa: E402

EVIL = "<script>alert(1)</script><img src=x onerror=alert(2)> & \" ' è </pre>"

class Page(html.parser.HTMLParser):
    """The tags of a page, the text of its data, and whether its tags are balanced."""

    EMPTY = {"meta", "input", "img", "link"}

    def __init__(self, text):
        super().__init__()
        self.tags, self.open, self.links, self.data, self.balanced = [], [], [], "", True
        self.feed(text)
        self.close()

    def handle_starttag(self, tag, attrs):
        self.tags.append(tag)
        self.links += [value for name, value in attrs if name in ("src", "href")]
        if tag not in self.EMPTY:
            self.open.append((tag, dict(attrs)))

    def handle_endtag(self, tag):
        self.balanced = self.balanced and bool(self.open) and self.open.pop()[0] == tag

    def handle_data(self, data):
        if self.open and self.open[-1][1].get("id") == "data":
            self.data += data


class Report(CommandLineTest):
    def setUp(self):
        super().setUp()
        self.orvane("new", "stampa", "1", "jobs", "Stampante=" + EVIL, "Proprieta.Descrizione=" + EVIL)
        self.orvane("new", "stampa", "10", "jobs", "Coda.DataInserimento=2026-11-20", "Coda.Codice=vdcs_InStampa",
                    "Coda.Codice=vdcs_Stampato")
        self.orvane("new", "fax", "2", "jobs", "NumeroFax.Numero=123", "Coda.Codice=vdcf_Respinto",
                    "Proprieta.Errore.Descrizione=Carta finita", "Oggetto=" + EVIL)
        self.assertEqual("page.html\n", self.orvane("report", "jobs", "-o", "page.html"))
        self.text = (self.folder / "page.html").read_text(encoding="utf-8")

    def test_the_page_stands_alone_and_holds_nothing_of_a_job_but_data(self):
        page = Page(self.text)
        self.assertTrue(page.balanced)
        self.assertEqual(([], 2, 0), (page.links, page.tags.count("script"), page.tags.count("img")))
        self.assertIn("default-src 'none'", self.text)
        self.assertNotIn("http:", self.text)
        self.assertNotIn("https:", self.text)
        self.assertNotIn("<", page.data)
        self.assertEqual(1, self.text.count(page.data))

    def test_data_are_those_of_list_with_the_xml(self):
        data = json.loads(Page(self.text).data)
        self.assertEqual(["2", "10", "1"], [job["id"] for job in data["jobs"]])
        listed = {job["id"]: job for job in json.loads(self.orvane("list", "jobs", "--json"))}
        for job in data["jobs"]:
            self.assertIn("<Proprieta>", job.pop("xml"))
            self.assertEqual(listed[job["id"]], job)
        self.assertEqual((str(self.folder / "jobs"), EVIL), (data["folder"], listed["1"]["description"]))

    def test_details_may_be_left_out_and_the_page_go_to_the_output(self):
        data = json.loads(Page(self.orvane("report", "jobs", "-o", "-", "--details", "1")).data)
        self.assertEqual([True, False, False], ["xml" in job for job in data["jobs"]])

    def test_jobs_that_cannot_be_loaded_are_in_the_page(self):
        self.touch("jobs/8.vqs", b"[CodaStampa]\r\nCodice=3000000000\r\n")
        self.touch("jobs/9.vqs", b"[Dimensione]\r\nCodice=2147483647\r\n")
        jobs = {job["id"]: job for job in json.loads(Page(self.orvane("report", "jobs", "-o", "-")).data)["jobs"]}
        self.assertEqual(("Overflow (6)", ""), (jobs["8"]["failure"], jobs["9"]["xml"]))

    def test_what_is_refused(self):
        self.assert_refused(RUN_TIME_ERROR, "Path not found (76): nowhere", "report", "nowhere", "-o", "page.html")
        self.assert_refused(RUN_TIME_ERROR, "Path/File access error (75): no/page.html", "report", "jobs", "-o",
                            "no/page.html")


class English(unittest.TestCase):
    """The English of the fixed texts that reach the page."""

    GROUPS = [range(8100, 8300), range(8500, 8600), range(8800, 8900), range(9300, 9500), range(11000, 11100)]

    def setUp(self):
        self.english = json.loads((ROOT / "cli/report/english.json").read_text(encoding="utf-8"))

    def fixed_texts(self):
        """Those of the states of all queues, of outcomes and of errors."""
        listed = texts.parse((ROOT / "codes/texts.txt").read_bytes())
        return {text for number, text in listed if any(number in group for group in self.GROUPS)}

    def date_names(self):
        sources = "".join(path.read_text(encoding="utf-8") for path in (ROOT / "queues").glob("*.h"))
        keys = set(re.findall(r'u"Data(\w+)"', sources))
        return {re.sub(r"\B[A-Z]", lambda letter: " " + letter[0].lower(), key) for key in keys}

    def test_every_fixed_text_has_its_english_and_no_other_is_kept(self):
        self.assertGreater(len(self.fixed_texts()), 35)
        self.assertGreater(len(self.date_names()), 14)
        self.assertEqual(self.fixed_texts() | self.date_names(), set(self.english))

    def test_no_english_is_the_italian(self):
        self.assertEqual([], [text for text, english in self.english.items() if english in ("", text)])


if __name__ == "__main__":
    unittest.main()
