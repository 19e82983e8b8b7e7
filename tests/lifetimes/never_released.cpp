// Objects that nobody releases.
#include "tests/lifetimes/Program.h"

const orvane::VqDocumenti* factory;
std::shared_ptr<orvane::VqDocStampa>* job;

int main(int, char** arguments) {
  factory = new orvane::VqDocumenti;
  job = new std::shared_ptr<orvane::VqDocStampa>(factory->NuovoDocumentoStampa());
  return orvane::test::compose(**job, arguments[1]);
}
