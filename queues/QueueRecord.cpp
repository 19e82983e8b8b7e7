#include "queues/QueueRecord.h"

namespace orvane {

void QueueRecord::enter(CodeProperty& property, std::int32_t code) {
  property.keep(code);
  ProfileAccess& access = Apartment::profileAccess();
  const auto file = jobFile();
  const Date now = Apartment::now();
  QueueDate* const stamped = stampOf(code);
  LastQueueProperty* const last = memory();
  const Date before = stamped != nullptr ? stamped->get() : Date{};
  const std::int32_t lastBefore = last != nullptr ? last->number() : 0;
  try {
    file->together([&] {
      property.write(access, *file, section());
      if (stamped != nullptr) stamped->assign(now);
      if (last != nullptr && stamped != nullptr) last->keep(code);
      if (last != nullptr) last->write(access, *file, section());
    });
  } catch (...) {
    if (stamped != nullptr) stamped->value_ = before;
    if (last != nullptr) last->keep(lastBefore);
    throw;
  }
}

}  // namespace orvane
