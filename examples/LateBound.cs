// A print job from C# without a reference to the type library: LateBound FOLDER
// A wrong name fails when it runs, not when it is compiled; codes are numbers.
using System;
using System.Runtime.InteropServices;

class LateBound {
  [STAThread]
  static int Main(string[] arguments) {
    var folder = arguments[0];
    dynamic factory = Activator.CreateInstance(Type.GetTypeFromProgID("OrvaneDocumenti.VqDocumenti", true));
    try {
      dynamic stampa = factory.NuovoDocumentoStampa();
      stampa.Inizializza("stampa", folder);
      stampa.Stampante = "Laser";
      stampa.Copie = 2;
      stampa.Dimensione.Codice = 9;  // vdd_A4
      stampa.Proprieta.Utente = "mrossi";
      stampa.Coda.Codice = 0;  // vdcs_DaStampare

      dynamic loaded = factory.NuovoDocumentoStampa();
      loaded.Carica(folder, "stampa.vqs");
      Console.WriteLine($"{loaded.Coda.Descrizione()}, {loaded.Proprieta.Esito.Descrizione()}, " +
        $"{loaded.Dimensione.Descrizione()}");
      return 0;
    } catch (COMException error) {
      Console.Error.WriteLine($"errore {error.ErrorCode & 0xFFFF}, {error.Message}");
      return 1;
    } finally {
      GC.KeepAlive(factory);  // it must outlive the documents
    }
  }
}
