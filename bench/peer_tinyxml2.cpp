#include <tinyxml2.h>

#include "bench/XmlPeers.h"

namespace orvane::bench {

namespace {

void append(tinyxml2::XMLDocument& document, tinyxml2::XMLNode& parent, const Element& element) {
  tinyxml2::XMLElement* node = document.NewElement(element.name.c_str());
  parent.InsertEndChild(node);
  if (!element.text.empty()) node->InsertEndChild(document.NewText(element.text.c_str()));
  for (const Element& child : element.children) append(document, *node, child);
}

std::string write(const Element& root) {
  tinyxml2::XMLDocument document;
  append(document, document, root);
  tinyxml2::XMLPrinter printer(nullptr, true);
  document.Print(&printer);
  return {printer.CStr(), static_cast<std::size_t>(printer.CStrSize() - 1)};
}

const RegisteredXmlPeer peer({"tinyxml2", write});

}  // namespace

}  // namespace orvane::bench
