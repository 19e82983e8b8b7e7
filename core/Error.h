// The one exception of the library: an automation run-time error.
#pragma once

#include <exception>
#include <string>

namespace orvane {

/// The component's title: the source of every error, and the last word of a missing-string text.
inline constexpr char16_t kTitle[] = u"OrvaneDocumenti";

/// Standard run-time error numbers that the library raises. They are part of the interface: never renumber.
enum class ErrorNumber : int {
  InvalidCall = 5,           ///< bad argument of a collection or a file read
  Overflow = 6,              ///< a number that does not fit a Long or a Byte
  OutOfMemory = 7,           ///< memory could not be had
  SubscriptOutOfRange = 9,   ///< index outside a fixed array
  TypeMismatch = 13,         ///< a text or a value of a wrong type where a number must stand
  DllLoading = 48,           ///< a language resource library that cannot be loaded
  BadFileName = 52,          ///< a name that the file system cannot hold
  FileNotFound = 53,         ///< job file, body file or stream file missing
  DeviceIo = 57,             ///< the device failed
  DiskFull = 61,             ///< no room, or a quota is exhausted
  TooManyFiles = 67,         ///< no file handle is left
  PermissionDenied = 70,     ///< access refused, or the lock of a job file not had in time
  PathFileAccess = 75,       ///< any other failure to reach a file
  PathNotFound = 76,         ///< folder empty or missing
  ObjectNotSet = 91,         ///< a service of the apartment was released, or an inner document is missing
  ObjectRequired = 424,      ///< a value where an object must stand
  NoSuchMember = 438,        ///< "Object doesn't support this property or method"
  NotSupportedAction = 445,  ///< already initialised, or not allowed in the present state
  WrongArguments = 450,      ///< wrong number of arguments, or a property that cannot be set so
  DuplicateKey = 457,        ///< key already in a collection
};

/// An automation run-time error: number, source (always `kTitle`) and the standard English text of the
/// number.
class Error : public std::exception {
 public:
  explicit Error(ErrorNumber number) : Error(number, std::string()) {}

  /// `description` replaces the standard text where it is not empty.
  Error(ErrorNumber number, std::string description);

  int number() const { return static_cast<int>(number_); }
  ErrorNumber code() const { return number_; }

  /// UTF-8 text of the error.
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  ErrorNumber number_;
  std::string description_;
};

/// The standard text of a number; "Application-defined or object-defined error" for a number without one.
const char* standardText(int number);

}  // namespace orvane
