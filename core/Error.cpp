#include "core/Error.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace orvane {

namespace {

struct Row {
  ErrorNumber number;
  const char* text;
};

constexpr Row kTexts[] = {
    {ErrorNumber::InvalidCall, "Invalid procedure call or argument"},
    {ErrorNumber::Overflow, "Overflow"},
    {ErrorNumber::OutOfMemory, "Out of memory"},
    {ErrorNumber::SubscriptOutOfRange, "Subscript out of range"},
    {ErrorNumber::TypeMismatch, "Type mismatch"},
    {ErrorNumber::DllLoading, "Error in loading DLL"},
    {ErrorNumber::BadFileName, "Bad file name or number"},
    {ErrorNumber::FileNotFound, "File not found"},
    {ErrorNumber::DeviceIo, "Device I/O error"},
    {ErrorNumber::DiskFull, "Disk full"},
    {ErrorNumber::TooManyFiles, "Too many files"},
    {ErrorNumber::PermissionDenied, "Permission denied"},
    {ErrorNumber::PathFileAccess, "Path/File access error"},
    {ErrorNumber::PathNotFound, "Path not found"},
    {ErrorNumber::ObjectNotSet, "Object variable or With block variable not set"},
    {ErrorNumber::ObjectRequired, "Object required"},
    {ErrorNumber::NoSuchMember, "Object doesn't support this property or method"},
    {ErrorNumber::NotSupportedAction, "Object doesn't support this action"},
    {ErrorNumber::WrongArguments, "Wrong number of arguments or invalid property assignment"},
    {ErrorNumber::DuplicateKey, "This key is already associated with an element of this collection"},
};

}  // namespace

const char* standardText(int number) {
  const auto row = std::find_if(std::begin(kTexts), std::end(kTexts),
                                [&](const Row& r) { return static_cast<int>(r.number) == number; });
  return row == std::end(kTexts) ? "Application-defined or object-defined error" : row->text;
}

Error::Error(ErrorNumber number, std::string description)
    : number_(number),
      description_(description.empty() ? standardText(this->number()) : std::move(description)) {}

}  // namespace orvane
