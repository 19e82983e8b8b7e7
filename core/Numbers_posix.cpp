#include <langinfo.h>
#include <locale.h>

#include "core/Numbers.h"

namespace orvane {

Text decimalSeparator() {
  const locale_t user = newlocale(LC_NUMERIC_MASK | LC_CTYPE_MASK, "", nullptr);
  if (user == nullptr) return u".";
  const Text separator = fromUtf8(nl_langinfo_l(RADIXCHAR, user));
  freelocale(user);
  return separator;
}

}  // namespace orvane
