"""The jobs of the pictures: an ordinary morning of an output server, on all channels. The program itself composes
them, under a clock that stands at the minute of each step, so that they are the same whenever they are made."""

import datetime
import os
import random
import subprocess

OPENED = datetime.datetime(2026, 11, 20, 8, 0, 20)
NOW = datetime.datetime(2026, 11, 20, 12, 30)

PRINTERS = ["Laser Amministrazione", "Laser Magazzino", "Etichette Spedizioni", "Multifunzione 2° piano"]
USERS = ["mrossi", "gbianchi", "lferrari", "aesposito", "server"]
CUSTOMERS = ["Officine Però", "Molino Sant'Elia", "Cantine Dell'Orto", "Tipografia Nuova", "Studio Conti & Figli"]
PAPERS = ["Fattura 2026/{}", "Documento di trasporto {}", "Offerta n. {}", "Conferma d'ordine {}", "Listino {}"]

# The states that a job enters by its channel, and those of its end: done, rejected.
WAYS = {"stampa": ([0, 1], 2, 3), "fax": ([0, 1, 2, 3], 8, 9), "pfax": ([0, 1], 2, 3), "email": ([0, 1, 2, 3], 6, 7),
        "pbl": ([0, 1, 2, 3], 4, 5), "anteprima": ([0, 1], 2, 3)}
EXTENSIONS = {"stampa": "vqs", "fax": "vqf", "pfax": "vqpf", "email": "vqe", "pbl": "vqpb", "anteprima": "vqa"}
MIXTURE = ["stampa"] * 9 + ["fax"] * 5 + ["email"] * 6 + ["pfax"] * 2 + ["pbl"] * 2 + ["anteprima"] * 2
ERRORS = {"stampa": ["1", "2", "Carta esaurita nel cassetto 2"], "fax": ["10", "8"], "pfax": ["1"], "email": ["10"],
          "pbl": ["5"], "anteprima": ["7"]}


class Jobs:
    """Composes jobs in a folder with the program."""

    def __init__(self, program, folder):
        self.program, self.folder = str(program), folder
        self._chance = random.Random(20)

    def run(self, moment, *arguments):
        """Runs the program at that moment."""
        command = ["faketime", "-f", f"@{moment:%Y-%m-%d %H:%M:%S}", self.program, *arguments]
        subprocess.run(command, cwd=self.folder.parent, stdout=subprocess.DEVNULL, check=True,
                       env={**os.environ, "TZ": "UTC", "FAKETIME_DONT_FAKE_MONOTONIC": "1"})

    def job(self, number, kind, moment, steps, rejected=False):
        """Makes a job and takes it `steps` states on; one step more than its way has ends it."""
        self.run(moment, "new", kind, str(number), str(self.folder), *self._of_kind(kind), *self._about(kind, number))
        way, done, refused = WAYS[kind]
        file = str(self.folder / f"{number}.{EXTENSIONS[kind]}")
        for state in [*way, refused if rejected else done][:steps]:
            self.run(moment, "set", file, f"Coda.Codice={state}")
            moment += datetime.timedelta(seconds=self._chance.randint(15, 200))
        if steps > len(way):
            self.run(moment, "set", file, *(self._failure(kind) if rejected else ["Proprieta.Esito.Codice=vde_Ok"]))

    def morning(self, count=78):
        """Many jobs, most of them done, the last ones under way."""
        for i in range(count):
            kind = self._chance.choice(MIXTURE)
            moment = OPENED + i * (NOW - OPENED) / (count + 1)
            left = count - i
            whole = len(WAYS[kind][0]) + 1
            steps = self._chance.randint(1, whole - 1) if left <= 9 else whole
            self.job(4100 + i, kind, moment, steps, rejected=left > 9 and self._chance.random() < 0.11)
        self._withdraw(4112, 4140)
        (self.folder / "4190.vqs").write_bytes(b"[CodaStampa]\r\nCodice=3000000000\r\n")

    def _withdraw(self, *numbers):
        for number in numbers:
            file = next(self.folder.glob(f"{number}.*"))
            kind = next(kind for kind, extension in EXTENSIONS.items() if file.suffix == "." + extension)
            self.run(NOW, "set", str(file), f"Coda.Codice={WAYS[kind][2] + 1}", "Proprieta.Esito.Codice=0",
                     "Proprieta.Errore.Codice=0")

    def _of_kind(self, kind):
        return ["--of", self._chance.choice(["stampa", "email"])] if kind in ("pbl", "anteprima") else []

    def _about(self, kind, number):
        paper = self._chance.choice(PAPERS).format(self._chance.randint(100, 999))
        customer = self._chance.choice(CUSTOMERS)
        # A publication and a preview are of a document that has them.
        about = [f"Proprieta.Utente={self._chance.choice(USERS)}", f"Proprieta.Descrizione={paper}, {customer}"]
        if kind == "stampa":
            return [*about, f"Stampante={self._chance.choice(PRINTERS)}", f"Copie={self._chance.randint(1, 3)}",
                    "Dimensione.Codice=vdd_A4", "FronteRetro.Codice=vdfr_Orizzontale"]
        if kind in ("fax", "pfax"):
            return [*about, "NumeroFax.PrefissoLocale=06", f"NumeroFax.Numero=555{number}", f"Oggetto={paper}",
                    f"Destinatario={customer}"]
        if kind == "email":
            return [*about, f"Oggetto={paper}", f"A.IndirizziEmail=ordini{number % 7}@example.com"]
        return about

    def _failure(self, kind):
        error = self._chance.choice(ERRORS[kind])
        member = "Codice" if error.isdigit() else "Descrizione"
        return [f"Proprieta.Errore.{member}={error}", "Proprieta.Esito.Codice=vde_Fallito"]
