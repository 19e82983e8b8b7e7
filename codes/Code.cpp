#include "codes/Code.h"

#include <cstdlib>

#include "codes/VqDocResDll.h"
#include "core/Error.h"

namespace orvane {

Text describe(const CodeNames& names, std::int32_t code) {
  const std::int64_t wide = code;
  const std::int64_t id = names.base + (names.magnitude ? std::abs(wide) : wide);
  if (id != static_cast<std::int32_t>(id)) throw Error(ErrorNumber::Overflow);
  return Apartment::strings().LoadDllString(static_cast<std::int32_t>(id));
}

void CodeProperty::assign(std::int32_t code) {
  value_ = code;
  writeThrough();
}

void CodeProperty::write(ProfileAccess& access, JobFile& file, Name section) const {
  file.together([&] {
    access.ScriviNumero(file, section, names_.key, value_);
    access.ScriviTesto(file, section, names_.descriptionKey, description());
  });
}

void CodeProperty::load(ProfileAccess& access, JobFile& file, Name section) {
  value_ = access.LeggiIntero(file, section, names_.key, names_.initial);
}

void CodeProperty::render(XmlWriter& xml) const {
  xml.element(names_.element, value_);
  xml.element(names_.descriptionElement, description());
}

}  // namespace orvane
