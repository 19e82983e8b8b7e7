#include "core/Disk.h"

#include <windows.h>

#include <algorithm>
#include <new>
#include <utility>

#include "core/Error.h"
#include "core/Paths.h"
#include "core/Paths_win32.h"
#include "core/Patience.h"
#include "core/SystemError.h"

namespace orvane {

namespace {

constexpr std::int64_t kFileTimeUnit = 100;                        // nanoseconds
constexpr std::int64_t kFileTimeOf1970 = 116'444'736'000'000'000;  // units since 1601
constexpr std::uint64_t kLargestFile = 0x7FFFFFFF;
constexpr std::size_t kLongestName = 255;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
// How long a reader or a virus scanner may hold a file before that is an error.
constexpr std::chrono::seconds kLongestHold{2};

std::int64_t nanoseconds(const FILETIME& time) {
  const auto units =
      static_cast<std::int64_t>((std::uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime);
  return (units - kFileTimeOf1970) * kFileTimeUnit;
}

FILETIME fileTime(std::int64_t nanoseconds) {
  const auto units = static_cast<std::uint64_t>(nanoseconds / kFileTimeUnit + kFileTimeOf1970);
  return {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
}

FILETIME fileTime(const LARGE_INTEGER& units) { return {units.LowPart, static_cast<DWORD>(units.HighPart)}; }

std::uint64_t joined(DWORD high, DWORD low) { return (std::uint64_t{high} << 32) | low; }

// The clock of 100 ns, where the system has it.
FILETIME preciseTime() {
  using Clock = VOID(WINAPI*)(FILETIME*);
  static const auto clock = reinterpret_cast<Clock>(reinterpret_cast<void (*)()>(
      GetProcAddress(GetModuleHandleW(L"kernel32"), "GetSystemTimePreciseAsFileTime")));
  FILETIME now{};
  clock ? clock(&now) : GetSystemTimeAsFileTime(&now);
  return now;
}

bool isMissing(DWORD code) { return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND; }
bool isHeld(DWORD code) {
  return code == ERROR_SHARING_VIOLATION || code == ERROR_LOCK_VIOLATION || code == ERROR_ACCESS_DENIED ||
         code == ERROR_USER_MAPPED_FILE || code == ERROR_DELETE_PENDING;
}

bool isFolder(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Attributes say more than who owns a file, and some change by themselves.
constexpr DWORD kKeptAttributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

Stamp makeStamp(DWORD attributes, std::uint64_t size, const FILETIME& created, const FILETIME& modified) {
  if (attributes & FILE_ATTRIBUTE_DIRECTORY) raiseSystemError(ERROR_DIRECTORY);
  if (size > kLargestFile) raiseSystemError(ERROR_OUTOFMEMORY);
  Stamp stamp;
  stamp.exists = true;
  stamp.size = size;
  stamp.modified = nanoseconds(modified);
  stamp.changed = nanoseconds(created);
  stamp.permissions = attributes & kKeptAttributes;
  return stamp;
}

Stamp stampOf(const WIN32_FILE_ATTRIBUTE_DATA& state) {
  return makeStamp(state.dwFileAttributes, joined(state.nFileSizeHigh, state.nFileSizeLow),
                   state.ftCreationTime, state.ftLastWriteTime);
}

// An open file, closed in the end.
class Handle {
 public:
  Handle(const std::wstring& path, DWORD access, DWORD share, DWORD how, DWORD flags = FILE_ATTRIBUTE_NORMAL)
      : file_(CreateFileW(path.c_str(), access, share, nullptr, how, flags, nullptr)) {}
  Handle(Handle&& other) noexcept : file_(std::exchange(other.file_, INVALID_HANDLE_VALUE)) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() { close(); }

  bool isOpen() const { return file_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return file_; }

  void close() {
    if (isOpen()) CloseHandle(file_);
    file_ = INVALID_HANDLE_VALUE;
  }

  Stamp stamp() const {
    FILE_BASIC_INFO basic{};
    FILE_STANDARD_INFO standard{};
    tell(FileBasicInfo, basic);
    tell(FileStandardInfo, standard);
    return makeStamp(basic.FileAttributes, static_cast<std::uint64_t>(standard.EndOfFile.QuadPart),
                     fileTime(basic.CreationTime), fileTime(basic.LastWriteTime));
  }

 private:
  template <class Info>
  void tell(FILE_INFO_BY_HANDLE_CLASS what, Info& info) const {
    if (!GetFileInformationByHandleEx(file_, what, &info, sizeof info)) raiseLastSystemError();
  }

  HANDLE file_;
};

void readAll(const Handle& file, std::string& bytes) {
  DWORD got = 0;
  if (!ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr))
    raiseLastSystemError();
  bytes.resize(got);
}

// A temporary that is there already, left by a killed process or kept by a writer on Linux, is removed, never
// written: it may be a former job file that somebody still reads. Its maker may still be dying, or a virus
// scanner be at work on it.
Handle makeAnew(const std::wstring& path, DWORD attributes) {
  bool removed = false;
  for (Patience patience(kLongestHold);;) {
    Handle file(path, GENERIC_WRITE, 0, CREATE_NEW, attributes);
    if (file.isOpen()) return file;
    DWORD code = GetLastError();
    if (code == ERROR_FILE_EXISTS) {
      removed = DeleteFileW(path.c_str());
      if (removed) continue;
      code = GetLastError();
    }
    // A name that is about to go is denied.
    const bool refused = code == ERROR_ACCESS_DENIED && !removed;
    if (refused || !isHeld(code) || !patience.wait()) raiseSystemError(code);
  }
}

void raiseIfReadOnly(const Stamp& old) {
  if (old.permissions & FILE_ATTRIBUTE_READONLY) raiseSystemError(ERROR_ACCESS_DENIED);
}

// Why a file or folder may not be used so; 0 where it may, and where somebody holds it for now.
DWORD refusalOf(const std::wstring& path, DWORD use) {
  const Handle handle(path, use, kShareAll, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
  const DWORD code = handle.isOpen() ? ERROR_SUCCESS : GetLastError();
  return code == ERROR_SHARING_VIOLATION ? ERROR_SUCCESS : code;
}

void writeAll(const Handle& file, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD put = 0;
    const auto size = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), kLargestFile));
    if (!WriteFile(file.get(), bytes.data(), size, &put, nullptr)) raiseLastSystemError();
    if (put == 0) raiseSystemError(ERROR_DISK_FULL);
    bytes.remove_prefix(put);
  }
}

// The name leads to a file throughout. Some systems refuse while somebody has the old one open.
bool exchangeNames(const std::wstring& from, const std::wstring& to, bool durable) {
  const DWORD flags = MOVEFILE_REPLACE_EXISTING | (durable ? MOVEFILE_WRITE_THROUGH : 0);
  return MoveFileExW(from.c_str(), to.c_str(), flags) != 0;
}

}  // namespace

