// A fax, an e-mail and a print job from JScript: cscript compose.js FOLDER ATTACHMENT
// FOLDER gets the jobs; ATTACHMENT is a file that goes with the fax and the e-mail.

// One factory, kept for as long as documents are used.
var factory = new ActiveXObject("OrvaneDocumenti.VqDocumenti");
var folder = WScript.Arguments(0);
var attachment = WScript.Arguments(1);

composeFax();
composeEmail();
composePrint();
report();

// Bound to its job file, a document writes every assignment at once; collections are written by Salva.
function composeFax() {
  var fax = factory.NuovoDocumentoFax();
  fax.Inizializza("fax", folder);
  fax.NumeroFax.PrefissoInternazionale = "39";
  fax.NumeroFax.PrefissoLocale = "06";
  fax.NumeroFax.Numero = "1234567";
  fax.Oggetto = "Offerta n. 12";
  fax.Destinatario = "Anna Verdi";
  fax.Frontespizio.Inviare = true;
  fax.Frontespizio.Nota(0) = "Gentile cliente, ecco l'offerta.";
  attach(fax);
  fax.Coda.Codice = 0; // vdcf_DaConvertire: from here on the server may take it
}

function composeEmail() {
  var mail = factory.NuovoDocumentoEmail();
  mail.Inizializza("email", folder);
  mail.Oggetto = "Fattura n. 12";
  mail.Account.IndirizzoEmail = "amministrazione@example.com";
  mail.A.NomiVisualizzati = "Anna Verdi";
  mail.A.IndirizziEmail = "anna.verdi@example.com";
  mail.Cc.IndirizziEmail = "archivio@example.com";
  mail.Messaggio.Nota(0) = "Gentile cliente,";
  mail.Messaggio.Nota(1) = "in allegato la fattura.";
  attach(mail);
  mail.Coda.Codice = 0; // vdce_DaConvertire
}

function composePrint() {
  var stampa = factory.NuovoDocumentoStampa();
  stampa.Inizializza("stampa", folder);
  stampa.Stampante = "Laser";
  stampa.Copie = 2;
  stampa.Dimensione.Codice = 9; // vdd_A4
  stampa.FronteRetro.Codice = 2; // vdfr_Verticale
  stampa.Proprieta.Utente = "mrossi";
  stampa.Proprieta.Descrizione = "Listino di marzo";
  var label = factory.NuovoDocumentoStampa();
  label.Inizializza("etichetta", folder, true);
  label.Stampante = "Etichette";
  stampa.Collegati.Add(label);
  stampa.Collegati.Salva();
  stampa.Coda.Codice = 0; // vdcs_DaStampare
}

function attach(document) {
  var end = attachment.lastIndexOf("\\");
  document.Allegati.Add(attachment.substr(0, end), attachment.substr(end + 1));
  document.Allegati.Salva();
}

// New objects, loaded from the files: what the server has written by then is in them.
function report() {
  var fax = load(factory.NuovoDocumentoFax(), "fax.vqf");
  show(fax, fax.NumeroFax.NumeroEsteso() + ", allegati " + fax.Allegati.Count);
  var mail = load(factory.NuovoDocumentoEmail(), "email.vqe");
  show(mail, mail.A.IndirizziEmail + ", allegati " + mail.Allegati.Count);
  var stampa = load(factory.NuovoDocumentoStampa(), "stampa.vqs");
  show(stampa, stampa.Stampante + ", copie " + stampa.Copie + ", " + stampa.Dimensione.Descrizione());
  for (var linked = new Enumerator(stampa.Collegati); !linked.atEnd(); linked.moveNext()) {
    WScript.Echo("  con " + linked.item().Proprieta.Id + " su " + linked.item().Stampante);
  }
  load(factory.NuovoDocumentoStampa(), "manca.vqs");
}

function load(document, file) {
  try {
    document.Carica(folder, file);
  } catch (error) {
    WScript.Echo(file + ": errore " + (error.number & 0xFFFF) + ", " + error.message);
  }
  return document;
}

function show(document, text) {
  var properties = document.Proprieta;
  WScript.Echo(properties.FileIntestazione.Nome + ": " + properties.Tipo.Descrizione() + ", " +
    document.Coda.Descrizione() + ", " + properties.Esito.Descrizione() + ", " + text);
}
