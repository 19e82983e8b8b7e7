// The rules of the component model, as an early-bound client meets them.
#include <cstdlib>

#include "tests/automation/Client.h"

namespace {

using namespace client;

using Rules = Automation;

TEST_F(Rules, OneCoreObjectHasOneIdentity) {
  const auto stampa = newStampa();
  Ptr<_VqDocProprieta> first, second;
  ASSERT_EQ(S_OK, stampa->get_Proprieta(first.out()));
  ASSERT_EQ(S_OK, stampa->get_Proprieta(second.out()));
  EXPECT_EQ(first.get(), second.get());
  Ptr<IUnknown> one, two;
  ASSERT_EQ(S_OK, first->QueryInterface(IID_IUnknown, one.outVoid()));
  Ptr<IProvideClassInfo2> info;
  ASSERT_EQ(S_OK, first->QueryInterface(IID_IProvideClassInfo2, info.outVoid()));
  ASSERT_EQ(S_OK, info->QueryInterface(IID_IUnknown, two.outVoid()));
  EXPECT_EQ(one.get(), two.get());
}

TEST_F(Rules, TwoDocumentsAreTwoObjects) { EXPECT_NE(newStampa().get(), newStampa().get()); }

TEST_F(Rules, AnUnknownInterfaceIsRefusedAndClearsTheResult) {
  void* out = &out;
  EXPECT_EQ(E_NOINTERFACE, factory->QueryInterface(__uuidof(_VqDocFax), &out));
  EXPECT_EQ(nullptr, out);
  EXPECT_EQ(E_POINTER, factory->QueryInterface(IID_IUnknown, nullptr));
}

TEST_F(Rules, CountsReturnToWhereTheyWere) {
  const auto stampa = newStampa();
  EXPECT_EQ(2u, stampa->AddRef());
  EXPECT_EQ(3u, stampa->AddRef());
  EXPECT_EQ(2u, stampa->Release());
  EXPECT_EQ(1u, stampa->Release());
}

TEST_F(Rules, AComponentOutlivesItsReleasedDocument) {
  auto stampa = boundStampa();
  Ptr<_VqDocDimensione> dimensione;
  ASSERT_EQ(S_OK, stampa->get_Dimensione(dimensione.out()));
  stampa.reset();
  EXPECT_EQ(S_OK, dimensione->put_Codice(vdd_A4));
  enmVqDocDimensione code{};
  EXPECT_EQ(S_OK, dimensione->get_Codice(&code));
  EXPECT_EQ(vdd_A4, code);
}

TEST_F(Rules, NullResultsAreRefused) {
  const auto stampa = newStampa();
  EXPECT_EQ(E_POINTER, stampa->get_Copie(nullptr));
  EXPECT_EQ(E_POINTER, stampa->get_Stampante(nullptr));
  EXPECT_EQ(E_POINTER, stampa->get_Proprieta(nullptr));
  EXPECT_EQ(E_POINTER, factory->NuovoDocumentoStampa(nullptr));
  EXPECT_EQ(E_POINTER, stampa->GetTypeInfoCount(nullptr));
  EXPECT_EQ(E_POINTER, stampa->GetTypeInfo(0, 0, nullptr));
  EXPECT_EQ(E_POINTER, stampa->GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr));
  EXPECT_EQ(E_INVALIDARG,
            stampa->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr));
}

TEST_F(Rules, AFailureClearsThePoisonedResult) {
  Ptr<_VqDocPbl> pbl;
  ASSERT_EQ(S_OK, factory->NuovoDocumentoPbl(pbl.out()));
  auto* properties = reinterpret_cast<_VqDocProprieta*>(0x0BAD0BAD);
  EXPECT_EQ(runtimeError(91), pbl->get_Proprieta(&properties));
  EXPECT_EQ(nullptr, properties);

  const auto stampa = newStampa();
  Ptr<_VqDocPagine> pagine;
  Ptr<_VqDocPagina> pagina;
  Ptr<_VqDocFile> file;
  ASSERT_EQ(S_OK, stampa->get_Pagine(pagine.out()));
  ASSERT_EQ(S_OK, pagine->Nuova(pagina.out()));
  ASSERT_EQ(S_OK, pagina->get_FileTxt(file.out()));
  auto* text = reinterpret_cast<BSTR>(0x0BAD0BAD);
  EXPECT_EQ(runtimeError(53), file->ReadStream(10, &text));
  EXPECT_EQ(nullptr, text);
}

TEST_F(Rules, ANullTextIsTheEmptyText) {
  const auto stampa = newStampa();
  Bstr text;
  EXPECT_EQ(S_OK, stampa->put_Stampante(nullptr));
  EXPECT_EQ(S_OK, stampa->get_Stampante(text.out()));
  EXPECT_EQ(L"", text.text());
}

TEST_F(Rules, ATextWithZerosInItComesBackWhole) {
  const auto stampa = newStampa();
  const std::wstring whole(L"a\0b", 3);
  const BSTR given = SysAllocStringLen(whole.data(), 3);
  Bstr text;
  EXPECT_EQ(S_OK, stampa->put_Stampante(given));
  EXPECT_EQ(S_OK, stampa->get_Stampante(text.out()));
  SysFreeString(given);
  EXPECT_EQ(whole, text.text());
}

