// Creating and releasing an empty document: time, allocations and bytes.
#include "bench/Allocations.h"
#include "bench/Bench.h"

namespace orvane::bench {

namespace {

template <class Make>
void addObject(const std::string& name, Make make) {
  benchmark::RegisterBenchmark(("objects/" + name).c_str(), [make](benchmark::State& state) {
    make();
    const Allocations before = allocationsSoFar();
    make();
    const Allocations after = allocationsSoFar();
    state.counters["allocations"] = static_cast<double>(after.count - before.count);
    state.counters["bytes"] = static_cast<double>(after.bytes - before.bytes);
    for (auto _ : state) benchmark::DoNotOptimize(make());
  });
}

}  // namespace

}  // namespace orvane::bench

int main(int argc, char** argv) {
  using namespace orvane::bench;
  const orvane::VqDocumenti factory;
  addObject("print", [&] { return factory.NuovoDocumentoStampa(); });
  addObject("fax", [&] { return factory.NuovoDocumentoFax(); });
  addObject("e-mail", [&] { return factory.NuovoDocumentoEmail(); });
  addObject("page", [&] { return std::make_shared<orvane::VqDocPagina>(); });
  return run(argc, argv);
}
