// IDispatch::Invoke under random calls: any member, flags, arguments, names and missing places. Whatever the
// call, the server answers with a documented code and a value that can be cleared, touches nothing of the
// client's, keeps no reference, and damages no memory. ORVANE_FUZZ_SECONDS and ORVANE_FUZZ_SEED say how long
// and where to begin.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <set>

#include "tests/automation/Client.h"
#include "tests/automation/Files.h"
#include "tests/automation/Memory.h"
#include "tests/automation/RandomValues.h"

namespace {

using namespace client;

constexpr int kCallsOfAWorld = 400;
constexpr std::size_t kMostObjects = 40;
constexpr std::size_t kLasting = 7;    // the factory, and a document of each kind
constexpr long kMostBlocksKept = 100;  // by a thread without objects
constexpr unsigned char kPoison = 0xCC;

// Where a crash happened.
unsigned worldNow = 0;
int callNow = 0;

LONG CALLBACK tellCrash(EXCEPTION_POINTERS* raised) {
  const DWORD code = raised->ExceptionRecord->ExceptionCode;
  if (code == EXCEPTION_ACCESS_VIOLATION || code == EXCEPTION_STACK_OVERFLOW) {
    char line[100];
    const int length = std::snprintf(line, sizeof line, "exception %lx: ORVANE_FUZZ_SEED=%u, call %d\n", code,
                                     worldNow, callNow);
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), line, static_cast<DWORD>(length), &written, nullptr);
  }
  return EXCEPTION_CONTINUE_SEARCH;
}

unsigned fromEnvironment(const char* name, unsigned missing) {
  const char* const text = std::getenv(name);
  return text ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : missing;
}

// The run-time errors of the library, and what the system's conversions answer.
bool isDocumented(HRESULT result) {
  static const std::set<HRESULT> kResults = {S_OK,
                                             E_INVALIDARG,
                                             E_POINTER,
                                             DISP_E_BADPARAMCOUNT,
                                             DISP_E_BADVARTYPE,
                                             DISP_E_EXCEPTION,
                                             DISP_E_MEMBERNOTFOUND,
                                             DISP_E_OVERFLOW,
                                             DISP_E_PARAMNOTFOUND,
                                             DISP_E_PARAMNOTOPTIONAL,
                                             DISP_E_TYPEMISMATCH,
                                             DISP_E_UNKNOWNINTERFACE};
  return kResults.contains(result);
}

bool isRuntimeError(HRESULT code) {
  static const std::set<int> kNumbers = {5,  6,  7,  9,  13, 28,  48,  52,  53,  57, 61,
                                         67, 70, 75, 76, 91, 424, 438, 445, 450, 457};
  return std::any_of(kNumbers.begin(), kNumbers.end(),
                     [=](int number) { return code == runtimeError(number); });
}

// An object to call, and its class.
struct Target {
  Ptr<IDispatch> object;
  const orvane::ClassInfo* type = nullptr;
};

const orvane::ClassInfo* classOf(IDispatch* object) {
  Ptr<ITypeInfo> info;
  Bstr name;
  object->GetTypeInfo(0, 0, info.out());
  info->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr);
  return orvane::findClass(reinterpret_cast<const char16_t*>(static_cast<BSTR>(name) + 1));
}

// One call and where its answers go.
struct Call {
  IDispatch* object;
  DISPID id;
  const IID* reserved = &IID_NULL;
  LCID locale = 0;
  WORD flags;
  std::vector<VARIANT> arguments;
  std::vector<DISPID> names;
  DISPPARAMS given{};
  bool wantsResult, wantsError, wantsPlace, wantsArguments;
  VARIANT result;
  EXCEPINFO error;
  UINT place = 0xABCD;
  HRESULT answer = S_OK;

  void make() {
    std::memset(&result, kPoison, sizeof result);
    std::memset(&error, kPoison, sizeof error);
    answer = object->Invoke(id, *reserved, locale, flags, wantsArguments ? &given : nullptr,
                            wantsResult ? &result : nullptr, wantsError ? &error : nullptr,
                            wantsPlace ? &place : nullptr);
  }
};

// Objects to call, all from one factory, and what they are called with.
class World {
 public:
  explicit World(unsigned seed) : random_(seed) {
    Ptr<IClassFactory> classes;
    Server::classObject(__uuidof(VqDocumenti), IID_IClassFactory, classes.outVoid());
    Ptr<IDispatch> factory;
    classes->CreateInstance(nullptr, IID_IDispatch, factory.outVoid());
    objects_.push_back({factory, classOf(factory.get())});
    random_.texts = {folder_.path(),
                     folder_.path() + L"\\",
                     folder_.path() + L"\\Corpi",
                     L"1.vqs",
                     L"2",
                     L"3",
                     L"True",
                     L"12",
                     L"-7,5",
                     L"1e308",
                     L"31/12/2026",
                     L"99999999999",
                     L"",
                     std::wstring(300, L'x'),
                     folder_.path() + L"\\" + std::wstring(300, L'y')};
    bindDocuments();
    makePage();
  }
  World(const World&) = delete;
  World& operator=(const World&) = delete;
  void step();

