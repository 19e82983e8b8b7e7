#include <windows.h>

#include "core/Numbers.h"

namespace orvane {

Text decimalSeparator() {
  wchar_t buffer[8] = L".";
  GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, buffer, 8);
  return Text(reinterpret_cast<const char16_t*>(buffer));
}

}  // namespace orvane
