#include "core/Paths.h"

namespace orvane {

Text joinPath(TextView folder, TextView name) {
  Text path;
  path.reserve(folder.size() + 1 + name.size());
  path.append(folder).append(1, u'\\').append(name);
  return path;
}

}  // namespace orvane
