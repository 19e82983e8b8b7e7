// The text of an e-mail.
#pragma once

#include "core/Component.h"
#include "core/NoteLines.h"

namespace orvane {

/// Section "Messaggio": thirty lines, "Nota_0" to "Nota_29".
class VqDocMessaggio : public Component {
 public:
  VqDocMessaggio() : Component(u"Messaggio", u"Messaggio") {}

  NoteLines<30> Nota{*this};
  std::int32_t LBoundNota() const { return 0; }
  std::int32_t UBoundNota() const { return static_cast<std::int32_t>(Nota.all().size()) - 1; }
};

}  // namespace orvane
