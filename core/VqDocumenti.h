// The factory: where every client begins.
#pragma once

#include <memory>

#include "core/VqDocStampa.h"
#include "email/VqDocAnteprima.h"
#include "email/VqDocPbl.h"

namespace orvane {

/// Makes the services that the thread's documents share, and takes them away when it ends, whichever factory
/// of the thread made them and even while documents are alive; those then raise error 91 wherever they need
/// one, until a new factory is made. Keep one factory a thread for as long as documents are used.
class VqDocumenti {
 public:
  VqDocumenti();
  ~VqDocumenti();
  VqDocumenti(const VqDocumenti&) = delete;
  VqDocumenti& operator=(const VqDocumenti&) = delete;

  /// A new document, not bound to a job file.
  std::shared_ptr<VqDocStampa> NuovoDocumentoStampa() const;
  std::shared_ptr<VqDocFax> NuovoDocumentoFax() const;
  std::shared_ptr<VqDocPFax> NuovoDocumentoPFax() const;
  std::shared_ptr<VqDocAnteprima> NuovoDocumentoAnteprima() const;
  std::shared_ptr<VqDocEmail> NuovoDocumentoEmail() const;
  std::shared_ptr<VqDocPbl> NuovoDocumentoPbl() const;

  /// Copy print options, queue state, properties, body and script files, control codes and linked jobs of a
  /// print document into another that is bound already. Not copied: pages, `Pinzatura`, `Id`, `Intestatario`,
  /// `Funzione`, `LetturaFacilitata`, the codes of error, command, outcome and kind. Each linked job becomes
  /// `<Id>_<linked Id>.lvq` in the folder of the destination. Each job file is replaced once, or twice where
  /// a body or script file is copied: what stands before it in the list above is in the job file before.
  /// Error 91 for no document, 76 where the source has a body or script file and the destination no folder
  /// `Corpi` for it, 28 where the links are too many levels deep for the stack; any error stops the copy, and
  /// what was copied stays. A job file that may not be written stops it at the first option. A full device
  /// may show only when a job file is replaced: then the values of that job are not in its file, and the
  /// linked jobs made before are.
  void DuplicaDocumentoStampa(const std::shared_ptr<VqDocStampa>& DocOriginale,
                              const std::shared_ptr<VqDocStampa>& DocDestinazione) const;

  /// From now on every assignment of this thread's documents reaches the device before it returns. It costs
  /// milliseconds each; without it a job is on the device when its document is released. On Linux the file
  /// before the last one may stay beside such a job file, under the name of a temporary, while it is in use.
  void flushEveryWrite(bool on) const;

  /// From now on assignments to this thread's documents stay in the objects: no job file is written, not even
  /// by loading a fax that is not A4. For programs that only look, also into folders that may not be written.
  void readOnly(bool on) const;

 private:
  void duplicateLinked(const VqDocStampa& from, VqDocStampa& to) const;
  static void copyQueue(const VqDocStampa& from, VqDocStampa& to);
};

}  // namespace orvane
