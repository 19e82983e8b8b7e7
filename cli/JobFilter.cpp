#include "cli/JobFilter.h"

#include <algorithm>
#include <limits>
#include <tuple>

#include "cli/Failure.h"
#include "cli/Suggest.h"
#include "cli/ValueText.h"

namespace orvane::cli {

namespace {

constexpr Phase kLastPhase = Phase::Unknown;

bool same(const std::string& a, const std::string& b) { return equalIgnoringCase(fromUtf8(a), fromUtf8(b)); }

std::vector<std::string> phaseNames() {
  std::vector<std::string> names;
  for (int i = 0; i <= static_cast<int>(kLastPhase); ++i) names.push_back(phaseName(static_cast<Phase>(i)));
  return names;
}

std::vector<std::string> allStateNames() {
  std::vector<std::string> names = phaseNames();
  for (const JobKind& kind : allJobKinds()) {
    const QueueInfo& queue = queueOf(kind);
    for (const EnumMember& state : queue.states->members) {
      names.push_back(toUtf8(state.name));
      names.push_back(toUtf8(describe(*queue.names, state.value)));
    }
  }
  return names;
}

void refuseUnknownState(const std::string& state) {
  const std::vector<std::string> names = allStateNames();
  if (std::any_of(names.begin(), names.end(), [&](const std::string& name) { return same(name, state); }))
    return;
  std::string list;
  for (const std::string& name : phaseNames()) list += ", " + name;
  throw UsageError('"' + state + "\" is no state; there are" + list.substr(1) +
                   ", and the names and texts of orvane codes" + suggestion(state, names));
}

// Numbers in the order of their size, where both texts are numbers.
bool comesBefore(const std::string& a, const std::string& b) {
  const auto isNumber = [](const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos && text[0] != '0';
  };
  if (isNumber(a) && isNumber(b)) return std::tuple(a.size(), a) < std::tuple(b.size(), b);
  return a < b;
}

using Before = bool (*)(const JobRow& a, const JobRow& b);

bool byId(const JobRow& a, const JobRow& b) { return comesBefore(a.id, b.id); }
bool byKind(const JobRow& a, const JobRow& b) { return a.kind < b.kind; }
bool byState(const JobRow& a, const JobRow& b) {
  return std::tuple(a.phase, a.kind, a.state) < std::tuple(b.phase, b.kind, b.state);
}
bool byDestination(const JobRow& a, const JobRow& b) { return a.destination < b.destination; }

// Those without a date come last.
bool byAge(const JobRow& a, const JobRow& b) {
  const auto date = [](const JobRow& row) {
    return row.created.days == 0 ? std::numeric_limits<double>::infinity() : row.created.days;
  };
  return date(a) < date(b);
}

bool errorsFirst(const JobRow& a, const JobRow& b) { return a.failed() && !b.failed(); }

Before orderNamed(const std::string& key) {
  constexpr std::pair<const char*, Before> orders[] = {
      {"kind", byKind}, {"id", byId}, {"state", byState}, {"age", byAge}, {"to", byDestination}};
  for (const auto& [name, before] : orders) {
    if (same(name, key)) return before;
  }
  throw UsageError('"' + key + "\" is none of the orders kind, id, state, age, to");
}

}  // namespace

JobFilter::JobFilter(const FilterOptions& options) : states_(options.states), errors_(options.errors) {
  for (const std::string& kind : options.kinds) kinds_.push_back(&jobKindNamed(kind));
  for (const std::string& state : states_) refuseUnknownState(state);
}

bool JobFilter::accepts(const JobRow& row) const {
  if (errors_ && !row.failed()) return false;
  const bool kind = kinds_.empty() || std::find(kinds_.begin(), kinds_.end(), row.kind) != kinds_.end();
  return kind &&
         (states_.empty() || std::any_of(states_.begin(), states_.end(),
                                         [&](const std::string& state) { return isNamed(row, state); }));
}

bool JobFilter::isNamed(const JobRow& row, const std::string& state) const {
  return same(state, phaseName(row.phase)) ||
         (row.failure.empty() && (same(state, row.stateText) || same(state, stateName(row))));
}

std::string stateName(const JobRow& row) { return codeName(*queueOf(*row.kind).states, row.state); }

void sortJobs(std::vector<JobRow>& rows, const std::string& key) {
  const Before chosen = orderNamed(key);
  std::sort(rows.begin(), rows.end(), [chosen](const JobRow& a, const JobRow& b) {
    for (const Before before : {errorsFirst, chosen, byKind, byId}) {
      if (before(a, b)) return true;
      if (before(b, a)) return false;
    }
    return a.file < b.file;
  });
}

}  // namespace orvane::cli
