"""What is refused, in which words, and with which exit code."""

import os
import unittest

from command_line import OUTPUT, RUN_TIME_ERROR, USAGE, CommandLineTest

# Arguments and message; the job is jobs/1.vqs, a fax is jobs/2.vqf, linked to the job is jobs/7.lvq.
RUN_TIME_ERRORS = [
    (["new", "stampa", "3", "nowhere"], "Path not found (76): nowhere"),
    (["new", "stampa", "3", ""], "Path not found (76): "),
    (["new", "stampa", "3", "C:\\Lavori"], "Path not found (76): C:\\Lavori"),
    (["new", "stampa", "1", "jobs"], "File already exists (58): jobs/1.vqs"),
    (["show", "jobs/3.vqs"], "File not found (53): jobs/3.vqs"),
    (["show", "jobs/"], "File not found (53): jobs/"),
    (["show", "nowhere/3.vqs"], "Path not found (76): nowhere/3.vqs"),
    (["show", "jobs/text.txt"], "Invalid file format (321): jobs/text.txt has no job's extension, and no section Tipo "
                                "that says its kind"),
    (["show", "jobs/broken.vqs"], "Overflow (6): jobs/broken.vqs"),
    (["show", "jobs/untyped.vqa"], "Object variable or With block variable not set (91): jobs/untyped.vqa"),
    (["show", "jobs/1.vqs", "--pages", "nowhere"], "Path not found (76): nowhere"),
    (["get", "jobs/1.vqs", "Stampnte"], "Object doesn't support this property or method (438): VqDocStampa has no "
                                       "Stampnte; did you mean Stampante?"),
    (["get", "jobs/1.vqs", "Dimensione.Codcie"], "Object doesn't support this property or method (438): "
                                                 "VqDocDimensione has no Codcie; did you mean Codice?"),
    (["get", "jobs/1.vqs", "Xyzzy"], "Object doesn't support this property or method (438): VqDocStampa has no Xyzzy"),
    (["get", "jobs/1.vqs", "Copie.Codice"], "Object required (424): Copie.Codice"),
    (["get", "jobs/1.vqs", "Collegati.Item(5).Copie"],
     "Object variable or With block variable not set (91): Collegati.Item(5).Copie"),
    (["get", "jobs/1.vqs", "Diretta.CatalogoDestinazione.CompressoOn(7)"],
     "Subscript out of range (9): Diretta.CatalogoDestinazione.CompressoOn(7)"),
    (["get", "jobs/1.vqs", "Diretta.CatalogoDestinazione.CompressoOn(x)"],
     "Type mismatch (13): Diretta.CatalogoDestinazione.CompressoOn(x)"),
    (["get", "jobs/1.vqs", "Diretta.CatalogoDestinazione.CompressoOn"],
     "Wrong number of arguments or invalid property assignment (450): Diretta.CatalogoDestinazione.CompressoOn"),
    (["get", "jobs/1.vqs", "Collegati.Salva"],
     "Wrong number of arguments or invalid property assignment (450): VqDocCollegatiStampa.Salva gives no value"),
    (["set", "jobs/1.vqs", "Proprieta.Id=9"],
     "Wrong number of arguments or invalid property assignment (450): VqDocProprieta.Id cannot be assigned"),
    (["set", "jobs/1.vqs", "Proprieta=9"],
     "Wrong number of arguments or invalid property assignment (450): VqDocStampa.Proprieta cannot be assigned"),
    (["set", "jobs/1.vqs", "Copie(0)=9"],
     "Wrong number of arguments or invalid property assignment (450): Copie(0) takes no argument"),
    (["set", "jobs/1.vqs", "Diretta.CatalogoDestinazione.CompressoOn=9"],
     "Wrong number of arguments or invalid property assignment (450): Diretta.CatalogoDestinazione.CompressoOn takes "
     "1 argument"),
    (["set", "jobs/1.vqs", "Copie=due"], 'Type mismatch (13): Copie: "due" is no number'),
    (["set", "jobs/1.vqs", "Copie=3000000000"], 'Overflow (6): Copie: "3000000000" is out of range'),
    (["set", "jobs/1.vqs", "Diretta.CatalogoDestinazione.CompressoOn(0)=256"],
     'Overflow (6): Diretta.CatalogoDestinazione.CompressoOn(0): "256" is out of range'),
    (["set", "jobs/1.vqs", "Proprieta.Data=2026-02-30"],
     'Type mismatch (13): Proprieta.Data: "2026-02-30" is no date (2026-11-21, 2026-11-21 14:30:00, now)'),
    (["set", "jobs/1.vqs", "Proprieta.Collegato=forse"],
     'Type mismatch (13): Proprieta.Collegato: "forse" is no truth value (true, false, si, no, 1, 0)'),
    (["set", "jobs/1.vqs", "FronteRetro.Codice=vdfr_Vertcale"],
     'Type mismatch (13): FronteRetro.Codice: "vdfr_Vertcale" is no number or name of enmVqDocFronteRetro; did you '
     'mean vdfr_Verticale?'),
    (["attach", "jobs/1.vqs", "jobs/2.vqf"],
     "Object doesn't support this property or method (438): a job of kind stampa has no attachments"),
    (["attach", "jobs/2.vqf", "nothing.pdf"], "File not found (53): nothing.pdf"),
    (["attach", "jobs/2.vqf", "jobs/1.vqs", "jobs/1.vqs"],
     "This key is already associated with an element of this collection (457): jobs/1.vqs"),
    (["duplicate", "jobs/2.vqf", "3"], "Object doesn't support this action (445): only print jobs can be duplicated, "
                                      "and jobs/2.vqf is of kind fax"),
    (["duplicate", "jobs/1.vqs", "1"], "File already exists (58): jobs/1.vqs"),
    (["duplicate", "jobs/1.vqs", "3", "nowhere"], "Path not found (76): nowhere/3.vqs"),
    (["link", "jobs/1.vqs", "jobs/2.vqf"],
     "Type mismatch (13): jobs/2.vqf is a job of kind fax, which this job cannot link"),
    (["link", "jobs/1.vqs", "jobs/7.lvq"],
     "This key is already associated with an element of this collection (457): jobs/7.lvq"),
    (["link", "jobs/1.vqs", "jobs/1.vqs"],
     "Object doesn't support this action (445): jobs/1.vqs leads back to jobs/1.vqs"),
    (["link", "jobs/7.lvq", "jobs/1.vqs"],
     "Object doesn't support this action (445): jobs/1.vqs leads back to jobs/7.lvq"),
    (["link", "jobs/2.vqf", "jobs/8.ldf"], "Object doesn't support this action (445): jobs/8.ldf is a deleted job"),
    (["link", "jobs/1.vqs", "jobs/9.lvq"], "File not found (53): jobs/9.lvq"),
]

