"""A fax, an e-mail and a print job with pywin32: compose.py FOLDER ATTACHMENT

FOLDER gets the jobs; ATTACHMENT is a file that goes with the fax and the e-mail.
"""

import ntpath
import sys

import pywintypes
import win32com.client

FAX_DA_CONVERTIRE = EMAIL_DA_CONVERTIRE = STAMPA_DA_STAMPARE = 0  # vdcf_, vdce_DaConvertire, vdcs_DaStampare
A4 = 9  # vdd_A4
VERTICALE = 2  # vdfr_Verticale


# Bound to its job file, a document writes every assignment at once; collections are written by Salva.
def compose_fax(factory, folder, attachment):
    fax = factory.NuovoDocumentoFax()
    fax.Inizializza("fax", folder)
    fax.NumeroFax.PrefissoInternazionale = "39"
    fax.NumeroFax.PrefissoLocale = "06"
    fax.NumeroFax.Numero = "1234567"
    fax.Oggetto = "Offerta n. 12"
    fax.Destinatario = "Anna Verdi"
    fax.Frontespizio.Inviare = True
    fax.Frontespizio.SetNota(0, "Gentile cliente, ecco l'offerta.")  # Nota(0) = ..., in pywin32's spelling
    attach(fax.Allegati, attachment)
    fax.Coda.Codice = FAX_DA_CONVERTIRE


def compose_email(factory, folder, attachment):
    mail = factory.NuovoDocumentoEmail()
    mail.Inizializza("email", folder)
    mail.Oggetto = "Fattura n. 12"
    mail.Account.IndirizzoEmail = "amministrazione@example.com"
    mail.A.NomiVisualizzati = "Anna Verdi"
    mail.A.IndirizziEmail = "anna.verdi@example.com"
    mail.Cc.IndirizziEmail = "archivio@example.com"
    for number, line in enumerate(["Gentile cliente,", "in allegato la fattura."]):
        mail.Messaggio.SetNota(number, line)
    attach(mail.Allegati, attachment)
    mail.Coda.Codice = EMAIL_DA_CONVERTIRE


def compose_print(factory, folder):
    stampa = factory.NuovoDocumentoStampa()
    stampa.Inizializza("stampa", folder)
    stampa.Stampante = "Laser"
    stampa.Copie = 2
    stampa.Dimensione.Codice = A4
    stampa.FronteRetro.Codice = VERTICALE
    stampa.Proprieta.Utente = "mrossi"
    stampa.Proprieta.Descrizione = "Listino di marzo"
    label = factory.NuovoDocumentoStampa()
    label.Inizializza("etichetta", folder, True)
    label.Stampante = "Etichette"
    stampa.Collegati.Add(label)
    stampa.Collegati.Salva()
    stampa.Coda.Codice = STAMPA_DA_STAMPARE


def attach(attachments, attachment):
    attachments.Add(*ntpath.split(attachment))
    attachments.Salva()


# New objects, loaded from the files: what the server has written by then is in them.
def report(factory, folder):
    fax = factory.NuovoDocumentoFax()
    fax.Carica(folder, "fax.vqf")
    show(fax, f"{fax.NumeroFax.NumeroEsteso()}, allegati {fax.Allegati.Count}")
    mail = factory.NuovoDocumentoEmail()
    mail.Carica(folder, "email.vqe")
    show(mail, f"{mail.A.IndirizziEmail}, allegati {mail.Allegati.Count}")
    stampa = factory.NuovoDocumentoStampa()
    stampa.Carica(folder, "stampa.vqs")
    show(stampa, f"{stampa.Stampante}, copie {stampa.Copie}, {stampa.Dimensione.Descrizione()}")
    for linked in stampa.Collegati:
        print(f"  con {linked.Proprieta.Id} su {linked.Stampante}")


def show(document, text):
    properties = document.Proprieta
    print(f"{properties.FileIntestazione.Nome}: {properties.Tipo.Descrizione()}, {document.Coda.Descrizione()}, "
          f"{properties.Esito.Descrizione()}, {text}")


def try_to_load(factory, folder, file):
    try:
        factory.NuovoDocumentoStampa().Carica(folder, file)
    except pywintypes.com_error as error:
        _, _, text, _, _, code = error.excepinfo
        print(f"{file}: errore {code & 0xFFFF}, {text}")


def main(folder, attachment):
    factory = win32com.client.Dispatch("OrvaneDocumenti.VqDocumenti")  # kept for as long as documents are used
    compose_fax(factory, folder, attachment)
    compose_email(factory, folder, attachment)
    compose_print(factory, folder)
    report(factory, folder)
    try_to_load(factory, folder, "manca.vqs")


if __name__ == "__main__":
    main(*sys.argv[1:])
