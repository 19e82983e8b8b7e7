"""The commands that make and change jobs: new, set, duplicate, attach, link."""

import ctypes
import os
import sys
import unittest

from command_line import OK, CommandLineTest

# Kind, options, the job file's name, and the number in section Tipo.
KINDS = [
    ("stampa", [], "1.vqs", "2"),
    ("stampa", ["--linked"], "1.lvq", "2"),
    ("fax", [], "1.vqf", "1"),
    ("fax", ["--linked"], "1.ldf", "1"),
    ("pfax", [], "1.vqpf", "4"),
    ("pfax", ["--linked"], "1.ldf", "4"),
    ("email", [], "1.vqe", "3"),
    ("email", ["--linked"], "1.lde", "3"),
    ("pbl", ["--of", "fax"], "1.vqpb", "1"),
    ("pbl", ["--of", "stampa"], "1.vqpb", "2"),
    ("pbl", ["--of", "email"], "1.vqpb", "3"),
    ("pbl", ["--of", "pfax"], "1.vqpb", "4"),
    ("anteprima", ["--of", "fax"], "1.vqa", "1"),
    ("anteprima", ["--of", "STAMPA"], "1.vqa", "2"),
    ("Anteprima", ["--of", "email"], "1.vqa", "3"),
    ("anteprima", ["--of", "pfax"], "1.vqa", "4"),
]

# Kind, options, what is typed, where it lands and as what text.
VALUES = [
    ("stampa", [], "Stampante=Laser è €", "Stampa", "Stampante", "Laser è €"),
    ("stampa", [], "stampante=a=b", "Stampa", "Stampante", "a=b"),
    ("stampa", [], "Stampante=", "Stampa", "Stampante", ""),
    ("stampa", [], "COPIE=3", "Stampa", "Copie", "3"),
    ("stampa", [], "Copie=-4", "Stampa", "Copie", "1"),
    ("stampa", [], "Proprieta.Utente=Niccolò 😀", "Proprieta", "Utente", "Niccolò 😀"),
    ("stampa", [], "Proprieta.Data=2026-11-21", "Proprieta", "Data", "46347"),
    ("stampa", [], "Proprieta.Data=2026-11-21 12:00:00", "Proprieta", "Data", "46347.5"),
    ("stampa", [], "Proprieta.Data=2026-11-21T18:00", "Proprieta", "Data", "46347.75"),
    ("stampa", [], "Proprieta.Data=46347.25", "Proprieta", "Data", "46347.25"),
    ("stampa", [], "Proprieta.Collegato=si", "Proprieta", "Collegato", "-1"),
    ("stampa", [], "Proprieta.Collegato=TRUE", "Proprieta", "Collegato", "-1"),
    ("stampa", [], "LayoutPagina.AdattaAllaPagina=no", "LayoutPagina", "AdattaAllaPagina", "0"),
    ("stampa", [], "Dimensione.Codice=vdd_A4", "Dimensione", "Codice", "9"),
    ("stampa", [], "dimensione.codice=VDD_a4", "Dimensione", "Codice", "9"),
    ("stampa", [], "Dimensione.Codice=8", "Dimensione", "Codice", "8"),
    ("stampa", [], "Dimensione.Codice=99", "Dimensione", "Codice", "99"),
    ("stampa", [], "Proprieta.Errore.Codice=vdec_DocumentoVuoto", "Errore", "Codice", "2"),
    ("stampa", [], "Diretta.CatalogoDestinazione.CompressoOn(0)=27", "CatalogoDestinazione", "CompressoOn",
     "27;0;0;0;0;0;0;"),
    ("stampa", [], "Coda.Codice=vdcs_Stampato", "UltimaCoda", "Codice", "2"),
    ("fax", [], "Frontespizio.Nota(3)=Attenzione", "Frontespizio", "Nota_3", "Attenzione"),
    ("fax", [], "Trasmissione.Pagina.CodiceWidth=vdftpw_2048", "FaxTrasmissione_Pagina", "CodiceLarghezza",
     "3"),
    ("fax", [], "Trasmissione.Errore.Codice=-13", "FaxTrasmissione_Errore", "Codice", "-13"),
    ("email", [], "Messaggio.Nota(29)=ultima", "Messaggio", "Nota_29", "ultima"),
    ("email", [], "Account.Smtp.MailPort=25", "Smtp", "MailPort", "25"),
    ("pbl", ["--of", "stampa"], "Documento.Stampante=Laser", "Stampa", "Stampante", "Laser"),
    ("pbl", ["--of", "stampa"], "Pubblicazione.FilePbl.Nome=a.pdf", "Pubblicazione", "PblNome", "a.pdf"),
    ("pbl", ["--of", "email"], "Allegati.FilePdf.Nome=b.pdf", "Allegati", "PdfNome", "b.pdf"),
    ("anteprima", ["--of", "fax"], "Coda.Codice=vdca_InGenerazione", "CodaAnteprima", "Codice", "1"),
]


