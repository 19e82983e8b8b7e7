#include "cli/QueueStates.h"

#include <algorithm>
#include <array>

#include "queues/VqDocCoda.h"

namespace orvane::cli {

namespace {

constexpr TextView kEnd = u"DataElaborazione";
constexpr TextView kBeginOfWork = u"DataIn";

template <class Queue>
class OpenQueue : public Queue {
 public:
  using Fields::section;
};

template <class Queue>
QueueInfo queueInfo(TextView className, const CodeNames& names) {
  const OpenQueue<Queue> queue;
  const MemberInfo* code = findMember(*findClass(className), u"Codice", MemberKind::Get);
  QueueInfo info{queue.section(), &names, code->result.enumeration, {}};
  for (const auto stamp : Queue::stamps()) info.dateKeys.push_back(stamp ? (queue.*stamp).name() : Name());
  return info;
}

// In the order of `allJobKinds`.
const std::array<QueueInfo, 6>& allQueues() {
  static const std::array<QueueInfo, 6> queues{
      queueInfo<VqDocCodaStampa>(u"VqDocCodaStampa", names::CodaStampa),
      queueInfo<VqDocCodaFax>(u"VqDocCodaFax", names::CodaFax),
      queueInfo<VqDocCodaPFax>(u"VqDocCodaPFax", names::CodaPFax),
      queueInfo<VqDocCodaEmail>(u"VqDocCodaEmail", names::CodaEmail),
      queueInfo<VqDocCodaPbl>(u"VqDocCodaPbl", names::CodaPbl),
      queueInfo<VqDocCodaAnteprima>(u"VqDocCodaAnteprima", names::CodaAnteprima)};
  return queues;
}

}  // namespace

const char* phaseName(Phase phase) {
  constexpr const char* names[] = {"waiting", "working", "done", "rejected", "withdrawn", "unknown"};
  return names[static_cast<std::size_t>(phase)];
}

TextView QueueInfo::dateKey(std::int32_t state) const {
  const auto index = static_cast<std::size_t>(state);
  return state >= 0 && index < dateKeys.size() ? TextView(dateKeys[index]) : TextView();
}

Phase QueueInfo::phase(std::int32_t state) const {
  const TextView key = dateKey(state);
  if (key == kEnd) return dateKey(state - 1) == kEnd ? Phase::Rejected : Phase::Done;
  if (key.substr(0, kBeginOfWork.size()) == kBeginOfWork) return Phase::Working;
  if (!key.empty()) return Phase::Waiting;
  const bool known = std::any_of(states->members.begin(), states->members.end(),
                                 [&](const EnumMember& member) { return member.value == state; });
  return known ? Phase::Withdrawn : Phase::Unknown;
}

const QueueInfo& queueOf(const JobKind& kind) {
  return allQueues()[static_cast<std::size_t>(&kind - allJobKinds().data())];
}

}  // namespace orvane::cli
