' Fax, printer-fax, e-mail, publication and preview: cscript channels.vbs FOLDER
Option Explicit

Dim failures: failures = 0
Sub Check(what, ByVal expected, got)
  If TypeName(expected) = "Integer" Then expected = CLng(expected)
  If TypeName(expected) = TypeName(got) Then
    If expected = got Then Exit Sub
  End If
  failures = failures + 1
  WScript.Echo "FAILED " & what & ": expected " & TypeName(expected) & " " & expected & ", got " & TypeName(got) & " " & got
End Sub

Dim files: Set files = CreateObject("Scripting.FileSystemObject")
Dim folder: Randomize: folder = files.BuildPath(WScript.Arguments(0), "channels_" & CLng(Rnd * 1000000000))
files.CreateFolder folder
Dim factory: Set factory = CreateObject("OrvaneDocumenti.VqDocumenti")

Dim fax: Set fax = factory.NuovoDocumentoFax
fax.Inizializza "1", folder
fax.Oggetto = "Offerta"
fax.NumeroFax.Numero = "0612345"
fax.NumeroFax.PrefissoInternazionale = "0039"
fax.Frontespizio.Nota(1) = "prima riga"
fax.Coda.Codice = 2
Check "fax note", "prima riga", fax.Frontespizio.Nota(1)
Check "fax state", "In attesa di trasmissione", fax.Coda.Descrizione
Check "fax state time", True, fax.Coda.DataDaTrasmettere > 0
Dim loaded: Set loaded = factory.NuovoDocumentoFax
loaded.Carica folder, "1.vqf"
Check "loaded fax subject", "Offerta", loaded.Oggetto
Check "loaded fax number", "0612345", loaded.NumeroFax.Numero
Check "loaded fax state", 2, loaded.Coda.Codice

Dim pfax: Set pfax = factory.NuovoDocumentoPFax
pfax.Inizializza "2", folder
pfax.Destinatario = "Ditta Rossi"
Set loaded = factory.NuovoDocumentoPFax
loaded.Carica folder, "2.vqpf"
Check "loaded printer-fax", "Ditta Rossi", loaded.Destinatario

Dim email: Set email = factory.NuovoDocumentoEmail
email.Inizializza "3", folder
email.Oggetto = "Fattura"
email.A.IndirizziEmail = "a@example.com"
email.Account.Smtp.MailPort = 25
email.Messaggio.Nota(0) = "Buongiorno"
email.Messaggio.Nota(29) = "Saluti"
Check "message", "Saluti", email.Messaggio.Nota(29)
Check "bounds", 29, email.Messaggio.UBoundNota
Set loaded = factory.NuovoDocumentoEmail
loaded.Carica folder, "3.vqe"
Check "loaded e-mail", "a@example.com", loaded.A.IndirizziEmail
Check "loaded port", 25, loaded.Account.Smtp.MailPort
Check "loaded message", "Buongiorno", loaded.Messaggio.Nota(0)

Dim pbl: Set pbl = factory.NuovoDocumentoPbl
Check "no document", True, pbl.Documento Is Nothing
pbl.Inizializza "4", 2, folder
pbl.Documento.Stampante = "Laser"
Check "inner document", "Laser", pbl.Documento.Stampante
Check "inner identity", True, pbl.Documento.Proprieta Is pbl.Proprieta
Set loaded = factory.NuovoDocumentoPbl
loaded.Carica folder, "4.vqpb"
Check "loaded publication", "Laser", loaded.Documento.Stampante

Dim preview: Set preview = factory.NuovoDocumentoAnteprima
Check "kind given", True, preview.ImpostaDocumento(1)
preview.Inizializza "5", 1, folder
Check "preview bound", True, preview.Inizializzato
If failures = 0 Then WScript.Echo "PASSED"
WScript.Quit failures
