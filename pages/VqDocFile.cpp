#include "pages/VqDocFile.h"

#include "core/Apartment.h"
#include "core/Error.h"

namespace orvane {

Text VqDocFile::ReadStream(std::int32_t Bytes) const {
  if (Bytes < 0) throw Error(ErrorNumber::InvalidCall);
  return fromWindows1252(systemFileSystem()->readBytes(File(), static_cast<std::size_t>(Bytes)));
}

void VqDocFile::NodoXml(XmlWriter& xml, TextView name) const {
  xml.begin(name);
  xml.element(u"Percorso", Percorso);
  xml.element(u"Nome", Nome);
  xml.end(name);
}

}  // namespace orvane
