#include "core/OfThread.h"

#include <thread>
#include <utility>

namespace orvane {

namespace {

// Without a destructor, so that it can be asked at any time.
struct Present {
  ThreadPart* last;
  bool served;
  bool ended;  // the thread's own objects have been destroyed; the program's static ones may be left
};

constinit thread_local Present present{};

const std::thread::id firstThread = std::this_thread::get_id();

// Static objects of the program may be made before the library's.
bool isFirstThread() { return firstThread == std::thread::id() || firstThread == std::this_thread::get_id(); }

}  // namespace

void ThreadPart::join() {
  struct End {
    ~End() {
      present.ended = true;
      if (!present.served || !isFirstThread()) endAll();
    }
  };
  before_ = std::exchange(present.last, this);
  thread_local const End end;
  static_cast<void>(end);
}

void ThreadPart::served(bool on) noexcept {
  present.served = on;
  if (present.ended && !on) endAll();
}

void ThreadPart::endAll() noexcept {
  while (ThreadPart* const part = present.last) {
    present.last = part->before_;
    delete part;
  }
}

}  // namespace orvane
