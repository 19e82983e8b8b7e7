"""Runs an example that composes a fax, an e-mail and a print job, and holds its jobs and its words against one expected
set, which all languages share: run_compose.py COMMAND... The command gets folder and attachment as Windows names.
"""

import configparser
import pathlib
import subprocess
import sys
import tempfile

OUTPUT = """\
fax.vqf: Fax, In attesa di conversione, Da elaborare, 39-06-1234567, allegati 1
email.vqe: Email, In attesa di conversione, Da elaborare, anna.verdi@example.com, allegati 1
stampa.vqs: Stampa, In attesa di stampa, Da elaborare, Laser, copie 2, A4 (21 x 29,7 cm)
  con etichetta su Etichette
manca.vqs: errore 53, File not found
"""

JOBS = {
    "fax.vqf": {
        "NumeroFax": {"PrefissoInternazionale": "39", "PrefissoLocale": "06", "Numero": "1234567"},
        "Fax": {"Oggetto": "Offerta n. 12", "Destinatario": "Anna Verdi"},
        "Frontespizio": {"Inviare": "-1", "Nota_0": "Gentile cliente, ecco l'offerta."},
        "Allegati": {"NumeroAllegati": "1", "Nome0": "offerta.pdf"},
        "CodaFax": {"Codice": "0"},
    },
    "email.vqe": {
        "Email": {"Oggetto": "Fattura n. 12"},
        "Account": {"IndirizzoEmail": "amministrazione@example.com"},
        "DestinatariA": {"NomiVisualizzati": "Anna Verdi", "IndirizziEmail": "anna.verdi@example.com"},
        "DestinatariCc": {"IndirizziEmail": "archivio@example.com"},
        "Messaggio": {"Nota_0": "Gentile cliente,", "Nota_1": "in allegato la fattura."},
        "Allegati": {"NumeroAllegati": "1", "Nome0": "offerta.pdf"},
        "CodaEmail": {"Codice": "0"},
    },
    "stampa.vqs": {
        "Proprieta": {"Utente": "mrossi", "Descrizione": "Listino di marzo"},
        "Stampa": {"Stampante": "Laser", "Copie": "2"},
        "Dimensione": {"Codice": "9"},
        "FronteRetro": {"Codice": "2"},
        "Collegati": {"NumeroCollegati": "1"},
        "CodaStampa": {"Codice": "0"},
    },
    "etichetta.lvq": {"Stampa": {"Stampante": "Etichette"}},
}


def windows_name(path):
    return "z:" + str(path).replace("/", "\\")


def sections(path):
    parser = configparser.ConfigParser(interpolation=None, strict=True)
    parser.optionxform = str
    parser.read_string(path.read_bytes().decode("utf-16"))
    return {name: dict(parser[name]) for name in parser.sections()}


def faults_of_job(path, expected):
    if not path.exists():
        return [f"{path.name} is missing"]
    found = sections(path)
    return [f"{path.name} [{section}] {key}: expected {value!r}, found {found.get(section, {}).get(key)!r}"
            for section, keys in expected.items() for key, value in keys.items()
            if found.get(section, {}).get(key) != value]


def faults_of_run(command, folder):
    jobs, attachment = folder / "jobs", folder / "offerta.pdf"
    jobs.mkdir()
    attachment.write_bytes(b"%PDF-1.4\n")
    result = subprocess.run([*command, windows_name(jobs), windows_name(attachment)], capture_output=True, timeout=600,
                            check=False)
    output = result.stdout.decode("utf-8", "replace").replace("\r\n", "\n")
    if (result.returncode, output) != (0, OUTPUT):
        errors = result.stderr.decode("utf-8", "replace")
        return [f"expected 0 and\n{OUTPUT}found {result.returncode} and\n{output}{errors}"]
    return [fault for name, expected in JOBS.items() for fault in faults_of_job(jobs / name, expected)]


def main():
    with tempfile.TemporaryDirectory() as name:
        faults = faults_of_run(sys.argv[1:], pathlib.Path(name).resolve())
    print("\n".join(faults) or "all jobs as expected")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
