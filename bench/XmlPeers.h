// XML libraries that build the tree of a document and serialise it. Each is a source file of its own, built
// where the library is installed.
#pragma once

#include <string>
#include <vector>

#include "bench/Bench.h"

namespace orvane::bench {

/// An element in UTF-8; text stands before children.
struct Element {
  std::string name;
  std::string text;
  std::vector<Element> children;
};

/// The tree of a text that `Xml` made.
Element treeOf(const std::string& xml);

struct XmlPeer {
  const char* name;
  /// Builds the tree with the library, element by element, and serialises it as `Xml` does: no declaration,
  /// no white space added.
  std::string (*write)(const Element& root);
};

/// Those that are built in.
std::vector<XmlPeer>& xmlPeers();

struct RegisteredXmlPeer {
  explicit RegisteredXmlPeer(const XmlPeer& peer) { xmlPeers().push_back(peer); }
};

}  // namespace orvane::bench