class New(CommandLineTest):
    def test_every_kind_gets_its_extension_and_type(self):
        for number, (kind, options, name, code) in enumerate(KINDS):
            with self.subTest(kind=kind, options=options):
                folder = f"jobs/{number}"
                (self.folder / folder).mkdir()
                self.assertEqual(f"{folder}/{name}\n", self.orvane("new", kind, "1", folder, *options))
                file = self.job_file(f"{folder}/{name}")
                self.assertEqual(("1", code), (file["Proprieta"]["Id"], file["Tipo"]["Codice"]))

    def test_assignments_land_in_the_job_file(self):
        for number, (kind, options, assignment, section, key, text) in enumerate(VALUES):
            with self.subTest(assignment=assignment):
                name = self.orvane("new", kind, str(number), "jobs", *options, assignment).strip()
                self.assertEqual(text, self.job_file(name)[section][key])

    def test_folder_may_be_written_with_backslashes_or_a_separator_at_its_end(self):
        (self.folder / "jobs" / "deep").mkdir()
        self.assertEqual("jobs/deep/1.vqs\n", self.orvane("new", "stampa", "1", "jobs\\deep"))
        self.orvane("new", "stampa", "2", "jobs/")
        self.assertEqual("2", self.get("jobs\\2.vqs", "Proprieta.Id"))

    def test_id_may_hold_any_letters(self):
        name = self.orvane("new", "stampa", "ordine è 😀", "jobs").strip()
        self.assertEqual("ordine è 😀", self.get(name, "Proprieta.Id"))

    def test_id_may_be_the_name_of_a_command(self):
        self.assertEqual("jobs/show.vqs\n", self.orvane("new", "stampa", "show", "jobs"))

    def test_force_keeps_what_the_file_holds(self):
        self.orvane("new", "stampa", "1", "jobs", "Stampante=Laser")
        self.orvane("new", "stampa", "1", "jobs", "--force", "Numero=5")
        self.assertEqual({"Stampante": "Laser", "Numero": "5"}, self.job_file("jobs/1.vqs")["Stampa"])

    def test_nothing_is_made_where_an_assignment_is_not_understood(self):
        self.run_orvane("new", "stampa", "1", "jobs", "Stampante=Laser", "Copie=due")
        self.assertEqual([], list((self.folder / "jobs").iterdir()))


