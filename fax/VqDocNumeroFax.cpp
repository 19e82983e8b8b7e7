#include "fax/VqDocNumeroFax.h"

#include "codes/VqDocResDll.h"

namespace orvane {

namespace {

constexpr std::int32_t kMissingPart = 7300;  // the text "Errore"

}  // namespace

Text VqDocNumeroFax::NumeroEsteso() const {
  const Text &international = PrefissoInternazionale, &local = PrefissoLocale, &number = Numero;
  const auto missing = [] { return Apartment::strings().LoadDllString(kMissingPart); };
  Text out;
  if (!international.empty()) {
    out = local.empty() ? missing() : international + u'-' + local + u'-';
  } else if (!local.empty()) {
    out = local + u'-';
  }
  return number.empty() ? missing() : out + number;
}

}  // namespace orvane
