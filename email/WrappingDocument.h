// What publication and preview have in common: a job around an inner document.
#pragma once

#include <variant>

#include "core/VqDocStampa.h"
#include "email/VqDocEmail.h"
#include "fax/VqDocFax.h"
#include "fax/VqDocPFax.h"

namespace orvane {

/// A document of any of the four kinds, or none.
using InnerDocument = std::variant<std::monostate, std::shared_ptr<VqDocFax>, std::shared_ptr<VqDocStampa>,
                                   std::shared_ptr<VqDocEmail>, std::shared_ptr<VqDocPFax>>;

/// The linked documents of an inner document; they keep it alive.
using InnerLinks = std::variant<std::monostate, std::shared_ptr<VqDocCollegatiFax>,
                                std::shared_ptr<VqDocCollegatiStampa>, std::shared_ptr<VqDocCollegatiEmail>>;

/// The inner document is made once, by `ImpostaDocumento` or by binding, and bound under the wrapping kind's
/// own extension. What is asked of it while there is none raises error 91.
class WrappingDocument : protected Owner {
 public:
  WrappingDocument(const WrappingDocument&) = delete;
  WrappingDocument& operator=(const WrappingDocument&) = delete;

  VqDocPagine& Pagine() const { return inner().Pagine; }
  const InnerDocument& Documento() const { return document_; }
  VqDocProprieta& Proprieta() const { return inner().Proprieta; }
  InnerLinks Collegati() const;

  ReadOnly<bool, WrappingDocument> Inizializzato;  ///< bound to a job file

  /// Load the kind that section "Tipo" names, then what the wrapping adds. Errors 445, 76 and 53 as for every
  /// document, 445 for `vdt_Sconosciuto`; 91 where the file names no kind and there is no inner document yet.
  /// Where what the wrapping adds cannot be read, an inner document that this call has made is let go, so
  /// that it can be tried again; one that was there before stays bound.
  void Carica(TextView Percorso, TextView NomeFile);

  /// Bind the inner document, made anew as `Tipo` says if there is none, to the file `Id` with the wrapping
  /// extension. Errors 445 and 76 as for every document, 445 for `vdt_Sconosciuto`, 91 for a number that is
  /// no kind.
  void Inizializza(TextView Id, enmVqDocTipo Tipo, TextView PercorsoDocumenti);

  /// Make the inner document if there is none yet; one that is there stays, whatever `Tipo` says. Error 445
  /// for `vdt_Sconosciuto`, True for anything else, even for a number that is no kind and makes no document.
  bool ImpostaDocumento(enmVqDocTipo Tipo);

  /// The document with the inner one in it, as XML text. Error 91 without an inner document.
  Text Xml() const;

 protected:
  struct Kind {
    const char16_t* element;
    const char16_t* className;
    const char16_t* extension;
  };
  explicit WrappingDocument(const Kind& kind) : kind_(kind) {}
  ~WrappingDocument() = default;

  /// The parts that the wrapping adds.
  virtual void bindParts(const std::shared_ptr<JobFile>& file) = 0;
  virtual void loadParts(const std::shared_ptr<JobFile>& file) = 0;
  virtual void renderParts(XmlWriter& xml) const = 0;

 private:
  Document& inner() const;
  void renderInner(XmlWriter& xml) const;

  const Kind& kind_;
  InnerDocument document_;
};

}  // namespace orvane
