// Any text in the XML: expat, which is none of ours, finds it well-formed.
#include <expat.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "core/XmlWriter.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  orvane::Text text(size / 2, u'\0');
  if (size >= 2) std::memcpy(text.data(), data, text.size() * 2);
  orvane::XmlWriter writer(u",");
  writer.begin(u"Radice");
  writer.text(text);
  writer.element(u"Valore", text);
  writer.end(u"Radice");
  const orvane::Text xml = writer.result();
  const XML_Parser parser = XML_ParserCreate("UTF-16LE");
  const auto length = static_cast<int>(xml.size() * sizeof(char16_t));
  if (XML_Parse(parser, reinterpret_cast<const char*>(xml.data()), length, 1) != XML_STATUS_OK) std::abort();
  XML_ParserFree(parser);
  return 0;
}
