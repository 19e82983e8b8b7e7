// Counts what is put on the device: a byte in the file `flushes` of the present folder each time.
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

extern "C" int fsync(int file) {
  const int flushes = ::open("flushes", O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
  const bool counted = ::write(flushes, "f", 1) == 1;
  ::close(flushes);
  return counted ? static_cast<int>(::syscall(SYS_fsync, file)) : -1;
}
