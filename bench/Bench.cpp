#include "bench/Bench.h"

#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "orvane_version.h"

namespace orvane::bench {

namespace fs = std::filesystem;

namespace {

std::string root(Place place) {
  if (place == Place::Memory) return "/dev/shm";
  const char* const chosen = std::getenv("ORVANE_BENCH_DISK");
  return chosen != nullptr ? chosen : fs::current_path().string();
}

std::string processor() {
  std::ifstream info("/proc/cpuinfo");
  for (std::string line; std::getline(info, line);) {
    if (line.starts_with("model name")) return line.substr(line.find(':') + 2);
  }
  return "unknown processor";
}

bool isOptimised() {
#ifdef __OPTIMIZE__
  return true;
#else
  return false;
#endif
}

std::string utf8Of(const std::string& bytes) {
  if (!bytes.starts_with("\xFF\xFE")) return bytes;
  Text text;
  for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
    text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                  static_cast<unsigned char>(bytes[i + 1]) << 8);
  }
  return toUtf8(text);
}

std::string trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" \t\r");
  return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

double medianOf(std::vector<double>& values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace

std::string fileSystemOf(Place place) {
  struct statfs state {};
  if (statfs(root(place).c_str(), &state) != 0) return "unknown";
  const std::pair<long, const char*> kNames[] = {{0xEF53, "ext4"},
                                                 {0x01021994, "tmpfs"},
                                                 {0x58465342, "xfs"},
                                                 {0x9123683E, "btrfs"},
                                                 {0x794C7630, "overlayfs"}};
  for (const auto& [magic, name] : kNames) {
    if (state.f_type == magic) return name;
  }
  return "unknown";
}

Folder::Folder(Place place) : path_(root(place) + "/orvane-bench-XXXXXX") {
  require(::mkdtemp(path_.data()) != nullptr, "a folder in " + root(place));
}

Folder::~Folder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

Text Folder::published() const {
  Text name = fromUtf8(path_);
  std::replace(name.begin(), name.end(), u'/', u'\\');
  return name;
}

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

std::map<Key, std::string> contentOf(const std::string& path) {
  std::map<Key, std::string> content;
  const std::string text = utf8Of(readFile(path));
  std::string section;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    const std::string line = trimmed(text.substr(at, end - at));
    const std::size_t sign = line.find('=');
    if (line.starts_with('[')) {
      section = line.substr(1, line.find(']') - 1);
    } else if (sign != std::string::npos) {
      content.emplace(Key{section, trimmed(line.substr(0, sign))}, trimmed(line.substr(sign + 1)));
    }
    at = end + 1;
  }
  return content;
}

void writeForPeers(const std::string& from, const std::string& to) {
  std::string text = utf8Of(readFile(from));
  std::erase(text, '\r');
  writeFile(to, text);
}

void require(bool holds, const std::string& what) {
  if (holds) return;
  std::cerr << "benchmark: not so: " << what << std::endl;
  std::exit(1);
}

Watch::~Watch() {
  if (!taken_.empty()) state_.counters["median"] = medianOf(taken_);
  if (!paired_.empty()) state_.counters["paired"] = medianOf(paired_);
}

int run(int argc, char** argv) {
  std::cout << processor() << ", " << sysconf(_SC_NPROCESSORS_ONLN) << " processors; disk "
            << fileSystemOf(Place::Disk) << ", memory " << fileSystemOf(Place::Memory) << "; orvane "
            << ORVANE_VERSION << ", compiler " << __VERSION__ << ", " << ORVANE_BENCH_BUILD << std::endl;
  if (!isOptimised()) std::cout << "WARNING: not optimised, these figures tell nothing" << std::endl;
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}

}  // namespace orvane::bench