  /// Lets all of the server go; true where the world's own reference alone is left of the stranger.
  bool end() {
    for (const auto& linked : linked_) unlink(linked.get());
    linked_.clear();
    objects_.clear();
    return stranger_.references == 1;
  }

 private:
  void bindDocuments();
  void makePage();
  Call randomCall();
  Call sensibleCall();
  void distort(Call& call);
  void nameArguments(Call& call);
  void spoil(Call& call);
  void check(Call& call);
  void checkError(Call& call);
  static void unlink(IDispatch* linked) {
    Outcome outcome;
    invoke(outcome, linked, L"RemoveAll", DISPATCH_METHOD);
  }
  void adopt(const VARIANT& result);
  void walk(IUnknown* enumerator);

  Folder folder_;
  Stranger stranger_;
  RandomValues random_;
  // Documents that are linked to themselves keep each other until they are unlinked.
  std::vector<Ptr<IDispatch>> linked_;
  std::vector<Target> objects_;  // the first few stay
};

void World::bindDocuments() {
  const wchar_t* const makers[] = {L"NuovoDocumentoStampa", L"NuovoDocumentoFax",       L"NuovoDocumentoPFax",
                                   L"NuovoDocumentoEmail",  L"NuovoDocumentoAnteprima", L"NuovoDocumentoPbl"};
  for (const wchar_t* maker : makers) {
    Outcome made, bound;
    invoke(made, objects_.front().object.get(), maker, DISPATCH_METHOD);
    adopt(made.value);
    const Value id(L"1"), folder(folder_.path().c_str());
    if (!random_.once(4))
      invoke(bound, objects_.back().object.get(), L"Inizializza", DISPATCH_METHOD, {&id, &folder});
  }
}

void World::adopt(const VARIANT& result) {
  if (result.vt != VT_DISPATCH || !result.pdispVal || result.pdispVal == &stranger_) return;
  Ptr<IDispatch> object;
  result.pdispVal->QueryInterface(IID_IDispatch, object.outVoid());
  const Target target{object, classOf(object.get())};
  if (target.type->name.starts_with(u"VqDocCollegati")) linked_.push_back(object);
  if (objects_.size() < kMostObjects) {
    objects_.push_back(target);
  } else {
    objects_[kLasting + random_.below(kMostObjects - kLasting)] = target;
  }
}

void World::walk(IUnknown* unknown) {
  Ptr<IEnumVARIANT> items;
  if (FAILED(unknown->QueryInterface(IID_IEnumVARIANT, items.outVoid()))) return;
  Value some[3];
  ULONG fetched = 99;
  items->Skip(static_cast<ULONG>(random_.below(3)));
  const HRESULT result = items->Next(3, some, &fetched);
  EXPECT_TRUE(result == (fetched == 3 ? S_OK : S_FALSE));
  for (ULONG i = 0; i < fetched; ++i) adopt(some[i]);
}

void World::makePage() {
  Outcome pages, page;
  invoke(pages, objects_[1].object.get(), L"Pagine", DISPATCH_PROPERTYGET);
  adopt(pages.value);
  invoke(page, objects_.back().object.get(), L"Nuova", DISPATCH_METHOD);
  adopt(page.value);
}

// What a client that knows the object would do.
Call World::sensibleCall() {
  const Target& target = objects_[random_.below(random_.once(2) ? objects_.size() : kLasting)];
  const orvane::MemberInfo& member = target.type->members[random_.below(target.type->members.size())];
  Call call;
  call.object = target.object.get();
  call.id = member.id;
  call.flags =
      member.kind == orvane::MemberKind::Let ? DISPATCH_PROPERTYPUT : DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  for (const auto& parameter : member.parameters)
    call.arguments.push_back(random_.fitting(parameter.type.kind));
  std::reverse(call.arguments.begin(), call.arguments.end());
  if (call.flags == DISPATCH_PROPERTYPUT) call.names.push_back(DISPID_PROPERTYPUT);
  return call;
}

// Any of it may be wrong.
void World::distort(Call& call) {
  static constexpr WORD kFlags[] = {0,
                                    DISPATCH_METHOD,
                                    DISPATCH_PROPERTYGET,
                                    DISPATCH_PROPERTYPUT,
                                    DISPATCH_PROPERTYPUTREF,
                                    DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF,
                                    DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUT,
                                    15,
                                    0x8000,
                                    0xFFFF};
  static constexpr LCID kLocales[] = {0, 0x409, 0x410, 0x400, 0x7F, 0xFFFFFFFF};
  static constexpr DISPID kIds[] = {0, -1, -3, -4, -5, 1, 5, 200, LONG_MAX, LONG_MIN};
  call.locale = random_.oneOf(kLocales);
  if (random_.once(30)) call.id = random_.oneOf(kIds);
  if (random_.once(10)) call.flags = random_.oneOf(kFlags);
  for (VARIANT& argument : call.arguments) {
    if (random_.once(3)) argument = random_.value();
  }
  if (random_.once(10)) call.arguments.resize(random_.below(7), random_.value());
  if (random_.once(8)) nameArguments(call);
}

