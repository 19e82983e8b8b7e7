// Memory is refused to the server at every point of an operation: the client gets an orderly answer, the
// files are the old or the new ones, nothing is left behind, and the next attempt works.
#include <cstdio>
#include <functional>

#include "tests/automation/Client.h"
#include "tests/automation/Files.h"
#include "tests/automation/Memory.h"

namespace {

using namespace client;

constexpr WORD kScript = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
constexpr HRESULT kNoMemory = runtimeError(7);

// Clients' objects, and the folder of job "5" with its linked "6" and "7", and of job "100".
struct World {
  Folder place;
  std::wstring folder = place.path();
  Content first;
  Ptr<_VqDocumenti> factory;
  Ptr<_VqDocStampa> job, other;

  HRESULT makeFactory() {
    Ptr<IClassFactory> classes;
    const HRESULT found = Server::classObject(__uuidof(VqDocumenti), IID_IClassFactory, classes.outVoid());
    return FAILED(found) ? found
                         : classes->CreateInstance(nullptr, __uuidof(_VqDocumenti), factory.outVoid());
  }
  Ptr<_VqDocStampa> load(const wchar_t* name) const {
    Ptr<_VqDocStampa> document;
    EXPECT_EQ(S_OK, factory->NuovoDocumentoStampa(document.out()));
    EXPECT_EQ(S_OK, document->Carica(Bstr(folder), Bstr(name)));
    return document;
  }
  Ptr<_VqDocStampa> bind(const wchar_t* id, VARIANT_BOOL linked) const {
    Ptr<_VqDocStampa> document;
    EXPECT_EQ(S_OK, factory->NuovoDocumentoStampa(document.out()));
    EXPECT_EQ(S_OK, document->Inizializza(Bstr(id), Bstr(folder), linked));
    return document;
  }
  void release() {
    job.reset();
    other.reset();
    factory.reset();
    SetErrorInfo(0, nullptr);
  }
};

Ptr<_VqDocCollegatiStampa> linkedOf(_VqDocStampa* job) {
  Ptr<_VqDocCollegatiStampa> linked;
  EXPECT_EQ(S_OK, job->get_Collegati(linked.out()));
  return linked;
}

void fill(World& world) {
  ASSERT_EQ(S_OK, world.makeFactory());
  const auto five = world.bind(L"5", VARIANT_FALSE);
  const auto linked = linkedOf(five.get());
  for (const wchar_t* id : {L"6", L"7"}) {
    const auto one = world.bind(id, VARIANT_TRUE);
    _VqDocStampa* given = one.get();
    ASSERT_EQ(S_OK, linked->Add(&given));
  }
  ASSERT_EQ(S_OK, linked->Salva());
  world.bind(L"100", VARIANT_FALSE);
}

HRESULT lateBound(IDispatch* object, const wchar_t* name, WORD flags,
                  const std::vector<const VARIANT*>& arguments = {}) {
  Outcome outcome;
  invoke(outcome, object, name, flags, arguments);
  return outcome.result == DISP_E_EXCEPTION ? outcome.error.scode : outcome.result;
}

HRESULT walk(IUnknown* unknown) {
  Ptr<IEnumVARIANT> items, twin;
  HRESULT result = unknown->QueryInterface(IID_IEnumVARIANT, items.outVoid());
  Value two[2];
  ULONG fetched = 0;
  if (SUCCEEDED(result)) result = items->Next(2, two, &fetched);
  EXPECT_TRUE(SUCCEEDED(result) || (two[0].vt | two[1].vt) == VT_EMPTY);
  return SUCCEEDED(result) ? items->Clone(twin.out()) : result;
}

HRESULT forEach(World& world) {
  Ptr<_VqDocCollegatiStampa> linked;
  Ptr<IUnknown> unknown;
  HRESULT result = world.job->get_Collegati(linked.out());
  if (SUCCEEDED(result)) result = linked->get_NewEnum(unknown.out());
  return SUCCEEDED(result) ? walk(unknown.get()) : result;
}

HRESULT addPage(World& world) {
  Ptr<_VqDocPagine> pages;
  Ptr<_VqDocPagina> page;
  HRESULT result = world.job->get_Pagine(pages.out());
  if (SUCCEEDED(result)) result = pages->Nuova(page.out());
  _VqDocPagina* given = page.get();
  return SUCCEEDED(result) ? pages->Add(&given) : result;
}

HRESULT arrays(World& world) {
  Ptr<_VqDocPagine> pages;
  Ptr<_VqDocPagina> page;
  HRESULT result = world.job->get_Pagine(pages.out());
  if (SUCCEEDED(result)) result = pages->Nuova(page.out());
  if (FAILED(result)) return result;
  SAFEARRAYBOUND bounds[] = {{2, 0}};
  SAFEARRAY* given = SafeArrayCreate(VT_VARIANT, 1, bounds);
  LONG place = 1;
  Value line(L"riga");
  SafeArrayPutElement(given, &place, &line);
  result = page->put_ArrayTxt(&given);
  SAFEARRAY* back = nullptr;
  if (SUCCEEDED(result)) result = page->get_ArrayTxt(&back);
  SafeArrayDestroy(given);
  SafeArrayDestroy(back);
  return result;
}

HRESULT describe(World& world) {
  Ptr<IProvideClassInfo2> provider;
  Ptr<ITypeInfo> info;
  world.job->QueryInterface(IID_IProvideClassInfo2, provider.outVoid());
  const HRESULT result = provider->GetClassInfo(info.out());
  return SUCCEEDED(result) ? world.job->GetTypeInfo(0, 0, info.out()) : result;
}

struct Operation {
  const char* name;
  std::function<void(World&)> prepare;
  std::function<HRESULT(World&)> act;
  HRESULT expected = S_OK;  // with memory enough
  bool oneValue = true;     // a failure leaves every file as it was, not a part of what was to be written
  friend std::ostream& operator<<(std::ostream& out, const Operation& o) { return out << o.name; }
};

void nothing(World&) {}
void withFactory(World& world) { ASSERT_EQ(S_OK, world.makeFactory()); }
void withFive(World& world) {
  withFactory(world);
  world.job = world.load(L"5.vqs");
}
void withBoth(World& world) {
  withFive(world);
  world.other = world.load(L"100.vqs");
}

HRESULT bindEight(World& world) {
  const HRESULT made = world.factory->NuovoDocumentoStampa(world.job.out());
  return FAILED(made) ? made : world.job->Inizializza(Bstr(L"8"), Bstr(world.folder), VARIANT_FALSE);
}

HRESULT loadLate(World& world) {
  HRESULT result = world.factory->NuovoDocumentoStampa(world.job.out());
  const Value folder(world.folder.c_str()), name(L"5.vqs");
  return FAILED(result) ? result : lateBound(world.job.get(), L"Carica", kScript, {&folder, &name});
}

HRESULT loadMissing(World& world) {
  HRESULT result = world.factory->NuovoDocumentoStampa(world.job.out());
  return FAILED(result) ? result : world.job->Carica(Bstr(world.folder), Bstr(L"9.vqs"));
}

HRESULT readXml(World& world) {
  Bstr text;
  return world.job->Xml(text.out());
}

HRESULT saveLinked(World& world) {
  Ptr<_VqDocCollegatiStampa> linked;
  const HRESULT found = world.job->get_Collegati(linked.out());
  return FAILED(found) ? found : lateBound(linked.get(), L"Salva", kScript);
}

HRESULT duplicate(World& world) {
  _VqDocStampa *from = world.job.get(), *to = world.other.get();
  return world.factory->DuplicaDocumentoStampa(&from, &to);
}

const Operation kOperations[] = {
    {"Create", nothing, [](World& w) { return w.makeFactory(); }},
    {"Bind", withFactory, bindEight, S_OK, false},
    {"Load", withFactory, loadLate},
    {"LoadMissing", withFactory, loadMissing, runtimeError(53)},
    {"Let", withFive, [](World& w) { return w.job->put_Stampante(Bstr(L"Laser")); }},
    {"InvokeLet", withFive,
     [](World& w) {
       const Value copies(L"9");
       return lateBound(w.job.get(), L"Copie", DISPATCH_PROPERTYPUT, {&copies});
     }},
    {"InvokeGet", withFive, [](World& w) { return lateBound(w.job.get(), L"Stampante", kScript); }},
    {"InvokeObject", withFive, [](World& w) { return lateBound(w.job.get(), L"Proprieta", kScript); }},
    {"Xml", withFive, readXml},
    {"InvokeXml", withFive, [](World& w) { return lateBound(w.job.get(), L"Xml", kScript); }},
    {"Salva", withFive, saveLinked},
    {"Duplicate", withBoth, duplicate, S_OK, false},
    {"ForEach", withFive, forEach},
    {"AddPage", withFive, addPage},
    {"Arrays", withFive, arrays},
    {"Describe", withFive, describe},
};

class RefusedMemory : public testing::TestWithParam<Operation> {
 protected:
  static World& world() {
    static World only;
    return only;
  }
  static void SetUpTestSuite() {
    ASSERT_EQ(S_OK, CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    Memory::watch(Server::module());
    Memory::refuse({0, true});
    EXPECT_EQ(E_OUTOFMEMORY, world().makeFactory()) << "the first throw of the process";
    Memory::refuse({});
    fill(world());
    world().release();
    warmUp();
    world().first = contentOf(world().folder);
  }
  static void TearDownTestSuite() { CoUninitialize(); }
  void SetUp() override { begin(); }
  void TearDown() override { world().release(); }

  // The run time takes some memory for ever when memory for a thrown object is refused for the first time.
  static void warmUp() {
    for (long at = 0; at < 40; ++at) {
      withFactory(world());
      Memory::refuse({at});
      loadMissing(world());
      Memory::refuse({});
      world().release();
    }
  }
  void begin() {
    world().release();
    restore(world().folder, world().first);
    GetParam().prepare(world());
  }
  HRESULT act() { return GetParam().act(world()); }
  void actWithout(Refusal refusal);
  void checkFiles(HRESULT result) const;
  void checkLeftovers();

  Content before_, after_;
  long blocks_ = 0;
};

// A date of now is another each time.
Content undated(Content content) {
  for (auto& [name, bytes] : content) {
    const std::string key = std::string("D\0a\0t\0a", 7);
    for (std::size_t at = 0; (at = bytes.find(key, at)) != std::string::npos;) {
      const std::size_t end = bytes.find(std::string("\r\0\n", 3), at);
      bytes.erase(at, end == std::string::npos ? end : end - at);
    }
  }
  return content;
}

void RefusedMemory::checkFiles(HRESULT result) const {
  const Content found = undated(contentOf(world().folder));
  const bool good = result == GetParam().expected;
  const bool told = found == after_ || (!good && found == before_);
  EXPECT_TRUE(told || (!good && !GetParam().oneValue));
  for (const auto& [name, bytes] : found) {
    EXPECT_TRUE(bytes.starts_with("\xFF\xFE[") && bytes.ends_with(std::string("\r\0\n\0", 4)));
  }
}

// Nothing but what the thread keeps for the next time, which is there already.
void RefusedMemory::checkLeftovers() {
  world().release();
  EXPECT_TRUE(Server::isIdle());
  EXPECT_EQ(blocks_, Memory::blocks());
  EXPECT_EQ("", Memory::damage());
}

void RefusedMemory::actWithout(Refusal refusal) {
  begin();
  Memory::refuse(refusal);
  const HRESULT result = act();
  Memory::refuse({});
  const bool orderly = result == E_OUTOFMEMORY || result == kNoMemory;
  EXPECT_TRUE(orderly || result == GetParam().expected) << std::hex << result;
  checkFiles(result);
  begin();
  EXPECT_EQ(GetParam().expected, act()) << "the next attempt";
  checkLeftovers();
}

TEST_P(RefusedMemory, LeavesTheOldOrTheNewAndNothingElse) {
  before_ = undated(contentOf(world().folder));
  Memory::refuse({});
  ASSERT_EQ(GetParam().expected, act());
  const long needed = Memory::requests();
  after_ = undated(contentOf(world().folder));
  world().release();
  blocks_ = Memory::blocks();
  const long stride = soakFactor() > 1 ? 1 : std::max(1L, needed / 50);
  for (long at = 0; at < needed && !HasFailure(); at += stride) {
    for (const bool full : {false, true}) {
      SCOPED_TRACE("request " + std::to_string(at) + (full ? " and on" : ""));
      actWithout({at, full});
    }
  }
  std::printf("%s: %ld requests, every %ld.\n", GetParam().name, needed, stride);
}

INSTANTIATE_TEST_SUITE_P(Of, RefusedMemory, testing::ValuesIn(kOperations),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
