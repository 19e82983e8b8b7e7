// Operations on a job file of about 300 keys, against the least that replacing its bytes takes and against
// the operating system's profile functions, in the folder for temporary files.
#include <iostream>

#include "bench/windows/Measure.h"
#include "tests/automation/Client.h"

namespace {

using namespace client;
using orvane::bench::Alternating;

constexpr int kAttachments = 115;  // for about 300 keys
constexpr int kTimes = 400;

[[noreturn]] void fail(const char* what) {
  std::cerr << "benchmark: not so: " << what << std::endl;
  std::exit(1);
}

void require(bool holds, const char* what) {
  if (!holds) fail(what);
}

std::string contentOf(const std::wstring& path) {
  const HANDLE file =
      CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  require(file != INVALID_HANDLE_VALUE, "the file can be read");
  std::string bytes(GetFileSize(file, nullptr), '\0');
  DWORD got = 0;
  require(ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr), "the whole file");
  CloseHandle(file);
  return bytes;
}

void replaceRaw(const std::wstring& path, const std::string& bytes) {
  const std::wstring temporary = path + L".tmp";
  const HANDLE file = CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  DWORD put = 0;
  require(WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &put, nullptr),
          "all bytes written");
  CloseHandle(file);
  require(MoveFileExW(temporary.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING), "the file replaced");
}

Ptr<_VqDocumenti> newFactory() {
  Ptr<IClassFactory> classes;
  Ptr<_VqDocumenti> factory;
  require(Server::classObject(__uuidof(VqDocumenti), IID_IClassFactory, classes.outVoid()) == S_OK,
          "a server");
  classes->CreateInstance(nullptr, __uuidof(_VqDocumenti), factory.outVoid());
  return factory;
}

Ptr<_VqDocFax> newFax(_VqDocumenti* factory, const std::wstring& folder) {
  Ptr<_VqDocFax> fax;
  Ptr<_VqDocAllegati> attachments;
  factory->NuovoDocumentoFax(fax.out());
  require(fax->Inizializza(Bstr(L"1"), Bstr(folder), VARIANT_FALSE) == S_OK, "the fax is bound");
  fax->get_Allegati(attachments.out());
  for (int i = 0; i < kAttachments; ++i) {
    const std::wstring name = L"allegato" + std::to_wstring(i) + L".pdf";
    VARIANT_BOOL added = VARIANT_FALSE;
    Bstr file(name);
    attachments->Add(Bstr(L"C:\\Documenti"), file.out(), &added);
  }
  require(attachments->Salva() == S_OK, "the attachments are saved");
  return fax;
}

// What a state change writes, with the operating system's functions: one call a key.
void writeState(const std::wstring& path, const wchar_t* code) {
  const wchar_t* const keys[][3] = {{L"CodaFax", L"Codice", code},
                                    {L"CodaFax", L"Descrizione", L"In attesa di trasmissione"},
                                    {L"CodaFax", L"DataDaTrasmettere", L"46347.63193287037"},
                                    {L"UltimaCoda", L"Codice", code},
                                    {L"UltimaCoda", L"Descrizione", L"In attesa di trasmissione"}};
  for (const auto& [section, key, value] : keys) {
    require(WritePrivateProfileStringW(section, key, value, path.c_str()), "the key is written");
  }
}

std::wstring profileText(const std::wstring& path, const wchar_t* section, const wchar_t* key) {
  wchar_t text[256];
  return {text, GetPrivateProfileStringW(section, key, L"", text, 256, path.c_str())};
}

void measureAll(const std::wstring& folder) {
  const Ptr<_VqDocumenti> factory = newFactory();  // the documents need it as long as they are used
  const Ptr<_VqDocFax> fax = newFax(factory.get(), folder);
  Ptr<_VqDocCodaFax> queue;
  fax->get_Coda(queue.out());
  const std::wstring job = folder + L"\\1.vqf", raw = folder + L"\\raw", profile = folder + L"\\profile.ini";
  const std::string bytes = contentOf(job);
  replaceRaw(raw, bytes);
  replaceRaw(profile, bytes);
  int count = 10000000;
  std::wstring subject;
  bool waiting = false;
  Alternating operations;
  operations.add("raw: CreateFile, write, replace", [&] { replaceRaw(raw, bytes); });
  operations.add("one assignment", [&] {
    subject = L"Offerta " + std::to_wstring(++count);
    require(fax->put_Oggetto(Bstr(subject)) == S_OK, "the assignment");
  });
  operations.add("profile functions: one key", [&] {
    require(WritePrivateProfileStringW(L"Fax", L"Oggetto", subject.c_str(), profile.c_str()), "the key");
  });
  operations.add("a queue state", [&] {
    waiting = !waiting;
    require(queue->put_Codice(waiting ? vdcf_DaTrasmettere : vdcf_DaConvertire) == S_OK, "the state");
  });
  operations.add("profile functions: the keys of a queue state",
                 [&] { writeState(profile, waiting ? L"2" : L"0"); });
  operations.run(kTimes);
  require(profileText(job, L"Fax", L"Oggetto") == subject, "the job file holds the subject");
  require(profileText(job, L"CodaFax", L"Codice") == profileText(profile, L"CodaFax", L"Codice"),
          "both hold one state");
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  CoInitialize(nullptr);
  measureAll(count > 1 ? arguments[1] : newFolder());
  CoUninitialize();
  return 0;
}
