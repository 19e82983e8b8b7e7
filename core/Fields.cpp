#include "core/Fields.h"

namespace orvane {

void Fields::loadFields(JobFile& file) {
  ProfileAccess& access = Apartment::profileAccess();
  for (Property* p = first_; p != nullptr; p = p->next_) {
    if (p->isKept(Kept::JobFile)) p->load(access, file, section_);
  }
}

void Fields::renderFields(XmlWriter& xml) const {
  for (const Property* p = first_; p != nullptr; p = p->next_) {
    if (p->isKept(Kept::Xml)) p->render(xml);
  }
}

void Fields::renderOne(XmlWriter& xml, const Property& property) { property.render(xml); }

Property* Fields::nextProperty(const Property& property) { return property.next_; }

void WrittenProperty::writeThrough() const {
  if (!isKept(Kept::WriteOnly)) return;
  ProfileAccess& access = Apartment::profileAccess();
  write(access, *target(), section());
}

namespace detail {

Text readValue(ProfileAccess& access, JobFile& file, Name section, Name key, const Text& missing) {
  return access.LeggiTesto(file, section, key, missing);
}

std::int32_t readValue(ProfileAccess& access, JobFile& file, Name section, Name key, std::int32_t missing) {
  return access.LeggiIntero(file, section, key, missing);
}

bool readValue(ProfileAccess& access, JobFile& file, Name section, Name key, bool missing) {
  return access.LeggiBooleano(file, section, key, missing);
}

Date readValue(ProfileAccess& access, JobFile& file, Name section, Name key, Date missing) {
  return access.LeggiData(file, section, key, missing);
}

}  // namespace detail

}  // namespace orvane
