' A print job from a script: cscript print_job.vbs compose FOLDER, or cscript print_job.vbs load FOLDER FILE
Option Explicit

' One factory, kept for as long as documents are used.
Dim factory: Set factory = CreateObject("OrvaneDocumenti.VqDocumenti")

If WScript.Arguments(0) = "compose" Then
  Compose WScript.Arguments(1)
Else
  Load WScript.Arguments(1), WScript.Arguments(2)
End If

Sub Compose(folder)
  ' Bound to its job file, a document writes every assignment at once.
  Dim stampa: Set stampa = factory.NuovoDocumentoStampa
  stampa.Inizializza "100", folder
  stampa.Stampante = "Laser"
  stampa.Copie = 2
  stampa.Dimensione.Codice = 9
  stampa.Orientamento.Codice = 1
  stampa.Proprieta.Utente = "mario"
  stampa.Proprieta.Descrizione = "Fatture di marzo"
  stampa.Coda.Codice = 0
  Describe stampa

  ' Jobs that go with it, and a duplicate of it all.
  Dim id, linked
  For Each id In Array("101", "102")
    Set linked = factory.NuovoDocumentoStampa
    linked.Inizializza id, folder, True
    linked.Stampante = "Laser"
    stampa.Collegati.Add linked
  Next
  stampa.Collegati.Salva

  Dim copy: Set copy = factory.NuovoDocumentoStampa
  copy.Inizializza "200", folder
  factory.DuplicaDocumentoStampa stampa, copy
  For Each linked In copy.Collegati
    WScript.Echo "Collegato: " & linked.Proprieta.Id
  Next

  ' Errors carry number, source and text.
  On Error Resume Next
  stampa.Inizializza "100", folder
  WScript.Echo "Errore " & Err.Number & " di " & Err.Source & ": " & Err.Description
End Sub

Sub Load(folder, file)
  Dim stampa: Set stampa = factory.NuovoDocumentoStampa
  stampa.Carica folder, file
  Describe stampa
  WScript.Echo stampa.Xml
End Sub

Sub Describe(stampa)
  WScript.Echo stampa.Proprieta.FileIntestazione.Nome & ": " & stampa.Proprieta.Tipo.Descrizione & " su " & _
    stampa.Stampante & ", copie " & stampa.Copie & ", " & stampa.Dimensione.Descrizione & ", " & _
    stampa.Orientamento.Descrizione & ", " & stampa.Coda.Descrizione
End Sub