std::int64_t timeOfChange(const Stamp& old) {
  FILETIME tick{};
  GetSystemTimeAsFileTime(&tick);
  return std::max(
      {nanoseconds(preciseTime()), nanoseconds(tick) + kFileTimeUnit, old.modified + kFileTimeUnit});
}

// A name with a colon leads to another stream of a file, and what the system says of too long a name depends
// on its version.
std::string DiskFile::targetOf(std::string path) {
  const Text name = fromUtf8(path.substr(folderLength(path)));
  const bool bad = name.find(u':') != Text::npos || name.size() > kLongestName;
  if (bad) throw Error(ErrorNumber::BadFileName);
  return path;
}

bool DiskFile::tryStamp(Stamp& stamp) const noexcept {
  WIN32_FILE_ATTRIBUTE_DATA state{};
  try {
    if (!GetFileAttributesExW(widePath(path_).c_str(), GetFileExInfoStandard, &state)) return false;
    stamp = stampOf(state);
    return true;
  } catch (...) {
    return false;
  }
}

Stamp DiskFile::stamp() const {
  WIN32_FILE_ATTRIBUTE_DATA state{};
  const std::wstring path = widePath(path_);
  for (Patience patience(kLongestHold); !GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &state);) {
    const DWORD code = GetLastError();
    if (isMissing(code)) return {};
    if (!isHeld(code) || !patience.wait()) raiseSystemError(code);
  }
  return stampOf(state);
}

