#include "bench/XmlPeers.h"

namespace orvane::bench {

namespace {

std::string unescaped(std::string text) {
  const std::pair<const char*, const char*> kEntities[] = {{"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}};
  for (const auto& [entity, plain] : kEntities) {
    for (auto at = text.find(entity); at != std::string::npos; at = text.find(entity, at + 1)) {
      text.replace(at, std::string(entity).size(), plain);
    }
  }
  return text;
}

// The element whose start tag begins at `at`, which then stands behind its end.
Element parse(const std::string& xml, std::size_t& at) {
  const std::size_t close = xml.find('>', at);
  Element element{xml.substr(at + 1, close - at - 1), {}, {}};
  at = close + 1;
  if (element.name.ends_with('/')) return element.name.pop_back(), element;
  const std::size_t textEnd = xml.find('<', at);
  element.text = unescaped(xml.substr(at, textEnd - at));
  for (at = textEnd; xml[at + 1] != '/';) element.children.push_back(parse(xml, at));
  at = xml.find('>', at) + 1;
  return element;
}

}  // namespace

Element treeOf(const std::string& xml) {
  std::size_t at = 0;
  return parse(xml, at);
}

std::vector<XmlPeer>& xmlPeers() {
  static std::vector<XmlPeer> peers;
  return peers;
}

}  // namespace orvane::bench
