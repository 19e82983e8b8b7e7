#include <boost/property_tree/ini_parser.hpp>
#include <sstream>

#include "bench/IniPeers.h"

namespace orvane::bench {

namespace {

using boost::property_tree::ptree;

ptree loaded(const std::string& path) {
  ptree file;
  boost::property_tree::read_ini(path, file);
  return file;
}

ptree::path_type pathOf(const Key& key) { return {key.first + '\x01' + key.second, '\x01'}; }

void assign(const std::string& path, const Key& key, const std::string& value) {
  ptree file = loaded(path);
  file.put(pathOf(key), value);
  std::ostringstream out;
  boost::property_tree::write_ini(out, file);
  const std::string bytes = out.str();
  replaceRaw(path, bytes.data(), bytes.size());
}

void fetch(const std::string& path, const std::vector<Key>& keys, std::vector<std::string>& values) {
  const ptree file = loaded(path);
  for (std::size_t i = 0; i < keys.size(); ++i) values[i] = file.get(pathOf(keys[i]), "");
}

const RegisteredIniPeer peer({"Boost", assign, fetch});

}  // namespace

}  // namespace orvane::bench
