#include <pugixml.hpp>

#include "bench/XmlPeers.h"

namespace orvane::bench {

namespace {

void append(pugi::xml_node parent, const Element& element) {
  pugi::xml_node node = parent.append_child(element.name.c_str());
  if (!element.text.empty()) node.append_child(pugi::node_pcdata).set_value(element.text.c_str());
  for (const Element& child : element.children) append(node, child);
}

class Appender : public pugi::xml_writer {
 public:
  void write(const void* data, std::size_t size) override {
    text.append(static_cast<const char*>(data), size);
  }
  std::string text;
};

std::string write(const Element& root) {
  pugi::xml_document document;
  append(document, root);
  Appender out;
  document.save(out, "", pugi::format_raw | pugi::format_no_declaration);
  return std::move(out.text);
}

const RegisteredXmlPeer peer({"pugixml", write});

}  // namespace

}  // namespace orvane::bench
