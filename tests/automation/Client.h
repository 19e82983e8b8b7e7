// What an early-bound client needs: pointers that count, texts, and an apartment with the server in it.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <oaidl.h>
#include <ocidl.h>

#include <string>
#include <vector>

#include "OrvaneDocumenti_i.h"

namespace client {

constexpr HRESULT runtimeError(int number) {
  return static_cast<HRESULT>(0x800A0000u + static_cast<unsigned>(number));
}

template <class T>
class Ptr {
 public:
  Ptr() = default;
  Ptr(const Ptr& other) : pointer_(other.pointer_) {
    if (pointer_) pointer_->AddRef();
  }
  Ptr& operator=(const Ptr& other) {
    Ptr copy(other);
    std::swap(pointer_, copy.pointer_);
    return *this;
  }
  ~Ptr() { reset(); }
  void reset() {
    if (pointer_) std::exchange(pointer_, nullptr)->Release();
  }
  T* operator->() const { return pointer_; }
  T* get() const { return pointer_; }
  /// For a call that fills it in.
  T** out() {
    reset();
    return &pointer_;
  }
  void** outVoid() { return reinterpret_cast<void**>(out()); }
  explicit operator bool() const { return pointer_ != nullptr; }

 private:
  T* pointer_ = nullptr;
};

class Bstr {
 public:
  Bstr() = default;
  Bstr(const wchar_t* text) : text_(SysAllocString(text)) {}
  Bstr(const std::wstring& text) : Bstr(text.c_str()) {}
  ~Bstr() { SysFreeString(text_); }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  operator BSTR() const { return text_; }
  BSTR* out() { return &text_; }
  std::wstring text() const { return text_ ? std::wstring(text_, SysStringLen(text_)) : std::wstring(); }

 private:
  BSTR text_ = nullptr;
};

/// A value that is cleared at the end.
struct Value : VARIANT {
  Value() : VARIANT{} {}
  explicit Value(LONG number) : Value() { vt = VT_I4, lVal = number; }
  explicit Value(const wchar_t* text) : Value() { vt = VT_BSTR, bstrVal = SysAllocString(text); }
  explicit Value(IDispatch* object) : Value() {
    vt = VT_DISPATCH, pdispVal = object;
    if (object) object->AddRef();
  }
  ~Value() { VariantClear(this); }
  Value(const Value&) = delete;
  Value& operator=(const Value&) = delete;
};

/// The DLL under test, loaded once.
class Server {
 public:
  static HMODULE module();
  static std::wstring path();
  static HRESULT classObject(REFCLSID id, REFIID iid, void** out);
  static bool isIdle();
};

/// A new factory in this thread's apartment.
Ptr<_VqDocumenti> newFactory();

/// A new folder of its own for job files; removed by nobody, below the build folder.
std::wstring newFolder();

/// The id of a member; DISPID_UNKNOWN where there is none.
DISPID idOf(IDispatch* object, const wchar_t* name);

struct Outcome {
  HRESULT result;
  Value value;
  EXCEPINFO error{};
  UINT wrongArgument = 0xABCD;
  ~Outcome();
};

/// Invoke with positional arguments, first to last.
void invoke(Outcome& outcome, IDispatch* object, const wchar_t* name, WORD flags,
            const std::vector<const VARIANT*>& arguments = {});

/// A single-threaded apartment with a factory; at the end nothing of the server may be alive.
class Automation : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;
  Ptr<_VqDocStampa> newStampa();
  /// Bound to a job file in a folder of its own.
  Ptr<_VqDocStampa> boundStampa();

  Ptr<_VqDocumenti> factory;
};

}  // namespace client
