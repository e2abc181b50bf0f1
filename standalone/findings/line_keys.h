#pragma once

#include <bitset>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "standalone/findings/finding_keys.h"
#include "standalone/json/unknown_keys.h"

namespace vond::standalone {

/// The keys that one input line has, and which of them may stand together. In every function
/// `where` points to the key in the line's text.
class LineKeys {
 public:
  /// Starts with a new line.
  void clear();

  /// Throws ValueFault when the line has the key already, or keys that it must not stand beside.
  void add(FindingKey key, const char* where);

  /// Adds a key that counts as absent because its value is null. Throws ValueFault when the line
  /// has it already.
  void add_null(FindingKey key, const char* where);

  /// Adds a key that is no FindingKey; throws ValueFault when the line has it already. `name` must
  /// live as long as the line.
  void add_unknown(std::string_view name, const char* where);

  /// Whether the line has the key, with a value that is not null.
  bool has(FindingKey key) const { return keys_.test(static_cast<std::size_t>(key)); }

  /// Throws ValueFault when the line, whose object starts at `object`, lacks a key that every
  /// finding has.
  void require_those_of_a_finding(const char* object) const;

  /// Unknown keys, without those that are meant to be ignored, in the order of the line.
  const std::vector<UnknownKey>& unknown() const noexcept { return unknown_; }

 private:
  [[noreturn]] void refuse(FindingKey key, const char* where) const;
  std::string suggestion_for_missing(FindingKey key) const;

  /// Returns the key of the line that needs one of its own, nothing when it has none.
  std::optional<FindingKey> alone() const;

  bool is_null(FindingKey key) const { return nulls_.test(static_cast<std::size_t>(key)); }

  std::bitset<FINDING_KEY_NAMES.size()> keys_;
  std::bitset<FINDING_KEY_NAMES.size()> nulls_;
  std::vector<UnknownKey> unknown_;
  std::unordered_set<std::string_view> unknown_names_;
};

}  // namespace vond::standalone
