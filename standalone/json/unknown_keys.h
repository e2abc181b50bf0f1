#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vond::standalone {

/// A key that nobody knows, and where it stands.
struct UnknownKey {
  std::string_view key;
  const char* where;
};

/// True for keys that are meant to be ignored without a word: their writers keep notes in them.
inline bool is_private_key(std::string_view key) { return key.substr(0, 2) == "x-"; }

/// Counts unknown keys, for one warning each.
class UnknownKeys {
 public:
  /// `known` are the keys that may have been meant.
  explicit UnknownKeys(std::vector<std::string_view> known);

  /// Counts `key`, which stands at that place. Line and column count from 1.
  void add(std::string_view key, const std::string& file, std::size_t line, std::size_t column);

  /// Returns a message per key, in the order of their first places.
  std::vector<std::string> warnings() const;

 private:
  struct Entry {
    std::string place;
    std::string key;
    std::size_t times;
  };

  std::vector<std::string_view> known_;
  std::vector<Entry> entries_;
  std::unordered_map<std::string, std::size_t> positions_;
  /// Uses of keys that came when the list was full.
  std::size_t not_listed_ = 0;
};

}  // namespace vond::standalone
