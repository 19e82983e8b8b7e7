// The system's parser reads the XML of every kind of document: cscript xml.js FOLDER. In this language, because Wine's
// other one can make no parser.
var failures = 0;
var factory = new ActiveXObject("OrvaneDocumenti.VqDocumenti");

function fail(what, reason) {
  ++failures;
  WScript.Echo("FAILED " + what + ": " + reason);
}

function parse(what, xml, root, path, expected) {
  var parser = new ActiveXObject("Msxml2.DOMDocument");
  parser.async = false;
  parser.preserveWhiteSpace = true;
  if (!parser.loadXML(xml)) return fail(what, parser.parseError.reason);
  var node = parser.selectSingleNode(path);
  if (node === null) return fail(what, "no " + path);
  var found = parser.documentElement.nodeName;
  if (found !== root || node.text !== expected) {
    fail(what, "expected " + root + " with " + expected + ", got " + found + " with " + node.text);
  }
}

var difficult = "a<b & \"c\" > 'd' \t ]]> e";
var stampa = factory.NuovoDocumentoStampa();
stampa.Stampante = difficult;
parse("print", stampa.Xml(), "Stampa", "/Stampa/Stampante", difficult);
stampa.Stampante = "x\u0001y";
parse("a forbidden character", stampa.Xml(), "Stampa", "/Stampa/Numero", "0");

var fax = factory.NuovoDocumentoFax();
fax.Oggetto = difficult;
parse("fax", fax.Xml(), "Fax", "/Fax/Oggetto", difficult);
var pfax = factory.NuovoDocumentoPFax();
pfax.Oggetto = difficult;
parse("printer-fax", pfax.Xml(), "PrinterFax", "/PrinterFax/Oggetto", difficult);
var email = factory.NuovoDocumentoEmail();
email.Oggetto = difficult;
parse("e-mail", email.Xml(), "Email", "/Email/Oggetto", difficult);

// Documents that wrap another show it once they are bound.
function parseWrapping(what, document, root) {
  document.ImpostaDocumento(2);
  document.Inizializza(what, 2, WScript.Arguments(0));
  document.Documento.Stampante = difficult;
  parse(what, document.Xml(), root, "//Stampa/Stampante", difficult);
}
parseWrapping("publication", factory.NuovoDocumentoPbl(), "Pubblicazione");
parseWrapping("preview", factory.NuovoDocumentoAnteprima(), "Anteprima");
if (failures === 0) WScript.Echo("PASSED");
WScript.Quit(failures);
