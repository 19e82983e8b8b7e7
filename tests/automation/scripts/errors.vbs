' Errors as a script sees them: cscript errors.vbs FOLDER
Option Explicit

Dim failures: failures = 0
Sub Expect(what, number, source, text)
  If Err.Number <> number Or (source <> "" And Err.Source <> source) Or (text <> "" And Err.Description <> text) Then
    failures = failures + 1
    WScript.Echo "FAILED " & what & ": expected " & number & " " & source & " " & text & ", got " & Err.Number & " " & _
      Err.Source & " " & Err.Description
  End If
  Err.Clear
End Sub

Const kSource = "OrvaneDocumenti"
Dim factory: Set factory = CreateObject("OrvaneDocumenti.VqDocumenti")
Dim stampa: Set stampa = factory.NuovoDocumentoStampa
Dim pbl: Set pbl = factory.NuovoDocumentoPbl
Dim nothingAtAll: Set nothingAtAll = Nothing
Dim ignored
On Error Resume Next

stampa.Carica "", "1.vqs"
Expect "no folder", 76, kSource, "Path not found"
stampa.Carica WScript.Arguments(0), "missing.vqs"
Expect "no file", 53, kSource, "File not found"
stampa.Inizializza "1", WScript.Arguments(0) & "\missing"
Expect "missing folder", 76, kSource, "Path not found"
stampa.Inizializza "errors", WScript.Arguments(0)
Expect "bound", 0, "", ""
stampa.Inizializza "errors", WScript.Arguments(0)
Expect "bound twice", 445, kSource, "Object doesn't support this action"
ignored = stampa.Diretta.CatalogoDestinazione.GrassettoOn(7)
Expect "index", 9, kSource, "Subscript out of range"
ignored = pbl.Proprieta.Id
Expect "no inner document", 91, kSource, "Object variable or With block variable not set"
stampa.Pagine.Add nothingAtAll
Expect "no object", 91, kSource, "Object variable or With block variable not set"
stampa.Nessuno = 1
Expect "unknown member", 438, "", ""
stampa.Copie = "molte"
Expect "wrong type", 13, "", ""
stampa.Copie = 1E10
Expect "too large", 6, "", ""
stampa.Carica "only one"
Expect "too few arguments", 450, "", ""
stampa.Pagine.Add factory
Expect "wrong class", 13, "", ""

Dim email: Set email = factory.NuovoDocumentoEmail
ignored = email.Allegati.Add("C:\A", "uno.txt")
ignored = email.Allegati.Add("c:\a", "UNO.TXT")
Expect "attached twice", 457, kSource, "This key is already associated with an element of this collection"
email.Allegati.Remove 1
Expect "no position", 9, kSource, "Subscript out of range"
email.Allegati.Remove "uno.txt"
Expect "no full name", 5, kSource, "Invalid procedure call or argument"
email.Messaggio.Nota(30) = "x"
Expect "no such line", 9, kSource, "Subscript out of range"
ignored = email.Messaggio.Nota(-1)
Expect "no line below zero", 9, kSource, "Subscript out of range"
Dim cover: Set cover = factory.NuovoDocumentoFax.Frontespizio
cover.Nota(10) = "x"
Expect "no such cover line", 9, kSource, "Subscript out of range"
cover.Nota(256) = "x"
Expect "index is a byte", 6, "", ""
ignored = cover.Nota(-1)
Expect "index is no negative byte", 6, "", ""

Set factory = Nothing
stampa.Stampante = "Laser"
Expect "no factory", 91, kSource, "Object variable or With block variable not set"
Set factory = CreateObject("OrvaneDocumenti.VqDocumenti")
stampa.Stampante = "Laser"
Expect "factory again", 0, "", ""
If failures = 0 Then WScript.Echo "PASSED"
WScript.Quit failures
