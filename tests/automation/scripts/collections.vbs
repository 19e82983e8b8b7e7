' Collections, arrays and amounts: cscript collections.vbs FOLDER
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

Dim factory: Set factory = CreateObject("OrvaneDocumenti.VqDocumenti")
Dim stampa: Set stampa = factory.NuovoDocumentoStampa
Dim pagina, numbers, i

For Each pagina In stampa.Pagine
  Check "nothing to enumerate", 0, 1
Next
For i = 1 To 3
  Set pagina = stampa.Pagine.Nuova
  stampa.Pagine.Add pagina
Next
stampa.Pagine.Add (stampa.Pagine.Nuova)
Check "count", 4, stampa.Pagine.Count
For Each pagina In stampa.Pagine
  numbers = numbers & pagina.Numero
Next
Check "numbers", "1234", numbers
For Each pagina In stampa.Pagine
  If stampa.Pagine.Count > 1 Then stampa.Pagine.RemoveLast
Next
Check "removed while enumerating", 1, stampa.Pagine.Count
Check "exists", True, stampa.Pagine.Exists(1)
Check "does not exist", False, stampa.Pagine.Exists(2)
Check "no item", True, stampa.Pagine.Item(99) Is Nothing

Set pagina = stampa.Pagine.Nuova
pagina.AltezzaRiga = CCur("12.3456")
Check "amount", CCur("12.3456"), pagina.AltezzaRiga
pagina.AltezzaRiga = 0.5
Check "amount from a double", CCur(0.5), pagina.AltezzaRiga
pagina.ArrayTxt = Array("uno", 2, True, Empty, Null)
Dim rows: rows = pagina.ArrayTxt
Check "bound", 4, UBound(rows)
Check "text in array", "uno", rows(0)
Check "number in array", "Integer 2", TypeName(rows(1)) & " " & rows(1)
Check "flag in array", True, rows(2)
Check "empty in array", True, IsEmpty(rows(3))
Check "null in array", True, IsNull(rows(4))
rows(0) = "altro"
rows = pagina.ArrayTxt
Check "apart from the page's", "uno", rows(0)
Dim fixed(1)
fixed(0) = "prima"
fixed(1) = "seconda"
pagina.ArrayScriptA = fixed
pagina.ArrayScriptB = pagina.ArrayScriptA
fixed(0) = "altra"
rows = pagina.ArrayScriptA
Check "array with fixed bounds", "prima", rows(0)
rows = pagina.ArrayScriptB
Check "array of a page", "seconda", rows(1)
pagina.DistruggiArray

Dim email: Set email = factory.NuovoDocumentoEmail
Check "no attachment", 0, email.Allegati.Count
Check "no such key", False, email.Allegati.Exists("nessuno")
Dim attached, names, name: name = "uno.txt"
Check "attached by variable", True, email.Allegati.Add("C:\A", name)
Check "attached by value", True, email.Allegati.Add("C:\A", "due.txt")
Check "no name", False, email.Allegati.Add("C:\A", Empty)
For Each attached In email.Allegati
  names = names & attached.Nome
Next
Check "attached in order", "uno.txtdue.txt", names
Check "by position", "C:\A\uno.txt", email.Allegati.Item(0).File
Check "by position as text", "due.txt", email.Allegati.Item("1").Nome
Check "by full name", "due.txt", email.Allegati.Item("C:\A\due.txt").Nome
Dim key
For Each key In Array("01", -1, 2, True, Empty, Null, CDate(0))
  Check "nothing by " & TypeName(key), True, email.Allegati.Item(key) Is Nothing
Next
email.Allegati.Remove "0"
Check "removed", 1, email.Allegati.Count
If failures = 0 Then WScript.Echo "PASSED"
WScript.Quit failures
