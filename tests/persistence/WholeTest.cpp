// All members of a document in one file: none takes another's place. And what is no single value: lists and
// the files that they name.
#include <algorithm>

#include "tests/persistence/Cases.h"

namespace orvane::test {
namespace {

// The type decides which document a publication or preview holds; a text of its own makes the error's code
// -1.
bool standsAlone(const Kind& kind, const KeptMember& member) {
  return (kind.inner == 0 || member.path != "Proprieta.Tipo.Codice") &&
         member.path != "Proprieta.Errore.Codice";
}

class Whole : public testing::TestWithParam<Kind> {
 protected:
  const Kind& kind = GetParam();
  const Job job{kind};

  std::string pathOf(const KeptMember& member) const {
    return kind.inner == 0 ? member.path : "Documento." + member.path;
  }

  std::vector<const KeptMember*> members() const {
    std::vector<const KeptMember*> some;
    const Kind& composed = kind.inner == 0 ? kind : innerKind(kind);
    for (const KeptMember& member : keptMembers()) {
      if (composed.isIn(member.kinds) && standsAlone(kind, member)) some.push_back(&member);
    }
    return some;
  }

  void assignAll() const {
    for (const KeptMember* member : members()) {
      letAt(job.root(), pathOf(*member), member->value);
      if (member->written == Written::WhenRead) getAt(job.root(), pathOf(*member));
    }
    const std::string document = kind.inner == 0 ? "" : "Documento.";
    if (kind.set == kPagina) callAt(job.root(), "Salva");
    if ((kind.inner == 0 ? kind : innerKind(kind)).isIn(kFax | kEmail)) {
      callAt(job.root(), document + "Allegati.Salva");
    }
  }
};

TEST_P(Whole, EveryMemberComesBack) {
  assignAll();
  const JobContent content = job.content();
  const ObjectRef loaded = job.loaded();
  for (const KeptMember* member : members()) {
    EXPECT_EQ(toUtf8(content.value(member->section, member->key)), toUtf8(member->stored)) << member->path;
    EXPECT_EQ(shown(getAt(loaded, pathOf(*member))), shown(member->value)) << member->path;
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, Whole, testing::ValuesIn(kinds()), kindName);

struct Owned {
  std::string kind;
  std::string list;
};

const Kind& kindOf(const std::string& name) {
  return *std::find_if(kinds().begin(), kinds().end(), [&](const Kind& kind) { return kind.name == name; });
}

constexpr auto ownedName = [](const auto& info) { return info.param.kind; };

class Attachments : public testing::TestWithParam<Owned> {};

TEST_P(Attachments, ComeBackInTheirOrder) {
  const Job job(kindOf(GetParam().kind));
  const std::string list = GetParam().list;
  callAt(job.root(), list + ".Add", std::vector<Variant>{u"Z:\\Due", u"b.pdf"});
  callAt(job.root(), list + ".Add", std::vector<Variant>{u"Z:\\Uno", u"a.pdf"});
  callAt(job.root(), list + ".Salva");
  EXPECT_EQ(toUtf8(job.content().lines(u"Allegati")),
            "[Allegati]\nPdfPercorso=\nPdfNome=\nNumeroAllegati=2\n"
            "Percorso0=Z:\\Due\nNome0=b.pdf\nPercorso1=Z:\\Uno\nNome1=a.pdf\n");
  const ObjectRef loaded = job.loaded();
  EXPECT_EQ(getAt(loaded, list + ".Count"), Variant(2));
  EXPECT_EQ(shown(getAt(loaded, list + ".Item(0).Nome")), "b.pdf");
  EXPECT_EQ(shown(getAt(loaded, list + ".Item(1).Percorso")), "Z:\\Uno");
}

INSTANTIATE_TEST_SUITE_P(Kinds, Attachments,
                         testing::Values(Owned{"Fax", "Allegati"}, Owned{"Email", "Allegati"},
                                         Owned{"PubblicazioneFax", "Allegati"},
                                         Owned{"PubblicazioneStampa", "Allegati"},
                                         Owned{"AnteprimaEmail", "Documento.Allegati"}),
                         ownedName);

class Links : public testing::TestWithParam<Owned> {
 protected:
  // A linked document of the kind that the collection takes, with a value of its own.
  ObjectRef linked(const Job& job, const char16_t* id) const {
    const Text factoryMethod = GetParam().list == "VqDocStampa"  ? u"NuovoDocumentoStampa"
                               : GetParam().list == "VqDocEmail" ? u"NuovoDocumentoEmail"
                                                                 : u"NuovoDocumentoFax";
    const ObjectRef document = std::get<ObjectRef>(call(factory_, factoryMethod));
    call(document, u"Inizializza", std::vector<Variant>{id, job.folder(), true});
    letAt(document, "Proprieta.Utente", u"utente");
    return document;
  }

  void link(const Job& job, const char16_t* id) const {
    callAt(job.root(), "Collegati.Add", std::vector<Variant>{linked(job, id)});
  }

 private:
  ObjectRef factory_ = newVqDocumenti();
};

TEST_P(Links, ComeBackWithTheirOwnFiles) {
  const Job job(kindOf(GetParam().kind));
  link(job, u"b");
  link(job, u"a");
  callAt(job.root(), "Collegati.Salva");
  const ObjectRef loaded = job.loaded();
  EXPECT_EQ(getAt(loaded, "Collegati.Count"), Variant(2));
  const ObjectRef second = std::get<ObjectRef>(getAt(loaded, "Collegati.Item(1)"));
  EXPECT_EQ(toUtf8(second.type->name), GetParam().list);
  EXPECT_EQ(shown(getAt(second, "Proprieta.Id")), "a");
  EXPECT_EQ(shown(getAt(second, "Proprieta.Utente")), "utente");
}

TEST_P(Links, AreNamedInTheOwnersFile) {
  const Job job(kindOf(GetParam().kind));
  link(job, u"b");
  callAt(job.root(), "Collegati.Salva");
  const JobContent content = job.content();
  EXPECT_EQ(toUtf8(content.value(u"Collegati", u"NumeroCollegati")), "1");
  EXPECT_EQ(content.value(u"Collegati", u"Percorso0"), job.folder());
  const std::string extension = GetParam().list == "VqDocStampa"  ? ".lvq"
                                : GetParam().list == "VqDocEmail" ? ".lde"
                                                                  : ".ldf";
  EXPECT_EQ(toUtf8(content.value(u"Collegati", u"Nome0")), "b" + extension);
}

INSTANTIATE_TEST_SUITE_P(Kinds, Links,
                         testing::Values(Owned{"Stampa", "VqDocStampa"}, Owned{"Fax", "VqDocFax"},
                                         Owned{"PFax", "VqDocFax"}, Owned{"Email", "VqDocEmail"},
                                         Owned{"PubblicazionePFax", "VqDocFax"},
                                         Owned{"AnteprimaStampa", "VqDocStampa"}),
                         ownedName);

}  // namespace
}  // namespace orvane::test
