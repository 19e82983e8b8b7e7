// An ordered collection whose items also have keys, with the look-up that all of the library's collections
// share.
#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "core/Error.h"
#include "core/Values.h"

namespace orvane {

/// What a client's key means: a plain number, or a text that spells one exactly as the run time displays it
/// ("2", not "02"), is a position counted from 0; any other text is a key; anything else finds nothing.
struct CollectionKey {
  explicit CollectionKey(const Variant& key);
  std::optional<std::int64_t> position;
  std::optional<Text> text;
};

/// Keys compare without the case of ASCII and Latin-1 letters, as all names in job files do.
Text foldedKey(TextView key);

/// Items are shared: a client that holds one keeps it after its removal.
template <class Item>
class KeyedCollection {
 public:
  using Pointer = std::shared_ptr<Item>;
  KeyedCollection() = default;
  KeyedCollection(const KeyedCollection&) = delete;
  KeyedCollection& operator=(const KeyedCollection&) = delete;

  /// Error 457 where the key is taken; nothing is added then.
  void add(TextView key, Pointer item) {
    // Nothing fails between the two additions.
    if (items_.size() == items_.capacity()) items_.reserve(2 * items_.size() + 4);
    const auto [entry, added] = byKey_.try_emplace(foldedKey(key), std::move(item));
    if (!added) throw Error(ErrorNumber::DuplicateKey);
    items_.push_back(&*entry);
  }

  /// Null where there is none.
  Pointer find(const CollectionKey& key) const {
    if (key.position) return at(*key.position);
    if (!key.text) return nullptr;
    const auto found = byKey_.find(foldedKey(*key.text));
    return found == byKey_.end() ? nullptr : found->second;
  }

  /// Counted from 0; null where there is none.
  Pointer at(std::int64_t position) const {
    return position >= 0 && position < size() ? items_[static_cast<std::size_t>(position)]->second : nullptr;
  }

  /// Error 9 for a position, 5 for a key that finds nothing.
  void remove(const CollectionKey& key) {
    const Pointer item = find(key);
    if (!item) throw Error(key.position ? ErrorNumber::SubscriptOutOfRange : ErrorNumber::InvalidCall);
    const auto entry =
        std::find_if(items_.begin(), items_.end(), [&](Entry* e) { return e->second == item; });
    const Text own = (*entry)->first;
    items_.erase(entry);
    byKey_.erase(own);
  }

  /// Removes those behind the first `count`.
  void keepFirst(std::int32_t count) noexcept {
    while (size() > count) {
      const auto entry = byKey_.find(items_.back()->first);
      const Pointer last = std::move(entry->second);
      items_.pop_back();
      byKey_.erase(entry);
    }
  }

  void clear() {
    drain([](Pointer) {});
  }

  /// Removes all items, then hands each to `take`, first to last. What ends with one finds the collection
  /// empty.
  template <class Take>
  void drain(Take take) {
    const Table entries = std::move(byKey_);
    const std::vector<Entry*> items = std::move(items_);
    byKey_.clear();
    items_.clear();
    for (Entry* entry : items) take(std::move(entry->second));
  }

  std::int32_t size() const { return static_cast<std::int32_t>(items_.size()); }

 private:
  using Table = std::unordered_map<Text, Pointer>;  // its entries stay where they are
  using Entry = typename Table::value_type;

 public:
  class Iterator {
   public:
    using Inner = typename std::vector<Entry*>::const_iterator;
    using iterator_category = std::forward_iterator_tag;
    using value_type = Pointer;
    using difference_type = std::ptrdiff_t;
    using pointer = const Pointer*;
    using reference = const Pointer&;
    Iterator() = default;
    explicit Iterator(Inner inner) : inner_(inner) {}
    const Pointer& operator*() const { return (*inner_)->second; }
    Iterator& operator++() { return ++inner_, *this; }
    Iterator operator++(int) { return Iterator(inner_++); }
    bool operator==(const Iterator&) const = default;

   private:
    Inner inner_;
  };
  Iterator begin() const { return Iterator(items_.begin()); }
  Iterator end() const { return Iterator(items_.end()); }

 private:
  Table byKey_;
  std::vector<Entry*> items_;
};

}  // namespace orvane