Call World::randomCall() {
  Call call = sensibleCall();
  if (random_.once(2)) distort(call);
  call.wantsResult = !random_.once(5);
  call.wantsError = !random_.once(5);
  call.wantsPlace = !random_.once(5);
  call.wantsArguments = !random_.once(200);
  return call;
}

void World::nameArguments(Call& call) {
  static constexpr DISPID kNames[] = {0, 0, 1, 1, 2, 3, DISPID_PROPERTYPUT, -1, 4, 1000, LONG_MIN};
  if (random_.once(2)) call.names.clear();
  const std::size_t count = random_.below(call.arguments.size() + 2);
  while (call.names.size() < count) call.names.push_back(random_.oneOf(kNames));
}

// Counts without arrays, and arrays that are shorter than their counts say where that must be noticed.
void World::spoil(Call& call) {
  if (random_.once(200)) call.reserved = &IID_IDispatch;
  if (random_.once(100)) call.given.rgvarg = nullptr;
  if (random_.once(100)) call.given.rgdispidNamedArgs = nullptr;
  if (random_.once(200)) call.given.cArgs = UINT_MAX;
  if (random_.once(200)) call.given.cNamedArgs = UINT_MAX;
}

void World::checkError(Call& call) {
  EXPECT_TRUE(isRuntimeError(call.error.scode)) << std::hex << call.error.scode;
  EXPECT_STREQ(L"OrvaneDocumenti", call.error.bstrSource);
  SysFreeString(call.error.bstrSource);
  SysFreeString(call.error.bstrDescription);
  EXPECT_EQ(nullptr, call.error.bstrHelpFile);
}

void World::check(Call& call) {
  EXPECT_TRUE(isDocumented(call.answer)) << std::hex << call.answer;
  if (call.answer == DISP_E_EXCEPTION && call.wantsError) checkError(call);
  EXPECT_TRUE(call.place == 0xABCD || call.place < call.given.cArgs);
  EXPECT_TRUE(random_.isUntouched()) << "the client's values";
  if (!call.wantsResult || call.answer == DISP_E_UNKNOWNINTERFACE) return;
  EXPECT_TRUE(SUCCEEDED(call.answer) || call.result.vt == VT_EMPTY);
  adopt(call.result);
  if (call.result.vt == VT_UNKNOWN && call.id == DISPID_NEWENUM) walk(call.result.punkVal);
  VARIANT copy{};
  EXPECT_EQ(S_OK, VariantCopy(&copy, &call.result));
  EXPECT_EQ(S_OK, VariantClear(&copy));
  EXPECT_EQ(S_OK, VariantClear(&call.result));
}

void World::step() {
  random_.objects = {&stranger_};
  for (const auto& object : objects_) random_.objects.push_back(object.object.get());
  Call call = randomCall();
  call.given = {call.arguments.data(), call.names.data(), static_cast<UINT>(call.arguments.size()),
                static_cast<UINT>(call.names.size())};
  spoil(call);
  call.make();
  check(call);
  EXPECT_TRUE(random_.clear()) << "something of the client's is held";
}

TEST(Invoke, BearsAnyCall) {
  ASSERT_EQ(S_OK, CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
  AddVectoredExceptionHandler(1, tellCrash);
  Memory::watch(Server::module());
  const auto end =
      std::chrono::steady_clock::now() +
      std::chrono::seconds(fromEnvironment("ORVANE_FUZZ_SECONDS", 30) * static_cast<unsigned>(soakFactor()));
  const unsigned first = fromEnvironment("ORVANE_FUZZ_SEED", 1);
  unsigned seed = first;
  long calls = 0;
  for (; std::chrono::steady_clock::now() < end && !HasFailure(); ++seed) {
    SCOPED_TRACE("ORVANE_FUZZ_SEED=" + std::to_string(seed));
    worldNow = seed;
    World world(seed);
    for (callNow = 0; callNow < kCallsOfAWorld && !HasFailure(); ++callNow, ++calls) {
      SCOPED_TRACE("call " + std::to_string(callNow));
      world.step();
    }
    EXPECT_TRUE(world.end());
    EXPECT_TRUE(Server::isIdle());
    EXPECT_EQ("", Memory::damage());
    EXPECT_LT(Memory::blocks(), kMostBlocksKept);
    EXPECT_TRUE(HeapValidate(GetProcessHeap(), 0, nullptr));
  }
  std::printf("Invoke: %ld calls, seeds %u to %u.\n", calls, first, seed - 1);
  CoUninitialize();
}

}  // namespace
