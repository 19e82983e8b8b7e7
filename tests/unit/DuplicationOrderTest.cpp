// In which order a print document is copied: whichever step fails, those before it have been done and those
// behind it have not.
#include <filesystem>
#include <functional>

#include "tests/support/JobTest.h"
#include "tests/support/Rows.h"
#include "tests/unit/PrintDocument.h"

namespace orvane::test {
namespace {

struct Scene {
  const TemporaryFolder& target;
  VqDocStampa &from, &to;
};

struct CopyStep : Row {
  std::function<bool(const Scene&)> isDone;
  std::function<void(const Scene&)> spoil = {};  ///< makes the step fail; null where nothing does
  int error = 0;
  bool leavesValue = true;  ///< in the destination, even where the step fails
};

template <class Object, class Member, class... Members>
auto& follow(Object& object, Member member, Members... members) {
  if constexpr (sizeof...(members) == 0) {
    return object.*member;
  } else {
    return follow(object.*member, members...);
  }
}

template <class Property>
auto valueOf(const Property& property) {
  return property.get();
}
auto valueOf(const ControlCode& code) { return code.bytes(); }

/// A value that no source can make fail, by the members that lead to it.
template <class... Members>
CopyStep value(const char* name, Members... members) {
  return {{name}, [=](const Scene& s) {
            return valueOf(follow(s.from, members...)) == valueOf(follow(s.to, members...));
          }};
}

/// A code: the largest has no text, which raises error 6, but is kept.
template <class... Members>
CopyStep code(const char* name, Members... members) {
  CopyStep step = value(name, members...);
  step.spoil = [=](const Scene& s) { errorOf([&] { follow(s.from, members...) = 2147483647; }); };
  step.error = 6;
  return step;
}

/// A file: no copy takes the place of a folder.
CopyStep file(const char* name, VqDocFile VqDocProprieta::*reference, const char* copy) {
  return {{name},
          [=](const Scene& s) { return toUtf8((s.to.Proprieta.*reference).Nome) == copy; },
          [=](const Scene& s) { std::filesystem::create_directory(s.target.native(u"Corpi") / copy); },
          75};
}

using D = VqDocStampa;
using L = VqDocLayoutPagina;
using P = VqDocProprieta;
using Q = VqDocCodaStampa;
template <class Class>
constexpr auto kCodice = &Class::Codice;

std::vector<CopyStep> options() {
  return {code("Alimentazione", &D::Alimentazione, kCodice<VqDocAlimentazione>),
          value("Copie", &D::Copie),
          code("Dimensione", &D::Dimensione, kCodice<VqDocDimensione>),
          code("Fascicolazione", &D::Fascicolazione, kCodice<VqDocFascicolazione>),
          code("FronteRetro", &D::FronteRetro, kCodice<VqDocFronteRetro>),
          value("Numero", &D::Numero),
          code("Orientamento", &D::Orientamento, kCodice<VqDocOrientamento>),
          value("Stampante", &D::Stampante),
          value("StampanteAlternativa", &D::StampanteAlternativa),
          value("StampanteOrigine", &D::StampanteOrigine),
          value("AdattaAllaPagina", &D::LayoutPagina, &L::AdattaAllaPagina),
          value("Ingrandibile", &D::LayoutPagina, &L::Ingrandibile),
          code("PosizionePagina", &D::LayoutPagina, &L::PosizionePagina, kCodice<VqDocPosizionePagina>)};
}

std::vector<CopyStep> queue() {
  return {code("Coda", &D::Coda, &Q::Codice),
          value("DataInserimento", &D::Coda, &Q::DataInserimento),
          value("DataDaStampare", &D::Coda, &Q::DataDaStampare),
          value("DataInStampa", &D::Coda, &Q::DataInStampa),
          value("DataElaborazione", &D::Coda, &Q::DataElaborazione),
          value("UltimaCodaCodice", &D::Coda, &Q::UltimaCodaCodice)};
}

std::vector<CopyStep> properties() {
  const auto property = [](const char* name, auto member) { return value(name, &D::Proprieta, member); };
  return {property("Versione", &P::Versione),
          property("Sigla", &P::Sigla),
          property("DittaOrigine", &P::DittaOrigine),
          property("DittaDestinazione", &P::DittaDestinazione),
          property("Suddivisione", &P::Suddivisione),
          code("Lingua", &D::Proprieta, &P::Lingua, kCodice<VqDocLingua>),
          property("Data", &P::Data),
          property("DataOriginale", &P::DataOriginale),
          property("Descrizione", &P::Descrizione),
          property("Utente", &P::Utente),
          property("UtenteDescrizione", &P::UtenteDescrizione),
          property("Ip", &P::Ip),
          property("MacAddress", &P::MacAddress),
          property("FormatoPagina", &P::FormatoPagina),
          property("Priorita", &P::Priorita),
          property("RighePagina", &P::RighePagina),
          property("OttimizzaAreaPagina", &P::OttimizzaAreaPagina),
          code("Intestazione", &D::Proprieta, &P::Intestazione, kCodice<VqDocIntestazione>),
          property("Collegato", &P::Collegato)};
}

std::vector<CopyStep> rest() {
  using Catalog = VqDocCatalogo;
  const auto spoilLink = [](const Scene& s) {
    errorOf([&] { s.from.Collegati.Item(u"7a")->Orientamento.Codice = 2147483647; });
  };
  return {
      file("FileCorpo", &P::FileCorpo, "100.bvq"),
      file("FileScript", &P::FileScript, "100.svq"),
      value("CatalogoSorgente", &D::Proprieta, &P::CatalogoSorgente, &Catalog::CompressoOn),
      value("CatalogoDestinazione", &D::Diretta, &VqDocDiretta::CatalogoDestinazione, &Catalog::CompressoOn),
      value("CopieCollegate", &D::Collegati, &VqDocCollegatiStampa::Copie),
      {{"RemoveAll"}, [](const Scene& s) { return !s.to.Collegati.Exists(u"vecchio"); }},
      {{"PrimoCollegato"}, [](const Scene& s) { return s.to.Collegati.Exists(u"100_6a"); }},
      {{"SecondoCollegato"},
       [](const Scene& s) { return s.to.Collegati.Exists(u"100_7a"); },
       spoilLink,
       6,
       false}};
}

std::vector<CopyStep> steps() {
  std::vector<CopyStep> all;
  for (const auto& part : {options(), queue(), properties(), rest()})
    all.insert(all.end(), part.begin(), part.end());
  return all;
}

class DuplicationTest : public JobTest {
 protected:
  TemporaryFolder target;
  const std::shared_ptr<VqDocStampa> from = factory.NuovoDocumentoStampa(),
                                     to = factory.NuovoDocumentoStampa();
  const Scene scene{target, *from, *to};

