#include "tests/faults/SystemCalls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace orvane::test {

namespace {

constexpr int kInterruptions = 50;
constexpr std::int64_t kSecond = 1'000'000'000;

struct State {
  Fault fault;
  int calls = 0;
  const char* firstFailed = "";
  std::vector<DiskEvent> events;
  std::vector<LockEvent> locks;
};

thread_local State* active = nullptr;
thread_local std::int64_t slept = 0;  // nanoseconds; never taken back, so that no clock runs backwards

template <class Function>
Function* original(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

bool isHit(const State& state, int call) {
  const Fault& fault = state.fault;
  if (fault.at < 0 || call < fault.at) return false;
  if (!fault.onward) return call == fault.at;
  return fault.code != EINTR || call < fault.at + kInterruptions;
}

enum class Verdict { Passes, Fails, IsCut, DoesNothing };

Verdict judge(const Fault& fault) {
  if (fault.code == kNothingDone) return Verdict::DoesNothing;
  return fault.code == 0 ? Verdict::IsCut : Verdict::Fails;
}

void interfere(State& state) {
  active = nullptr;
  state.fault.meanwhile();
  active = &state;
}

// Counts a call and says what becomes of it.
Verdict meet(const char* name) {
  if (!active) return Verdict::Passes;
  State& state = *active;
  if (state.fault.name && std::strcmp(state.fault.name, name) != 0) return Verdict::Passes;
  if (!isHit(state, state.calls++)) return Verdict::Passes;
  if (state.fault.meanwhile) return interfere(state), Verdict::Passes;
  if (!*state.firstFailed) state.firstFailed = name;
  if (state.fault.code > 0) errno = state.fault.code;
  return judge(state.fault);
}

bool fails(const char* name) { return meet(name) == Verdict::Fails; }

std::uint64_t inodeOf(int file) {
  static const auto real = original<int(int, struct stat*)>("fstat");
  struct stat state {};
  return real(file, &state) == 0 ? state.st_ino : 0;
}

void record(DiskEvent event) {
  if (!active) return;
  State* const state = active;
  active = nullptr;
  state->events.push_back(std::move(event));
  active = state;
}

bool isFolder(int file) {
  static const auto real = original<int(int, struct stat*)>("fstat");
  struct stat state {};
  return real(file, &state) == 0 && S_ISDIR(state.st_mode);
}

}  // namespace

SystemCalls::SystemCalls(Fault fault) {
  auto state = new State;
  state->fault = std::move(fault);
  active = state;
}

SystemCalls::~SystemCalls() {
  State* const state = active;
  active = nullptr;
  delete state;
}

int SystemCalls::count() const { return active->calls; }
const char* SystemCalls::firstFailed() const { return active->firstFailed; }
const std::vector<DiskEvent>& SystemCalls::events() const { return active->events; }
const std::vector<LockEvent>& SystemCalls::locks() const { return active->locks; }

}  // namespace orvane::test

using orvane::test::active;
using orvane::test::DiskEvent;
using orvane::test::fails;
using orvane::test::meet;
using orvane::test::original;
using orvane::test::record;
using orvane::test::Verdict;

extern "C" {

int open(const char* path, int flags, ...) {
  static const auto real = original<int(const char*, int, ...)>("open");
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & O_CREAT) ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  if (fails("open")) return -1;
  const int file = real(path, flags, mode);
  if (active && file >= 0 && (flags & O_CREAT)) {
    record({DiskEvent::Create, orvane::test::inodeOf(file), path, {}, {}});
  }
  return file;
}

ssize_t read(int file, void* bytes, size_t size) {
  static const auto real = original<ssize_t(int, void*, size_t)>("read");
  const Verdict verdict = meet("read");
  if (verdict == Verdict::Fails) return -1;
  if (verdict == Verdict::DoesNothing) return 0;
  return real(file, bytes, verdict == Verdict::IsCut && size > 1 ? 1 : size);
}

ssize_t write(int file, const void* bytes, size_t size) {
  static const auto real = original<ssize_t(int, const void*, size_t)>("write");
  const Verdict verdict = meet("write");
  if (verdict == Verdict::Fails) return -1;
  if (verdict == Verdict::DoesNothing) return 0;
  const ssize_t put = real(file, bytes, verdict == Verdict::IsCut && size > 1 ? 1 : size);
  if (active && put > 0) {
    record({DiskEvent::Write,
            orvane::test::inodeOf(file),
            {},
            {},
            std::string(static_cast<const char*>(bytes), static_cast<std::size_t>(put)),
            static_cast<std::size_t>(::lseek(file, 0, SEEK_CUR) - put)});
  }
  return put;
}

int ftruncate(int file, off_t size) {
  static const auto real = original<int(int, off_t)>("ftruncate");
  if (fails("ftruncate")) return -1;
  const int result = real(file, size);
  if (active && result == 0)
    record({DiskEvent::Truncate, orvane::test::inodeOf(file), {}, {}, {}, static_cast<std::size_t>(size)});
  return result;
}