USAGE_ERRORS = [
    (["xyz"], "there is no command xyz"),
    (["shwo", "x"], "there is no command shwo; did you mean show?"),
    (["dupl"], "there is no command dupl; did you mean duplicate?"),
    (["new", "fxa", "3", "jobs"],
     '"fxa" is none of the kinds stampa, fax, pfax, email, pbl, anteprima; did you mean fax?'),
    (["new", "stampa", "", "jobs"], "a job needs an ID"),
    (["new", "pbl", "3", "jobs"], "pbl needs --of KIND, the kind of the document inside"),
    (["new", "pbl", "3", "jobs", "--of", "pbl"], '"pbl" is none of the kinds stampa, fax, pfax, email'),
    (["new", "anteprima", "3", "jobs", "--of", "fax", "--linked"], "--linked is not for anteprima"),
    (["new", "fax", "3", "jobs", "--of", "fax"], "--of is for pbl and anteprima, not for fax"),
    (["new", "stampa", "3", "jobs", "Copie"], '"Copie" is no assignment; write Path=value'),
    (["get", "jobs/1.vqs", "Coda..Codice"],
     '"Coda..Codice" is no path of members, such as Proprieta.Utente or Messaggio.Nota(3)'),
    (["codes", "Dimensone"], "no class or enumeration Dimensone has codes; did you mean Dimensione?"),
]


class Errors(CommandLineTest):
    def setUp(self):
        super().setUp()
        for arguments in [["new", "stampa", "1", "jobs"], ["new", "stampa", "7", "jobs", "--linked"],
                          ["new", "fax", "2", "jobs"],
                          ["new", "fax", "8", "jobs", "--linked", "Coda.Codice=vdcf_Eliminato"],
                          ["link", "jobs/1.vqs", "jobs/7.lvq"]]:
            self.orvane(*arguments)
        self.touch("jobs/text.txt", b"no job")
        self.touch("jobs/broken.vqs", b"[Stampa]\r\nNumero=99999999999\r\n")
        self.touch("jobs/untyped.vqa", b"[Proprieta]\r\nId=1\r\n")

    def contents(self):
        return {path: path.read_bytes() for path in (self.folder / "jobs").iterdir()}

    def test_run_time_errors_are_a_sentence_with_their_number(self):
        for arguments, message in RUN_TIME_ERRORS:
            with self.subTest(arguments=arguments):
                before = self.contents()
                self.assert_refused(RUN_TIME_ERROR, message, *arguments)
                self.assertEqual(before, self.contents(), "a refused command changes no file")

    def test_usage_errors_have_a_code_of_their_own(self):
        for arguments, message in USAGE_ERRORS:
            with self.subTest(arguments=arguments):
                self.assert_refused(USAGE, message, *arguments)

    def test_missing_and_unknown_arguments_point_to_the_help(self):
        for arguments in [["get"], ["get", "jobs/1.vqs"], ["new", "stampa", "3"], ["show", "--al", "jobs/1.vqs"],
                          ["--nonsense"], ["show", "jobs/1.vqs", "more"]]:
            with self.subTest(arguments=arguments):
                outcome = self.run_orvane(*arguments)
                self.assertEqual((USAGE, ""), (outcome.code, outcome.out))
                self.assertRegex(outcome.err, r"^orvane: .* \(see --help\)\n$")

    def test_no_command_shows_the_help(self):
        outcome = self.run_orvane()
        self.assertEqual((USAGE, ""), (outcome.code, outcome.out))
        self.assertIn("Usage: orvane", outcome.err)

    @unittest.skipUnless(os.path.exists("/dev/full"), "there is no full device here")
    def test_output_that_cannot_be_written_is_an_error(self):
        with open("/dev/full", "wb") as full:
            outcome = self.run_orvane("codes", stdout=full)
        self.assertEqual((OUTPUT, "orvane: the output could not be written\n"), (outcome.code, outcome.err))

    @unittest.skipIf(os.geteuid() == 0, "a superuser may write everywhere")
    def test_a_read_only_folder_is_permission_denied(self):
        (self.folder / "jobs").chmod(0o555)
        self.addCleanup((self.folder / "jobs").chmod, 0o755)
        self.assert_refused(RUN_TIME_ERROR, "Permission denied (70): Copie", "set", "jobs/1.vqs", "Copie=2")


if __name__ == "__main__":
    unittest.main()
