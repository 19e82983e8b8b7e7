// The loader of the library's numbered texts.
#pragma once

#include <cstdint>

#include "core/Text.h"

namespace orvane {

/// One per thread, made and released by the factory. Texts come from the component's own string table: on
/// Windows the DLL's STRINGTABLE, elsewhere a table compiled in. A language library can be loaded, but no
/// text is taken from it.
class VqDocResDll {
 public:
  /// The file name meant for a library of texts in another language. Nothing loads it.
  static constexpr char16_t kLanguageLibrary[] = u"LumoDllDocumentiLng.dll";

  VqDocResDll() = default;
  VqDocResDll(const VqDocResDll&) = delete;
  VqDocResDll& operator=(const VqDocResDll&) = delete;
  ~VqDocResDll();

  /// Load the named library, searched the system's usual way, after freeing the one loaded before. A failure
  /// (error 48 inside) does not reach the caller: the name then reads back empty.
  void DllName(TextView name);
  const Text& DllName() const { return name_; }

  /// How the text begins that stands for one that is missing; "risora" is how it has always been spelled.
  static constexpr TextView kMissing = u"Manca la risora: ";

  /// The text of that number, or `kMissing` with the number and the component's title where there is
  /// none. `length` is not looked at. Never fails.
  Text LoadDllString(std::int32_t index, std::int32_t length = 255) const;

 private:
  Text name_;
  void* module_ = nullptr;
};

/// The text of that number in the component's own table; empty where there is none.
Text ownText(std::int32_t id);

/// A language library of the platform: null where it cannot be loaded.
void* loadLibrary(TextView name);
void freeLibrary(void* module);

}  // namespace orvane