// The operating system closes the file whatever it reports.
int close(int file) {
  static const auto real = original<int(int)>("close");
  const bool failed = fails("close");
  const int code = errno;
  const int result = real(file);
  if (!failed) return result;
  errno = code;
  return -1;
}

int fstat(int file, struct stat* state) {
  static const auto real = original<int(int, struct stat*)>("fstat");
  return fails("fstat") ? -1 : real(file, state);
}

int stat(const char* path, struct stat* state) {
  static const auto real = original<int(const char*, struct stat*)>("stat");
  return fails("stat") ? -1 : real(path, state);
}

int lstat(const char* path, struct stat* state) {
  static const auto real = original<int(const char*, struct stat*)>("lstat");
  return fails("lstat") ? -1 : real(path, state);
}

int faccessat(int folder, const char* path, int rights, int flags) {
  static const auto real = original<int(int, const char*, int, int)>("faccessat");
  return fails("faccessat") ? -1 : real(folder, path, rights, flags);
}

int statfs(const char* path, struct statfs* system) {
  static const auto real = original<int(const char*, struct statfs*)>("statfs");
  return fails("statfs") ? -1 : real(path, system);
}

int futimens(int file, const struct timespec* times) {
  static const auto real = original<int(int, const struct timespec*)>("futimens");
  return fails("futimens") ? -1 : real(file, times);
}

int rename(const char* from, const char* to) {
  static const auto real = original<int(const char*, const char*)>("rename");
  if (fails("rename")) return -1;
  const int result = real(from, to);
  if (active && result == 0) record({DiskEvent::Rename, 0, from, to, {}});
  return result;
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
  static const auto real = original<int(int, const char*, int, const char*, unsigned)>("renameat2");
  if (fails("renameat2")) return -1;
  const int result = real(fromFolder, from, toFolder, to, flags);
  if (active && result == 0) record({DiskEvent::Exchange, 0, from, to, {}});
  return result;
}

int unlink(const char* path) {
  static const auto real = original<int(const char*)>("unlink");
  if (fails("unlink")) return -1;
  const int result = real(path);
  if (active && result == 0) record({DiskEvent::Unlink, 0, path, {}, {}});
  return result;
}

int fsync(int file) {
  static const auto real = original<int(int)>("fsync");
  if (fails("fsync")) return -1;
  if (!active) return real(file);
  record({orvane::test::isFolder(file) ? DiskEvent::SyncFolder : DiskEvent::SyncFile,
          orvane::test::inodeOf(file),
          {},
          {},
          {}});
  return 0;
}

int fcntl(int file, int command, ...) {
  static const auto real = original<int(int, int, ...)>("fcntl");
  va_list arguments;
  va_start(arguments, command);
  void* const argument = va_arg(arguments, void*);
  va_end(arguments);
  if (fails("fcntl")) return -1;
  const int result = real(file, command, argument);
  if (active && result == 0 && command == F_OFD_SETLK) {
    const auto& range = *static_cast<struct flock*>(argument);
    active->locks.push_back({range.l_type, range.l_start, range.l_len});
  }
  return result;
}

int fchmod(int file, mode_t mode) {
  static const auto real = original<int(int, mode_t)>("fchmod");
  return fails("fchmod") ? -1 : real(file, mode);
}

int chmod(const char* path, mode_t mode) {
  static const auto real = original<int(const char*, mode_t)>("chmod");
  return fails("chmod") ? -1 : real(path, mode);
}

int fchown(int file, uid_t owner, gid_t group) {
  static const auto real = original<int(int, uid_t, gid_t)>("fchown");
  return fails("fchown") ? -1 : real(file, owner, group);
}

ssize_t readlink(const char* path, char* target, size_t size) {
  static const auto real = original<ssize_t(const char*, char*, size_t)>("readlink");
  return fails("readlink") ? -1 : real(path, target, size);
}

ssize_t sendfile(int to, int from, off_t* offset, size_t size) {
  static const auto real = original<ssize_t(int, int, off_t*, size_t)>("sendfile");
  return fails("sendfile") ? -1 : real(to, from, offset, size);
}

int nanosleep(const struct timespec* time, struct timespec* rest) {
  static const auto real = original<int(const struct timespec*, struct timespec*)>("nanosleep");
  if (!active) return real(time, rest);
  orvane::test::slept += time->tv_sec * orvane::test::kSecond + time->tv_nsec;
  return 0;
}

int clock_gettime(clockid_t clock, struct timespec* time) {
  static const auto real = original<int(clockid_t, struct timespec*)>("clock_gettime");
  const int result = real(clock, time);
  if (result != 0 || clock != CLOCK_MONOTONIC) return result;
  const std::int64_t now = time->tv_sec * orvane::test::kSecond + time->tv_nsec + orvane::test::slept;
  time->tv_sec = now / orvane::test::kSecond;
  time->tv_nsec = now % orvane::test::kSecond;
  return 0;
}

}  // extern "C"