Stamp DiskFile::read(std::string& bytes) const {
  const std::wstring path = widePath(path_);
  for (Patience patience(kLongestHold);;) {
    bytes.clear();
    const Handle file(path, GENERIC_READ, kShareAll, OPEN_EXISTING);
    const DWORD code = file.isOpen() ? ERROR_SUCCESS : GetLastError();
    if (isMissing(code)) {
      // A file taken for missing would be written anew without its values: two calls must agree.
      if (!stamp().exists) return {};
      if (!patience.wait()) raiseSystemError(ERROR_FILE_INVALID);
      continue;
    }
    if (!file.isOpen()) {
      if (isFolder(path)) raiseSystemError(ERROR_DIRECTORY);
      if (!isHeld(code) || !patience.wait()) raiseSystemError(code);
      continue;
    }
    const Stamp before = file.stamp();
    bytes.resize(static_cast<std::size_t>(before.size));
    readAll(file, bytes);
    const Stamp after = file.stamp();
    const bool whole = bytes.size() == after.size && before.modified == after.modified;
    if (whole || !patience.wait()) return before;
  }
}

void DiskFile::checkRights(const Stamp& old) const {
  raiseIfReadOnly(old);
  const std::wstring folder = widePath(folder_);
  if (const DWORD code = refusalOf(folder, FILE_ADD_FILE)) raiseSystemError(code);
  const bool kept = old.exists && refusalOf(widePath(path_), DELETE) == ERROR_ACCESS_DENIED &&
                    refusalOf(folder, FILE_DELETE_CHILD) == ERROR_ACCESS_DENIED;
  if (kept) raiseSystemError(ERROR_ACCESS_DENIED);
}

void DiskFile::writeTemporary(std::string_view bytes, const Stamp& old, std::int64_t modified, bool durable) {
  raiseIfReadOnly(old);
  const Handle file = makeAnew(widePath(temporary_), FILE_ATTRIBUTE_NORMAL | old.permissions);
  writeAll(file, bytes);
  const FILETIME time = fileTime(modified);
  SetFileTime(file.get(), nullptr, nullptr, &time);
  if (durable && !FlushFileBuffers(file.get())) raiseLastSystemError();
}

void DiskFile::keepPermissions(Stamp& now, const Stamp& old) const noexcept try {
  SetFileAttributesW(widePath(path_).c_str(), old.permissions ? old.permissions : FILE_ATTRIBUTE_NORMAL);
  tryStamp(now);
} catch (const std::bad_alloc&) {
}

// The temporary is closed: a virus scanner that works then keeps no reader from the job file.
void DiskFile::putInPlace(bool durable) {
  const std::wstring from = widePath(temporary_);
  const std::wstring to = widePath(path_);
  for (Patience patience(kLongestHold); !exchangeNames(from, to, durable);) {
    const DWORD code = GetLastError();
    if (isFolder(to)) raiseSystemError(ERROR_DIRECTORY);
    if (!isHeld(code) || !patience.wait()) raiseSystemError(code);
  }
}

void DiskFile::removeTemporary() const noexcept try {
  DeleteFileW(widePath(temporary_).c_str());
} catch (const std::bad_alloc&) {
}

void DiskFile::flush() {
  settle();
  const Handle file(widePath(path_), GENERIC_WRITE, kShareAll, OPEN_EXISTING);
  if (!file.isOpen() && isMissing(GetLastError())) return;
  if (!file.isOpen() || !FlushFileBuffers(file.get())) raiseLastSystemError();
  flushFolder();
}

// Names are journalled; where a folder can be flushed too, it is.
void DiskFile::flushFolder() const {
  const Handle folder(widePath(folder_), GENERIC_WRITE, kShareAll, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
  if (folder.isOpen()) FlushFileBuffers(folder.get());
}

}  // namespace orvane
