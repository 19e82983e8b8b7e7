// Several apartments at once, each with documents of its own and all with one job file in common.
#include <atomic>
#include <thread>

#include "tests/support/JobTest.h"
#include "tests/support/Soak.h"

namespace orvane::test {
namespace {

constexpr int kApartments = 4;
const int kRounds = 20 * soakFactor();

Text number(int value) { return fromUtf8(std::to_string(value)); }

// One client: composes a job in each round and leaves its own key in the common file.
void work(const TemporaryFolder& folder, int client) {
  const VqDocumenti factory;
  JobFile common(folder.file(u"common.vqs"));
  for (int round = 1; round <= kRounds; ++round) {
    const auto job = factory.NuovoDocumentoStampa();
    job->Inizializza(number(client) + u"-" + number(round), folder.path());
    job->Copie = round;
    job->Coda.Codice = vdcs_InStampa;
    static_cast<void>(job->Xml());
    common.write(u"Client", u"k" + number(client), number(round));
  }
}

TEST(Apartments, WorkAtOnceAndLoseNothing) {
  const TemporaryFolder folder;
  std::atomic<int> failures = 0;
  std::vector<std::thread> clients;
  for (int client = 0; client < kApartments; ++client) {
    clients.emplace_back([&, client] { failures += errorOf([&] { work(folder, client); }) != 0; });
  }
  for (std::thread& client : clients) client.join();
  EXPECT_EQ(failures, 0);
  EXPECT_EQ(folder.files().size(), static_cast<std::size_t>(kApartments * kRounds + 1));
  JobFile common(folder.file(u"common.vqs"));
  for (int client = 0; client < kApartments; ++client) {
    EXPECT_EQ(common.read(u"Client", u"k" + number(client)), TextView(number(kRounds)));
  }
  std::printf("apartments: %d at once, %d jobs each\n", kApartments, kRounds);
}

}  // namespace
}  // namespace orvane::test