class Set(CommandLineTest):
    def setUp(self):
        super().setUp()
        self.job = self.orvane("new", "stampa", "1", "jobs", "Stampante=Laser").strip()

    def test_changes_what_is_named_and_nothing_else(self):
        self.orvane("set", self.job, "Copie=2", "Numero=7")
        self.assertEqual({"Stampante": "Laser", "Copie": "2", "Numero": "7"}, self.job_file(self.job)["Stampa"])

    @unittest.skipUnless(sys.platform == "linux", "counts by what Linux tells")
    def test_changes_all_in_one_write(self):
        system = ctypes.CDLL(None, use_errno=True)
        events = system.inotify_init1(os.O_NONBLOCK)
        self.addCleanup(os.close, events)
        moved_from, moved_to = 0x40, 0x80  # both, since the same event twice in a row is told once
        jobs = os.fsencode(self.folder / "jobs")
        self.assertGreater(system.inotify_add_watch(events, jobs, moved_from | moved_to), 0)
        self.orvane("set", "jobs/1.vqs", "Copie=7", "Stampante=Aghi", "Coda.Codice=vdcs_InStampa", "Proprieta.Sigla=FAT")
        self.assertEqual(1, os.read(events, 4096).count(b"1.vqs"))

    def test_changes_nothing_where_one_assignment_is_not_understood(self):
        before = (self.folder / self.job).read_bytes()
        self.run_orvane("set", self.job, "Copie=2", "Numero=sette")
        self.run_orvane("set", self.job, "Copie=2", "Nummero=7")
        self.assertEqual(before, (self.folder / self.job).read_bytes())

    def test_now_is_the_present_time(self):
        self.orvane("set", self.job, "Proprieta.Data=now")
        self.assertRegex(self.get(self.job, "Proprieta.Data"), r"^20\d\d-\d\d-\d\d( \d\d:\d\d:\d\d)?$")

    def test_entering_a_state_stamps_its_date(self):
        self.orvane("set", self.job, "Coda.Codice=vdcs_InStampa")
        self.assertIn("DataInStampa", self.job_file(self.job)["CodaStampa"])
        self.assertEqual("vdcs_InStampa", self.get(self.job, "Coda.UltimaCodaCodice"))

    def test_remarks_on_a_value_that_the_job_does_not_keep(self):
        outcome = self.run_orvane("set", self.job, "StampanteOrigine=A", "StampanteAlternativa=B")
        self.assertEqual((OK, "", "orvane: note: StampanteAlternativa is not kept as it was set; the job loads with "
                                  '"A"\n'), outcome)
        fax = self.orvane("new", "fax", "2", "jobs").strip()
        outcome = self.run_orvane("set", fax, "FileTif.Nome=a.tif")
        self.assertEqual((OK, "", "orvane: note: FileTif.Nome is not kept as it was set; the job loads with no "
                                  "value\n"), outcome)

    def test_pages_are_changed_in_their_header_files(self):
        self.touch("pages/p1.dpg", b"")
        self.orvane("set", self.job, "--pages", "pages", "Pagine.Item(1).RighePagina=66",
                    "Pagine.Item(1).Lingua.Codice=vdl_Inglese", "Pagine.Item(1).Validita=vdpv_Fax+vdpv_Stampa")
        page = self.job_file("pages/p1.dpg")
        self.assertEqual(("66", "1", "3"),
                         (page["Proprieta"]["RighePagina"], page["Lingua"]["Codice"], page["Validita"]["Codice"]))


class Duplicate(CommandLineTest):
    def setUp(self):
        super().setUp()
        self.job = self.orvane("new", "stampa", "1", "jobs", "Stampante=Laser", "Pinzatura.Codice=1").strip()

    def test_copies_the_job_beside_it(self):
        self.assertEqual("jobs/2.vqs\n", self.orvane("duplicate", self.job, "2"))
        self.assertEqual("Laser", self.get("jobs/2.vqs", "Stampante"))
        self.assertEqual("vdpnz_Nessuna", self.get("jobs/2.vqs", "Pinzatura.Codice"))

    def test_copies_into_another_folder(self):
        (self.folder / "archive").mkdir()
        self.assertEqual("archive/2.vqs\n", self.orvane("duplicate", self.job, "2", "archive"))
        self.assertEqual("2", self.get("archive/2.vqs", "Proprieta.Id"))

    def test_a_linked_job_stays_one(self):
        linked = self.orvane("new", "stampa", "7", "jobs", "--linked").strip()
        self.assertEqual("jobs/8.lvq\n", self.orvane("duplicate", linked, "8"))

    def test_body_and_linked_jobs_are_copied_too(self):
        self.touch("jobs/Corpi/1.bvq", b"testo")
        self.orvane("new", "stampa", "7", "jobs", "--linked", "Stampante=Aghi")
        self.orvane("link", self.job, "jobs/7.lvq")
        self.orvane("duplicate", self.job, "2")
        self.assertEqual(b"testo", (self.folder / "jobs/Corpi/2.bvq").read_bytes())
        self.assertEqual("Aghi", self.get("jobs/2.vqs", "Collegati.Item(0).Stampante"))
        self.assertEqual("2_7", self.get("jobs/2_7.lvq", "Proprieta.Id"))


