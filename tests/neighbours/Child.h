// Another process of the test program itself.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

namespace neighbours {

/// Plays the role that the command line names; true where it names one.
bool playRole(int argc, wchar_t** argv);

/// What parent and child tell each other; zeros at first.
struct Board {
  volatile LONG ready;  ///< the child is about to begin
  volatile LONG stop;   ///< the child is to end
  volatile LONG done;   ///< the last number that the child has written, or how often it held the file
};

/// This program in a role: "write FILE FROM" or "hold FILE SHORTEST LONGEST" (milliseconds). Ended with the
/// scope.
class Child {
 public:
  Child(const std::wstring& role, const std::wstring& file, int first, int second = 0);
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  ~Child();

  Board& board() { return *board_; }

  /// Until the child has begun, and until it has told `number`. A failure says what became of it instead.
  testing::AssertionResult waitUntilReady() const { return wait("to begin", board_->ready, 1); }
  testing::AssertionResult waitUntilDone(LONG number) const {
    return wait("to be done with number " + std::to_string(number), board_->done, number);
  }

  /// At whatever it is about.
  void kill() const;

  /// Its exit code, once it has been told to stop.
  DWORD stop() const;

 private:
  testing::AssertionResult wait(const std::string& what, const volatile LONG& told, LONG least) const;

  HANDLE mapping_;
  Board* board_;
  HANDLE process_ = nullptr;
  DWORD failure_ = 0;  // to start it
};

}  // namespace neighbours
