// The C++ classes of data/boxes.idl: each kind of member in one of the shapes that published classes use.
#pragma once

#include <memory>
#include <vector>

#include "core/Values.h"
#include "typelib/enumerations.h"

namespace orvane {

/// A property object.
template <class T>
class Held {
 public:
  const T& get() const { return value_; }
  Held& operator=(T value) { return value_ = std::move(value), *this; }

 private:
  T value_{};
};

class VqDocEtichetta {
 public:
  VqDocEtichetta() = default;
  VqDocEtichetta(const VqDocEtichetta&) = delete;
  Held<Text> Testo;
};

class VqDocScatola;

class VqDocScatole {
 public:
  void Add(const std::shared_ptr<VqDocScatola>& box) { boxes_.push_back(box); }
  std::shared_ptr<VqDocScatola> Item(const Variant& name) const;
  std::int32_t Count() const { return static_cast<std::int32_t>(boxes_.size()); }
  void RemoveAll() { boxes_.clear(); }
  auto begin() const { return boxes_.begin(); }
  auto end() const { return boxes_.end(); }

 private:
  std::vector<std::shared_ptr<VqDocScatola>> boxes_;
};

class VqDocScatola {
 public:
  explicit VqDocScatola(std::int32_t sides) : sides_(sides) {}

  Held<Text> Nome;
  std::int32_t Lati() const { return sides_; }
  bool Aperta = false;
  Date Data;
  Currency Prezzo;
  Held<enmMateriale> Materiale;
  std::uint8_t& Byte(std::uint8_t index) { return bytes_.at(index); }
  VariantArray Righe;
  VqDocEtichetta Etichetta;
  std::variant<std::monostate, std::shared_ptr<VqDocScatola>, std::shared_ptr<VqDocEtichetta>> Contenuto;
  Text Parola;
  VqDocScatole& Scatole() { return boxes_; }

 private:
  std::int32_t sides_;
  std::vector<std::uint8_t> bytes_ = std::vector<std::uint8_t>(7);
  VqDocScatole boxes_;
};

inline std::shared_ptr<VqDocScatola> VqDocScatole::Item(const Variant& name) const {
  for (const auto& box : boxes_) {
    if (box->Nome.get() == toText(name)) return box;
  }
  return nullptr;
}

class VqDocumenti {
 public:
  std::shared_ptr<VqDocScatola> NuovaScatola(const Text& name, std::int32_t sides, const Text& colour) {
    auto box = std::make_shared<VqDocScatola>(sides);
    box->Nome = name;
    box->Parola = colour;
    return box;
  }
};

}  // namespace orvane
