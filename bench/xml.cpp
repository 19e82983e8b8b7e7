// `Xml` of a full fax, against libraries that build and serialise the same tree; and how it grows with
// attachments.
#include "bench/XmlPeers.h"

namespace orvane::bench {

namespace {

constexpr int kAttachments[] = {3, 10, 100, 1000, 10000};

// A fax and its tree, made once for all its measurements.
struct Sample {
  Sample(const VqDocumenti& factory, const Folder& folder, int attachments)
      : fax(fullFax(factory, folder.published(), u"fax" + fromUtf8(std::to_string(attachments)),
                    attachments)),
        xml(toUtf8(fax->Xml())),
        root(treeOf(xml)) {}

  std::shared_ptr<VqDocFax> fax;
  std::string xml;
  Element root;
};

void addOurs(const std::string& name, const std::shared_ptr<Sample>& sample) {
  benchmark::RegisterBenchmark(name.c_str(), [sample](benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(sample->fax->Xml());
    state.counters["units"] = static_cast<double>(sample->xml.size());
  });
}

void addPeer(const std::string& name, const std::shared_ptr<Sample>& sample, const XmlPeer& peer) {
  benchmark::RegisterBenchmark(name.c_str(), [sample, peer](benchmark::State& state) {
    require(peer.write(sample->root) == sample->xml, std::string(peer.name) + " writes the same text");
    for (auto _ : state) benchmark::DoNotOptimize(peer.write(sample->root));
  });
}

}  // namespace

}  // namespace orvane::bench

int main(int argc, char** argv) {
  using namespace orvane::bench;
  const orvane::VqDocumenti factory;
  const Folder folder(Place::Memory);
  for (const int attachments : kAttachments) {
    const auto sample = std::make_shared<Sample>(factory, folder, attachments);
    const std::string base = "xml/" + std::to_string(attachments) + "/";
    addOurs(base + "orvane", sample);
    for (const XmlPeer& peer : xmlPeers()) addPeer(base + peer.name, sample, peer);
  }
  return run(argc, argv);
}
