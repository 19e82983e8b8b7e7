// Late-bound calls for a client in another process, which writes one a line and reads the answer from a line:
//
//   create PROGID | get OBJECT NAME VALUE... | put OBJECT NAME VALUE... | call OBJECT NAME VALUE... | items
//   OBJECT
//
// Fields are separated by tabs. A value is its kind and its text: sTEXT (with \t, \n, \r, \\ for what a line
// cannot hold), iNUMBER, b0 or b1, oOBJECT with the name of its interface after a colon in answers, or a lone
// e for nothing. An answer is a value, for items several, or !NUMBER, SOURCE and TEXT of the error.
#include <windows.h>

#include <oaidl.h>

#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct Failure {
  HRESULT result;
  std::string source, text;
};

std::vector<IDispatch*> objects;  // alive until the program ends

std::wstring wide(std::string_view text) {
  std::wstring result(MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0),
                      L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), result.data(),
                      static_cast<int>(result.size()));
  return result;
}

std::string narrow(const wchar_t* text) {
  if (!text) return {};
  std::string result(WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, -1, result.data(), static_cast<int>(result.size()), nullptr, nullptr);
  result.pop_back();
  return result;
}

constexpr std::string_view kEscaped = "\t\n\r\\";
constexpr std::string_view kEscapes = "tnr\\";

std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    const auto at = kEscaped.find(c);
    if (at == kEscaped.npos) {
      result += c;
    } else {
      result += {'\\', kEscapes[at]};
    }
  }
  return result;
}

std::string plain(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    result += text[i] == '\\' && i + 1 < text.size() ? kEscaped[kEscapes.find(text[++i])] : text[i];
  }
  return result;
}

std::vector<std::string> fieldsOf(const std::string& line) {
  std::vector<std::string> fields(1);
  for (const char c : line) {
    if (c == '\t') {
      fields.emplace_back();
    } else if (c != '\r') {
      fields.back() += c;
    }
  }
  return fields;
}

void check(HRESULT result) {
  if (FAILED(result)) throw Failure{result, "", ""};
}

std::string interfaceName(IDispatch* object) {
  ITypeInfo* info = nullptr;
  BSTR name = nullptr;
  check(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info));
  info->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
  info->Release();
  const std::string text = narrow(name);
  SysFreeString(name);
  return text;
}

/// Keeps the object and names it.
std::string kept(IDispatch* object) {
  if (!object) return "e";
  object->AddRef();
  objects.push_back(object);
  return "o" + std::to_string(objects.size() - 1) + ":" + interfaceName(object);
}

VARIANT variant(const std::string& field) {
  VARIANT value{};
  switch (field.at(0)) {
    case 's':
      value.vt = VT_BSTR, value.bstrVal = SysAllocString(wide(plain(field.substr(1))).c_str());
      break;
    case 'i':
      value.vt = VT_I4, value.lVal = std::stol(field.substr(1));
      break;
    case 'b':
      value.vt = VT_BOOL, value.boolVal = field.at(1) == '1' ? VARIANT_TRUE : VARIANT_FALSE;
      break;
    case 'o':
      value.vt = VT_DISPATCH, value.pdispVal = objects.at(std::stoul(field.substr(1)));
      value.pdispVal->AddRef();
      break;
    default:
      break;
  }
  return value;
}

std::string answer(VARIANT& value) {
  switch (value.vt) {
    case VT_EMPTY:
      return "e";
    case VT_DISPATCH:
      return kept(value.pdispVal);
    case VT_BOOL:
      return value.boolVal ? "b1" : "b0";
    case VT_I4:
    case VT_UI1:
      check(VariantChangeType(&value, &value, 0, VT_I4));
      return "i" + std::to_string(value.lVal);
    default:
      check(VariantChangeType(&value, &value, 0, VT_BSTR));
      return "s" + escaped(narrow(value.bstrVal));
  }
}

void invoke(IDispatch* object, DISPID id, WORD flags, std::vector<VARIANT>& reversed, VARIANT& result) {
  DISPID put = DISPID_PROPERTYPUT;
  const bool assigns = flags == DISPATCH_PROPERTYPUT;
  DISPPARAMS given{reversed.data(), assigns ? &put : nullptr, static_cast<UINT>(reversed.size()),
                   assigns ? 1u : 0u};
  EXCEPINFO error{};
  const HRESULT outcome =
      object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &given, &result, &error, nullptr);
  for (auto& value : reversed) VariantClear(&value);
  if (SUCCEEDED(outcome)) return;
  throw Failure{outcome == DISP_E_EXCEPTION ? error.scode : outcome, narrow(error.bstrSource),
                narrow(error.bstrDescription)};
}

std::string member(const std::vector<std::string>& fields, WORD flags) {
  IDispatch* object = objects.at(std::stoul(fields.at(1)));
  std::wstring name = wide(fields.at(2));
  LPOLESTR names = name.data();
  DISPID id = DISPID_UNKNOWN;
  check(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id));
  std::vector<VARIANT> reversed;
  for (std::size_t i = fields.size(); i-- > 3;) reversed.push_back(variant(fields[i]));
  VARIANT result{};
  invoke(object, id, flags, reversed, result);
  const std::string text = answer(result);
  VariantClear(&result);
  return text;
}

std::string create(const std::string& progid) {
  CLSID id{};
  IDispatch* object = nullptr;
  check(CLSIDFromProgID(wide(progid).c_str(), &id));
  check(
      CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, reinterpret_cast<void**>(&object)));
  const std::string text = kept(object);
  object->Release();
  return text;
}

std::string items(IDispatch* object) {
  std::vector<VARIANT> none;
  VARIANT enumerator{}, item{};
  invoke(object, DISPID_NEWENUM, DISPATCH_PROPERTYGET, none, enumerator);
  IEnumVARIANT* walk = nullptr;
  check(enumerator.punkVal->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(&walk)));
  VariantClear(&enumerator);
  std::string line = "items";
  while (walk->Next(1, &item, nullptr) == S_OK) {
    line += "\t" + answer(item);
    VariantClear(&item);
  }
  walk->Release();
  return line;
}

std::string perform(const std::vector<std::string>& fields) {
  if (fields[0] == "create") return create(fields.at(1));
  if (fields[0] == "get") return member(fields, DISPATCH_PROPERTYGET);
  if (fields[0] == "put") return member(fields, DISPATCH_PROPERTYPUT);
  if (fields[0] == "call") return member(fields, DISPATCH_METHOD);
  if (fields[0] == "items") return items(objects.at(std::stoul(fields.at(1))));
  throw Failure{E_NOTIMPL, "bridge", "no request: " + fields[0]};
}

}  // namespace

int main() {
  if (FAILED(CoInitialize(nullptr))) return 1;
  for (std::string line; std::getline(std::cin, line);) {
    try {
      std::cout << perform(fieldsOf(line)) << std::endl;
    } catch (const Failure& failure) {
      std::cout << "!" << failure.result << "\t" << escaped(failure.source) << "\t" << escaped(failure.text)
                << std::endl;
    }
  }
  for (IDispatch* object : objects) object->Release();
  CoUninitialize();
}
