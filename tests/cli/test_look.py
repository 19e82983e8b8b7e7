"""The commands that look: get, show, xml, codes, and the help."""

import os
import pathlib
import re
import unittest
import xml.etree.ElementTree

from command_line import CommandLineTest

COMMANDS = ["new", "set", "get", "show", "xml", "codes", "duplicate", "attach", "link", "list",
            "watch", "export", "diff", "check", "report"]


class Get(CommandLineTest):
    def setUp(self):
        super().setUp()
        self.job = self.orvane("new", "stampa", "1", "jobs", "Stampante=Laser à", "Copie=2",
                               "Dimensione.Codice=vdd_A4", "Proprieta.Data=2026-11-21 14:30:00",
                               "Proprieta.Collegato=si").strip()

    def test_one_path_prints_its_value(self):
        for path, readable, raw in [
                ("Stampante", "Laser à", "Laser à"),
                ("copie", "2", "2"),
                ("Dimensione.Codice", "vdd_A4", "9"),
                ("DIMENSIONE.descrizione", "A4 (21 x 29,7 cm)", "A4 (21 x 29,7 cm)"),
                ("Proprieta.Data", "2026-11-21 14:30:00", "46347.604166666664"),
                ("Proprieta.DataOriginale", "", "0"),
                ("Proprieta.Collegato", "true", "-1"),
                ("Inizializzato", "true", "-1"),
                ("Collegati.Count", "0", "0"),
                ("Collegati.Exists(0)", "false", "0"),
                ("Diretta.CatalogoDestinazione.StrAscCompressoOn", "000;000;000;000;000;000;000;",
                 "000;000;000;000;000;000;000;"),
                ("Proprieta.Errore.Descrizione", "Nessuno", "Nessuno"),
        ]:
            with self.subTest(path=path):
                self.assertEqual(readable + "\n", self.orvane("get", self.job, path))
                self.assertEqual(raw + "\n", self.orvane("get", "--raw", self.job, path))

    def test_several_paths_print_each_with_its_value(self):
        self.assertEqual("Copie=2\nstampante=Laser à\n", self.orvane("get", self.job, "Copie", "stampante"))

    def test_an_object_prints_its_members(self):
        self.assertEqual("AdattaAllaPagina        true\n"
                         "Ingrandibile            false\n"
                         "PosizionePagina.Codice  vdpp_AngoloSuperioreSinitro (0)  Angolo superiore sinistro\n",
                         self.orvane("get", self.job, "LayoutPagina"))

    def test_an_unknown_code_reads_as_its_number(self):
        self.orvane("set", self.job, "Dimensione.Codice=99")
        self.assertEqual("99", self.get(self.job, "Dimensione.Codice"))

    def test_keys_with_points_and_parentheses_stand_between_quotes(self):
        fax = self.orvane("new", "fax", "2", "jobs").strip()
        self.orvane("attach", fax, "--missing", "/a/b (1).pdf")
        self.assertEqual("true", self.get(fax, 'Allegati.Exists("/a\\b (1).pdf")'))

    def test_kind_is_known_from_section_tipo_where_the_name_does_not_tell(self):
        for kind, file_name in [("pfax", "3.ldf"), ("fax", "4.ldf")]:
            with self.subTest(kind=kind):
                self.orvane("new", kind, file_name[0], "jobs", "--linked")
                self.assertIn(f"Kind     {kind}\n", self.orvane("show", "jobs/" + file_name))
        for kind, code in [("fax", 1), ("stampa", 2), ("email", 3), ("pfax", 4)]:
            with self.subTest(kind=kind):
                self.touch("jobs/renamed.job", f"[Tipo]\r\nCodice={code}\r\n".encode())
                self.assertIn(f"Kind     {kind}\n", self.orvane("show", "jobs/renamed.job"))

    def test_extensions_are_known_whatever_their_case(self):
        os.rename(self.folder / self.job, self.folder / "jobs" / "1.VQS")
        self.assertEqual("2", self.get("jobs/1.VQS", "Copie"))

    def test_a_job_of_the_current_folder_needs_no_folder(self):
        os.rename(self.folder / self.job, self.folder / "1.vqs")
        self.assertEqual("2", self.get("1.vqs", "Copie"))


