#include "core/Component.h"

namespace orvane {

void Component::NodoXml(XmlWriter& xml) const {
  xml.begin(element_);
  renderValues(xml);
  renderParts(xml);
  xml.end(element_);
}

}  // namespace orvane
