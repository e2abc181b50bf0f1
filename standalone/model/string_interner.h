#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vond::standalone {

/// Numbers distinct strings from 0 in the order of their first appearance, and keeps them.
class StringInterner {
 public:
  using Id = std::uint32_t;

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
  bool contains(std::string_view text) const { return ids_.contains(text); }

 private:
  Id find_or_add(std::string_view text) {
    const auto found = ids_.find(text);
    if (found != ids_.end()) {
      return found->second;
    }
    const auto id = static_cast<Id>(strings_.size());
    // A deque never moves what it holds, so the keys may look into it.
    ids_.emplace(strings_.emplace_back(text), id);
    return id;
  }

  std::deque<std::string> strings_;
  std::unordered_map<std::string_view, Id> ids_;
  /// What was asked for last.
  Id last_ = 0;
};

}  // namespace vond::standalone