class Show(CommandLineTest):
    def test_a_new_job_shows_its_header_only(self):
        job = self.orvane("new", "stampa", "1", "jobs").strip()
        self.assertEqual("Job      1\n"
                         "Kind     stampa\n"
                         f"File     {self.folder}/jobs/1.vqs\n"
                         "State    vdcs_DaStampare (0)  In attesa di stampa\n"
                         "Outcome  vde_DaElaborare (0)  Da elaborare\n", self.orvane("show", job))

    def test_what_is_not_as_in_a_new_job_is_shown(self):
        job = self.orvane("new", "stampa", "1", "jobs", "Proprieta.Data=2026-11-21", "Copie=2",
                          "FronteRetro.Codice=vdfr_Verticale",
                          "Diretta.CatalogoDestinazione.CompressoOn(1)=15").strip()
        self.assertEqual("Copie                                     2\n"
                         "Proprieta.Data                            2026-11-21\n"
                         "FronteRetro.Codice                        vdfr_Verticale (2)  Fronteretro a calendario\n"
                         "Diretta.CatalogoDestinazione.CompressoOn  0 15 0 0 0 0 0\n",
                         self.orvane("show", job).split("\n\n")[1])

    def test_state_outcome_and_error_are_shown_in_words(self):
        job = self.orvane("new", "fax", "1", "jobs", "Coda.Codice=vdcf_Respinto", "Proprieta.Esito.Codice=vde_Fallito",
                          "Proprieta.Errore.Descrizione=Carta finita").strip()
        shown = self.orvane("show", job)
        self.assertIn("State    vdcf_Respinto (9)  Respinto\n", shown)
        self.assertIn("Outcome  vde_Fallito (2)  Fallito\n", shown)
        self.assertIn("Error    vdec_Personalizzato (-1)  Carta finita\n", shown)

    def test_all_shows_every_member_of_every_kind(self):
        for kind, options, members in [
                ("stampa", [], ["Copie", "Coda.DataInStampa", "Proprieta.MacAddress", "Collegati.Copie"]),
                ("fax", [], ["NumeroFax.NumeroEsteso", "Frontespizio.Nota(9)", "FileTif"]),
                ("pfax", [], ["Coda.DataInStampa", "Account.Smtp.MailPort"]),
                ("email", [], ["A.IndirizziEmail", "Messaggio.Nota(29)", "Trasmissione.Tentativi"]),
                ("pbl", ["--of", "fax"], ["Coda.DataDaPubblicare", "Pubblicazione.FilePbl", "Documento.Mittente"]),
                ("anteprima", ["--of", "stampa"], ["Coda.DataDaGenerare", "Documento.Pinzatura.Codice"]),
        ]:
            with self.subTest(kind=kind):
                job = self.orvane("new", kind, kind, "jobs", *options).strip()
                shown = {line.split("  ")[0] for line in self.orvane("show", "--all", job).splitlines()}
                self.assertEqual([], [member for member in members if member not in shown])

    def test_showing_changes_nothing(self):
        job = self.orvane("new", "fax", "1", "jobs").strip()
        before = (self.folder / job).stat()
        self.orvane("show", "--all", job)
        after = (self.folder / job).stat()
        self.assertEqual((before.st_ino, before.st_mtime_ns), (after.st_ino, after.st_mtime_ns))

    def test_linked_jobs_and_attachments_are_lines(self):
        self.orvane("new", "fax", "7", "jobs", "--linked", "Coda.Codice=1")
        job = self.orvane("new", "fax", "1", "jobs").strip()
        self.orvane("link", job, "jobs/7.ldf")
        self.orvane("attach", job, "--missing", "C:\\a.pdf")
        shown = self.orvane("show", job)
        self.assertRegex(shown, r"Collegati\.Item\(0\) +7  .*7\.ldf  In conversione\n")
        self.assertRegex(shown, r"Allegati\.Item\(0\) +C:\\a\.pdf\n")
        self.assertRegex(shown, r"Allegati\.VerificaEsistenzaFile +false\n")

    def test_pages_are_shown_when_they_are_asked_for(self):
        job = self.orvane("new", "stampa", "1", "jobs").strip()
        self.touch("pages/p1.dpg", "[Proprieta]\r\nRighePagina=66\r\n".encode())
        self.touch("pages/p1.txt")
        shown = self.orvane("show", "--pages", "pages", job)
        self.assertRegex(shown, r"Pagine\.Item\(1\)\.RighePagina +66\n")
        self.assertRegex(shown, r"Pagine\.Item\(1\)\.FileTxt +.*p1\.txt\n")
        self.assertNotIn("Pagine", self.orvane("show", job))

    def test_control_characters_do_nothing_to_the_terminal(self):
        job = self.orvane("new", "stampa", "1", "jobs", "Stampante=a\x1b[31m\r\n\tb").strip()
        self.assertIn("Stampante  a\\x1B[31m\\r\\n\\tb\n", self.orvane("show", job))

    def test_a_code_that_cannot_be_described_shows_its_error(self):
        job = self.orvane("new", "stampa", "1", "jobs").strip()
        self.touch(job, "[Dimensione]\r\nCodice=2147483647\r\n".encode())
        self.assertRegex(self.orvane("show", job), r"Dimensione\.Codice +Overflow \(6\)\n")


