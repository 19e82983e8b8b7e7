#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstring>

#include "cli/AbsoluteFolder.h"
#include "cli/Failure.h"
#include "cli/FolderWatch.h"
#include "core/Paths.h"

namespace orvane::cli {

namespace {

constexpr std::uint32_t kEvents = IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE;

class NotifiedWatch : public FolderWatch {
 public:
  explicit NotifiedWatch(const std::string& folder) : handle_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    if (handle_ < 0) throw Failure(ErrorNumber::TooManyFiles, folder);
    const std::string path = nativePath(absoluteFolder(fromUtf8(folder)));
    if (inotify_add_watch(handle_, path.c_str(), kEvents | IN_ONLYDIR) >= 0) return;
    const bool tooMany = errno == ENOSPC;
    close(handle_);
    throw Failure(tooMany ? ErrorNumber::TooManyFiles : ErrorNumber::PathNotFound, folder);
  }
  ~NotifiedWatch() override { close(handle_); }
  NotifiedWatch(const NotifiedWatch&) = delete;
  NotifiedWatch& operator=(const NotifiedWatch&) = delete;

  FolderChanges wait(std::chrono::milliseconds longest) override {
    pollfd ready{handle_, POLLIN, 0};
    poll(&ready, 1, static_cast<int>(longest.count()));
    FolderChanges changes;
    for (ssize_t size = readEvents(); size > 0; size = readEvents())
      note(static_cast<std::size_t>(size), changes);
    return changes;
  }

 private:
  ssize_t readEvents() { return read(handle_, room_.data(), room_.size()); }

  void note(std::size_t size, FolderChanges& changes) const {
    for (std::size_t at = 0; at < size;) {
      inotify_event event;
      std::memcpy(&event, room_.data() + at, sizeof event);
      if ((event.mask & IN_Q_OVERFLOW) != 0) changes.anything = true;
      if (event.len > 0) changes.names.insert(fromUtf8(room_.data() + at + sizeof event));
      at += sizeof event + event.len;
    }
  }

  int handle_;
  std::array<char, 65536> room_;
};

}  // namespace

std::unique_ptr<FolderWatch> watchFolder(const std::string& folder) {
  return std::make_unique<NotifiedWatch>(folder);
}

}  // namespace orvane::cli
