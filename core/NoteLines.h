// A fixed number of lines of text, each under a key of its own.
#pragma once

#include <array>

#include "core/Error.h"
#include "core/Fields.h"
#include "core/Numbers.h"

namespace orvane {

/// `messaggio.Nota(3) = u"...";` writes "Nota_3" alone. Lines count from 0; an index outside them is error 9
/// and changes nothing. The XML has every line, empty ones too.
template <std::int32_t count>
class NoteLines : public Property {
 public:
  explicit NoteLines(Fields& owner) : Property(owner, u"Nota_", Kept::JobFileAndXml) {}

  class Reference {
   public:
    const Text& get() const { return lines_.lines_[lines_.checked(index_)]; }
    operator const Text&() const { return get(); }
    friend bool operator==(const Reference& a, const Text& b) { return a.get() == b; }
    Reference& operator=(Text line) { return lines_.assign(index_, std::move(line)), *this; }
    Reference& operator=(const Reference& other) { return *this = other.get(); }

   private:
    friend NoteLines;
    Reference(NoteLines& lines, std::int32_t index) : lines_(lines), index_(index) {}
    NoteLines& lines_;
    std::int32_t index_;
  };

  Reference operator()(std::int32_t index) { return {*this, index}; }
  const Text& operator()(std::int32_t index) const { return lines_[checked(index)]; }

  const std::array<Text, count>& all() const { return lines_; }

 private:
  static std::size_t checked(std::int32_t index) {
    if (index < 0 || index >= count) throw Error(ErrorNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(index);
  }

  Text key(std::size_t index) const { return Text(name()) + decimalText(static_cast<std::int64_t>(index)); }

  void assign(std::int32_t index, Text line) {
    const std::size_t place = checked(index);
    lines_[place] = std::move(line);
    Apartment::profileAccess().ScriviTesto(*target(), section(), key(place), lines_[place]);
  }

  void load(ProfileAccess& access, JobFile& file, Name section) override {
    for (std::size_t i = 0; i < lines_.size(); ++i) lines_[i] = access.LeggiTesto(file, section, key(i));
  }

  void render(XmlWriter& xml) const override {
    for (std::size_t i = 0; i < lines_.size(); ++i) xml.element(key(i), lines_[i]);
  }

  std::array<Text, count> lines_;
};

}  // namespace orvane
