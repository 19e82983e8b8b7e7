#include "tests/automation/Client.h"

#include <algorithm>

namespace client {

namespace {

FARPROC exported(const char* name) { return GetProcAddress(Server::module(), name); }

template <class Function>
Function exportedAs(const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(exported(name)));
}

}  // namespace

std::wstring Server::path() { return ORVANE_SERVER; }

HMODULE Server::module() {
  static const HMODULE loaded = LoadLibraryW(path().c_str());
  return loaded;
}

HRESULT Server::classObject(REFCLSID id, REFIID iid, void** out) {
  using Function = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
  return exportedAs<Function>("DllGetClassObject")(id, iid, out);
}

bool Server::isIdle() {
  using Function = HRESULT(STDAPICALLTYPE*)();
  return exportedAs<Function>("DllCanUnloadNow")() == S_OK;
}

std::wstring newFolder() {
  wchar_t temporary[MAX_PATH];
  GetTempPathW(MAX_PATH, temporary);
  static int number = 0;
  const std::wstring folder = temporary + (L"orvane_" + std::to_wstring(GetCurrentProcessId())) + L"_" +
                              std::to_wstring(GetTickCount()) + L"_" + std::to_wstring(++number);
  CreateDirectoryW(folder.c_str(), nullptr);
  return folder;
}

DISPID idOf(IDispatch* object, const wchar_t* name) {
  std::wstring text = name;
  LPOLESTR names = text.data();
  DISPID id = DISPID_UNKNOWN;
  object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

Outcome::~Outcome() {
  SysFreeString(error.bstrSource);
  SysFreeString(error.bstrDescription);
  SysFreeString(error.bstrHelpFile);
}

void invoke(Outcome& outcome, IDispatch* object, const wchar_t* name, WORD flags,
            const std::vector<const VARIANT*>& arguments) {
  std::vector<VARIANT> reversed;
  std::transform(arguments.rbegin(), arguments.rend(), std::back_inserter(reversed),
                 [](const VARIANT* value) { return *value; });
  DISPID put = DISPID_PROPERTYPUT;
  const bool assigns = (flags & DISPATCH_PROPERTYPUT) != 0;
  DISPPARAMS given{reversed.data(), assigns ? &put : nullptr, static_cast<UINT>(reversed.size()),
                   assigns ? 1u : 0u};
  outcome.result = object->Invoke(idOf(object, name), IID_NULL, LOCALE_USER_DEFAULT, flags, &given,
                                  &outcome.value, &outcome.error, &outcome.wrongArgument);
}

Ptr<_VqDocumenti> newFactory() {
  Ptr<IClassFactory> classes;
  Ptr<_VqDocumenti> made;
  EXPECT_EQ(S_OK, Server::classObject(__uuidof(VqDocumenti), IID_IClassFactory, classes.outVoid()));
  EXPECT_EQ(S_OK, classes->CreateInstance(nullptr, __uuidof(_VqDocumenti), made.outVoid()));
  return made;
}

void Automation::SetUp() {
  ASSERT_EQ(S_OK, CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
  ASSERT_NE(nullptr, Server::module());
  factory = newFactory();
  ASSERT_TRUE(factory);
}

void Automation::TearDown() {
  factory.reset();
  SetErrorInfo(0, nullptr);
  CoUninitialize();
  EXPECT_TRUE(Server::isIdle()) << "objects of the server are still alive";
}

Ptr<_VqDocStampa> Automation::newStampa() {
  Ptr<_VqDocStampa> stampa;
  EXPECT_EQ(S_OK, factory->NuovoDocumentoStampa(stampa.out()));
  return stampa;
}

Ptr<_VqDocStampa> Automation::boundStampa() {
  Ptr<_VqDocStampa> stampa = newStampa();
  EXPECT_EQ(S_OK, stampa->Inizializza(Bstr(L"1"), Bstr(newFolder()), VARIANT_FALSE));
  return stampa;
}

}  // namespace client
