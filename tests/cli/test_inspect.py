"""The commands that compare and check: diff, check, show --json."""

import json
import os
import unittest

from command_line import OK, CommandLineTest

FOUND = 5


class Check(CommandLineTest):
    def setUp(self):
        super().setUp()
        self.job = self.orvane("new", "stampa", "1", "jobs").strip()
        self.touch("jobs/Corpi/1.bvq")

    def assert_found(self, findings, *paths):
        outcome = self.run_orvane("check", *paths)
        expected = "".join(finding + "\n" for finding in findings)
        self.assertEqual((FOUND if findings else OK, expected, ""), outcome)

    def test_a_whole_job_has_no_findings(self):
        self.assert_found([], "jobs")
        self.assert_found([], self.job)

    def test_a_job_without_body_is_found_where_it_needs_one(self):
        self.orvane("new", "fax", "2", "jobs")
        self.orvane("new", "stampa", "3", "jobs", "--linked")
        self.orvane("new", "pbl", "4", "jobs", "--of", "fax")
        self.assert_found(["jobs/2.vqf: no body file Corpi\\2.bvq"], "jobs")

    def test_codes_without_a_text_are_found(self):
        self.orvane("set", self.job, "Dimensione.Codice=999", "Proprieta.Lingua.Codice=77")
        self.assert_found(["jobs/1.vqs: Proprieta.Lingua.Codice is 77, a code without a text",
                           "jobs/1.vqs: Dimensione.Codice is 999, a code without a text"], self.job)

    def test_files_that_cannot_be_read_are_found(self):
        self.touch("jobs/9.vqs", b"[Stampa]\r\nCopie=3000000000\r\n")
        self.assert_found(["Overflow (6): jobs/9.vqs", "File not found (53): jobs/8.vqs"], "jobs", "jobs/8.vqs")

    def test_missing_attachments_and_linked_jobs_are_found(self):
        fax = self.orvane("new", "fax", "2", "jobs").strip()
        self.touch("jobs/Corpi/2.bvq")
        self.touch("here.pdf")
        self.orvane("attach", fax, "here.pdf")
        self.orvane("attach", fax, "--missing", "C:\\a.pdf")
        linked = self.orvane("new", "fax", "7", "jobs", "--linked").strip()
        self.orvane("link", fax, linked)
        self.assert_found(["jobs/2.vqf: attachment C:\\a.pdf is missing"], "jobs")
        os.remove(self.folder / linked)
        self.assert_found(["jobs/2.vqf: attachment C:\\a.pdf is missing",
                           f"jobs/2.vqf: linked job {self.folder}/jobs\\7.ldf is missing"], "jobs")

    def test_pages_without_their_files_are_found(self):
        self.touch(self.job, b"[Proprieta]\r\nId=1\r\n[Stato]\r\nPagineScomposte=3\r\n")
        for name in ["p1.dpg", "p1.txt", "p2.dpg"]:
            self.touch(f"jobs/1/{name}", b"")
        self.assert_found(["jobs/1.vqs: page p2.dpg has no file .vvq, .bmp or .txt beside it",
                           "jobs/1.vqs: 3 pages are composed, 2 are there"], "jobs")

    def test_stale_temporaries_are_found_and_fresh_ones_are_not(self):
        self.touch("jobs/.orvane-00000001.tmp")
        old = self.touch("jobs/.orvane-00000002.tmp")
        os.utime(old, (os.stat(old).st_mtime - 3600,) * 2)
        outcome = self.run_orvane("check", "jobs")
        self.assertEqual(FOUND, outcome.code)
        self.assertRegex(outcome.out, r"^jobs/\.orvane-00000002\.tmp: a temporary 36\d\d seconds old: left by a killed writer, "
                                      r"or kept by one that flushes every write\n$")

    def test_checking_changes_nothing(self):
        def stamps():
            return {file.name: file.stat().st_mtime_ns for file in (self.folder / "jobs").iterdir()}
        before = stamps()
        self.orvane("check", "jobs")
        self.assertEqual(before, stamps())


class Diff(CommandLineTest):
    def setUp(self):
        super().setUp()
        self.orvane("new", "stampa", "1", "jobs", "Stampante=Laser", "Dimensione.Codice=vdd_A4")
        self.orvane("new", "stampa", "2", "jobs", "Stampante=Laser", "Dimensione.Codice=vdd_A4")

    def test_jobs_that_differ_in_their_identity_are_equal(self):
        self.assertEqual("", self.orvane("diff", "jobs/1.vqs", "jobs/2.vqs"))

    def test_each_member_that_differs_is_shown_twice(self):
        self.orvane("set", "jobs/2.vqs", "Copie=2", "Dimensione.Codice=vdd_A3", "Stampante=a\x1b\r\nb")
        outcome = self.run_orvane("diff", "jobs/1.vqs", "jobs/2.vqs")
        self.assertEqual((FOUND, "-Copie=1\n+Copie=2\n-Stampante=Laser\n+Stampante=a\\x1B\\r\\nb\n",
                          ""), (outcome.code, "".join(sorted_by_path(outcome.out)[:4]), outcome.err))
        self.assertRegex(outcome.out, r"-Dimensione\.Codice=vdd_A4 \(9\)  A4 .*\n\+Dimensione\.Codice=vdd_A3 \(8\)")

    def test_members_that_only_one_kind_has_stand_alone(self):
        self.orvane("new", "fax", "3", "jobs", "NumeroFax.Numero=123")
        outcome = self.run_orvane("diff", "jobs/1.vqs", "jobs/3.vqf")
        self.assertEqual(FOUND, outcome.code)
        self.assertTrue(outcome.out.startswith("-Kind=stampa\n+Kind=fax\n"))
        self.assertIn("\n-Stampante=Laser\n", outcome.out)
        self.assertIn("\n+NumeroFax.Numero=123\n", outcome.out)


def sorted_by_path(text):
    """The lines whose path has no point, by path, the first job's before the second's."""
    lines = [line for line in text.splitlines(keepends=True) if "." not in line.split("=")[0]]
    return sorted(lines, key=lambda line: (line[1:].split("=")[0], line[0] == "+"))


class ShowJson(CommandLineTest):
    def test_members_have_their_text_and_raw_value(self):
        job = self.orvane("new", "stampa", "1", "jobs", "Stampante=<\"è\x1b", "Proprieta.Collegato=si",
                          "Proprieta.Data=2026-11-21").strip()
        shown = json.loads(self.orvane("show", job, "--json"))
        self.assertEqual(("stampa", "1", f"{self.folder}/jobs/1.vqs"), (shown["kind"], shown["id"], shown["file"]))
        members = {member["path"]: member for member in shown["members"]}
        self.assertEqual({"path": "Stampante", "text": "<\"è\x1b"}, members["Stampante"])
        self.assertEqual(("true", "-1"), tuple(members["Proprieta.Collegato"][key] for key in ["text", "raw"]))
        self.assertEqual(("2026-11-21", "46347"), tuple(members["Proprieta.Data"][key] for key in ["text", "raw"]))


if __name__ == "__main__":
    unittest.main()
