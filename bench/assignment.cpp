// One assignment to a bound document of about 300 keys, against the least that an atomic replace of its bytes
// costs and against libraries that load, set and replace.
#include "bench/IniPeers.h"
#include "core/Numbers.h"

namespace orvane::bench {

namespace {

const Key kKey{"Fax", "Oggetto"};
constexpr int kAttachments = 60;  // for about 300 keys

// Another value of the same length each time.
class Values {
 public:
  std::string next() { return "Offerta " + std::to_string(10000000 + ++count_); }

 private:
  int count_ = 0;
};

class Assignments {
 public:
  Assignments(const VqDocumenti& factory, Place place)
      : factory_(factory), folder_(place), where_(fileSystemOf(place) + "/") {
    fax_ = fullFax(factory_, folder_.published(), u"1", kAttachments);
    bytes_ = readFile(jobFile());
    writeFile(folder_.path("raw"), bytes_);
    writeForPeers(jobFile(), folder_.path("peer"));
    content_ = contentOf(jobFile());
  }

  void addAll() {
    const std::string raw = folder_.path("raw");
    addTimed("assignment/" + where_ + "raw", [=, this] { replaceRaw(raw, bytes_.data(), bytes_.size()); });
    addOurs("orvane", false);
    for (const IniPeer& peer : iniPeers()) addPeer(peer);
  }

  void addFlushed() {
    const std::string raw = folder_.path("raw");
    addTimed("assignment/" + where_ + "raw flushed",
             [=, this] { replaceRaw(raw, bytes_.data(), bytes_.size(), true); });
    addOurs("orvane flushed", true);
  }

 private:
  std::string jobFile() const { return folder_.path("1.vqf"); }

  void verify(const std::string& path, const std::string& value) const {
    auto expected = content_;
    expected[kKey] = value;
    require(contentOf(path) == expected, path + " holds all values and the new one");
  }

  void addOurs(const std::string& name, bool flushed) {
    add("assignment/" + where_ + name, [=, this](benchmark::State& state) {
      factory_.flushEveryWrite(flushed);
      Values values;
      Text value;
      {
        Watch watch(state);
        for (auto _ : state) {
          value = fromUtf8(values.next());
          watch.time([&] { fax_->Oggetto = value; });
        }
      }
      factory_.flushEveryWrite(false);
      verify(jobFile(), toUtf8(value));
    });
  }

  void addPeer(const IniPeer& peer) {
    add("assignment/" + where_ + peer.name, [this, peer](benchmark::State& state) {
      Values values;
      std::string value;
      {
        Watch watch(state);
        for (auto _ : state) {
          value = values.next();
          watch.time([&] { peer.assign(folder_.path("peer"), kKey, value); });
        }
      }
      verify(folder_.path("peer"), value);
    });
  }

  const VqDocumenti& factory_;
  Folder folder_;
  std::string where_;
  std::shared_ptr<VqDocFax> fax_;
  std::string bytes_;
  std::map<Key, std::string> content_;
};

}  // namespace

}  // namespace orvane::bench

int main(int argc, char** argv) {
  using namespace orvane::bench;
  const orvane::VqDocumenti factory;
  Assignments disk(factory, Place::Disk);
  Assignments memory(factory, Place::Memory);
  disk.addAll();
  memory.addAll();
  disk.addFlushed();
  return run(argc, argv);
}
