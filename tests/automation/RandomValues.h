// Arguments as no sane client would pass them: every type, by value and by reference, null where a pointer
// stands.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <oleauto.h>

#include <deque>
#include <random>
#include <string>
#include <vector>

#include "typelib/Members.h"

namespace client {

/// An object of somebody else that knows how many references to it are held.
class Stranger final : public IDispatch {
 public:
  STDMETHODIMP QueryInterface(REFIID iid, void** out) override;
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }

  ULONG references = 1;
};

/// Makes values and owns all that they refer to, until `clear`.
class RandomValues {
 public:
  explicit RandomValues(unsigned seed) : random_(seed) {}
  RandomValues(const RandomValues&) = delete;
  RandomValues& operator=(const RandomValues&) = delete;
  ~RandomValues() { clear(); }

  /// Texts that some members take for names of folders and files. Others never name a place that is there.
  std::vector<std::wstring> texts;

  /// Objects to pass; no reference is added.
  std::vector<IDispatch*> objects;

  std::size_t below(std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
  }
  bool once(std::size_t in) { return below(in) == 0; }
  template <class T, std::size_t Count>
  T oneOf(const T (&values)[Count]) {
    return values[below(Count)];
  }

  VARIANT value(int depth = 0);
  LONG number();

  /// A value that a parameter of that type may well take.
  VARIANT fitting(orvane::TypeKind kind);

  /// What has been made is as it was made.
  bool isUntouched() const;

  /// False where something is held by somebody else.
  bool clear();

 private:
  struct Made {
    VARIANT value;
    VARIANT original;
    std::wstring text;
    bool owned;
  };

  VARIANT plain(int depth);
  VARIANT ofSmallType(VARTYPE type);
  VARIANT array(int depth);
  VARIANT arrayOf(VARTYPE type);
  VARIANT byReference(int depth);
  VARIANT circle();
  VARIANT meaningless();
  VARIANT text();
  VARIANT object();
  std::wstring randomText();
  VARIANT& keep(const VARIANT& value);
  void fill(SAFEARRAY* array, int depth);

  std::mt19937 random_;
  std::deque<Made> made_;
};

}  // namespace client
