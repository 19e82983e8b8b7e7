#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace orvane::test {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  do {
    native_ = fs::canonical(fs::temp_directory_path()) / ("orvane-test-" + std::to_string(random()));
  } while (!fs::create_directory(native_));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(native_, ignored);
}

Text TemporaryFolder::published(TextView name) const {
  Text separated = name.empty() ? path() : file(name);
  std::replace(separated.begin(), separated.end(), u'/', u'\\');
  return separated;
}

fs::path TemporaryFolder::native(TextView name) const {
  Text separated(name);
  std::replace(separated.begin(), separated.end(), u'\\', u'/');
  return separated.empty() ? native_ : native_ / separated;
}

void TemporaryFolder::write(TextView name, std::string_view bytes) const {
  fs::create_directories(native(name).parent_path());
  std::ofstream stream(native(name), std::ios::binary);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!stream.flush()) throw std::runtime_error("cannot write " + native(name).string());
}

std::string TemporaryFolder::read(TextView name) const {
  std::ifstream stream(native(name), std::ios::binary);
  if (!stream) throw std::runtime_error("cannot read " + native(name).string());
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<Text> TemporaryFolder::files() const {
  std::vector<Text> names;
  for (const auto& entry : fs::directory_iterator(native_)) {
    Text name = entry.path().filename().u16string();
    if (entry.is_regular_file() && name.front() != u'.') names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace orvane::test
