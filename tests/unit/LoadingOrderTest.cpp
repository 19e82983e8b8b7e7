// In which order loading binds and reads the values of a job: whichever value cannot be read, all before it
// are loaded and all behind it untouched.
#include "tests/support/JobTest.h"
#include "tests/unit/LoadSteps.h"

namespace orvane::test {
namespace {

void prepare(Document&) {}
void prepare(WrappingDocument& wrapping) { wrapping.ImpostaDocumento(vdt_Stampa); }

template <class Kind>
class LoadingOrderTest : public JobTest {
 protected:
  void SetUp() override {
    // Files beside a job of the Id "2", which the loading finds, and the linked jobs of its list.
    for (const char16_t* file : {u"Corpi\\2.bvq", u"Corpi\\2.svq", u"2\\2.vqd"}) this->folder.write(file, "");
    writeJobFile(this->folder.file(kGoodLink), u"[Proprieta]\nId=7\n");
    writeJobFile(this->folder.file(kBadLink), u"[Proprieta]\nPriorita=3000000000\n");
  }

  /// Does `check(document, steps, step)` for each step that can fail, once loading has failed there.
  template <class Check>
  void forEachFailure(Check check) {
    const std::size_t count = steps(*fresh()).all().size();
    for (std::size_t i = 0; i < count; ++i) {
      const auto document = fresh();
      const LoadSteps steps(*document);
      const LoadStep& failing = steps.all()[i];
      if (failing.bad.empty() || isReadFirst(failing)) continue;
      SCOPED_TRACE(toUtf8(failing.name()));
      writeJobFile(this->folder.file(u"job"), listed(steps.lines(failing)));
      ASSERT_EQ(errorOf([&] { document->Carica(this->folder.path(), u"job"); }), failing.error);
      check(*document, steps, failing);
    }
  }

 private:
  static std::unique_ptr<Kind> fresh() {
    auto document = std::make_unique<Kind>();
    prepare(*document);
    return document;
  }
  // The kind is read for a wrapping document before there is anything to load.
  static bool isReadFirst(const LoadStep& step) {
    return std::is_base_of_v<WrappingDocument, Kind> && step.section == u"Tipo";
  }
  static LoadSteps steps(Kind& document) { return LoadSteps(document); }
  // The linked jobs lie in the same folder.
  Text listed(Text lines) const {
    const Text head = u"[Collegati]\n";
    return lines.insert(lines.find(head) + head.size(), u"Percorso0=" + this->folder.path() + u'\n');
  }
};
using Kinds = testing::Types<VqDocStampa, VqDocFax, VqDocPFax, VqDocEmail, VqDocPbl, VqDocAnteprima>;
TYPED_TEST_SUITE(LoadingOrderTest, Kinds);

TYPED_TEST(LoadingOrderTest, WhatStandsBeforeAValueThatCannotBeReadIsLoadedAndNothingElse) {
  this->forEachFailure([](const TypeParam& document, const LoadSteps& steps, const LoadStep& failing) {
    const Text read = steps.names([](const LoadStep& s) { return s.holds && s.holds(2); });
    const Text before = steps.names([&](const LoadStep& s) { return s.holds && &s < &failing; });
    EXPECT_EQ(toUtf8(read), toUtf8(before));
    EXPECT_FALSE(document.Inizializzato.get());
  });
}

TYPED_TEST(LoadingOrderTest, ComponentsAreBoundUpToTheOneThatCannotBeRead) {
  this->forEachFailure([&](const TypeParam&, const LoadSteps& steps, const LoadStep& failing) {
    const auto sameFailure = [&](const LoadStep& s) { return s.part == failing.part && !s.bad.empty(); };
    if (&*std::find_if(steps.all().begin(), steps.all().end(), sameFailure) != &failing) return;
    const JobContent before = this->job(u"job");
    Apartment::profileAccess().open(this->folder.file(u"job"))->together([&] {
      for (const LoadStep& step : steps.all()) {
        if (step.assign) step.assign(3);
      }
    });
    const JobContent after = this->job(u"job");
    const auto written = [&](const LoadStep& s) {
      return s.assign && after.value(s.section, s.key) != before.value(s.section, s.key);
    };
    const auto bound = [&](const LoadStep& s) { return s.assign && s.part <= failing.part; };
    EXPECT_EQ(toUtf8(steps.names(written)), toUtf8(steps.names(bound)));
  });
}

}  // namespace
}  // namespace orvane::test
