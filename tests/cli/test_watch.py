"""The command that follows a folder: watch."""

import os
import subprocess
import unittest

from command_line import RUN_TIME_ERROR, CommandLineTest


class Watch(CommandLineTest):
    def setUp(self):
        super().setUp()
        self.orvane("new", "stampa", "1", "jobs", "Stampante=Laser")
        self.orvane("new", "fax", "2", "jobs", "NumeroFax.Numero=123")

    def start(self, *options):
        """Runs watch up to its first changes; returns the program and the lines that it has begun with."""
        program = subprocess.Popen([os.environ["ORVANE"], "watch", "jobs", "--seconds", "600", *options],
                                   cwd=self.folder, stdout=subprocess.PIPE)
        self.addCleanup(program.stdout.close)
        self.addCleanup(program.kill)
        return program

    @staticmethod
    def lines(program, count):
        return [program.stdout.readline().decode("utf-8").rstrip("\n") for _ in range(count)]

    def test_begins_with_the_jobs_and_ends_in_time(self):
        lines = self.orvane("watch", "jobs", "--seconds", "1").splitlines()
        self.assertEqual(["  KIND", "  stam", "  fax "], [line[:6] for line in lines])

    def test_new_changed_and_gone_jobs_are_marked(self):
        for options in [[], ["--poll"]]:
            with self.subTest(options=options):
                program = self.start("--count", "3", *options)
                self.lines(program, 3)
                self.orvane("set", "jobs/1.vqs", "Coda.Codice=vdcs_InStampa")
                self.assertRegex(self.lines(program, 1)[0], r"^\* stampa +1 +In stampa ")
                os.rename(self.folder / "jobs" / "2.vqf", self.folder / "2.vqf")
                self.assertRegex(self.lines(program, 1)[0], r"^- fax +2 +.* 123 ")
                os.rename(self.folder / "2.vqf", self.folder / "jobs" / "2.vqf")
                self.assertRegex(self.lines(program, 1)[0], r"^\+ fax +2 +.* 123 ")
                self.assertEqual(0, program.wait(600))
                self.orvane("set", "jobs/1.vqs", "Coda.Codice=vdcs_DaStampare")

    def test_what_a_list_does_not_show_is_no_change(self):
        program = self.start("--count", "1")
        self.lines(program, 3)
        self.touch("jobs/notes.txt")
        self.orvane("set", "jobs/1.vqs", "Copie=7")
        self.orvane("set", "jobs/1.vqs", "Stampante=Aghi")
        self.assertRegex(self.lines(program, 1)[0], r"^\* stampa +1 +.* Aghi ")
        self.assertEqual(0, program.wait(600))

    def test_a_job_that_is_being_composed_is_shown_when_it_rests(self):
        program = self.start("--count", "1")
        self.lines(program, 3)
        content = (self.folder / "jobs/1.vqs").read_bytes()
        stages = []
        for printer in ["A", "B", "C", "D", "Aghi"]:
            stages.append(self.folder / printer)
            stages[-1].write_bytes(content.replace("Laser".encode("utf-16-le"), printer.encode("utf-16-le")))
        for stage in stages:
            os.replace(stage, self.folder / "jobs/3.vqs")
        self.assertRegex(self.lines(program, 1)[0], r"^\+ stampa +1 +.* Aghi ")
        self.assertEqual(0, program.wait(600))

    def test_a_job_that_leaves_the_filter_is_shown_once_more(self):
        program = self.start("--count", "2", "--state", "waiting", "--kind", "stampa")
        self.lines(program, 2)
        self.orvane("set", "jobs/2.vqf", "Coda.Codice=1")
        self.orvane("set", "jobs/1.vqs", "Coda.Codice=vdcs_InStampa")
        self.assertRegex(self.lines(program, 1)[0], r"^\* stampa +1 +In stampa ")
        self.orvane("set", "jobs/1.vqs", "Coda.Codice=vdcs_Stampato")
        self.orvane("set", "jobs/1.vqs", "Coda.Codice=vdcs_DaStampare")
        self.assertRegex(self.lines(program, 1)[0], r"^\* stampa +1 +In attesa di stampa ")
        self.assertEqual(0, program.wait(600))

    def test_a_missing_folder_is_refused(self):
        for options in [[], ["--poll"]]:
            with self.subTest(options=options):
                self.assert_refused(RUN_TIME_ERROR, "Path not found (76): nowhere", "watch", "nowhere", *options)


if __name__ == "__main__":
    unittest.main()
