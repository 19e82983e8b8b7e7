// Global objects; the document ends first.
#include "tests/lifetimes/Program.h"

namespace {

const orvane::VqDocumenti factory;
const auto job = factory.NuovoDocumentoStampa();

}  // namespace

int main(int, char** arguments) { return orvane::test::compose(*job, arguments[1]); }
