// Sets every member of a component or document to a value of its own, which the files in tests/unit/expected
// named "set" show. Nothing is taken from the library's tables.
#pragma once

#include "core/VqDocumenti.h"
#include "tests/support/FixedClock.h"

namespace orvane::test {

void fill(VqDocCatalogo& catalog);  ///< byte 0 of each function is its number in the XML, from 1
void fill(VqDocTrasmissioneFax& record);
void fill(VqDocAccount& account);
void fill(VqDocLayoutPagina& layout);
void fill(VqDocCedolino& slip);
void fill(VqDocAllegati& attachments);
void fill(VqDocProprieta& properties);  ///< not what binding sets: Id, Tipo, FileIntestazione

void fill(VqDocStampa& document, FixedClock& clock);
void fill(VqDocFax& document, FixedClock& clock);
void fill(VqDocPFax& document, FixedClock& clock);
void fill(VqDocEmail& document, FixedClock& clock);

/// Enter every state from 0 to `last`, one a day from 1 January 2009.
template <class Queue>
void fill(Queue& queue, FixedClock& clock, std::int32_t last) {
  queue.DataInserimento = Date{39800};
  for (std::int32_t state = 0; state <= last; ++state) {
    clock.set({39814.0 + state});
    queue.Codice = state;
  }
}

}  // namespace orvane::test
