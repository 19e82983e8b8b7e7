// A code from a closed list, kept in the job file together with its description.
#pragma once

#include "core/Component.h"

namespace orvane {

/// What one code is called in the job file and in the XML, and where its descriptions stand. Keys and numbers
/// are part of the job file: never rename or renumber.
struct CodeNames {
  std::int32_t base;         ///< text number of code 0
  std::int32_t initial = 0;  ///< the code of a new object, and of a job file without the key
  bool magnitude = false;    ///< the text number is base plus the absolute value of the code
  Name key = u"Codice";
  TextView descriptionKey = u"Descrizione";
  TextView element = key;
  TextView descriptionElement = descriptionKey;
};

/// The text of a code, or the missing-string text. Error 6 where base and code together do not fit a Long, 91
/// where the strings were released.
Text describe(const CodeNames& names, std::int32_t code);

/// The code as a number; `Code` gives it its enumeration. Any 32-bit value is accepted, kept and written:
/// codes are never checked.
class CodeProperty : public WrittenProperty {
 public:
  /// The text of the present code, computed anew at each call.
  virtual Text description() const { return describe(names_, value_); }

  std::int32_t number() const { return value_; }

 protected:
  CodeProperty(Fields& owner, const CodeNames& names, Kept kept)
      : WrittenProperty(owner, names.key, kept), names_(names), value_(names.initial) {}

  /// Store the code, then write it and its description, both in one replacement of the file.
  virtual void assign(std::int32_t code);

  /// The code alone, in the object only.
  void keep(std::int32_t code) { value_ = code; }

  void write(ProfileAccess& access, JobFile& file, Name section) const override;
  void load(ProfileAccess& access, JobFile& file, Name section) override;

 private:
  friend class QueueRecord;
  void render(XmlWriter& xml) const override;

  const CodeNames& names_;
  std::int32_t value_;
};

/// `doc.Dimensione.Codice = vdd_A4;`
template <class Enum>
class Code : public CodeProperty {
 public:
  using Value = Enum;
  Code(Fields& owner, const CodeNames& names, Kept kept = Kept::JobFileAndXml)
      : CodeProperty(owner, names, kept) {}

  Enum get() const { return static_cast<Enum>(number()); }
  operator Enum() const { return get(); }
  Code& operator=(std::int32_t code) { return assign(code), *this; }
  friend bool operator==(const Code& a, Enum b) { return a.get() == b; }
  Code& operator=(const Code& other) { return *this = other.number(); }
};

}  // namespace orvane
