#include "pages/ControlCode.h"

#include "core/Error.h"
#include "core/Numbers.h"

namespace orvane {

namespace {

// What a missing key reads as: without a ";" at its end, so that the last byte keeps its value.
constexpr TextView kMissing = u"000;000;000;000;000;000;000";

std::uint8_t toByte(TextView piece) {
  const auto number = parseLong(piece);
  if (!number) throw Error(ErrorNumber::TypeMismatch);
  if (*number < 0 || *number > 255) throw Error(ErrorNumber::Overflow);
  return static_cast<std::uint8_t>(*number);
}

}  // namespace

std::uint8_t ControlCode::at(std::uint8_t index) const {
  if (index >= kSize) throw Error(ErrorNumber::SubscriptOutOfRange);
  return bytes_[index];
}

void ControlCode::set(std::uint8_t index, std::uint8_t byte) {
  if (index >= kSize) throw Error(ErrorNumber::SubscriptOutOfRange);
  bytes_[index] = byte;
  writeThrough();
}

void ControlCode::assign(const Bytes& bytes) {
  bytes_ = bytes;
  writeThrough();
}

Text ControlCode::characters() const { return fromWindows1252(std::string(bytes_.begin(), bytes_.end())); }

Text ControlCode::digits() const {
  Text out(4 * kSize, u';');
  char16_t* at = out.data();
  for (const int byte : bytes_) {
    *at++ = static_cast<char16_t>(u'0' + byte / 100);
    *at++ = static_cast<char16_t>(u'0' + byte / 10 % 10);
    *at++ = static_cast<char16_t>(u'0' + byte % 10);
    ++at;  // over the separator that is there
  }
  return out;
}

void ControlCode::write(ProfileAccess& access, JobFile& file, Name section) const {
  Text text;
  for (const std::uint8_t byte : bytes_) (text += decimalText(byte)) += u';';
  access.ScriviTesto(file, section, name(), text);
}

// What follows the last ";" is never read: what was written ends in one, and all seven bytes are read.
void ControlCode::load(ProfileAccess& access, JobFile& file, Name section) {
  const TextView text = access.VediTesto(file, section, name(), kMissing);
  std::size_t i = 0;
  std::size_t begin = 0;
  for (std::size_t end = 0; end < text.size(); ++end) {
    if (text[end] != u';') continue;
    if (i >= kSize) throw Error(ErrorNumber::SubscriptOutOfRange);
    bytes_[i++] = toByte(text.substr(begin, end - begin));
    begin = end + 1;
  }
}

}  // namespace orvane
