// The component's own texts where there are no resources: the compiled table.
#include <dlfcn.h>

#include "codes/OwnTexts.h"
#include "codes/VqDocResDll.h"

namespace orvane {

Text ownText(std::int32_t id) { return compiledText(id); }

void* loadLibrary(TextView name) { return dlopen(toUtf8(name).c_str(), RTLD_LAZY | RTLD_LOCAL); }

void freeLibrary(void* module) {
  if (module != nullptr) dlclose(module);
}

}  // namespace orvane
