' The whole print job, as a script composes it: cscript print.vbs FOLDER
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

Function NewFolder(parent)
  Dim files, name: Set files = CreateObject("Scripting.FileSystemObject")
  Randomize
  Do
    name = files.BuildPath(parent, "print_" & CLng(Rnd * 1000000000))
  Loop While files.FolderExists(name)
  files.CreateFolder name
  NewFolder = name
End Function

Dim folder: folder = NewFolder(WScript.Arguments(0))
Dim factory: Set factory = CreateObject("OrvaneDocumenti.VqDocumenti")
Dim stampa: Set stampa = factory.NuovoDocumentoStampa
Check "new", False, stampa.Inizializzato
stampa.Inizializza "100", folder
Check "bound", True, stampa.Inizializzato

stampa.Stampante = "Laser"
stampa.StampanteOrigine = "Ufficio"
stampa.Numero = 7
stampa.Copie = 0
Check "copies", 1, stampa.Copie
stampa.Copie = "3"
Check "copies from a text", 3, stampa.Copie
stampa.Dimensione.Codice = 9
Check "description", "A4 (21 x 29,7 cm)", stampa.Dimensione.Descrizione
stampa.Proprieta.Utente = "mario"
stampa.Proprieta.Data = DateSerial(2024, 2, 29)
Check "date", DateSerial(2024, 2, 29), stampa.Proprieta.Data
stampa.Proprieta.LetturaFacilitata = True
Check "flag", True, stampa.Proprieta.LetturaFacilitata
Check "identity", True, stampa.Proprieta Is stampa.Proprieta
Check "length of guid", 41, Len(stampa.Proprieta.Guid)

' an indexed property, and arguments of any numeric type
stampa.Diretta.CatalogoDestinazione.GrassettoOn(0) = 27
stampa.Diretta.CatalogoDestinazione.GrassettoOn(1.0) = CByte(69)
Check "byte", CByte(69), stampa.Diretta.CatalogoDestinazione.GrassettoOn(1)
Check "characters", Chr(27) & "E", Left(stampa.Diretta.CatalogoDestinazione.StrChrGrassettoOn, 2)
Check "digits", "027;069;000;000;000;000;000;", stampa.Diretta.CatalogoDestinazione.StrAscGrassettoOn

' another object loads what was written
Dim again: Set again = factory.NuovoDocumentoStampa
again.Carica folder, "100.vqs"
Check "loaded printer", "Laser", again.Stampante
Check "loaded copies", 3, again.Copie
Check "loaded size", 9, again.Dimensione.Codice
Check "loaded user", "mario", again.Proprieta.Utente
Check "loaded date", DateSerial(2024, 2, 29), again.Proprieta.Data
Check "loaded code", CByte(27), again.Diretta.CatalogoDestinazione.GrassettoOn(0)

' linked documents, and a duplicate of all
Dim linked, ids, id
For Each id In Array("7", "8")
  Set linked = factory.NuovoDocumentoStampa
  linked.Inizializza id, folder, True
  linked.Numero = CLng(id)
  stampa.Collegati.Add linked
Next
stampa.Collegati.Salva
Dim copy: Set copy = factory.NuovoDocumentoStampa
copy.Inizializza "200", folder
factory.DuplicaDocumentoStampa stampa, copy
Check "copied printer", "Laser", copy.Stampante
Check "copied links", 2, copy.Collegati.Count
For Each linked In copy.Collegati
  ids = ids & linked.Proprieta.Id & " "
Next
Check "copied ids", "200_7 200_8 ", ids
Check "job files", True, CreateObject("Scripting.FileSystemObject").FileExists(folder & "\200_7.lvq")
If failures = 0 Then WScript.Echo "PASSED"
WScript.Quit failures
