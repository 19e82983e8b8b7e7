// A power cut after every call: once a document is released its file is whole on the device; before, the
// device holds the old file or one that was whole.
#include <sys/stat.h>

#include <algorithm>
#include <set>

#include "tests/faults/Jobs.h"
#include "tests/faults/SystemCalls.h"
#include "tests/support/Rows.h"

namespace orvane::test {
namespace {

// What the device holds of one folder. Nothing is sure to be there before it is synchronised: contents with
// their file, names with the folder. A content that is changed in place is torn there until then. Where it is
// `ordered`, a renamed file's content is there before its new name, as journaling file systems have it.
class Device {
 public:
  Device(const std::string& folder, bool ordered) : folder_(folder), ordered_(ordered) {}

  void put(const std::string& name, const std::string& bytes) {
    struct stat state {};
    ASSERT_EQ(::stat((folder_ + name).c_str(), &state), 0) << name;
    const std::uint64_t inode = state.st_ino;
    cached_[inode] = durable_[inode] = bytes;
    names_[name] = durableNames_[name] = inode;
  }

  void follow(const DiskEvent& event) {
    switch (event.kind) {
      case DiskEvent::Create:
        names_[nameOf(event.path)] = event.inode;
        cached_[event.inode].clear();
        durable_[event.inode].clear();
        return;
      case DiskEvent::Write:
        cached_[event.inode].resize(std::max(cached_[event.inode].size(), event.at + event.data.size()));
        cached_[event.inode].replace(event.at, event.data.size(), event.data);
        tear(event.inode);
        return;
      case DiskEvent::Truncate:
        cached_[event.inode].resize(event.at);
        tear(event.inode);
        return;
      case DiskEvent::Unlink:
        names_.erase(nameOf(event.path));
        return;
      case DiskEvent::Rename:
        names_[nameOf(event.target)] = names_[nameOf(event.path)];
        if (ordered_) settle(names_[nameOf(event.path)]);
        names_.erase(nameOf(event.path));
        return;
      case DiskEvent::Exchange:
        std::swap(names_[nameOf(event.target)], names_[nameOf(event.path)]);
        return;
      case DiskEvent::SyncFile:
        settle(event.inode);
        return;
      case DiskEvent::SyncFolder:
        durableNames_ = names_;
        return;
    }
  }

  /// After a power cut now, the same where names got there by themselves, and without one.
  std::string survivor(const std::string& name) const { return contentOf(durableNames_, durable_, name); }
  std::string hastySurvivor(const std::string& name) const { return contentOf(names_, durable_, name); }
  std::string present(const std::string& name) const { return contentOf(names_, cached_, name); }

 private:
  using Names = std::map<std::string, std::uint64_t>;
  using Contents = std::map<std::uint64_t, std::string>;

  void settle(std::uint64_t inode) { durable_[inode] = cached_[inode]; }
  void tear(std::uint64_t inode) {
    if (!durable_[inode].empty()) durable_[inode] = "(torn)";
  }
  static std::string contentOf(const Names& names, const Contents& contents, const std::string& name) {
    const auto found = names.find(name);
    return found == names.end() ? "(missing)" : contents.at(found->second);
  }
  std::string nameOf(const std::string& path) const {
    return path.starts_with(folder_) ? path.substr(folder_.size()) : path;
  }

  std::string folder_;
  bool ordered_;
  Names names_, durableNames_;
  Contents cached_, durable_;
};

class PowerCut : public testing::TestWithParam<Operation> {
 protected:
  void cutDuring(bool ordered) {
    jobs_.reset();
    GetParam().prepare(jobs_);
    Device device(jobs_.native(), ordered);
    for (const auto& [name, bytes] : jobs_.content()) device.put(name, bytes);
    first_ = withoutTemporaries(jobs_.content());
    for (const auto& [name, bytes] : first_) whole_[name].insert(bytes);
    replay(device, actAndRelease());
    for (const auto& [name, bytes] : jobs_.content()) {
      if (name.find(".vq") == std::string::npos) continue;
      EXPECT_EQ(device.survivor(name), bytes) << name;
    }
  }

 private:
  std::vector<DiskEvent> actAndRelease() {
    const SystemCalls calls;
    GetParam().act(jobs_);
    if (GetParam().flushes) return calls.events();
    jobs_.release();
    return calls.events();
  }

  void replay(Device& device, const std::vector<DiskEvent>& events) {
    int calls = 0;
    for (const DiskEvent& event : events) {
      device.follow(event);
      ++calls;
      if (event.kind == DiskEvent::Rename || event.kind == DiskEvent::Exchange) {
        const std::string& path = event.kind == DiskEvent::Rename ? event.target : event.path;
        const std::string name = path.substr(path.rfind('/') + 1);
        whole_[name].insert(device.present(name));
      }
      SCOPED_TRACE("after call " + std::to_string(calls) + " of " + std::to_string(events.size()));
      for (const auto& [name, states] : whole_) {
        const std::string survivor = device.survivor(name);
        EXPECT_TRUE(survivor == "(missing)" ? !first_.contains(name) : states.contains(survivor)) << name;
        if (!GetParam().flushes) continue;
        EXPECT_TRUE(states.contains(device.hastySurvivor(name))) << name;
      }
    }
  }

 protected:
  Jobs jobs_;

 private:
  std::map<std::string, std::set<std::string>> whole_;
  Content first_;
};

TEST_P(PowerCut, LeavesAWholeFileAndTheNewOneAfterTheRelease) { cutDuring(true); }

// Names of one file may get there with the flush of another, so several need a flush of every write.
TEST_P(PowerCut, LeavesAWholeFileWhereNamesGoBeforeContents) {
  jobs_.factory.flushEveryWrite(!GetParam().oneReplace);
  cutDuring(false);
}

INSTANTIATE_TEST_SUITE_P(During, PowerCut, testing::ValuesIn([] {
                           auto all = operations();
                           std::erase_if(all, [](const Operation& o) {
                             return o.name == std::string("LetThroughALink");
                           });
                           return all;
                         }()),
                         rowName);

}  // namespace
}  // namespace orvane::test
