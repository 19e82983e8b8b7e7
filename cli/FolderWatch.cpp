#include "cli/FolderWatch.h"

#include <algorithm>
#include <map>
#include <thread>

#include "cli/AbsoluteFolder.h"
#include "cli/JobRow.h"
#include "core/Disk.h"
#include "core/Error.h"
#include "core/Paths.h"

namespace orvane::cli {

namespace {

using namespace std::chrono_literals;

class PollingWatch : public FolderWatch {
 public:
  explicit PollingWatch(const std::string& folder) : folder_(folder), seen_(look()) {}

  FolderChanges wait(std::chrono::milliseconds longest) override {
    std::this_thread::sleep_for(std::min<std::chrono::milliseconds>(longest, 500ms));
    std::map<Text, Stamp> before = look();
    before.swap(seen_);
    FolderChanges changes;
    noteDifferent(before, seen_, changes);
    noteDifferent(seen_, before, changes);
    return changes;
  }

 private:
  using Stamps = std::map<Text, Stamp>;

  Stamps look() const {
    Stamps stamps;
    const Text folder = absoluteFolder(fromUtf8(folder_));
    visitFiles(folder_, [&](const Text& name) { stamps[name] = stampOf(joinPath(folder, name)); });
    return stamps;
  }

  static Stamp stampOf(const Text& file) {
    try {
      return DiskFile(file).stamp();
    } catch (const Error&) {
      return {};  // shown by whoever reads it
    }
  }

  static void noteDifferent(const Stamps& some, const Stamps& others, FolderChanges& changes) {
    for (const auto& [name, stamp] : some) {
      const auto other = others.find(name);
      if (other == others.end() || !(other->second == stamp)) changes.names.insert(name);
    }
  }

  std::string folder_;
  Stamps seen_;
};

}  // namespace

std::unique_ptr<FolderWatch> pollFolder(const std::string& folder) {
  return std::make_unique<PollingWatch>(folder);
}

}  // namespace orvane::cli
