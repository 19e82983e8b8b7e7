#include "codes/VqDocResDll.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

namespace orvane::test {
namespace {

// A library that every Linux system has.
constexpr char16_t kPresent[] = u"libm.so.6";

TEST(VqDocResDllTest, GivesTheTextOfANumber) {
  const VqDocResDll strings;
  EXPECT_EQ(strings.LoadDllString(1), u"Lumo");
  EXPECT_EQ(strings.LoadDllString(7300), u"Errore");
  EXPECT_EQ(strings.LoadDllString(302), u"Bassa  (204 x 98 dpi)");
}

TEST(VqDocResDllTest, DoesNotLookAtTheLength) {
  const VqDocResDll strings;
  EXPECT_EQ(strings.LoadDllString(7800, 255), u"Italiano");
  EXPECT_EQ(strings.LoadDllString(7800, 2), u"Italiano");
  EXPECT_EQ(strings.LoadDllString(7800, 0), u"Italiano");
}

TEST(VqDocResDllTest, SaysWhichTextIsMissing) {
  const VqDocResDll strings;
  EXPECT_EQ(strings.LoadDllString(7400), u"Manca la risora: 7400 OrvaneDocumenti");
  EXPECT_EQ(strings.LoadDllString(0), u"Manca la risora: 0 OrvaneDocumenti");
  EXPECT_EQ(strings.LoadDllString(-1), u"Manca la risora: -1 OrvaneDocumenti");
  EXPECT_EQ(strings.LoadDllString(65537), u"Manca la risora: 65537 OrvaneDocumenti");
}

TEST(VqDocResDllTest, HasNoLanguageLibraryAtFirst) { EXPECT_EQ(VqDocResDll().DllName(), u""); }

TEST(VqDocResDllTest, KeepsTheNameOfALibraryThatLoads) {
  VqDocResDll strings;
  strings.DllName(kPresent);
  EXPECT_EQ(strings.DllName(), kPresent);
  EXPECT_EQ(strings.LoadDllString(1), u"Lumo");
}

TEST(VqDocResDllTest, KeepsNoNameOfALibraryThatDoesNotLoad) {
  VqDocResDll strings;
  strings.DllName(kPresent);
  EXPECT_NO_THROW(strings.DllName(VqDocResDll::kLanguageLibrary));
  EXPECT_EQ(strings.DllName(), u"");
}

TEST(VqDocResDllTest, ReplacesOneLibraryByAnother) {
  VqDocResDll strings;
  strings.DllName(kPresent);
  strings.DllName(u"libc.so.6");
  EXPECT_EQ(strings.DllName(), u"libc.so.6");
}

TEST(VqDocResDllTest, KeepsNoNameForAnEmptyOne) {
  VqDocResDll strings;
  strings.DllName(kPresent);
  strings.DllName(u"");
  EXPECT_EQ(strings.DllName(), u"");
}

// One that nothing else here needs.
constexpr char kRare[] = "libBrokenLocale.so.1";
constexpr char16_t kRareName[] = u"libBrokenLocale.so.1";

bool isLoaded() {
  void* const module = ::dlopen(kRare, RTLD_LAZY | RTLD_NOLOAD);
  if (module != nullptr) ::dlclose(module);
  return module != nullptr;
}

TEST(VqDocResDllTest, FreesALibraryThatAnotherReplaces) {
  VqDocResDll strings;
  strings.DllName(kRareName);
  EXPECT_TRUE(isLoaded());
  strings.DllName(kPresent);
  EXPECT_FALSE(isLoaded());
}

TEST(VqDocResDllTest, FreesItsLibraryAtItsEnd) {
  {
    VqDocResDll strings;
    strings.DllName(kRareName);
    EXPECT_TRUE(isLoaded());
  }
  EXPECT_FALSE(isLoaded());
}

TEST(VqDocResDllTest, KnowsTheNameMeantForAnotherLanguage) {
  EXPECT_EQ(Text(VqDocResDll::kLanguageLibrary), u"LumoDllDocumentiLng.dll");
}

}  // namespace
}  // namespace orvane::test
