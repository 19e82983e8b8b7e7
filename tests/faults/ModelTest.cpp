// Random sequences of operations on job files against plain maps: what is read is always what was written
// last, by whomever, and foreign lines stay.
#include <fstream>
#include <map>
#include <random>

#include "tests/faults/InMemory.h"
#include "tests/support/JobTest.h"
#include "tests/support/Soak.h"

namespace orvane::test {
namespace {

using Key = std::pair<Text, Text>;

const Text kSections[] = {u"Stampa", u"STAMPA", u"Proprieta", u"À"};
const Text kKeys[] = {u"Copie", u"copie", u"Nome", u"a b"};
const Text kValues[] = {u"",
                        u"1",
                        u" blank ",
                        u"\"quoted\"",
                        u"'",
                        u"line\r\nend",
                        u"␛",
                        u"␛000D",
                        u"a=b;[c]",
                        u"C:\\Lavori\\a",
                        u"\xD800",
                        u"\xFEFF",
                        u"a longer text, to move the rest"};

class Model {
 public:
  Model(const Text& name, unsigned seed) : name_(name), random_(seed) {
    JobFile file(name);
    files_.push_back(std::make_unique<JobFile>(name));
    files_.push_back(std::make_unique<JobFile>(name));
  }

  bool run(int steps) {
    for (int i = 0; i < steps; ++i) {
      if (!step()) return false;
    }
    return readsAs(JobFile(name_));
  }

 private:
  template <class Values>
  const Text& one(const Values& values) {
    return values[random_() % std::size(values)];
  }
  JobFile& file() { return *files_[random_() % files_.size()]; }

  static Key keyOf(const Text& section, const Text& key) {
    return {section == u"STAMPA" ? Text(u"Stampa") : section, key == u"copie" ? Text(u"Copie") : key};
  }

  void write(JobFile& file) {
    const Text& section = one(kSections);
    const Text& key = one(kKeys);
    const Text& value = one(kValues);
    file.write(section, key, value);
    expected_[keyOf(section, key)] = value;
  }

  bool readOne(JobFile& file) {
    const Text& section = one(kSections);
    const Text& key = one(kKeys);
    const auto found = file.read(section, key);
    const auto expected = expected_.find(keyOf(section, key));
    return expected == expected_.end() ? !found : found == TextView(expected->second);
  }

  bool readsAs(JobFile&& file) {
    for (const auto& [key, value] : expected_) {
      if (file.read(key.first, key.second) != TextView(value)) return false;
    }
    return file.read(u"Estraneo", u"chiave") ==
           (foreign_ ? std::optional<TextView>(u"valore") : std::nullopt);
  }

  // As a server would that knows nothing of the protocol: behind everything else, in place.
  void writeForeign() {
    if (foreign_ || expected_.empty()) return;
    std::string native = toUtf8(name_);
    std::replace(native.begin(), native.end(), '\\', '/');
    std::ofstream stream(native, std::ios::binary | std::ios::app);
    for (const char16_t unit : TextView(u"; nota\r\n[Estraneo]\r\nchiave=valore\r\n")) {
      stream << static_cast<char>(unit & 0xFF) << static_cast<char>(unit >> 8);
    }
    foreign_ = true;
  }

  bool together() {
    JobFile& used = file();
    bool good = true;
    used.together([&] {
      for (int i = 0; i < 3; ++i) {
        write(used);
        good = good && readOne(used);
      }
    });
    return good;
  }

  bool step() {
    switch (random_() % 10) {
      case 0:
        files_[0] = std::make_unique<JobFile>(name_);
        return true;
      case 1:
        writeForeign();
        return true;
      case 2:
        return together();
      case 3:
        return readsAs(JobFile(name_));
      case 4:
      case 5:
      case 6:
        return readOne(file());
      default:
        write(file());
        return true;
    }
  }

  Text name_;
  std::mt19937 random_;
  std::vector<std::unique_ptr<JobFile>> files_;
  std::map<Key, Text> expected_;
  bool foreign_ = false;
};

TEST(JobFileModel, AgreesWithAPlainMap) {
  const unsigned sequences = 20'000u * static_cast<unsigned>(soakFactor());
  const InMemory inMemory;
  const TemporaryFolder folder;
  const Text name = folder.file(u"job.vqs");
  for (unsigned seed = 1; seed <= sequences; ++seed) {
    std::filesystem::remove(folder.native(u"job.vqs"));
    ASSERT_TRUE(Model(name, seed).run(20)) << "seed " << seed << " of " << sequences;
  }
  std::printf("model: %u sequences of 20 operations\n", sequences);
}

}  // namespace
}  // namespace orvane::test
