' What a script pays for reading a property, next to an object that comes with the system: nanoseconds a turn of the
' loop, the best of several rounds in turn.
Option Explicit
Const TIMES = 100000
Const ROUNDS = 7

Dim documents, stampa, dictionary, turn, best(2), i, value, begun
Set documents = CreateObject("OrvaneDocumenti.VqDocumenti")
Set stampa = documents.NuovoDocumentoStampa
Set dictionary = CreateObject("Scripting.Dictionary")
stampa.Numero = 17
dictionary.Add "one", 1

For turn = 1 To ROUNDS
  begun = Timer
  For i = 1 To TIMES: value = i: Next
  Keep 0, Timer - begun
  begun = Timer
  For i = 1 To TIMES: value = stampa.Numero: Next
  Keep 1, Timer - begun
  If value <> 17 Then WScript.Quit 1
  begun = Timer
  For i = 1 To TIMES: value = dictionary.Count: Next
  Keep 2, Timer - begun
  If value <> 1 Then WScript.Quit 1
Next

Show "VBScript: an empty loop", best(0)
Show "VBScript: get of a number", best(1)
Show "VBScript: Scripting.Dictionary, get of Count", best(2)

Sub Keep(which, seconds)
  If IsEmpty(best(which)) Then best(which) = seconds
  If seconds < best(which) Then best(which) = seconds
End Sub

Sub Show(what, seconds)
  WScript.Echo what & vbTab & CLng(seconds / TIMES * 1000000000)
End Sub
