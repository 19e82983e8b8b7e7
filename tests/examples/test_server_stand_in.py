"""A client composes, writes and reads jobs while the stand-in for the server, another process, works on them."""

import collections
import os
import pathlib
import subprocess
import tempfile
import time
import unittest

PATIENCE = 600  # seconds for all jobs to reach their end

Kind = collections.namedtuple("Kind", "name options value stamps done done_code")

# What the client writes before it queues the job; which states leave a date on the way to the end.
KINDS = [
    Kind("stampa", [], "Stampante=Laser à", ["DaStampare", "InStampa"], "vdcs_Stampato", 2),
    Kind("fax", [], "NumeroFax.Numero=0612344",
         ["DaConvertire", "InConversione", "DaTrasmettere", "InTrasmissione", "DaStampare", "InStampa",
          "DaNotificare", "InNotifica"], "vdcf_Trasmesso", 8),
    Kind("pfax", [], "NumeroFax.Numero=0612344", ["DaStampare", "InStampa"], "vdcpf_Stampato", 2),
    Kind("email", [], "A.IndirizziEmail=mario@example.com",
         ["DaConvertire", "InConversione", "DaTrasmettere", "InTrasmissione", "DaStampare", "InStampa"],
         "vdce_Trasmesso", 6),
    Kind("pbl", ["--of", "fax"], "Pubblicazione.FilePbl.Nome=guida.pdf",
         ["DaConvertire", "InConversione", "DaPubblicare", "InPubblicazione"], "vdcp_Pubblicato", 4),
    Kind("anteprima", ["--of", "email"], "Documento.Oggetto=Perché no?", ["DaGenerare", "InGenerazione"],
         "vdca_Generato", 2),
]


class StandInTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name).resolve()

    def orvane(self, *arguments):
        result = subprocess.run([os.environ["ORVANE"], *arguments], cwd=self.folder, capture_output=True,
                                text=True, encoding="utf-8", timeout=PATIENCE, check=False)
        self.assertEqual((0, ""), (result.returncode, result.stderr), f"orvane {' '.join(arguments)}")
        return result.stdout.strip()

    def get(self, job, *paths):
        """The values of those members, by path; codes by name."""
        lines = self.orvane("get", job, "Inizializzato", *paths).split("\n")
        return dict(line.split("=", 1) for line in lines[1:])

    def start_server(self, *options):
        server = subprocess.Popen([os.environ["SERVER_STAND_IN"], self.folder, *options], stdout=subprocess.PIPE,
                                  stderr=subprocess.PIPE, text=True, encoding="utf-8")
        self.addCleanup(self.stop, server)
        return server

    @staticmethod
    def stop(server):
        server.kill()
        server.communicate()

    def serve_once(self):
        server = self.start_server("--once")
        output, errors = server.communicate(timeout=PATIENCE)
        self.assertEqual((0, ""), (server.returncode, errors))
        return output

    def new(self, kind, name, *values):
        return self.orvane("new", kind.name, name, ".", *kind.options, *values)

    def queued(self, kind, name, *values):
        return self.new(kind, name, *values, "Coda.Codice=0")

    @staticmethod
    def inner(kind, member):
        return ("Documento." if kind.options else "") + member


class ClientAndServer(StandInTest):
    def compose(self):
        """Three jobs of each kind; each is written on while the server may be working on it, and looked at."""
        jobs = []
        for number in range(3):
            for kind in KINDS:
                job = self.queued(kind, f"{number}", kind.value)
                self.orvane("set", job, f"{self.inner(kind, 'Proprieta.Descrizione')}=scritto dopo {number}")
                self.orvane("show", job)
                jobs.append((kind, number, job))
        return jobs

    def wait_for_end(self, kind, job):
        end = time.monotonic() + PATIENCE
        while self.get(job, "Coda.Codice")["Coda.Codice"] != kind.done and time.monotonic() < end:
            time.sleep(0.05)

    def assert_whole(self, kind, number, job):
        client, written = kind.value.split("=")
        description, outcome = (self.inner(kind, "Proprieta." + m) for m in ("Descrizione", "Esito.Codice"))
        stamps = [f"Coda.Data{state}" for state in kind.stamps] + ["Coda.DataElaborazione"]
        values = self.get(job, "Coda.Codice", client, description, outcome, *stamps)
        self.assertEqual((kind.done, written, f"scritto dopo {number}", "vde_Ok"),
                         tuple(values[path] for path in ("Coda.Codice", client, description, outcome)))
        dates = [values[stamp] for stamp in stamps]
        self.assertTrue(all(dates), dates)
        self.assertEqual(sorted(dates), dates)

    def test_nothing_of_either_is_lost(self):
        server = self.start_server()
        jobs = self.compose()
        for kind, number, job in jobs:
            with self.subTest(job=job):
                self.wait_for_end(kind, job)
                self.assert_whole(kind, number, job)
        server.kill()
        self.assertEqual("", server.communicate()[1])
        self.assertEqual([], [p.name for p in self.folder.glob(".orvane-*.tmp")])


