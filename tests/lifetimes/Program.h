// What the programs of this folder do with a document, wherever they keep it.
#pragma once

#include <cstdio>

#include "orvane.h"

namespace orvane::test {

/// Leaves `<folder>/1.vqs` with a change that is not on the device, and output that is not written. Gives the
/// exit code of the program.
inline int compose(VqDocStampa& job, const char* folder) {
  job.Inizializza(u"1", fromUtf8(folder));
  job.Copie = 3;
  std::fputs("composed", stdout);
  return 7;
}

}  // namespace orvane::test
