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

// Each of them paired with the raw sequence.
class Assignments {
 public:
  Assignments(const VqDocumenti& factory, Place place)
      : factory_(factory), folder_(place), kind_(fileSystemOf(place)), raw_(folder_.path("raw")) {
    fax_ = fullFax(factory_, folder_.published(), u"1", kAttachments);
    bytes_ = readFile(jobFile());
    writeFile(raw_, bytes_);
    writeForPeers(jobFile(), folder_.path("peer"));
    content_ = contentOf(jobFile());
  }

  void addAll() {
    addRaw(kind_, false);
    addOurs(kind_, false);
    for (const IniPeer& peer : iniPeers()) addPeer(peer);
  }

  void addFlushed() {
    addRaw(kind_ + " flushed", true);
    addOurs(kind_ + " flushed", true);
  }

 private:
  std::string jobFile() const { return folder_.path("1.vqf"); }

  void verify(const std::string& path, const std::string& value) const {
    auto expected = content_;
    expected[kKey] = value;
    require(contentOf(path) == expected, path + " holds all values and the new one");
  }

  void raw(bool flushed) const { replaceRaw(raw_, bytes_.data(), bytes_.size(), flushed); }

  void addRaw(const std::string& kind, bool flushed) {
    addTimed("assignment/" + kind + "/raw", [this, flushed] { raw(flushed); });
  }

  void addOurs(const std::string& kind, bool flushed) {
    add("assignment/" + kind + "/orvane", [this, flushed](benchmark::State& state) {
      factory_.flushEveryWrite(flushed);
      timeAll(state, jobFile(), flushed, [this](const std::string& value) {
        return [this, text = fromUtf8(value)] { fax_->Oggetto = text; };
      });
      factory_.flushEveryWrite(false);
    });
  }

  void addPeer(const IniPeer& peer) {
    add("assignment/" + kind_ + "/" + peer.name, [this, peer](benchmark::State& state) {
      const std::string file = folder_.path("peer");
      timeAll(state, file, false,
              [&](const std::string& value) { return [&] { peer.assign(file, kKey, value); }; });
    });
  }

  // `prepare(value)` gives the assignment that is timed.
  template <class Prepare>
  void timeAll(benchmark::State& state, const std::string& file, bool flushed, Prepare prepare) {
    Values values;
    std::string value;
    {
      Watch watch(state);
      for (auto _ : state) {
        value = values.next();
        watch.timePair([&] { raw(flushed); }, prepare(value));
      }
    }
    verify(file, value);
  }

  const VqDocumenti& factory_;
  Folder folder_;
  std::string kind_, raw_;
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
