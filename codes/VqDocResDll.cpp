#include "codes/VqDocResDll.h"

#include "core/Error.h"
#include "core/Numbers.h"

namespace orvane {

VqDocResDll::~VqDocResDll() { freeLibrary(module_); }

void VqDocResDll::DllName(TextView name) {
  freeLibrary(module_);
  module_ = loadLibrary(name);
  name_ = module_ == nullptr ? TextView() : name;
}

Text VqDocResDll::LoadDllString(std::int32_t index, std::int32_t) const {
  Text text = ownText(index);
  return text.empty() ? Text(kMissing) + decimalText(index) + u" " + kTitle : text;
}

}  // namespace orvane
