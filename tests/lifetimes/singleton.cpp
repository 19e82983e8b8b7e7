// Members of an object that is made at its first use.
#include "tests/lifetimes/Program.h"

namespace {

struct Office {
  static Office& instance() {
    static Office office;
    return office;
  }
  orvane::VqDocumenti factory;
  std::shared_ptr<orvane::VqDocStampa> job = factory.NuovoDocumentoStampa();
};

}  // namespace

int main(int, char** arguments) { return orvane::test::compose(*Office::instance().job, arguments[1]); }
