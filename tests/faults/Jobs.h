// The operations that must survive every failure, each as a world to fail in.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/VqDocStampa.h"
#include "tests/faults/InMemory.h"
#include "tests/support/JobTest.h"
#include "tests/support/Soak.h"

namespace orvane::test {

/// Names and bytes of the files of a folder, the lock file and folders left out.
using Content = std::map<std::string, std::string>;

/// The same without the store's temporaries.
Content withoutTemporaries(Content content);

/// A folder with the job "5.vqs", its two linked jobs and its body, and the job "100.vqs".
class Jobs {
 public:
  Jobs();

  void release();  ///< no document is open then
  /// The folder as it was at first, with no document open.
  void reset();
  Content content() const;

  std::shared_ptr<VqDocStampa> load(TextView name) const;
  std::shared_ptr<VqDocStampa> make() const { return factory.NuovoDocumentoStampa(); }
  Text folder() const { return folder_.path(); }
  std::string native(const char* name = "") const { return folder_.native().string() + "/" + name; }

  VqDocumenti factory;
  std::shared_ptr<VqDocStampa> job, other;  ///< what an operation works on

 private:
  FixedClock clock_{dateOf(2026, 11, 21, 12)};
  InMemory inMemory_;
  TemporaryFolder folder_;
  Content first_;
};

struct Operation {
  const char* name;
  std::function<void(Jobs&)> prepare;
  std::function<void(Jobs&)> act;
  bool oneReplace = true;  ///< an error leaves every file as it was
  bool flushes = false;    ///< an error of the flush comes after the exchange
  int stride = 1;          ///< in the everyday check each call meets one kind of failure in so many
  friend std::ostream& operator<<(std::ostream& out, const Operation& o) { return out << o.name; }
};

/// A Let, the same flushed, the same into a file that is there already, several flushed ones, one through a
/// symbolic link, a queue state change, Inizializza, Carica, Salva, and a duplication with linked jobs.
std::vector<Operation> operations();

/// How many descriptors this process has open.
std::size_t openDescriptors();

}  // namespace orvane::test
