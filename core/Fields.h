// Properties that live in a job file. A class lists them as public members, one line each, and reads like the
// published interface:
//
//   class VqDocCedolino : public Component {
//    public:
//     Stored<bool> Stampare{*this, u"Stampare"};
//     Stored<Text> Stampante{*this, u"Stampante"};
//   };
//
//   fax.Cedolino.Stampante = u"Laser";   // stored, and in the job file when the assignment returns
//
// The line states the property once: its key in the job file is its name in the XML, its initial value is
// what a missing key reads as, and the order of the lines is the order of loading and of the XML elements.
#pragma once

#include <memory>
#include <utility>

#include "core/Apartment.h"
#include "core/ProfileAccess.h"
#include "core/XmlWriter.h"

namespace orvane {

class Property;

/// One section of a job file, with the properties that are kept in it.
class Fields {
 public:
  Fields(const Fields&) = delete;
  Fields& operator=(const Fields&) = delete;

 protected:
  explicit Fields(Name section) : section_(section) {}
  virtual ~Fields() = default;

  /// The job file that assignments write to: before binding the file without a name, which swallows them.
  virtual std::shared_ptr<JobFile> jobFile() const = 0;

  Name section() const { return section_; }

  /// Set every property from `file`, in order of declaration, without writing back.
  void loadFields(JobFile& file);

  /// One XML element a property, in order of declaration.
  void renderFields(XmlWriter& xml) const;

  /// The elements of these properties, for a class whose XML has an order of its own.
  template <class... Properties>
  static void renderEach(XmlWriter& xml, const Properties&... properties) {
    (renderOne(xml, properties), ...);
  }

  /// The properties in order of declaration.
  Property* firstProperty() const { return first_; }
  static Property* nextProperty(const Property& property);

 private:
  friend class Property;
  void append(Property& property);
  static void renderOne(XmlWriter& xml, const Property& property);

  Name section_;
  Property* first_ = nullptr;
  Property* last_ = nullptr;
};

/// Where a property is kept beside the object.
enum class Kept : unsigned char {
  Nowhere = 0,
  WriteOnly = 1,  ///< written to the job file, never read back, not in the XML
  JobFile = 3,    ///< written and read back, not in the XML
  Xml = 4,        ///< in the XML only
  JobFileAndXml = 7,
};

/// What all properties have in common; a member of its owner, and bound to it for life.
class Property {
 public:
  Property(const Property&) = delete;
  Property& operator=(const Property&) = delete;

  /// The key in the job file and, but for codes and notes, the element of the XML.
  Name name() const { return name_; }

 protected:
  Property(Fields& owner, Name name, Kept kept) : owner_(owner), name_(name), kept_(kept) {
    owner.append(*this);
  }
  virtual ~Property() = default;

  /// The job file of the owner, unless the property is special.
  virtual std::shared_ptr<JobFile> target() const { return owner_.jobFile(); }

  Name section() const { return owner_.section(); }
  bool isKept(Kept where) const {
    return (static_cast<int>(kept_) & static_cast<int>(where)) == static_cast<int>(where);
  }

 private:
  friend class Fields;
  virtual void load(ProfileAccess&, JobFile&, Name /*section*/) {}
  virtual void render(XmlWriter& xml) const = 0;

  Fields& owner_;
  Name name_;
  Property* next_ = nullptr;
  Kept kept_;
};

inline void Fields::append(Property& property) {
  (last_ == nullptr ? first_ : last_->next_) = &property;
  last_ = &property;
}

/// A property that is written as a whole.
class WrittenProperty : public Property {
 protected:
  using Property::Property;

  /// Write the value to the job file that `target` names, if the property is written at all.
  void writeThrough() const;

