// Other profile-file libraries, doing what a job file does with the same keys. Each is a source file of its
// own, built where the library is installed.
#pragma once

#include <string>
#include <vector>

#include "bench/Bench.h"

namespace orvane::bench {

struct IniPeer {
  const char* name;
  /// Loads the file, sets the value, writes all of it to `path`.tmp and renames that to `path`.
  void (*assign)(const std::string& path, const Key& key, const std::string& value);
  /// Loads the file and puts the values of `keys` into `values`, which has their number of texts.
  void (*fetch)(const std::string& path, const std::vector<Key>& keys, std::vector<std::string>& values);
};

/// Those that are built in.
std::vector<IniPeer>& iniPeers();

struct RegisteredIniPeer {
  explicit RegisteredIniPeer(const IniPeer& peer) { iniPeers().push_back(peer); }
};

/// Creates `path`.tmp, writes it, closes it and renames it: the least that an atomic replace needs. With
/// `durable`, file and folder are flushed to the device.
void replaceRaw(const std::string& path, const char* bytes, std::size_t size, bool durable = false);

}  // namespace orvane::bench
