// What calls cost through the vtable and late bound, next to an object that comes with the system.
#include "bench/windows/Measure.h"
#include "tests/automation/Client.h"

namespace {

using namespace client;
using orvane::bench::measureBest;

class Bare : public IUnknown {
 public:
  virtual HRESULT STDMETHODCALLTYPE get_Number(LONG* number) = 0;
};

class Nothing final : public Bare {
 public:
  STDMETHODIMP QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
  STDMETHODIMP_(ULONG) AddRef() override { return 1; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP get_Number(LONG* number) override { return *number = 1, S_OK; }
};

void measureInvoke(const char* what, IDispatch* object, const wchar_t* name) {
  const DISPID id = idOf(object, name);
  measureBest(what, 300000, [&] {
    DISPPARAMS none{};
    VARIANT value;
    VariantInit(&value);
    object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr);
  });
}

void measureNames(const char* what, IDispatch* object, const wchar_t* name) {
  std::wstring text = name;
  LPOLESTR names = text.data();
  DISPID id = DISPID_UNKNOWN;
  measureBest(what, 300000, [&] { object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id); });
}

void measureStampa(_VqDocStampa* stampa) {
  LONG number = 0;
  measureBest("vtable get of a number", 1000000, [&] { stampa->get_Numero(&number); });
  measureBest("vtable let of a number, not bound", 300000, [&] { stampa->put_Numero(5); });
  measureInvoke("Invoke get of a number", stampa, L"Numero");
  const DISPID id = idOf(stampa, L"Numero");
  measureBest("Invoke let of a number, not bound", 300000, [&] {
    VARIANT value;
    value.vt = VT_I4, value.lVal = 5;
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS given{&value, &put, 1, 1};
    stampa->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &given, nullptr, nullptr,
                   nullptr);
  });
  measureNames("GetIDsOfNames", stampa, L"Numero");
  measureBest("vtable get of a component", 300000, [&] {
    Ptr<_VqDocProprieta> properties;
    stampa->get_Proprieta(properties.out());
  });
}

void measureAll() {
  Nothing nothing;
  Bare* volatile bare = &nothing;
  LONG number = 0;
  measureBest("bare call", 1000000, [&] { bare->get_Number(&number); });
  Ptr<IClassFactory> classes;
  Ptr<_VqDocumenti> factory;
  Ptr<_VqDocStampa> stampa;
  if (FAILED(Server::classObject(__uuidof(VqDocumenti), IID_IClassFactory, classes.outVoid()))) return;
  classes->CreateInstance(nullptr, __uuidof(_VqDocumenti), factory.outVoid());
  factory->NuovoDocumentoStampa(stampa.out());
  measureStampa(stampa.get());
  CLSID id;
  Ptr<IDispatch> dictionary;
  if (FAILED(CLSIDFromProgID(L"Scripting.Dictionary", &id))) return;
  CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, dictionary.outVoid());
  measureInvoke("Scripting.Dictionary: Invoke get of Count", dictionary.get(), L"Count");
  measureNames("Scripting.Dictionary: GetIDsOfNames", dictionary.get(), L"Count");
}

}  // namespace

int main() {
  CoInitialize(nullptr);
  measureAll();
  CoUninitialize();
}
