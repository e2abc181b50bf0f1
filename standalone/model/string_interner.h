#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/model/flat_index.h"
#include "standalone/text/text_hash.h"

namespace vond::standalone {

/// Numbers distinct strings from 0 in the order of their first appearance, and keeps them.
class StringInterner {
 public:
  using Id = FlatIndex::Number;

  Id id_of(std::string_view text) {
    // Texts come again and again, one after the other or in the order of their first appearance.
    for (const Id guess : {last_, last_ + 1}) {
      if (guess < size() && strings_[guess] == text) {
        return last_ = guess;
      }
    }
    return last_ = find_or_add(text);
  }

  const std::string& operator[](Id id) const { return strings_[id]; }
  std::size_t size() const { return strings_.size(); }
  /// Returns copies of all strings, sorted.
  std::vector<std::string> sorted() const {
    std::vector<std::string> strings(strings_.begin(), strings_.end());
    std::sort(strings.begin(), strings.end());
    return strings;
  }

  bool contains(std::string_view text) const { return find(text).has_value(); }

  /// Returns the number of the string, nothing when it has none.
  std::optional<Id> find(std::string_view text) const {
    const Id found = find(hash_of_text(text), text);
    return found == FlatIndex::NONE ? std::nullopt : std::optional(found);
  }

 private:
  Id find_or_add(std::string_view text) {
    const std::size_t hash = hash_of_text(text);
    const Id found = find(hash, text);
    if (found != FlatIndex::NONE) {
      return found;
    }
    strings_.emplace_back(text);
    return index_.add(hash);
  }

  Id find(std::size_t hash, std::string_view text) const {
    return index_.find(hash, [&](Id id) { return strings_[id] == text; });
  }

  /// A deque never moves what it holds: callers may keep references.
  std::deque<std::string> strings_;
  FlatIndex index_;
  /// What was asked for last.
  Id last_ = 0;
};

}  // namespace vond::standalone
