// The cover page of a fax.
#pragma once

#include "core/Component.h"
#include "core/NoteLines.h"

namespace orvane {

/// Section "Frontespizio": whether to send a cover page, and its ten lines of notes, "Nota_0" to "Nota_9".
class VqDocFrontespizio : public Component {
 public:
  VqDocFrontespizio() : Component(u"Frontespizio", u"Frontespizio") {}

  Stored<bool> Inviare{*this, u"Inviare"};
  NoteLines<10> Nota{*this};

  /// The ten notes with a carriage return and line feed between each pair, empty notes included.
  Text Note() const;

  std::int32_t LBoundNota() const { return 0; }
  std::int32_t UBoundNota() const { return static_cast<std::int32_t>(Nota.all().size()) - 1; }
};

}  // namespace orvane
