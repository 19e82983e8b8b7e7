// `Carica` of a full fax with three attachments, against reading the file, against one pass with an index,
// and against libraries that fetch the same keys.
#include <fcntl.h>
#include <unistd.h>

#include <cstring>

#include "bench/IniPeers.h"
#include "core/ProfileText.h"

namespace orvane::bench {

namespace {

// Descriptions are computed from their codes, attempts are the server's alone: loading reads neither.
bool isFetched(const Key& key) {
  if (key.second == "TentativiElaborazione") return false;
  return key.first == "Proprieta" || !key.second.starts_with("Descrizione");
}

void readRaw(const std::string& path, std::string& bytes) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const auto got = ::read(file, bytes.data(), bytes.size());
  require(got == static_cast<ssize_t>(bytes.size()), "the whole file");
  ::close(file);
}

// The least that fetching by name takes: every unit looked at once, an index, one look-up a key.
class OnePass {
 public:
  void index(TextView text) {
    std::fill(std::begin(table_), std::end(table_), Slot{});
    std::uint32_t section = 0;
    for (std::size_t at = 1; at < text.size();) {
      std::size_t end = at, sign = 0;
      std::uint32_t hash = section;
      for (; text[end] != u'\n'; ++end) {
        if (sign != 0) continue;
        if (text[end] == u'=') {
          sign = end;
        } else {
          hash = step(hash, text[end]);
        }
      }
      if (text[at] == u'[') {
        section = hashOf(0, text.substr(at + 1, end - at - 3));
      } else {
        place({text.substr(at, sign - at), text.substr(sign + 1, end - sign - 2), hash});
      }
      at = end + 1;
    }
  }

  TextView find(TextView section, TextView key) const {
    const std::uint32_t hash = hashOf(hashOf(0, section), key);
    std::size_t at = hash % kSize;
    while (table_[at].hash != hash || table_[at].key != key) at = (at + 1) % kSize;
    return table_[at].value;
  }

 private:
  struct Slot {
    TextView key, value;
    std::uint32_t hash = 0;
  };
  static constexpr std::size_t kSize = 1024;

  static std::uint32_t step(std::uint32_t hash, char16_t unit) { return (hash ^ unit) * 0x01000193u; }
  static std::uint32_t hashOf(std::uint32_t hash, TextView text) {
    for (const char16_t unit : text) hash = step(hash, unit);
    return hash;
  }
  void place(const Slot& slot) {
    std::size_t at = slot.hash % kSize;
    while (!table_[at].key.empty()) at = (at + 1) % kSize;
    table_[at] = slot;
  }

  Slot table_[kSize];
};

class Loads {
 public:
  Loads(const VqDocumenti& factory, Place place)
      : factory_(factory), folder_(place), where_(fileSystemOf(place) + "/") {
    xml_ = fullFax(factory_, folder_.published(), u"1")->Xml();
    bytes_ = readFile(jobFile());
    writeForPeers(jobFile(), folder_.path("peer"));
    for (const auto& [key, value] : contentOf(jobFile())) {
      if (!isFetched(key)) continue;
      keys_.push_back(key);
      expected_.push_back(value);
      names_.emplace_back(fromUtf8(key.first), fromUtf8(key.second));
    }
  }

  void addAll() {
    addTimed("load/" + where_ + "raw read", [this] { readRaw(jobFile_, bytes_); });
    addTimed("load/" + where_ + "one pass with index", [this] { fetchRaw(); });
    addOurs("orvane", false);
    addOurs("objects alone", true);
    for (const IniPeer& peer : iniPeers()) addPeer(peer);
  }

 private:
  std::string jobFile() const { return folder_.path("1.vqf"); }

  void fetchRaw() {
    readRaw(jobFile_, bytes_);
    text_.resize(bytes_.size() / 2);
    std::memcpy(text_.data(), bytes_.data(), bytes_.size());
    pass_.index(text_);
    for (std::size_t i = 0; i < names_.size(); ++i)
      fetched_[i] = pass_.find(names_[i].first, names_[i].second);
  }

  // A document that has the file in memory spares a second one reading it.
  void addOurs(const std::string& name, bool inMemory) {
    add("load/" + where_ + name, [=, this](benchmark::State& state) {
      const Text folder = folder_.published();
      const auto holder = factory_.NuovoDocumentoFax();
      if (inMemory) holder->Carica(folder, u"1.vqf");
      std::shared_ptr<VqDocFax> fax;
      Watch watch(state);
      for (auto _ : state) {
        watch.time([&] {
          fax = factory_.NuovoDocumentoFax();
          fax->Carica(folder, u"1.vqf");
        });
        fax.reset();
      }
      fax = factory_.NuovoDocumentoFax();
      fax->Carica(folder, u"1.vqf");
      require(fax->Xml() == xml_, "the loaded fax is the one that was saved");
    });
  }

  void addPeer(const IniPeer& peer) {
    add("load/" + where_ + peer.name, [this, peer](benchmark::State& state) {
      std::vector<std::string> values(keys_.size());
      const std::string path = folder_.path("peer");
      Watch watch(state);
      for (auto _ : state) watch.time([&] { peer.fetch(path, keys_, values); });
      require(values == expected_, std::string(peer.name) + " found every value");
    });
  }

  const VqDocumenti& factory_;
  Folder folder_;
  std::string where_;
  std::string jobFile_ = jobFile();
  Text xml_;
  std::string bytes_;
  std::vector<Key> keys_;
  std::vector<std::string> expected_;
  std::vector<std::pair<Text, Text>> names_;
  Text text_;
  OnePass pass_;
  std::vector<Text> fetched_ = std::vector<Text>(1000);
};

}  // namespace

}  // namespace orvane::bench

int main(int argc, char** argv) {
  using namespace orvane::bench;
  const orvane::VqDocumenti factory;
  Loads disk(factory, Place::Disk);
  Loads memory(factory, Place::Memory);
  disk.addAll();
  memory.addAll();
  return run(argc, argv);
}
