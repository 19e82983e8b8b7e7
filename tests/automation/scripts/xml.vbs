' The system's parser reads the XML of every kind of document: cscript xml.vbs FOLDER
Option Explicit

Dim failures: failures = 0
Dim factory: Set factory = CreateObject("OrvaneDocumenti.VqDocumenti")

Sub Parse(what, xml, root, path, expected)
  Dim parser, node: Set parser = CreateObject("Msxml2.DOMDocument")
  parser.async = False
  parser.preserveWhiteSpace = True
  If Not parser.loadXML(xml) Then
    failures = failures + 1
    WScript.Echo "FAILED " & what & ": " & parser.parseError.reason
    Exit Sub
  End If
  Set node = parser.selectSingleNode(path)
  If node Is Nothing Then
    failures = failures + 1
    WScript.Echo "FAILED " & what & ": no " & path
  ElseIf parser.documentElement.nodeName <> root Or node.text <> expected Then
    failures = failures + 1
    WScript.Echo "FAILED " & what & ": expected " & root & " with " & expected & ", got " & _
      parser.documentElement.nodeName & " with " & node.text
  End If
End Sub

Dim difficult: difficult = "a<b & ""c"" > 'd' " & Chr(9) & " ]]> e"
Dim stampa: Set stampa = factory.NuovoDocumentoStampa
stampa.Stampante = difficult
Parse "print", stampa.Xml, "Stampa", "/Stampa/Stampante", difficult
stampa.Stampante = "x" & Chr(1) & "y"
Parse "a forbidden character", stampa.Xml, "Stampa", "/Stampa/Numero", "0"

Dim fax: Set fax = factory.NuovoDocumentoFax
fax.Oggetto = difficult
Parse "fax", fax.Xml, "Fax", "/Fax/Oggetto", difficult
Dim pfax: Set pfax = factory.NuovoDocumentoPFax
pfax.Oggetto = difficult
Parse "printer-fax", pfax.Xml, "PFax", "/PFax/Oggetto", difficult
Dim email: Set email = factory.NuovoDocumentoEmail
email.Oggetto = difficult
Parse "e-mail", email.Xml, "Email", "/Email/Oggetto", difficult
Dim pbl: Set pbl = factory.NuovoDocumentoPbl
pbl.ImpostaDocumento 2
pbl.Documento.Stampante = difficult
Parse "publication", pbl.Xml, "Pbl", "//Stampa/Stampante", difficult
Dim preview: Set preview = factory.NuovoDocumentoAnteprima
preview.ImpostaDocumento 2
preview.Documento.Stampante = difficult
Parse "preview", preview.Xml, "Anteprima", "//Stampa/Stampante", difficult
WScript.Quit failures
