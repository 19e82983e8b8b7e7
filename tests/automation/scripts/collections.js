// The same server from JScript: cscript collections.js FOLDER
var failures = 0;
function check(what, expected, got) {
  if (expected === got) return;
  failures++;
  WScript.Echo("FAILED " + what + ": expected " + expected + ", got " + got);
}

var factory = new ActiveXObject("OrvaneDocumenti.VqDocumenti");
var stampa = factory.NuovoDocumentoStampa();
for (var i = 0; i < 3; i++) stampa.Pagine.Add(stampa.Pagine.Nuova());
var numbers = "";
for (var pages = new Enumerator(stampa.Pagine); !pages.atEnd(); pages.moveNext()) numbers += pages.item().Numero;
check("numbers", "123", numbers);
check("count", 3, stampa.Pagine.Count);
check("item", 2, stampa.Pagine.Item(2).Numero);
stampa.Copie = 2.0;
check("copies", 2, stampa.Copie);
stampa.Stampante = "Laser";
check("printer", "Laser", stampa.Stampante);
check("truth", false, stampa.Inizializzato);
stampa.Diretta.CatalogoDestinazione.GrassettoOn(1) = 27;
check("indexed let", 27, stampa.Diretta.CatalogoDestinazione.GrassettoOn(1));
var page = stampa.Pagine.Item(1);
// JScript has no such array of its own; a dictionary gives one.
var dictionary = new ActiveXObject("Scripting.Dictionary");
dictionary.Add("uno", 1);
dictionary.Add("due", 2);
page.ArrayTxt = dictionary.Keys();
var lines = page.ArrayTxt;
page.ArrayScriptB = lines;
check("array", "uno,due", new VBArray(page.ArrayScriptB).toArray().join());
try {
  stampa.Carica("", "1.vqs");
  check("an error", "raised", "none");
} catch (error) {
  check("number", 76, error.number & 0xFFFF);
  check("text", "Path not found", error.description);
}
if (failures === 0) WScript.Echo("PASSED");
WScript.Quit(failures);