class Reports(StandInTest):
    def test_a_fax_gets_its_transmission_record(self):
        for kind in KINDS[1:3]:
            with self.subTest(kind=kind.name):
                job = self.queued(kind, "1", "NumeroFax.Numero=10")
                self.serve_once()
                values = self.get(job, *(f"Trasmissione.{member}" for member in (
                    "TRMStatus.Codice", "Errore.Codice", "Tentativi", "TrasmessoConECM", "OraInizio", "OraFine")))
                *record, begin, end = values.values()
                self.assertEqual(["vdftstrms_NORMAL", "vdftec_NoErrors", "1", "true"], record)
                self.assertTrue(begin and begin <= end, (begin, end))

    def test_a_busy_number_is_refused_with_its_reason(self):
        for kind, refused in zip(KINDS[1:3], ("vdcf_Respinto", "vdcpf_Respinto")):
            with self.subTest(kind=kind.name):
                job = self.queued(kind, "1", "NumeroFax.Numero=12")
                self.serve_once()
                values = self.get(job, "Coda.Codice", "Proprieta.Esito.Codice", "Proprieta.Errore.Codice",
                                  "Trasmissione.TRMStatus.Codice", "Trasmissione.Errore.Codice",
                                  "Trasmissione.Tentativi")
                self.assertEqual([refused, "vde_Fallito", "vdec_Trasmissione", "vdftstrms_BUSY",
                                  "vdftec_FER_BUSY", "3"], list(values.values()))

    def test_an_email_gets_its_attempts(self):
        sent = self.queued(KINDS[3], "1", KINDS[3].value)
        refused = self.queued(KINDS[3], "2")
        self.serve_once()
        for job, state, attempts in [(sent, "vdce_Trasmesso", "1"), (refused, "vdce_Respinto", "3")]:
            values = self.get(job, "Coda.Codice", "Trasmissione.Tentativi")
            self.assertEqual([state, attempts], list(values.values()))

    def test_a_print_without_a_printer_is_refused(self):
        job = self.queued(KINDS[0], "1")
        self.serve_once()
        values = self.get(job, "Coda.Codice", "Proprieta.Errore.Codice")
        self.assertEqual(["vdcs_Respinto", "vdec_StampanteNonInstallata"], list(values.values()))

    def test_states_are_told_in_their_order(self):
        self.queued(KINDS[3], "1", KINDS[3].value)
        self.assertEqual("1.vqe: In conversione\n1.vqe: In attesa di trasmissione\n1.vqe: In trasmissione\n"
                         "1.vqe: Da stampare\n1.vqe: In stampa\n1.vqe: Inviato\n", self.serve_once())


class LeftAlone(StandInTest):
    def test_what_is_not_in_the_servers_hands_stays_as_it_is(self):
        for kind in KINDS:
            self.new(kind, "composto", kind.value)
            for distance, name in enumerate(["finito", "respinto", "scartato", "eliminato"]):
                self.new(kind, name, kind.value, f"Coda.Codice={kind.done_code + distance}")
        self.orvane("new", "stampa", "collegato", ".", "--linked", "Coda.Codice=0")
        before = {path.name: path.read_bytes() for path in self.folder.iterdir()}
        self.assertEqual("", self.serve_once())
        self.assertEqual(before, {path.name: path.read_bytes() for path in self.folder.iterdir()})

    def test_a_wrong_command_line_is_refused(self):
        for options in (["--twice"], ["--seconds"], ["--seconds", "x"]):
            server = self.start_server(*options)
            self.assertIn("usage: server_stand_in", server.communicate(timeout=PATIENCE)[1])
            self.assertEqual(1, server.returncode)


if __name__ == "__main__":
    unittest.main()
