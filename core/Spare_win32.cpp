#include "core/Disk.h"

namespace orvane {

// Windows exchanges no names, so no file is kept.
bool DiskFile::writeSpare(const Stamp&, std::string_view, const Stamp&, std::int64_t) { return false; }
bool DiskFile::exchangeFiles(const Stamp&) { return false; }

}  // namespace orvane