// An object of somebody else.
class Foreign final : public IDispatch {
 public:
  STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
    *out = iid == IID_IUnknown || iid == IID_IDispatch ? this : nullptr;
    return *out ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 1; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }
};

TEST_F(Rules, AForeignObjectIsRefusedWhereAnOwnOneMustStand) {
  const auto stampa = newStampa();
  Ptr<_VqDocPagine> pagine;
  ASSERT_EQ(S_OK, stampa->get_Pagine(pagine.out()));
  Foreign foreign;
  auto* page = reinterpret_cast<_VqDocPagina*>(static_cast<IDispatch*>(&foreign));
  EXPECT_EQ(E_INVALIDARG, pagine->Add(&page));
  auto* wrong = reinterpret_cast<_VqDocPagina*>(stampa.get());
  EXPECT_EQ(E_INVALIDARG, pagine->Add(&wrong));
  EXPECT_EQ(E_POINTER, pagine->Add(nullptr));

  Outcome late;
  const Value object(&foreign);
  invoke(late, pagine.get(), L"Add", DISPATCH_METHOD, {&object});
  EXPECT_EQ(DISP_E_TYPEMISMATCH, late.result);
}

TEST_F(Rules, OnlyTheFactoryCanBeCreatedAndNotAsAPart) {
  Ptr<IClassFactory> classes;
  EXPECT_EQ(CLASS_E_CLASSNOTAVAILABLE,
            Server::classObject(__uuidof(VqDocStampa), IID_IClassFactory, classes.outVoid()));
  ASSERT_EQ(S_OK, Server::classObject(__uuidof(VqDocumenti), IID_IClassFactory, classes.outVoid()));
  void* out = &out;
  EXPECT_EQ(CLASS_E_NOAGGREGATION, classes->CreateInstance(factory.get(), IID_IUnknown, &out));
  EXPECT_EQ(nullptr, out);
  EXPECT_EQ(E_NOINTERFACE, classes->CreateInstance(nullptr, __uuidof(_VqDocFax), &out));
  EXPECT_EQ(E_POINTER, classes->CreateInstance(nullptr, IID_IUnknown, nullptr));
}

TEST_F(Rules, ALockKeepsTheServer) {
  Ptr<IClassFactory> classes;
  ASSERT_EQ(S_OK, Server::classObject(__uuidof(VqDocumenti), IID_IClassFactory, classes.outVoid()));
  factory.reset();
  ASSERT_EQ(S_OK, classes->LockServer(TRUE));
  Ptr<IClassFactory> held = classes;
  classes.reset();
  EXPECT_FALSE(Server::isIdle());
  ASSERT_EQ(S_OK, held->LockServer(FALSE));
  held.reset();
  EXPECT_TRUE(Server::isIdle());
}

TEST_F(Rules, ObjectsTellTheirClassAndInterface) {
  const auto stampa = newStampa();
  Ptr<IProvideClassInfo2> provider;
  ASSERT_EQ(S_OK, stampa->QueryInterface(IID_IProvideClassInfo2, provider.outVoid()));
  Ptr<ITypeInfo> info;
  ASSERT_EQ(S_OK, provider->GetClassInfo(info.out()));
  Bstr name;
  ASSERT_EQ(S_OK, info->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr));
  EXPECT_EQ(L"VqDocStampa", name.text());
  GUID id = IID_IUnknown;
  EXPECT_EQ(E_INVALIDARG, provider->GetGUID(99, &id));
  EXPECT_EQ(GUID_NULL, id);
  ASSERT_EQ(S_OK, stampa->GetTypeInfo(0, 0, info.out()));
  Bstr interfaceName;
  ASSERT_EQ(S_OK, info->GetDocumentation(MEMBERID_NIL, interfaceName.out(), nullptr, nullptr, nullptr));
  EXPECT_EQ(L"_VqDocStampa", interfaceName.text());
  EXPECT_EQ(DISP_E_BADINDEX, stampa->GetTypeInfo(1, 0, info.out()));
}

int cycles() {
  const char* const wanted = std::getenv("ORVANE_CYCLES");
  return wanted ? std::atoi(wanted) : 20000;
}

TEST_F(Rules, ManyObjectsComeAndGoWithoutGrowth) {
  const auto cycle = [&](int times) {
    for (int i = 0; i < times; ++i) {
      Ptr<_VqDocPagine> pagine;
      Ptr<_VqDocPagina> pagina;
      Ptr<_VqDocLingua> lingua;
      const auto stampa = newStampa();
      stampa->get_Pagine(pagine.out());
      pagine->Nuova(pagina.out());
      pagina->get_Lingua(lingua.out());
    }
  };
  const auto heapSize = [] {
    std::size_t busy = 0;
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(GetProcessHeap(), &entry)) {
      if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) busy += entry.cbData;
    }
    return busy;
  };
  cycle(1000);
  const std::size_t before = heapSize();
  cycle(cycles());
  EXPECT_LE(heapSize(), before + 20000);
}

}  // namespace
