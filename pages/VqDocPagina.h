// One page of a document.
#pragma once

#include "codes/CodeValues.h"
#include "core/Values.h"
#include "pages/VqDocFile.h"

namespace orvane {

/// A page is described by a small header file of its own, which has the form of a job file. Nothing is
/// written until `Salva`. The page collection numbers it and reads it; a page that a client holds outlives
/// its collection.
class VqDocPagina {
 public:
  bool OttimizzaArea = false;
  bool LetturaFacilitata = false;
  enmVqDocPagTipo Tipo = vdpt_Fronte;
  Text Script;  ///< carried for the server, never saved
  bool NuovoFoglio = false;
  enmVqDocPagValidita Validita = vdpv_Nessuna;  ///< the channels that the page is for, as flags
  ReadOnly<std::int32_t, VqDocPagina> Numero;   ///< set when the page is added to a collection

  VqDocFile FileUtente;
  VqDocFile FileTxt;
  VqDocFile FileVvq;  ///< found when the header is read, never saved
  VqDocFile FileBmp;  ///< found when the header is read, never saved

  /// Carried by value for the server, never saved.
  VariantArray ArrayTxt, ArrayScriptA, ArrayScriptB;
  void DistruggiArray();

  std::int32_t RighePagina = 0;  ///< lines
  Currency AltezzaRiga;          ///< height of a line
  VqDocFile FileIntestazione;    ///< the header file
  VqDocLingua Lingua;
  Text Suddivisione;

  /// Write the header file `FileIntestazione.File()`, all keys in one replacement. Errors of the job-file
  /// store.
  void Salva();

 private:
  friend class VqDocPagine;
  void ImpostaNumero(std::int32_t number) { Numero = number; }
  void LeggiFile();
  void findCompanions();
  template <class Visit>
  void visitProperties(Visit visit);
};

}  // namespace orvane