  void SetUp() override {
    from->Inizializza(u"5", folder.path());
    to->Inizializza(u"100", target.path());
    fill(*from);
    enterStates();
    attachFiles();
    for (const char16_t* id : {u"6a", u"7a"}) link(*from, id);
    link(*to, u"vecchio");
  }
  // Done behind a discarded job, whose copy stamps nothing.
  void enterStates() {
    FixedClock clock{{39814.0}};
    for (const std::int32_t state : {0, 1, 2, 4}) from->Coda.Codice = state;
  }
  void attachFiles() {
    folder.write(u"5.bvq", "corpo");
    folder.write(u"5.svq", "script");
    std::filesystem::create_directory(target.native(u"Corpi"));
    from->Proprieta.FileCorpo = {folder.path(), u"5.bvq"};
    from->Proprieta.FileScript = {folder.path(), u"5.svq"};
  }
  void link(VqDocStampa& document, TextView id) {
    auto linked = factory.NuovoDocumentoStampa();
    linked->Inizializza(id, folder.path(), true);
    document.Collegati.Add(std::move(linked));
  }
  template <class Condition>
  static std::string names(Condition condition) {
    std::string out;
    for (const CopyStep& step : steps()) {
      if (condition(step)) out += step.name + std::string(" ");
    }
    return out;
  }
  std::string done() const {
    return names([&](const CopyStep& step) { return step.isDone(scene); });
  }
};

TEST_F(DuplicationTest, DoesEveryStep) {
  EXPECT_EQ(done(), "");
  factory.DuplicaDocumentoStampa(from, to);
  EXPECT_EQ(done(), names([](const CopyStep&) { return true; }));
}

class DuplicationOrderTest : public DuplicationTest, public testing::WithParamInterface<CopyStep> {};

TEST_P(DuplicationOrderTest, StopsAtTheStepThatFails) {
  const CopyStep& failing = GetParam();
  failing.spoil(scene);
  EXPECT_EQ(errorOf([&] { factory.DuplicaDocumentoStampa(from, to); }), failing.error);
  bool passed = false;
  EXPECT_EQ(done(), names([&](const CopyStep& step) {
              const bool here = std::string_view(step.name) == failing.name;
              const bool before = !passed && (!here || step.leavesValue);
              passed = passed || here;
              return before;
            }));
}

std::vector<CopyStep> failingSteps() {
  auto all = steps();
  std::erase_if(all, [](const CopyStep& step) { return !step.spoil; });
  return all;
}
INSTANTIATE_TEST_SUITE_P(Duplication, DuplicationOrderTest, testing::ValuesIn(failingSteps()), rowName);

}  // namespace
}  // namespace orvane::test
