// A fax, an e-mail and a print job from C#: Compose FOLDER ATTACHMENT
// FOLDER gets the jobs; ATTACHMENT is a file that goes with the fax and the e-mail.
// The project refers to the type library (Add, COM Reference: OrvaneDocumenti).
using System;
using System.IO;
using System.Runtime.InteropServices;
using OrvaneDocumenti;

class Compose {
  // One factory, kept for as long as documents are used: a local one might be collected before.
  readonly VqDocumenti factory = new VqDocumenti();
  readonly string folder;
  readonly string attachment;

  Compose(string folder, string attachment) {
    this.folder = folder;
    this.attachment = attachment;
  }

  [STAThread]
  static int Main(string[] arguments) {
    try {
      var composer = new Compose(arguments[0], arguments[1]);
      composer.ComposeFax();
      composer.ComposeEmail();
      composer.ComposePrint();
      composer.Report();
      composer.TryToLoad("manca.vqs");
      return 0;
    } catch (COMException error) {
      Console.Error.WriteLine($"errore {error.ErrorCode & 0xFFFF}, {error.Message}");
      return 1;
    }
  }

  // Bound to its job file, a document writes every assignment at once; collections are written by Salva.
  void ComposeFax() {
    var fax = factory.NuovoDocumentoFax();
    fax.Inizializza("fax", folder);
    fax.NumeroFax.PrefissoInternazionale = "39";
    fax.NumeroFax.PrefissoLocale = "06";
    fax.NumeroFax.Numero = "1234567";
    fax.Oggetto = "Offerta n. 12";
    fax.Destinatario = "Anna Verdi";
    fax.Frontespizio.Inviare = true;
    fax.Frontespizio.set_Nota(0, "Gentile cliente, ecco l'offerta.");
    Attach(fax.Allegati);
    fax.Coda.Codice = enmVqDocCodaFax.vdcf_DaConvertire;
  }

  void ComposeEmail() {
    var mail = factory.NuovoDocumentoEmail();
    mail.Inizializza("email", folder);
    mail.Oggetto = "Fattura n. 12";
    mail.Account.IndirizzoEmail = "amministrazione@example.com";
    mail.A.NomiVisualizzati = "Anna Verdi";
    mail.A.IndirizziEmail = "anna.verdi@example.com";
    mail.Cc.IndirizziEmail = "archivio@example.com";
    mail.Messaggio.set_Nota(0, "Gentile cliente,");
    mail.Messaggio.set_Nota(1, "in allegato la fattura.");
    Attach(mail.Allegati);
    mail.Coda.Codice = enmVqDocCodaEmail.vdce_DaConvertire;
  }

  void ComposePrint() {
    var stampa = factory.NuovoDocumentoStampa();
    stampa.Inizializza("stampa", folder);
    stampa.Stampante = "Laser";
    stampa.Copie = 2;
    stampa.Dimensione.Codice = enmVqDocDimensione.vdd_A4;
    stampa.FronteRetro.Codice = enmVqDocFronteRetro.vdfr_Verticale;
    stampa.Proprieta.Utente = "mrossi";
    stampa.Proprieta.Descrizione = "Listino di marzo";
    var label = factory.NuovoDocumentoStampa();
    label.Inizializza("etichetta", folder, true);
    label.Stampante = "Etichette";
    stampa.Collegati.Add(ref label);
    stampa.Collegati.Salva();
    stampa.Coda.Codice = enmVqDocCodaStampa.vdcs_DaStampare;
  }

  void Attach(VqDocAllegati attachments) {
    var name = Path.GetFileName(attachment);
    attachments.Add(Path.GetDirectoryName(attachment), ref name);
    attachments.Salva();
  }

  // New objects, loaded from the files: what the server has written by then is in them.
  void Report() {
    var fax = factory.NuovoDocumentoFax();
    fax.Carica(folder, "fax.vqf");
    Show(fax.Proprieta, fax.Coda.Descrizione(), $"{fax.NumeroFax.NumeroEsteso()}, allegati {fax.Allegati.Count}");
    var mail = factory.NuovoDocumentoEmail();
    mail.Carica(folder, "email.vqe");
    Show(mail.Proprieta, mail.Coda.Descrizione(), $"{mail.A.IndirizziEmail}, allegati {mail.Allegati.Count}");
    var stampa = factory.NuovoDocumentoStampa();
    stampa.Carica(folder, "stampa.vqs");
    Show(stampa.Proprieta, stampa.Coda.Descrizione(),
      $"{stampa.Stampante}, copie {stampa.Copie}, {stampa.Dimensione.Descrizione()}");
    foreach (VqDocStampa linked in stampa.Collegati) {
      Console.WriteLine($"  con {linked.Proprieta.Id} su {linked.Stampante}");
    }
  }

  void Show(VqDocProprieta properties, string queue, string text) {
    Console.WriteLine($"{properties.FileIntestazione.Nome}: {properties.Tipo.Descrizione()}, {queue}, " +
      $"{properties.Esito.Descrizione()}, {text}");
  }

  void TryToLoad(string file) {
    try {
      factory.NuovoDocumentoStampa().Carica(folder, file);
    } catch (COMException error) {
      Console.WriteLine($"{file}: errore {error.ErrorCode & 0xFFFF}, {error.Message}");
    }
  }
}
