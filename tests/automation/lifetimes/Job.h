// A factory and a document of the registered server, for as long as this object lives.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include "OrvaneDocumenti_i.h"

class Job {
 public:
  Job() = default;
  Job(const Job&) = delete;
  Job& operator=(const Job&) = delete;
  ~Job() {
    if (document_) document_->Release();
    if (factory_) factory_->Release();
  }

  /// Makes both in a new apartment; `<folder>\1.vqs` then has three copies. Gives 7 where all went well.
  int compose(const wchar_t* folder) {
    return SUCCEEDED(CoInitialize(nullptr)) &&
                   SUCCEEDED(CoCreateInstance(__uuidof(VqDocumenti), nullptr, CLSCTX_INPROC_SERVER,
                                              __uuidof(_VqDocumenti), reinterpret_cast<void**>(&factory_)))
               ? put(folder)
               : 1;
  }

  /// The same with a server of its own.
  int composeAndFree(const wchar_t* server, const wchar_t* folder) {
    using Function = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const HMODULE loaded = LoadLibraryW(server);
    const auto find =
        reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(loaded, "DllGetClassObject")));
    IClassFactory* classes = nullptr;
    if (FAILED(find(__uuidof(VqDocumenti), IID_IClassFactory, reinterpret_cast<void**>(&classes)))) return 1;
    classes->CreateInstance(nullptr, __uuidof(_VqDocumenti), reinterpret_cast<void**>(&factory_));
    classes->Release();
    const int code = put(folder);
    FreeLibrary(loaded);
    return code;
  }

  void forget() { factory_ = nullptr, document_ = nullptr; }

 private:
  int put(const wchar_t* folder) {
    BSTR id = SysAllocString(L"1"), path = SysAllocString(folder);
    const bool good = SUCCEEDED(factory_->NuovoDocumentoStampa(&document_)) &&
                      SUCCEEDED(document_->Inizializza(id, path, VARIANT_FALSE)) &&
                      SUCCEEDED(document_->put_Copie(3));
    SysFreeString(id);
    SysFreeString(path);
    return good ? 7 : 1;
  }

  _VqDocumenti* factory_ = nullptr;
  _VqDocStampa* document_ = nullptr;
};
