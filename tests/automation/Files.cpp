#include "tests/automation/Files.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace client {

namespace {

std::wstring parentFolder() {
  // As Wine sees the host's.
  constexpr wchar_t kMemory[] = L"Z:\\dev\\shm\\";
  if (GetFileAttributesW(kMemory) != INVALID_FILE_ATTRIBUTES) return kMemory;
  wchar_t temporary[MAX_PATH];
  return {temporary, GetTempPathW(MAX_PATH, temporary)};
}

std::vector<std::wstring> namesIn(const std::wstring& folder) {
  std::vector<std::wstring> names;
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return names;
  do {
    if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) names.emplace_back(found.cFileName);
  } while (FindNextFileW(search, &found));
  FindClose(search);
  return names;
}

}  // namespace

std::string bytesOf(const std::wstring& path) {
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return {};
  std::string bytes(GetFileSize(file, nullptr), '\0');
  DWORD got = 0;
  ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr);
  CloseHandle(file);
  return bytes;
}

void putBytes(const std::wstring& path, const std::string& bytes) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  DWORD written = 0;
  WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
  CloseHandle(file);
}

Content contentOf(const std::wstring& folder) {
  Content content;
  for (const auto& name : namesIn(folder)) content[name] = bytesOf(folder + L"\\" + name);
  content.erase(L".orvane.lock");
  return content;
}

Folder::Folder() {
  static int number = 0;
  path_ = parentFolder() + L"orvane-test-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
          std::to_wstring(GetTickCount()) + L"-" + std::to_wstring(++number);
  CreateDirectoryW(path_.c_str(), nullptr);
}

Folder::~Folder() {
  restore(path_, {});
  RemoveDirectoryW(path_.c_str());
}

void restore(const std::wstring& folder, const Content& content) {
  for (const auto& name : namesIn(folder)) DeleteFileW((folder + L"\\" + name).c_str());
  for (const auto& [name, bytes] : content) putBytes(folder + L"\\" + name, bytes);
}

int soakFactor() {
  const char* const text = std::getenv("ORVANE_SOAK_FACTOR");
  return text ? std::max(1, std::atoi(text)) : 1;
}

}  // namespace client