class Attach(CommandLineTest):
    def test_every_kind_with_attachments_takes_files(self):
        self.touch("offerta è.pdf")
        for kind, options in [("fax", []), ("email", []), ("pbl", ["--of", "stampa"])]:
            with self.subTest(kind=kind):
                job = self.orvane("new", kind, kind, "jobs", *options).strip()
                self.assertEqual("", self.orvane("attach", job, "offerta è.pdf"))
                listed = self.job_file(job)["Allegati"]
                self.assertEqual(("1", str(self.folder), "offerta è.pdf"),
                                 (listed["NumeroAllegati"], listed["Percorso0"], listed["Nome0"]))

    def test_later_files_come_after_earlier_ones(self):
        job = self.orvane("new", "fax", "1", "jobs").strip()
        for name in "abc":
            self.touch(name)
        self.orvane("attach", job, "a", "b")
        self.orvane("attach", job, "c")
        self.assertEqual(["a", "b", "c"], [self.get(job, f"Allegati.Item({i}).Nome") for i in range(3)])

    def test_missing_files_can_be_attached_by_their_windows_path(self):
        job = self.orvane("new", "fax", "1", "jobs").strip()
        self.orvane("attach", job, "--missing", "C:\\Offerte\\a.pdf")
        self.assertEqual("C:\\Offerte\\a.pdf", self.get(job, "Allegati.Item(0).File"))

    def test_nothing_is_attached_where_one_file_is_missing(self):
        job = self.orvane("new", "fax", "1", "jobs").strip()
        self.touch("a")
        self.run_orvane("attach", job, "a", "b")
        self.assertEqual("0", self.get(job, "Allegati.Count"))


class Link(CommandLineTest):
    def test_every_kind_links_its_own(self):
        for kind, other, name in [("stampa", "stampa", "7.lvq"), ("fax", "fax", "7.ldf"), ("email", "email", "7.lde"),
                                  ("pfax", "fax", "7.ldf")]:
            with self.subTest(kind=kind):
                (self.folder / kind).mkdir()
                job = self.orvane("new", kind, "1", kind).strip()
                self.orvane("new", other, "7", kind, "--linked")
                self.assertEqual("", self.orvane("link", job, f"{kind}/{name}"))
                listed = self.job_file(job)["Collegati"]
                self.assertEqual(("1", str(self.folder / kind), name),
                                 (listed["NumeroCollegati"], listed["Percorso0"], listed["Nome0"]))
                self.assertEqual("7", self.get(job, "Collegati.Item(0).Proprieta.Id"))

    def test_a_publication_links_to_its_inner_document(self):
        job = self.orvane("new", "pbl", "1", "jobs", "--of", "fax").strip()
        self.orvane("new", "fax", "7", "jobs", "--linked")
        self.orvane("link", job, "jobs/7.ldf")
        self.assertEqual("1", self.get(job, "Documento.Collegati.Count"))

    def test_members_of_a_linked_job_are_changed_in_its_own_file(self):
        self.orvane("new", "stampa", "1", "jobs")
        self.orvane("new", "stampa", "7", "jobs", "--linked")
        self.orvane("link", "jobs/1.vqs", "jobs/7.lvq")
        self.orvane("set", "jobs/1.vqs", "Collegati.Item(0).Stampante=Aghi")
        self.assertEqual("Aghi", self.job_file("jobs/7.lvq")["Stampa"]["Stampante"])


if __name__ == "__main__":
    unittest.main()
