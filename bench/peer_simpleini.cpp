#define SI_NO_CONVERSION  // the file is UTF-8 and so are its users
#include <SimpleIni.h>

#include "bench/IniPeers.h"

namespace orvane::bench {

namespace {

constexpr bool kUtf8 = true;

void assign(const std::string& path, const Key& key, const std::string& value) {
  CSimpleIniA file(kUtf8);
  file.LoadFile(path.c_str());
  file.SetValue(key.first.c_str(), key.second.c_str(), value.c_str());
  std::string bytes;
  file.Save(bytes);
  replaceRaw(path, bytes.data(), bytes.size());
}

void fetch(const std::string& path, const std::vector<Key>& keys, std::vector<std::string>& values) {
  CSimpleIniA file(kUtf8);
  file.LoadFile(path.c_str());
  for (std::size_t i = 0; i < keys.size(); ++i) {
    values[i] = file.GetValue(keys[i].first.c_str(), keys[i].second.c_str(), "");
  }
}

const RegisteredIniPeer peer({"SimpleIni", assign, fetch});

}  // namespace

}  // namespace orvane::bench
