// The queue records of the six channels.
#pragma once

#include <array>

#include "queues/QueueRecord.h"

namespace orvane {

/// Text numbers of state 0, by channel: never change one. Printer-faxes read as prints.
namespace names {
inline constexpr CodeNames CodaStampa{8100};
inline constexpr CodeNames CodaPFax{8100};
inline constexpr CodeNames CodaFax{8500};
inline constexpr CodeNames CodaEmail{8800};
inline constexpr CodeNames CodaPbl{9400};
inline constexpr CodeNames CodaAnteprima{8200};
}  // namespace names

/// Print and printer-fax: the same states under other names.
template <class Enum, const CodeNames& names>
class PrintQueue : public QueueOf<PrintQueue<Enum, names>, QueueMemory<Enum, names>> {
 public:
  using QueueOf<PrintQueue, QueueMemory<Enum, names>>::QueueOf;
  QueueDate DataDaStampare{*this, u"DataDaStampare"};
  QueueDate DataInStampa{*this, u"DataInStampa"};
  QueueDate DataElaborazione{*this, u"DataElaborazione"};

  static constexpr auto stamps() {
    return std::array{&PrintQueue::DataDaStampare, &PrintQueue::DataInStampa, &PrintQueue::DataElaborazione,
                      &PrintQueue::DataElaborazione};
  }
};

class VqDocCodaStampa : public PrintQueue<enmVqDocCodaStampa, names::CodaStampa> {
 public:
  VqDocCodaStampa() : PrintQueue(u"CodaStampa") {}

 private:
  friend class VqDocumenti;
  /// What a duplicate takes over beside code and insertion date. The last queue is not written.
  void copyHistory(const VqDocCodaStampa& from) {
    copy(DataDaStampare, from.DataDaStampare);
    copy(DataInStampa, from.DataInStampa);
    copy(DataElaborazione, from.DataElaborazione);
    copy(UltimaCodaCodice, from.UltimaCodaCodice);
  }
};

class VqDocCodaPFax : public PrintQueue<enmVqDocCodaPFax, names::CodaPFax> {
 public:
  VqDocCodaPFax() : PrintQueue(u"CodaPFax") {}
};

class VqDocCodaFax : public QueueOf<VqDocCodaFax, QueueMemory<enmVqDocCodaFax, names::CodaFax>> {
 public:
  VqDocCodaFax() : QueueOf(u"CodaFax") {}
  QueueDate DataDaConvertire{*this, u"DataDaConvertire"};
  QueueDate DataInConversione{*this, u"DataInConversione"};
  QueueDate DataDaTrasmettere{*this, u"DataDaTrasmettere"};
  QueueDate DataInTrasmissione{*this, u"DataInTrasmissione"};
  QueueDate DataDaStampare{*this, u"DataDaStampare"};
  QueueDate DataInStampa{*this, u"DataInStampa"};
  QueueDate DataDaNotificare{*this, u"DataDaNotificare"};
  QueueDate DataInNotifica{*this, u"DataInNotifica"};
  QueueDate DataElaborazione{*this, u"DataElaborazione"};
  QueueDate DataDaConfermare{*this, u"DataDaConfermare"};

  static constexpr auto stamps() {
    using F = VqDocCodaFax;
    constexpr QueueDate F::*none = nullptr;  // discarded, deleted
    return std::array{&F::DataDaConvertire,
                      &F::DataInConversione,
                      &F::DataDaTrasmettere,
                      &F::DataInTrasmissione,
                      &F::DataDaStampare,
                      &F::DataInStampa,
                      &F::DataDaNotificare,
                      &F::DataInNotifica,
                      &F::DataElaborazione,
                      &F::DataElaborazione,
                      none,
                      none,
                      &F::DataDaConfermare};
  }
};

class VqDocCodaEmail : public QueueOf<VqDocCodaEmail, QueueState<enmVqDocCodaEmail, names::CodaEmail>> {
 public:
  VqDocCodaEmail() : QueueOf(u"CodaEmail") {}
  QueueDate DataDaConvertire{*this, u"DataDaConvertire"};
  QueueDate DataInConversione{*this, u"DataInConversione"};
  QueueDate DataDaTrasmettere{*this, u"DataDaTrasmettere"};
  QueueDate DataInTrasmissione{*this, u"DataInTrasmissione"};
  QueueDate DataDaStampare{*this, u"DataDaStampare"};
  QueueDate DataInStampa{*this, u"DataInStampa"};
  QueueDate DataElaborazione{*this, u"DataElaborazione"};

  static constexpr auto stamps() {
    using E = VqDocCodaEmail;
    return std::array{&E::DataDaConvertire,   &E::DataInConversione, &E::DataDaTrasmettere,
                      &E::DataInTrasmissione, &E::DataDaStampare,    &E::DataInStampa,
                      &E::DataElaborazione,   &E::DataElaborazione};
  }
};

/// Its section is not called after its class: servers know it as "CodaPubblicazione".
class VqDocCodaPbl : public QueueOf<VqDocCodaPbl, QueueMemory<enmVqDocCodaPbl, names::CodaPbl>> {
 public:
  VqDocCodaPbl() : QueueOf(u"CodaPubblicazione") {}
  QueueDate DataDaConvertire{*this, u"DataDaConvertire"};
  QueueDate DataInConversione{*this, u"DataInConversione"};
  QueueDate DataDaPubblicare{*this, u"DataDaPubblicare"};
  QueueDate DataInPubblicazione{*this, u"DataInPubblicazione"};
  QueueDate DataElaborazione{*this, u"DataElaborazione"};

  static constexpr auto stamps() {
    using P = VqDocCodaPbl;
    return std::array{&P::DataDaConvertire,    &P::DataInConversione, &P::DataDaPubblicare,
                      &P::DataInPubblicazione, &P::DataElaborazione,  &P::DataElaborazione};
  }
};

class VqDocCodaAnteprima
    : public QueueOf<VqDocCodaAnteprima, QueueState<enmVqDocCodaAnteprima, names::CodaAnteprima>> {
 public:
  VqDocCodaAnteprima() : QueueOf(u"CodaAnteprima") {}
  QueueDate DataDaGenerare{*this, u"DataDaGenerare"};
  QueueDate DataInGenerazione{*this, u"DataInGenerazione"};
  QueueDate DataElaborazione{*this, u"DataElaborazione"};

  static constexpr auto stamps() {
    using A = VqDocCodaAnteprima;
    return std::array{&A::DataDaGenerare, &A::DataInGenerazione, &A::DataElaborazione, &A::DataElaborazione};
  }
};

}  // namespace orvane
