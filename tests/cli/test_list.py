"""The commands for a whole folder: list, export."""

import csv
import fcntl
import io
import json
import os
import pty
import re
import struct
import subprocess
import termios
import unittest

from command_line import RUN_TIME_ERROR, USAGE, CommandLineTest

ESCAPES = re.compile(r"\x1b\[[0-9;]*m")


class FolderTest(CommandLineTest):
    def setUp(self):
        super().setUp()
        self.orvane("new", "stampa", "1", "jobs", "Stampante=Laser", "Coda.DataInserimento=2000-01-01")
        self.orvane("new", "stampa", "10", "jobs", "StampanteOrigine=Aghi", "Coda.Codice=vdcs_InStampa")
        self.orvane("new", "stampa", "2", "jobs", "--linked", "Coda.Codice=vdcs_Stampato", "Proprieta.Esito.Codice=1")
        self.orvane("new", "fax", "3", "jobs", "NumeroFax.PrefissoLocale=06", "NumeroFax.Numero=12345",
                    "Coda.Codice=vdcf_Respinto", "Proprieta.Errore.Descrizione=Carta finita")
        self.orvane("new", "email", "4", "jobs", "A.IndirizziEmail=a@b.it", "Cc.IndirizziEmail=c@d.it")
        self.orvane("new", "pbl", "5", "jobs", "--of", "email", "Documento.A.IndirizziEmail=e@f.it")
        self.touch("jobs/readme.txt")
        (self.folder / "jobs" / "folder.vqs").mkdir()

    def json_list(self, *options):
        return json.loads(self.orvane("list", "jobs", "--json", *options))

    def ids(self, *options):
        return [job["id"] for job in self.json_list(*options)]


class List(FolderTest):
    def test_each_job_is_a_line_under_its_titles(self):
        lines = [re.split(r"  +", line) for line in self.orvane("list", "jobs").splitlines()]
        self.assertEqual(["KIND", "ID", "STATE", "AGE", "OUTCOME", "TO", "ERROR"], lines[0])
        self.assertEqual(["fax", "3", "Respinto", "0s", "Da elaborare", "06-12345", "Carta finita"],
                         [re.sub(r"^\d+s$", "0s", cell) for cell in lines[1]])
        self.assertEqual(["stampa", "1", "In attesa di stampa"], lines[2][:3])
        self.assertRegex(lines[2][3], r"^\d{4,}d$")
        self.assertEqual(["Da elaborare", "Laser", "-"], lines[2][4:])
        self.assertEqual(["fax", "stampa", "stampa+", "stampa", "email", "pbl/email"], [line[0] for line in lines[1:]])

    def test_columns_begin_below_each_other(self):
        lines = self.orvane("list", "jobs").splitlines()
        column = lines[0].index("STATE")
        self.assertEqual([" "] * len(lines), [line[column - 1] for line in lines])
        self.assertNotIn(" ", [line[column] for line in lines])

    def test_json_tells_what_the_job_files_hold(self):
        jobs = {job["id"]: job for job in self.json_list()}
        self.assertEqual(("a@b.it; c@d.it", "e@f.it", "email"), (jobs["4"]["to"], jobs["5"]["to"], jobs["5"]["of"]))
        self.assertEqual(("vdcf_Respinto", 9, "rejected", -1, True), tuple(
            jobs["3"][key] for key in ["stateName", "state", "phase", "error", "failed"]))
        self.assertEqual(("2000-01-01T00:00:00", "Aghi", True), (jobs["1"]["created"], jobs["10"]["to"],
                                                                jobs["2"]["linked"]))
        self.assertEqual(["DataInStampa"], list(jobs["10"]["dates"]))
        self.assertIsNone(jobs["4"]["created"])

    def test_filters(self):
        for options, ids in [(["--errors"], ["3"]), (["--kind", "stampa"], ["1", "2", "10"]),
                             (["--kind", "fax", "--kind", "EMAIL"], ["3", "4"]), (["--state", "working"], ["10"]),
                             (["--state", "vdcs_Stampato"], ["2"]), (["--state", "in stampa"], ["10"]),
                             (["--state", "done", "--state", "rejected"], ["3", "2"]),
                             (["--kind", "fax", "--state", "working"], [])]:
            with self.subTest(options=options):
                self.assertEqual(ids, self.ids(*options))

    def test_errors_come_first_and_then_the_order_that_is_asked_for(self):
        self.assertEqual(["3", "1", "2", "10", "4", "5"], self.ids())
        self.assertEqual(["3", "1", "2", "4", "5", "10"], self.ids("--sort", "id"))
        self.assertEqual(["3", "1"], self.ids("--sort", "age")[:2])
        self.assertEqual(["3", "1", "4", "5", "10", "2"], self.ids("--sort", "state"))

    def test_unsorted_lists_the_same_jobs(self):
        self.assertEqual(sorted(self.ids()), sorted(self.ids("--unsorted")))
        self.assertEqual(7, len(self.orvane("list", "jobs", "--unsorted").splitlines()))

    def test_a_file_that_cannot_be_read_is_listed_as_an_error(self):
        self.touch("jobs/9.vqs", b"[CodaStampa]\r\nCodice=3000000000\r\n")
        self.assertRegex(self.orvane("list", "jobs", "--errors"), r"stampa  9 +unreadable +- +- +- +Overflow \(6\)\n")
        self.assertEqual({"kind": "stampa", "linked": False, "id": "9", "file": "9.vqs", "phase": "unknown",
                          "failed": True, "failure": "Overflow (6)"}, self.json_list("--sort", "id")[1])

    def test_an_empty_folder_is_no_error(self):
        (self.folder / "empty").mkdir()
        self.assertEqual([], json.loads(self.orvane("list", "empty", "--json")))
        self.assertEqual(1, len(self.orvane("list", "empty").splitlines()))

    def test_what_is_refused(self):
        self.assert_refused(RUN_TIME_ERROR, "Path not found (76): nowhere", "list", "nowhere")
        for options, message in [
                (["--kind", "stampe"], '"stampe" is none of the kinds stampa, fax, pfax, email, pbl, anteprima; did you '
                                     'mean stampa?'),
                (["--state", "rejectd"], '"rejectd" is no state; there are waiting, working, done, rejected, '
                                         'withdrawn, unknown, and the names and texts of orvane codes; did you mean '
                                         'rejected?'),
                (["--sort", "size"], '"size" is none of the orders kind, id, state, age, to')]:
            with self.subTest(options=options):
                self.assert_refused(USAGE, message, "list", "jobs", *options)

    def test_control_characters_do_nothing_to_the_terminal(self):
        self.orvane("set", "jobs/1.vqs", "Stampante=a\x1b[31m\r\n\tb")
        self.assertIn("a\\x1B[31m\\r\\n\\tb", self.orvane("list", "jobs"))

    def test_listing_changes_nothing(self):
        before = {file.name: file.stat().st_mtime_ns for file in (self.folder / "jobs").iterdir()}
        self.orvane("list", "jobs")
        self.assertEqual(before, {file.name: file.stat().st_mtime_ns for file in (self.folder / "jobs").iterdir()})


