#include "core/Error.h"

#include "core/Text.h"
#include "tests/support/Rows.h"

namespace orvane::test {
namespace {

struct StandardError : Row {
  ErrorNumber code;
  int number;
  const char* text;
};

class StandardErrors : public testing::TestWithParam<StandardError> {};

TEST_P(StandardErrors, HaveTheirNumberAndText) {
  const Error error(GetParam().code);
  EXPECT_EQ(error.number(), GetParam().number);
  EXPECT_STREQ(error.what(), GetParam().text);
  EXPECT_STREQ(standardText(GetParam().number), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    All, StandardErrors,
    testing::Values(
        StandardError{"InvalidCall", ErrorNumber::InvalidCall, 5, "Invalid procedure call or argument"},
        StandardError{"Overflow", ErrorNumber::Overflow, 6, "Overflow"},
        StandardError{"OutOfMemory", ErrorNumber::OutOfMemory, 7, "Out of memory"},
        StandardError{"SubscriptOutOfRange", ErrorNumber::SubscriptOutOfRange, 9, "Subscript out of range"},
        StandardError{"TypeMismatch", ErrorNumber::TypeMismatch, 13, "Type mismatch"},
        StandardError{"OutOfStackSpace", ErrorNumber::OutOfStackSpace, 28, "Out of stack space"},
        StandardError{"DllLoading", ErrorNumber::DllLoading, 48, "Error in loading DLL"},
        StandardError{"BadFileName", ErrorNumber::BadFileName, 52, "Bad file name or number"},
        StandardError{"FileNotFound", ErrorNumber::FileNotFound, 53, "File not found"},
        StandardError{"DeviceIo", ErrorNumber::DeviceIo, 57, "Device I/O error"},
        StandardError{"DiskFull", ErrorNumber::DiskFull, 61, "Disk full"},
        StandardError{"TooManyFiles", ErrorNumber::TooManyFiles, 67, "Too many files"},
        StandardError{"PermissionDenied", ErrorNumber::PermissionDenied, 70, "Permission denied"},
        StandardError{"PathFileAccess", ErrorNumber::PathFileAccess, 75, "Path/File access error"},
        StandardError{"PathNotFound", ErrorNumber::PathNotFound, 76, "Path not found"},
        StandardError{"ObjectNotSet", ErrorNumber::ObjectNotSet, 91,
                      "Object variable or With block variable not set"},
        StandardError{"ObjectRequired", ErrorNumber::ObjectRequired, 424, "Object required"},
        StandardError{"NoSuchMember", ErrorNumber::NoSuchMember, 438,
                      "Object doesn't support this property or method"},
        StandardError{"NotSupportedAction", ErrorNumber::NotSupportedAction, 445,
                      "Object doesn't support this action"},
        StandardError{"WrongArguments", ErrorNumber::WrongArguments, 450,
                      "Wrong number of arguments or invalid property assignment"},
        StandardError{"DuplicateKey", ErrorNumber::DuplicateKey, 457,
                      "This key is already associated with an element of this collection"}),
    rowName);

TEST(ErrorTexts, AreGeneralForANumberWithoutOne) {
  EXPECT_STREQ(standardText(12345), "Application-defined or object-defined error");
}

TEST(ErrorTexts, GiveWayToADescription) {
  const Error error(ErrorNumber::DllLoading, "Error in loading DLL: Altra.dll");
  EXPECT_EQ(error.number(), 48);
  EXPECT_STREQ(error.what(), "Error in loading DLL: Altra.dll");
}

TEST(ErrorSource, IsTheTitleOfTheComponent) { EXPECT_EQ(Text(kTitle), u"OrvaneDocumenti"); }

}  // namespace
}  // namespace orvane::test