 private:
  virtual void write(ProfileAccess& access, JobFile& file, Name section) const = 0;
};

namespace detail {

inline void writeValue(ProfileAccess& a, JobFile& f, TextView s, TextView k, const Text& v) {
  a.ScriviTesto(f, s, k, v);
}
inline void writeValue(ProfileAccess& a, JobFile& f, TextView s, TextView k, std::int32_t v) {
  a.ScriviNumero(f, s, k, v);
}
inline void writeValue(ProfileAccess& a, JobFile& f, TextView s, TextView k, bool v) {
  a.ScriviBooleano(f, s, k, v);
}
inline void writeValue(ProfileAccess& a, JobFile& f, TextView s, TextView k, Date v) {
  a.ScriviData(f, s, k, v);
}

Text readValue(ProfileAccess& access, JobFile& file, Name section, Name key, const Text& missing);
std::int32_t readValue(ProfileAccess& access, JobFile& file, Name section, Name key, std::int32_t missing);
bool readValue(ProfileAccess& access, JobFile& file, Name section, Name key, bool missing);
Date readValue(ProfileAccess& access, JobFile& file, Name section, Name key, Date missing);

/// The initial value, which a missing key reads as. Texts are always empty at first, so they keep none.
template <class T>
struct Initial {
  T initial;
  const T& value() const { return initial; }
};
template <>
struct Initial<Text> {
  Initial(const Text&) {}
  Text value() const { return {}; }
};

}  // namespace detail

/// A property that can be read; what can set it derives from it. Reading never touches the file.
template <class T>
class StoredValue : public WrittenProperty {
 public:
  using Value = T;
  const T& get() const { return value_; }
  operator const T&() const { return value_; }
  friend bool operator==(const StoredValue& a, const T& b) { return a.value_ == b; }

 protected:
  StoredValue(Fields& owner, Name name, Kept kept, T initial)
      : WrittenProperty(owner, name, kept), value_(initial), missing_{initial} {}

  /// Store, then write through. When the write fails the new value stays in the object.
  void assign(T value) {
    value_ = std::move(value);
    writeThrough();
  }

  T value_;

 private:
  void write(ProfileAccess& access, JobFile& file, Name section) const override {
    detail::writeValue(access, file, section, name(), value_);
  }
  void load(ProfileAccess& access, JobFile& file, Name section) override {
    value_ = detail::readValue(access, file, section, name(), missing_.value());
  }
  void render(XmlWriter& xml) const override { xml.element(name(), value_); }

  [[no_unique_address]] detail::Initial<T> missing_;
};

/// A property that clients read and assign.
template <class T>
class Stored : public StoredValue<T> {
 public:
  Stored(Fields& owner, Name name, Kept kept = Kept::JobFileAndXml, T initial = {})
      : StoredValue<T>(owner, name, kept, std::move(initial)) {}
  Stored& operator=(T value) { return this->assign(std::move(value)), *this; }
  Stored& operator=(const Stored& other) { return this->assign(other.get()), *this; }
};

/// A property that clients read and only `Owner` assigns.
template <class T, class Owner>
class ReadOnlyStored : public StoredValue<T> {
 public:
  ReadOnlyStored(Fields& owner, Name name, Kept kept = Kept::JobFileAndXml)
      : StoredValue<T>(owner, name, kept, {}) {}

 private:
  friend Owner;
};

/// A value that is kept only in the object, that clients read and only `Owner` sets.
template <class T, class Owner>
class ReadOnly {
 public:
  using Value = T;
  const T& get() const { return value_; }
  operator const T&() const { return value_; }
  friend bool operator==(const ReadOnly& a, const T& b) { return a.value_ == b; }

 private:
  friend Owner;
  ReadOnly() = default;
  void operator=(T value) { value_ = std::move(value); }

  T value_{};
};

/// An element that is computed when the XML is written: the result of a member function of its owner, in its
/// place among the elements.
template <auto function>
class ComputedElement;

template <class Owner, Text (Owner::*function)() const>
class ComputedElement<function> : public Property {
 public:
  ComputedElement(Owner& owner, Name element) : Property(owner, element, Kept::Xml), owner_(owner) {}

 private:
  void render(XmlWriter& xml) const override { xml.element(name(), (owner_.*function)()); }

  const Owner& owner_;
};

/// A number of copies: 1 when created and where the key is missing; a value below 1 is stored as 1. Not in
/// the XML by itself.
class Copies : public StoredValue<std::int32_t> {
 public:
  Copies(Fields& owner, Kept kept) : StoredValue(owner, u"Copie", kept, 1) {}
  Copies& operator=(std::int32_t copies) { return assign(copies < 1 ? 1 : copies), *this; }
  Copies& operator=(const Copies& other) { return *this = other.get(); }

 private:
  friend class VqDocStampa;
  void reset() { value_ = 1; }  // in the object only
};

}  // namespace orvane