class Terminal(FolderTest):
    def shown(self, columns, **environment):
        """What a terminal of that many columns is sent."""
        master, slave = pty.openpty()
        fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        program = subprocess.Popen([os.environ["ORVANE"], "list", "jobs"], cwd=self.folder, stdout=slave,
                                   env={**os.environ, **environment})
        os.close(slave)
        text = b""
        try:
            while part := os.read(master, 65536):
                text += part
        except OSError:  # the other end is closed
            pass
        os.close(master)
        self.assertEqual(0, program.wait(60))
        return text.decode("utf-8").splitlines()

    def test_lines_fit(self):
        self.orvane("set", "jobs/1.vqs", "Stampante=" + "è日" * 50)
        for columns in [60, 80, 132]:
            with self.subTest(columns=columns):
                lines = [ESCAPES.sub("", line) for line in self.shown(columns)]
                self.assertEqual(7, len(lines))
                widths = [sum(2 if letter == "日" else 1 for letter in line) for line in lines]
                self.assertLessEqual(max(widths), columns)
                self.assertIn("…", "".join(lines))

    def test_colour_tells_errors_and_can_be_refused(self):
        self.assertIn("\x1b[31mfax", self.shown(80)[1])
        self.assertNotIn("\x1b", "".join(self.shown(80, NO_COLOR="1")))
        self.assertNotIn("\x1b", self.orvane("list", "jobs"))


class Export(FolderTest):
    def test_csv_can_be_read_back(self):
        self.orvane("set", "jobs/1.vqs", 'Proprieta.Descrizione=a,"b"\r\nè')
        rows = {row["id"]: row for row in csv.DictReader(io.StringIO(self.orvane("export", "jobs"), newline=""))}
        self.assertEqual(6, len(rows))
        self.assertEqual(('a,"b"\r\nè', "2000-01-01", "true"),
                         (rows["1"]["description"], rows["1"]["created"], rows["3"]["failed"]))

    def test_json_lines_are_those_of_list(self):
        lines = self.orvane("export", "jobs", "--format", "jsonl").splitlines()
        by_id = lambda job: job["id"]
        self.assertEqual(sorted(self.json_list(), key=by_id), sorted(map(json.loads, lines), key=by_id))

    def test_another_format_is_refused(self):
        self.assert_refused(USAGE, "--format is csv or jsonl, not xml", "export", "jobs", "--format", "xml")


if __name__ == "__main__":
    unittest.main()
