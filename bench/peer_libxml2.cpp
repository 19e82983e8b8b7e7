#include <libxml/tree.h>

#include "bench/XmlPeers.h"

namespace orvane::bench {

namespace {

const xmlChar* text(const std::string& utf8) { return reinterpret_cast<const xmlChar*>(utf8.c_str()); }

xmlNodePtr build(const Element& element) {
  xmlNodePtr node = xmlNewNode(nullptr, text(element.name));
  if (!element.text.empty()) xmlAddChild(node, xmlNewText(text(element.text)));
  for (const Element& child : element.children) xmlAddChild(node, build(child));
  return node;
}

std::string write(const Element& root) {
  xmlDocPtr document = xmlNewDoc(text("1.0"));
  xmlDocSetRootElement(document, build(root));
  xmlBufferPtr buffer = xmlBufferCreate();
  xmlNodeDump(buffer, document, xmlDocGetRootElement(document), 0, 0);
  std::string out(reinterpret_cast<const char*>(xmlBufferContent(buffer)),
                  static_cast<std::size_t>(xmlBufferLength(buffer)));
  xmlBufferFree(buffer);
  xmlFreeDoc(document);
  return out;
}

const RegisteredXmlPeer peer({"libxml2", write});

}  // namespace

}  // namespace orvane::bench
