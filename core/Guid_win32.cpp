#include <objbase.h>

#include "core/Error.h"
#include "core/Guid.h"

namespace orvane {

Text newGuid() {
  GUID guid;
  if (CoCreateGuid(&guid) != S_OK) throw Error(ErrorNumber::DeviceIo);
  wchar_t text[128];
  const int count = StringFromGUID2(guid, text, 128);
  return Text(reinterpret_cast<const char16_t*>(text), static_cast<std::size_t>(count - 1));
}

}  // namespace orvane