class Xml(CommandLineTest):
    def test_xml_is_that_of_the_library_on_one_line(self):
        job = self.orvane("new", "stampa", "1", "jobs", "Stampante=<è>").strip()
        text = self.orvane("xml", job)
        self.assertEqual(1, text.count("\n"))
        root = xml.etree.ElementTree.fromstring(text)
        self.assertEqual(("Stampa", "VqDocStampa", "<è>"), (root.tag, root.text, root.findtext("Stampante")))

    def test_pretty_xml_has_the_same_elements(self):
        job = self.orvane("new", "email", "1", "jobs", "Oggetto=Ciao").strip()
        plain = xml.etree.ElementTree.fromstring(self.orvane("xml", job))
        pretty = xml.etree.ElementTree.fromstring(self.orvane("xml", "--pretty", job))
        self.assertEqual([(e.tag, (e.text or "").strip()) for e in plain.iter()],
                         [(e.tag, (e.text or "").strip()) for e in pretty.iter()])


class Codes(CommandLineTest):
    PAGE_STATE = ("VqDocPagineStato.Codice  (enmVqDocPagineStato)\n"
                  "  vdps_DaScomporre     0  Da scomporre\n"
                  "  vdps_Scomposte       1  Scomposte\n")

    def test_a_class_is_named_in_three_ways(self):
        for name in ["VqDocPagineStato", "pagineSTATO", "enmVqDocPagineStato"]:
            with self.subTest(name=name):
                self.assertEqual(self.PAGE_STATE, self.orvane("codes", name))

    def test_a_class_with_two_codes_lists_both(self):
        self.assertEqual(["VqDocFaxColore.CodiceGestione  (enmVqDocFaxTrasmissioneGestioneColore)",
                          "VqDocFaxColore.CodiceTipo  (enmVqDocFaxTrasmissioneTipoColore)"],
                         [line for line in self.orvane("codes", "FaxColore").splitlines() if line.startswith("VqDoc")])

    def test_every_enumeration_of_the_interface_is_listed(self):
        description = pathlib.Path(__file__).parents[2] / "typelib" / "OrvaneDocumenti.idl"
        published = set(re.findall(r"^ +(vd\w+) = -?\d+,?$", description.read_text(encoding="ascii"), re.MULTILINE))
        self.assertGreater(len(published), 500)
        listed = {line.split()[0] for line in self.orvane("codes").splitlines() if line.startswith("  ")}
        self.assertEqual(published, listed)

    def test_codes_stand_with_their_texts(self):
        listed = self.orvane("codes", "CodaFax")
        self.assertRegex(listed, r"  vdcf_DaConfermare +12  Da confermare\n")
        self.assertRegex(self.orvane("codes", "FaxErrore"), r"  vdftec_FER_BUSY +-13  \S")


class Help(CommandLineTest):
    def test_every_command_shows_examples_of_itself(self):
        for command in COMMANDS:
            with self.subTest(command=command):
                shown = self.orvane(command, "--help")
                self.assertIn("Examples:", shown)
                self.assertIn(f"\n  orvane {command}", shown)

    def test_help_lists_commands_and_exit_codes(self):
        shown = self.orvane("--help")
        for command in COMMANDS:
            self.assertRegex(shown, rf"\n  {command} +[A-Z]")
        self.assertIn("Exit codes:\n  0  done\n", shown)

    def test_version_is_that_of_the_library(self):
        self.assertRegex(self.orvane("--version"), r"^orvane \d+\.\d+\.\d+\n$")


if __name__ == "__main__":
    unittest.main()
