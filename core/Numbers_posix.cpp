#include <langinfo.h>
#include <locale.h>

#include <cstdlib>

#include "core/Numbers.h"
#include "core/OfThread.h"

namespace orvane {

namespace {

// What the user's choice hangs on.
std::string localeNames() {
  std::string names;
  for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LC_CTYPE", "LANG"}) {
    const char* const name = std::getenv(variable);
    (names += name != nullptr ? name : "") += '\n';
  }
  return names;
}

Text separatorOfLocale() {
  const locale_t user = newlocale(LC_NUMERIC_MASK | LC_CTYPE_MASK, "", nullptr);
  if (user == nullptr) return u".";
  const Text separator = fromUtf8(nl_langinfo_l(RADIXCHAR, user));
  freelocale(user);
  return separator;
}

}  // namespace

// Opening a locale reads files, so it is opened once as long as the user's choice stays.
Text decimalSeparator() {
  struct Known {
    std::string names;
    Text separator;
  };
  Known& known = OfThread<Known>::get();
  if (std::string names = localeNames(); names != known.names)
    known = {std::move(names), separatorOfLocale()};
  return known.separator;
}

}  // namespace orvane
