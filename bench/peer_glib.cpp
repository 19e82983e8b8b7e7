#include <glib.h>

#include "bench/IniPeers.h"

namespace orvane::bench {

namespace {

GKeyFile* loaded(const std::string& path) {
  GKeyFile* file = g_key_file_new();
  g_key_file_load_from_file(file, path.c_str(), G_KEY_FILE_KEEP_COMMENTS, nullptr);
  return file;
}

void assign(const std::string& path, const Key& key, const std::string& value) {
  GKeyFile* file = loaded(path);
  g_key_file_set_value(file, key.first.c_str(), key.second.c_str(), value.c_str());
  gsize size = 0;
  gchar* bytes = g_key_file_to_data(file, &size, nullptr);
  replaceRaw(path, bytes, size);
  g_free(bytes);
  g_key_file_free(file);
}

void fetch(const std::string& path, const std::vector<Key>& keys, std::vector<std::string>& values) {
  GKeyFile* file = loaded(path);
  for (std::size_t i = 0; i < keys.size(); ++i) {
    gchar* value = g_key_file_get_value(file, keys[i].first.c_str(), keys[i].second.c_str(), nullptr);
    values[i] = value != nullptr ? value : "";
    g_free(value);
  }
  g_key_file_free(file);
}

const RegisteredIniPeer peer({"GLib", assign, fetch});

}  // namespace

}  // namespace orvane::bench
