' One job of each other kind from a script: cscript channels.vbs FOLDER TIFF ATTACHMENT
' FOLDER gets the jobs; TIFF is the image of the fax, ATTACHMENT a file that goes with it.
Option Explicit

Dim factory: Set factory = CreateObject("OrvaneDocumenti.VqDocumenti")
Dim folder: folder = WScript.Arguments(0)
Dim tiff: tiff = WScript.Arguments(1)
Dim attachment: attachment = WScript.Arguments(2)

ComposeFax
ComposePrinterFax
ComposeEmail
Wrap factory.NuovoDocumentoPbl, "pubblicazione", 3
Wrap factory.NuovoDocumentoAnteprima, "anteprima", 1

Sub ComposeFax
  Dim fax: Set fax = factory.NuovoDocumentoFax
  fax.Inizializza "fax", folder
  fax.NumeroFax.PrefissoInternazionale = "39"
  fax.NumeroFax.PrefissoLocale = "06"
  fax.NumeroFax.Numero = "1234567"
  fax.Oggetto = "Offerta"
  fax.Frontespizio.Inviare = True
  fax.Frontespizio.Nota(0) = "Alla cortese attenzione dell'ufficio acquisti"
  fax.FileTif.Percorso = FolderOf(tiff)
  fax.FileTif.Nome = NameOf(tiff)
  fax.Allegati.Add FolderOf(tiff), NameOf(tiff)
  fax.Allegati.Add FolderOf(attachment), NameOf(attachment)
  fax.Allegati.Salva
  WScript.Echo "Immagine " & fax.FileTif.File & ": " & Len(fax.FileTif.ReadStream) & " byte"

  Dim linked: Set linked = factory.NuovoDocumentoFax
  linked.Inizializza "fax_seguito", folder, True
  fax.Collegati.Add linked
  fax.Collegati.Salva
  fax.Coda.Codice = 2

  Dim loaded: Set loaded = factory.NuovoDocumentoFax
  loaded.Carica folder, "fax.vqf"
  Show loaded, "al numero " & loaded.NumeroFax.NumeroEsteso & ", allegati " & loaded.Allegati.Count & _
    ", collegati " & loaded.Collegati.Count & ", esito linea: " & loaded.Trasmissione.TRMStatus.Descrizione
End Sub

Sub ComposePrinterFax
  Dim fax: Set fax = factory.NuovoDocumentoPFax
  fax.Inizializza "pfax", folder
  fax.NumeroFax.Numero = "7654321"
  Show fax, "al numero " & fax.NumeroFax.NumeroEsteso
End Sub

Sub ComposeEmail
  Dim mail: Set mail = factory.NuovoDocumentoEmail
  mail.Inizializza "email", folder
  mail.Oggetto = "Fattura"
  mail.A.IndirizziEmail = "cliente@example.com"
  mail.Messaggio.Nota(0) = "In allegato la fattura."
  mail.Allegati.Add FolderOf(attachment), NameOf(attachment)
  mail.Allegati.Salva
  Show mail, "a " & mail.A.IndirizziEmail
End Sub

' A publication or a preview, around a document of the given kind.
Sub Wrap(document, id, kind)
  document.Inizializza id, kind, folder
  document.Documento.Oggetto = "Listino"
  document.Proprieta.Descrizione = "Listino di marzo"
  Show document, "intorno a " & document.Proprieta.Tipo.Descrizione & " " & document.Documento.Oggetto
End Sub

Sub Show(document, text)
  WScript.Echo document.Proprieta.FileIntestazione.Nome & ": " & text & ", " & document.Coda.Descrizione & _
    ", XML di " & Len(document.Xml) & " caratteri"
End Sub

Function FolderOf(file): FolderOf = Left(file, InStrRev(file, "\") - 1): End Function
Function NameOf(file): NameOf = Mid(file, InStrRev(file, "\") + 1): End Function
