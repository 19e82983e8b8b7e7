#include "core/Name.h"

namespace orvane {

Name::Name(TextView text)
    : text_(text.data()), length_(static_cast<std::uint32_t>(text.size())), hash_(hashOf(text)) {}

}  // namespace orvane
