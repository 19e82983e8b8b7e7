"""Looking at jobs never writes, whatever they hold, and needs no right to."""

import os
import unittest

from command_line import CommandLineTest

FAX = ("[Proprieta]\r\nId=2\r\n[Tipo]\r\nCodice=1\r\nDescrizione=Fax\r\n"
       "[Dimensione]\r\nCodice=1\r\nDescrizione=Lettera USA (21,6 x 27,9 cm)\r\n")
PUBLICATION = FAX.replace("Id=2", "Id=3")
LINKED = FAX.replace("Id=2", "Id=4")
LOOKS = [["show", "jobs/2.vqf"], ["show", "--all", "jobs/2.vqf"], ["show", "--json", "jobs/3.vqpb"], ["xml", "jobs/2.vqf"],
         ["xml", "--pretty", "jobs/3.vqpb"], ["get", "jobs/2.vqf", "Dimensione.Codice", "Trasmissione.Pagina.CodiceWidth"],
         ["diff", "jobs/2.vqf", "jobs/3.vqpb"], ["check", "jobs"], ["check", "jobs/2.vqf"], ["list", "jobs"],
         ["list", "--json", "jobs"], ["report", "jobs", "-o", "-"], ["export", "jobs", "--format", "csv"],
         ["export", "jobs", "--format", "jsonl"]]
NOBODY = 65534


class Looking(CommandLineTest):
    def setUp(self):
        super().setUp()
        link = f"[Collegati]\r\nNumeroCollegati=1\r\nPercorso0={self.folder}\\jobs\r\nNome0=4.ldf\r\n"
        # The form of the profile functions of older servers, and the stored one.
        self.touch("jobs/2.vqf", (FAX + link).encode("cp1252"))
        self.touch("jobs/3.vqpb", PUBLICATION.encode("utf-16"))
        self.touch("jobs/4.ldf", LINKED.encode("utf-16"))

    def state(self):
        files = sorted((self.folder / "jobs").iterdir())
        return [(path.name, path.read_bytes(), path.stat().st_mtime_ns, path.stat().st_ctime_ns, path.stat().st_ino)
                for path in files]

    def test_leaves_every_file_as_it_was(self):
        before = self.state()
        for look in LOOKS:
            with self.subTest(look=look):
                outcome = self.run_orvane(*look)
                self.assertIn(outcome.code, (0, 5), outcome.err)
                self.assertEqual(before, self.state())

    def test_shows_the_paper_size_that_loading_gives(self):
        self.assertEqual("vdd_A4", self.get("jobs/2.vqf", "Dimensione.Codice"))

    @unittest.skipUnless(os.geteuid() == 0, "another user needs root")
    def test_works_in_a_folder_that_may_only_be_read(self):
        self.folder.chmod(0o755)
        (self.folder / "jobs").chmod(0o555)
        for look in LOOKS:
            with self.subTest(look=look):
                outcome = self.run_orvane(*look, user=NOBODY)
                self.assertIn(outcome.code, (0, 5), outcome.err)
