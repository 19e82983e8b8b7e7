// The command watch.
#include <algorithm>
#include <map>
#include <optional>

#include "cli/AbsoluteFolder.h"
#include "cli/Commands.h"
#include "cli/FolderWatch.h"
#include "cli/JobData.h"
#include "cli/JobTable.h"
#include "cli/Session.h"
#include "core/Apartment.h"

namespace orvane::cli {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr const char* kSame = "  ";
constexpr const char* kNew = "+ ";
constexpr const char* kChanged = "* ";
constexpr const char* kGone = "- ";
constexpr std::size_t kMarkWidth = 2;
constexpr milliseconds kRest{200};
constexpr milliseconds kLongestUnrest{2000};

class Watcher {
 public:
  Watcher(const Console& console, const WatchOptions& options)
      : console_(console),
        options_(options),
        filter_(options.filter),
        watch_(options.poll ? pollFolder(options.folder) : watchFolder(options.folder)),
        reader_(absoluteFolder(fromUtf8(options.folder))),
        end_(Clock::now() + std::chrono::seconds(options.seconds)) {}

  void run() {
    showAll();
    while (!isOver()) follow(atRest(watch_->wait(pause())));
  }

 private:
  bool isOver() const {
    const bool late = options_.seconds > 0 && Clock::now() >= end_;
    return !console_.out || late || (options_.count > 0 && shown_ >= options_.count);
  }

  // Wakes up now and then to see that the output is still there.
  milliseconds pause() const {
    const milliseconds longest{1000};
    if (options_.seconds <= 0) return longest;
    const auto left = std::chrono::ceil<milliseconds>(end_ - Clock::now());
    return std::clamp(left, milliseconds{0}, longest);
  }

  // A job that is being composed is shown when it rests, or every now and then.
  FolderChanges atRest(FolderChanges changes) {
    const auto end = Clock::now() + kLongestUnrest;
    for (bool more = !changes.isEmpty(); more && Clock::now() < end;) {
      FolderChanges next = watch_->wait(kRest);
      more = !next.isEmpty();
      changes.anything = changes.anything || next.anything;
      changes.names.merge(next.names);
    }
    return changes;
  }

  void showAll() {
    std::vector<JobRow> rows;
    visitJobs(options_.folder, [&](const JobRow& row) {
      known_.insert_or_assign(row.file, row);
      if (filter_.accepts(row)) rows.push_back(row);
    });
    sortJobs(rows, "kind");
    JobTable table = newTable();
    console_.out << kSame;
    table.printHeader();
    for (const JobRow& row : rows) table.print(row, kSame);
    console_.out.flush();
  }

  JobTable newTable() const {
    const std::size_t width = console_.terminalWidth;
    return {console_.out, width > kMarkWidth ? width - kMarkWidth : width, Apartment::now()};
  }

  void follow(FolderChanges changes) {
    if (changes.anything) addAllFiles(changes);
    for (const Text& name : changes.names) {
      if (!isOver()) followFile(name);
    }
  }

  void addAllFiles(FolderChanges& changes) {
    for (const auto& [file, row] : known_) changes.names.insert(fromUtf8(file));
    visitFiles(options_.folder, [&](const Text& name) { changes.names.insert(name); });
  }

  void followFile(const Text& name) {
    const std::optional<JobRow> now = reader_.read(name);
    const auto before = known_.find(toUtf8(name));
    if (before == known_.end()) {
      if (now) show(*now, kNew);
    } else if (!now) {
      show(before->second, kGone);
    } else if (jobJson(*now).text() != jobJson(before->second).text()) {
      // A job that leaves the filter is shown once more.
      if (filter_.accepts(*now) || filter_.accepts(before->second)) show(*now, kChanged, true);
    }
    if (now) {
      known_.insert_or_assign(now->file, *now);
    } else {
      known_.erase(toUtf8(name));
    }
  }

  void show(const JobRow& row, const char* mark, bool always = false) {
    if (!always && !filter_.accepts(row)) return;
    newTable().print(row, mark);
    console_.out.flush();
    ++shown_;
  }

  const Console& console_;
  const WatchOptions& options_;
  JobFilter filter_;
  std::unique_ptr<FolderWatch> watch_;  // made before the first look, so that nothing is missed
  JobReader reader_;
  std::map<std::string, JobRow> known_;  // by file name
  Clock::time_point end_;
  int shown_ = 0;
};

}  // namespace

void watch(const Console& console, const WatchOptions& options) {
  const Session session(Purpose::Look);
  Watcher(console, options).run();
}

}  // namespace orvane::cli
