// The bytes that switch one function of a printer.
#pragma once

#include <array>

#include "core/Component.h"

namespace orvane {

/// Seven bytes, indexed from 0, all 0 at first. `catalogo.CompressoOn(0) = 27;` writes all seven at once, as
/// the text "27;0;0;0;0;0;0;" under the function's name. An index of 7 or more is error 9 and changes
/// nothing.
class ControlCode : public WrittenProperty {
 public:
  static constexpr std::size_t kSize = 7;
  using Bytes = std::array<std::uint8_t, kSize>;

  /// `name` is the function's, `element` the same with "StrAsc" before it.
  ControlCode(Fields& owner, Name name, TextView element)
      : WrittenProperty(owner, name, Kept::JobFileAndXml), element_(element) {}

  class Reference {
   public:
    operator std::uint8_t() const { return code_.at(index_); }
    std::uint8_t get() const { return code_.at(index_); }
    Reference& operator=(std::uint8_t byte) { return code_.set(index_, byte), *this; }

   private:
    friend ControlCode;
    Reference(ControlCode& code, std::uint8_t index) : code_(code), index_(index) {}
    ControlCode& code_;
    std::uint8_t index_;
  };

  Reference operator()(std::uint8_t index) { return {*this, index}; }
  std::uint8_t operator()(std::uint8_t index) const { return at(index); }

  const Bytes& bytes() const { return bytes_; }

  /// All seven bytes, written once.
  void assign(const Bytes& bytes);

  /// Seven characters, zeros included, that a text file in Windows-1252 holds as the bytes.
  Text characters() const;

  /// "027;015;000;000;000;000;000;"
  Text digits() const;

 private:
  std::uint8_t at(std::uint8_t index) const;
  void set(std::uint8_t index, std::uint8_t byte);
  void write(ProfileAccess& access, JobFile& file, Name section) const override;
  void load(ProfileAccess& access, JobFile& file, Name section) override;
  void render(XmlWriter& xml) const override { xml.element(element_, digits()); }

  TextView element_;
  Bytes bytes_{};
};

}  // namespace orvane
