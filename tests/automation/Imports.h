// Functions that a module imports, replaced under it: the module itself stays the one that is shipped.
#pragma once

#include <windows.h>

#include <string_view>

namespace client {

/// While it lives, `module` calls `replacement` where it calls the imported function `name`. Throws
/// std::invalid_argument where the module does not import it. Not while another thread runs in the module.
class Import {
 public:
  template <class Function>
  Import(HMODULE module, std::string_view name, Function* replacement)
      : Import(module, name, reinterpret_cast<void*>(replacement)) {}
  Import(HMODULE module, std::string_view name, void* replacement);
  Import(const Import&) = delete;
  Import& operator=(const Import&) = delete;
  ~Import() { set(original_); }

 private:
  void set(void* function) const;

  void** slot_;
  void* original_;
};

}  // namespace client
