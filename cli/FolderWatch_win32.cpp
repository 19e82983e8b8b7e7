#include <windows.h>

#include <array>

#include "cli/AbsoluteFolder.h"
#include "cli/Failure.h"
#include "cli/FolderWatch.h"
#include "core/Paths.h"
#include "core/Paths_win32.h"

namespace orvane::cli {

namespace {

constexpr DWORD kEvents =
    FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_LAST_WRITE | FILE_NOTIFY_CHANGE_SIZE;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

class NotifiedWatch : public FolderWatch {
 public:
  explicit NotifiedWatch(const std::string& folder)
      : folder_(CreateFileW(widePath(nativePath(absoluteFolder(fromUtf8(folder)))).c_str(),
                            FILE_LIST_DIRECTORY, kShareAll, nullptr, OPEN_EXISTING,
                            FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OVERLAPPED, nullptr)) {
    if (folder_ == INVALID_HANDLE_VALUE) throw Failure(ErrorNumber::PathNotFound, folder);
    asked_.hEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    if (asked_.hEvent && ask()) return;
    close();
    throw Failure(ErrorNumber::TooManyFiles, folder);
  }
  ~NotifiedWatch() override {
    DWORD size = 0;
    CancelIo(folder_);
    GetOverlappedResult(folder_, &asked_, &size, TRUE);
    close();
  }
  NotifiedWatch(const NotifiedWatch&) = delete;
  NotifiedWatch& operator=(const NotifiedWatch&) = delete;

  FolderChanges wait(std::chrono::milliseconds longest) override {
    FolderChanges changes;
    auto left = static_cast<DWORD>(longest.count());
    while (WaitForSingleObject(asked_.hEvent, left) == WAIT_OBJECT_0) {
      DWORD size = 0;
      const bool told = GetOverlappedResult(folder_, &asked_, &size, FALSE) && size > 0;
      changes.anything = changes.anything || !told;  // more than there was room for
      if (told) note(changes);
      if (!ask()) break;
      left = 0;
    }
    return changes;
  }

 private:
  bool ask() {
    ResetEvent(asked_.hEvent);
    return ReadDirectoryChangesW(folder_, room_.data(), static_cast<DWORD>(sizeof room_), FALSE, kEvents,
                                 nullptr, &asked_, nullptr) != 0;
  }

  void note(FolderChanges& changes) const {
    const auto* at = reinterpret_cast<const std::byte*>(room_.data());
    for (DWORD next = 1; next != 0; at += next) {
      const auto* event = reinterpret_cast<const FILE_NOTIFY_INFORMATION*>(at);
      changes.names.emplace(event->FileName, event->FileName + event->FileNameLength / sizeof(WCHAR));
      next = event->NextEntryOffset;
    }
  }

  void close() {
    if (asked_.hEvent) CloseHandle(asked_.hEvent);
    CloseHandle(folder_);
  }

  HANDLE folder_;
  OVERLAPPED asked_{};
  std::array<DWORD, 16384> room_;
};

}  // namespace

std::unique_ptr<FolderWatch> watchFolder(const std::string& folder) {
  return std::make_unique<NotifiedWatch>(folder);
}

}  // namespace orvane::cli
