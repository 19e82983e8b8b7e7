"""The page of the command report, in a browser where there is one."""

import html.parser
import json
import re
import shutil
import subprocess
import unittest

from command_line import RUN_TIME_ERROR, CommandLineTest

BROWSER = shutil.which("chromium") or shutil.which("google-chrome")
EVIL = "<script>alert(1)</script><img src=x onerror=alert(2)> & \" ' è </pre>"

# Uses the page as a reader would, and leaves what it saw in the title.
USE = """<script>
const ids = () => [...document.querySelectorAll("#table tbody tr")].map((row) => row.cells[1].textContent);
const seen = { language: document.documentElement.lang, all: ids() };
document.querySelector("[data-language=it]").click();
seen.italian = document.querySelector("h1").textContent;
document.querySelector("[data-sort=id]").click();
seen.up = ids();
document.querySelector("[data-sort=id]").click();
seen.down = ids();
const search = document.getElementById("search");
search.value = "RESPINTO carta";
search.dispatchEvent(new Event("input"));
seen.found = ids();
document.querySelector("#table tbody tr").click();
const detail = document.getElementById("detail");
seen.open = detail.open;
seen.detail = detail.textContent;
seen.timeline = detail.querySelectorAll("li").length;
seen.scripts = document.scripts.length;
seen.images = document.images.length;
seen.errors = document.getElementById("errors").textContent;
document.title = JSON.stringify(seen);
</script></body>"""


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

    @unittest.skipUnless(BROWSER, "no browser")
    def test_a_reader_can_search_sort_and_open(self):
        self.touch("used.html", self.text.replace("</body>", USE).encode())
        shown = subprocess.run([BROWSER, "--headless", "--no-sandbox", "--disable-gpu", "--lang=en",
                                f"--user-data-dir={self.folder}/browser", "--dump-dom", "--virtual-time-budget=2000",
                                f"file://{self.folder}/used.html"], capture_output=True, timeout=120, check=True)
        title = re.search(r"<title>(.*?)</title>", shown.stdout.decode("utf-8"), re.DOTALL)
        seen = json.loads(html.unescape(title.group(1)))
        self.assertEqual(("en", ["2", "10", "1"], "Documenti in coda"), (seen["language"], seen["all"], seen["italian"]))
        self.assertEqual((["1", "2", "10"], ["10", "2", "1"], ["2"]), (seen["up"], seen["down"], seen["found"]))
        self.assertEqual((True, 1, 3, 0), (seen["open"], seen["timeline"], seen["scripts"], seen["images"]))
        self.assertIn("<Oggetto>&lt;script&gt;alert(1)", seen["detail"])
        self.assertIn("Carta finita", seen["errors"])


if __name__ == "__main__":
    unittest.main()
