#include "bench/IniPeers.h"

#include <fcntl.h>
#include <unistd.h>

namespace orvane::bench {

std::vector<IniPeer>& iniPeers() {
  static std::vector<IniPeer> peers;
  return peers;
}

namespace {

void flushFolder(const std::string& path) {
  const int folder = ::open(path.substr(0, path.rfind('/')).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  require(::fsync(folder) == 0, "flush of a folder");
  ::close(folder);
}

}  // namespace

void replaceRaw(const std::string& path, const char* bytes, std::size_t size, bool durable) {
  const std::string temporary = path + ".tmp";
  const int file = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  require(::write(file, bytes, size) == static_cast<ssize_t>(size), "write");
  if (durable) require(::fsync(file) == 0, "flush of a file");
  ::close(file);
  require(::rename(temporary.c_str(), path.c_str()) == 0, "rename");
  if (durable) flushFolder(path);
}

}  // namespace orvane::bench
