#include "email/VqDocAnteprima.h"

namespace orvane {

VqDocAnteprima::VqDocAnteprima() : WrappingDocument(kKind) {}

}  // namespace orvane
