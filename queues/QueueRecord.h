// Where a job stands in the server's queue: one state machine for all channels.
#pragma once

#include "codes/Code.h"
#include "typelib/enumerations.h"

namespace orvane {

/// When the job last entered a state. Clients read it; entering the state, or loading the job, sets it.
class QueueDate : public StoredValue<Date> {
 public:
  QueueDate(Fields& owner, Name name) : StoredValue(owner, name, Kept::JobFileAndXml, {}) {}

 private:
  friend class QueueRecord;
};

/// The last state that stamped a date, as a number. It is kept in section "UltimaCoda", whatever the channel,
/// and is in no XML.
class LastQueueProperty : public CodeProperty {
 public:
  LastQueueProperty(Fields& owner, const CodeNames& names) : CodeProperty(owner, names, Kept::JobFile) {}

 private:
  friend class QueueRecord;
  void write(ProfileAccess& access, JobFile& file, Name) const override {
    CodeProperty::write(access, file, u"UltimaCoda");
  }
  void load(ProfileAccess& access, JobFile& file, Name) override {
    CodeProperty::load(access, file, u"UltimaCoda");
  }
};

/// Element "Coda"; the section differs by channel. Entering a state keeps its code and writes code and
/// description. A state that stamps a date sets that date to the present time and, in the records that have a
/// memory, becomes the last queue; a state that takes the job out of the queue (discarded, deleted) and a
/// code that is no state stamp nothing and leave the last queue as it is. Entering a state again stamps it
/// again; no date is ever cleared. All of it is one replacement of the job file: if that fails, the object
/// has the new code and nothing else.
class QueueRecord : public Component {
 protected:
  explicit QueueRecord(Name section) : Component(section, u"Coda") {}

  /// The date that entering the state stamps; null for none.
  virtual QueueDate* stampOf(std::int32_t code) = 0;

  /// The memory of the last queue; null for records without one.
  virtual LastQueueProperty* memory() { return nullptr; }

  void enter(CodeProperty& property, std::int32_t code);

  /// Take over dates and last queue of another record as they are; the dates are written, the last queue is
  /// not.
  static void copy(QueueDate& to, const QueueDate& from) { to.assign(from.get()); }
  static void copy(LastQueueProperty& to, const LastQueueProperty& from) { to.keep(from.number()); }

 private:
  template <class Enum>
  friend class QueueCode;
};

/// The present state: assigning it is entering it.
template <class Enum>
class QueueCode : public Code<Enum> {
 public:
  QueueCode(QueueRecord& record, const CodeNames& names) : Code<Enum>(record, names), record_(record) {}
  using Code<Enum>::operator=;
  QueueCode& operator=(const QueueCode& other) { return *this = other.number(), *this; }

 private:
  void assign(std::int32_t code) override { record_.enter(*this, code); }
  QueueRecord& record_;
};

/// The last queue by its enumeration.
template <class Enum>
class LastQueue : public LastQueueProperty {
 public:
  using Value = Enum;
  using LastQueueProperty::LastQueueProperty;
  Enum get() const { return static_cast<Enum>(number()); }
  operator Enum() const { return get(); }
  friend bool operator==(const LastQueue& a, Enum b) { return a.get() == b; }
};

/// What every channel has first. `names` says where the texts of its states stand.
template <class Enum, const CodeNames& names>
class QueueState : public QueueRecord {
 public:
  QueueCode<Enum> Codice{*this, names};
  Text Descrizione() const { return Codice.description(); }

 protected:
  using QueueRecord::QueueRecord;
};

/// What the channels with a memory have next.
template <class Enum, const CodeNames& names>
class QueueMemory : public QueueState<Enum, names> {
 public:
  LastQueue<Enum> UltimaCodaCodice{*this, names};
  Text UltimaCodaDescrizione() const { return UltimaCodaCodice.description(); }

 protected:
  using QueueState<Enum, names>::QueueState;
  LastQueueProperty* memory() override { return &UltimaCodaCodice; }
};

/// The end of the base: when the job was put into the queue, as client or server say. `Record` lists the date
/// of each of its states from 0 on in `stamps()`; a state past the end of that list stamps none.
template <class Record, class State>
class QueueOf : public State {
 public:
  Stored<Date> DataInserimento{*this, u"DataInserimento"};

 protected:
  using State::State;

 private:
  QueueDate* stampOf(std::int32_t code) final {
    const auto stamps = Record::stamps();
    const auto index = static_cast<std::size_t>(code);
    const bool stamping = code >= 0 && index < stamps.size() && stamps[index] != nullptr;
    return stamping ? &(static_cast<Record*>(this)->*stamps[index]) : nullptr;
  }
};

}  // namespace orvane
