// Any bytes as a job file: reading takes them, what is written is read back, and everything else stays.
#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "core/ProfileText.h"
#include "core/ProfileValue.h"

namespace {

using orvane::ProfileText;
using orvane::Text;
using orvane::TextView;

void insist(bool holds) {
  if (!holds) std::abort();
}

Text takeText(const std::uint8_t*& data, std::size_t& size) {
  if (size == 0) return {};
  const std::size_t length = std::min<std::size_t>(*data % 16, (size - 1) / 2);
  Text text;
  for (std::size_t i = 0; i < length; ++i)
    text += static_cast<char16_t>(data[1 + 2 * i] | data[2 + 2 * i] << 8);
  data += 1 + 2 * length;
  size -= 1 + 2 * length;
  return text;
}

Text stored(TextView value) {
  Text text;
  orvane::appendStoredValue(text, value);
  return text;
}

// Of `before` nothing may be gone but one piece of `gone` units, and `after` has one piece in its place.
void checkTheRestStays(TextView before, TextView after, std::size_t gone) {
  const auto differ = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  const auto prefix = static_cast<std::size_t>(differ.first - before.begin());
  const TextView restBefore = before.substr(prefix), restAfter = after.substr(prefix);
  const auto behind =
      std::mismatch(restBefore.rbegin(), restBefore.rend(), restAfter.rbegin(), restAfter.rend());
  const auto suffix = static_cast<std::size_t>(behind.first - restBefore.rbegin());
  insist(prefix + suffix + gone >= before.size());
}

Text unitsOf(std::string_view bytes) {
  Text text(bytes.size() / 2, u'\0');
  std::memcpy(text.data(), bytes.data(), text.size() * 2);
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Text section = takeText(data, size), key = takeText(data, size), value = takeText(data, size);
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  ProfileText text;
  text.parse(bytes);
  const std::string before(text.bytes());
  text.find(section, key);
  insist(text.bytes() == before);
  if (!orvane::canBeSection(section) || !orvane::canBeKey(key)) return 0;

  const Text wanted = stored(value);
  const std::size_t gone = text.find(section, key).value_or(TextView()).size();
  const bool other = text.find(u"Stampa", u"Copie").has_value();
  const Text foreign(text.find(u"Stampa", u"Copie").value_or(TextView()));
  text.set(section, key, wanted);
  insist(text.find(section, key) == TextView(wanted));
  checkTheRestStays(unitsOf(before), unitsOf(text.bytes()), gone);

  ProfileText again;
  again.parse(text.bytes());
  insist(text.bytes().starts_with("\xFF\xFE") && text.bytes().size() % 2 == 0);
  insist(again.bytes() == text.bytes());
  insist(again.find(section, key) == TextView(wanted));
  Text room;
  insist(orvane::plainValue(wanted, room) == TextView(value));
  const bool same = orvane::equalIgnoringCase(section, u"Stampa") && orvane::equalIgnoringCase(key, u"Copie");
  if (other && !same) insist(again.find(u"Stampa", u"Copie") == TextView(foreign));
  return 0;
}
