// What each thread has of its own, and what the process has for good.
#pragma once

#include <memory>

namespace orvane {

/// What a thread has, whatever it is.
class ThreadPart {
 public:
  ThreadPart() = default;
  ThreadPart(const ThreadPart&) = delete;
  ThreadPart& operator=(const ThreadPart&) = delete;
  virtual ~ThreadPart() = default;

  /// A factory serves this thread from now on, or none does.
  static void served(bool on) noexcept;

 protected:
  /// Destroys it with the thread.
  void join();

 private:
  static void endAll() noexcept;

  ThreadPart* before_ = nullptr;
};

/// A thread's T, made when first asked for and destroyed at the thread's end. A program ends its first thread
/// before its static objects, though, and a factory or a document may be one of them: what that thread has
/// stays as long as a factory serves it.
template <class T>
class OfThread : private ThreadPart {
 public:
  static T& get() {
    if (!here()) (new OfThread)->join();
    return here()->value_;
  }

  /// Null where nobody has asked for one.
  static T* find() noexcept { return here() ? &here()->value_ : nullptr; }

 private:
  OfThread() { here() = this; }
  ~OfThread() override { here() = nullptr; }

  static OfThread*& here() noexcept {
    constinit thread_local OfThread* here = nullptr;
    return here;
  }

  T value_{};
};

/// The process's T, made when first asked for and never destroyed: static objects that end after the
/// library's own may still ask for it.
template <class T>
const std::shared_ptr<T>& ofProcess() {
  static const auto& instance = *new std::shared_ptr<T>(std::make_shared<T>());
  return instance;
}

}  // namespace orvane
