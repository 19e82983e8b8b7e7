// What ends a command, as one sentence for the user.
#pragma once

#include <stdexcept>
#include <string>

#include "core/Error.h"

namespace orvane::cli {

/// The exit codes, which scripts depend on.
enum class ExitCode : int {
  Ok = 0,
  RunTimeError = 1,  ///< an error with a run-time number
  Usage = 2,         ///< an unknown command or option, or an argument that is missing or misspelt
  Output = 3,        ///< the output could not be written
  Internal = 4,      ///< a fault of the program
  Found = 5,         ///< done: jobs differ, or a check has found something
};

/// An error with a run-time number: "Path not found (76): C:\Lavori".
class Failure : public std::runtime_error {
 public:
  Failure(int number, const std::string& text, const std::string& subject)
      : runtime_error(text + " (" + std::to_string(number) + "): " + subject),
        number_(number),
        text_(text),
        subject_(subject) {}
  Failure(ErrorNumber number, const std::string& subject) : Failure(Error(number), subject) {}
  Failure(const Error& error, const std::string& subject) : Failure(error.number(), error.what(), subject) {}

  /// The same, said of a part of `whole`.
  Failure within(const std::string& whole) const { return {number_, text_, whole + ": " + subject_}; }

 private:
  int number_;
  std::string text_, subject_;
};

/// A command line that cannot be understood.
class UsageError : public std::runtime_error {
 public:
  using runtime_error::runtime_error;
};

/// Do `work`; an error of the library is reported with its subject.
template <class Work>
decltype(auto) about(const std::string& subject, Work&& work) {
  try {
    return work();
  } catch (const Error& error) {
    throw Failure(error, subject);
  }
}

}  // namespace orvane::cli
