#include "fax/VqDocFrontespizio.h"

namespace orvane {

Text VqDocFrontespizio::Note() const {
  Text out;
  for (const Text& note : Nota.all()) {
    if (&note != &Nota.all().front()) out += u"\r\n";
    out += note;
  }
  return out;
}

}  // namespace orvane
