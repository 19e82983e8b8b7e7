// What the server reports of the sending of an e-mail.
#pragma once

#include "core/Component.h"

namespace orvane {

/// Section "TrasmissioneEmail", element "Trasmissione".
class VqDocTrasmissioneEmail : public Component {
 public:
  VqDocTrasmissioneEmail() : Component(u"TrasmissioneEmail", u"Trasmissione") {}

  /// A count that is written as the date of that serial number and read as a number: servers read the key so.
  class Attempts : public Stored<std::int32_t> {
   public:
    explicit Attempts(Fields& owner) : Stored(owner, u"Tentativi") {}
    using Stored::operator=;
    Attempts& operator=(const Attempts& other) { return *this = other.get(), *this; }

   private:
    void write(ProfileAccess& access, JobFile& file, Name section) const override {
      access.ScriviData(file, section, name(), Date{static_cast<double>(get())});
    }
  };
  Attempts Tentativi{*this};

  /// Kept in the object and shown in the XML only: it is gone when the job is loaded again.
  Stored<Date> ProssimoTentativo{*this, u"ProssimoTentativo", Kept::Xml};
};

}  // namespace orvane
