#include <sys/random.h>

#include <array>
#include <cstdint>

#include "core/Error.h"
#include "core/Guid.h"

namespace orvane {

Text newGuid() {
  std::array<std::uint8_t, 16> bytes;
  if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
    throw Error(ErrorNumber::DeviceIo);
  bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40);  // version 4: random
  bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);  // the standard's variant
  Text guid = u"{";
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i == 4 || i == 6 || i == 8 || i == 10) guid += u'-';
    guid += u"0123456789ABCDEF"[bytes[i] >> 4];
    guid += u"0123456789ABCDEF"[bytes[i] & 15];
  }
  return guid += u'}';
}

}  // namespace orvane
