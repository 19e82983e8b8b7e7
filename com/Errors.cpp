#include "com/Errors.h"

#include <new>

#include "core/Error.h"

namespace orvane::com {

namespace {

BSTR sourceText() { return SysAllocString(reinterpret_cast<const wchar_t*>(kTitle)); }

BSTR descriptionOf(const Error& error) {
  const int length = MultiByteToWideChar(CP_UTF8, 0, error.what(), -1, nullptr, 0);
  const BSTR text = SysAllocStringLen(nullptr, length > 0 ? static_cast<UINT>(length - 1) : 0);
  if (text && length > 0) MultiByteToWideChar(CP_UTF8, 0, error.what(), -1, text, length);
  return text;
}

HRESULT publish(ICreateErrorInfo& created) {
  IErrorInfo* info = nullptr;
  const HRESULT result = created.QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&info));
  if (FAILED(result)) return result;
  SetErrorInfo(0, info);
  info->Release();
  return S_OK;
}

void setErrorInfo(REFIID interfaceId, const Error& error) noexcept {
  ICreateErrorInfo* created = nullptr;
  if (FAILED(CreateErrorInfo(&created))) return;
  const BSTR source = sourceText();
  const BSTR description = descriptionOf(error);
  created->SetGUID(interfaceId);
  created->SetSource(source);
  created->SetDescription(description);
  publish(*created);
  SysFreeString(source);
  SysFreeString(description);
  created->Release();
}

HRESULT asException(EXCEPINFO* info, HRESULT result) noexcept {
  if (info) {
    *info = {};
    info->scode = result;
    info->bstrSource = sourceText();
  }
  return DISP_E_EXCEPTION;
}

}  // namespace

HRESULT resultOf(int number) noexcept {
  return static_cast<HRESULT>(0x800A0000u | static_cast<unsigned>(number));
}

HRESULT currentFailure() noexcept {
  try {
    throw;
  } catch (const Failure& failure) {
    return failure.result;
  } catch (const Error& error) {
    return resultOf(error.number());
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

HRESULT reportCurrent(REFIID interfaceId) noexcept {
  try {
    throw;
  } catch (const Error& error) {
    setErrorInfo(interfaceId, error);
    return resultOf(error.number());
  } catch (...) {
    SetErrorInfo(0, nullptr);
    return currentFailure();
  }
}

HRESULT describeCurrent(EXCEPINFO* info) noexcept {
  try {
    throw;
  } catch (const Error& error) {
    asException(info, resultOf(error.number()));
    if (info) info->bstrDescription = descriptionOf(error);
    return DISP_E_EXCEPTION;
  } catch (const Failure& failure) {
    return failure.result;
  } catch (...) {
    return asException(info, currentFailure());
  }
}

}  // namespace orvane::com
